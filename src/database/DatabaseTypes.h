#pragma once

#include <QStringList>

namespace database {

// Settings of Connection and Recordset.

/// Has no effect: Recordset::Open reads all rows into memory.
enum class CursorLocation { Server = 2, Client = 3 };
/// Read: every write on the connection fails.
enum class ConnectMode { Read = 1, ReadWrite = 3 };
/// ForwardOnly: rows already read may be freed.
enum class CursorType { ForwardOnly = 0, Keyset = 1 };
/// Optimistic: records can be added.
enum class LockType { ReadOnly = 1, Optimistic = 3 };

/// Columns whose text a provider must compare in the suite's way. Names are without their table and apply to every
/// table that has such a column. Set by the caller of Connection::Open, since this module knows no tables.
struct TextRules {
    QStringList sortedAsText;       ///< ORDER BY ignores letter case, width and kana type (CompareTexts)
    QStringList comparedCaseBlind;  ///< "=" ignores ASCII letter case; all other "=" is exact
};

/// How a key column is compared by SortRows.
struct SortKey {
    bool asText = false;  ///< by CompareTexts; otherwise bytewise
    bool descending = false;
};

}  // namespace database

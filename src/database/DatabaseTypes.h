#pragma once

#include <QStringList>

namespace database {

enum class CursorLocation { Server = 2, Client = 3 };
enum class ConnectMode { Read = 1, ReadWrite = 3 };
enum class CursorType { ForwardOnly = 0, Keyset = 1 };
enum class LockType { ReadOnly = 1, Optimistic = 3 };

/// Columns on which a provider must compare text as the suite's desktop engine does. Column names are without their
/// table. Supplied by the caller of Open; this module knows no columns.
struct TextRules {
    QStringList sortedAsText;       ///< ORDER BY ignores letter case, width and kana type
    QStringList comparedCaseBlind;  ///< "=" ignores ASCII letter case; all other "=" is exact
};

/// A sort key for sorting on the client.
struct SortKey {
    bool asText = false;  ///< by CompareTexts; otherwise bytewise
    bool descending = false;
};

}  // namespace database

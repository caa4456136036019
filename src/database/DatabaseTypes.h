#pragma once

#include <QStringList>

namespace database {

enum class CursorLocation { Server = 2, Client = 3 };
enum class ConnectMode { Read = 1, ReadWrite = 3 };
enum class CursorType { ForwardOnly = 0, Keyset = 1 };
enum class LockType { ReadOnly = 1, Optimistic = 3 };

/// What a provider must know of the meaning of columns to compare texts as the suite's desktop engine does.
/// Column names stand without their table. The platform knows no column by itself; whoever opens gives them.
struct TextRules {
    QStringList sortedAsText;       ///< ORDER BY on these ignores letter case, width and kana type
    QStringList comparedCaseBlind;  ///< "=" on these ignores ASCII letter case; all other "=" is exact
};

}  // namespace database

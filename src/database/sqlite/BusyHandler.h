#pragma once

struct sqlite3;

namespace database {

/// Sets the busy timeout: how long statements wait for locks of other programs before they fail with SQLITE_BUSY.
void WaitForLocks(sqlite3* database, int milliseconds) noexcept;

}  // namespace database

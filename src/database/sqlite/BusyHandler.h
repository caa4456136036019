#pragma once

struct sqlite3;

namespace database {

/// Lets every statement on the database wait that long for the locks of other programs before it fails as busy.
void WaitForLocks(sqlite3* database, int milliseconds) noexcept;

}  // namespace database

#pragma once

#include "database/sqlite/SqliteHandle.h"

namespace database {

/// Sets the busy timeout: statements that wait for locks of other programs fail with SQLITE_BUSY after this time
/// without a change of the file. While other programs write to it, they wait on, at most a minute, or until the program
/// is asked to end.
void WaitForLocks(SqliteDatabase& database, int milliseconds);

}  // namespace database

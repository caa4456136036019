#pragma once

#include "database/DatabaseSession.h"
#include "database/sqlite/SqliteHandle.h"

namespace database {

/// Opens the file that the request's data source names; it is never created. ConnectMode::Read, and a file that
/// this user may not write, are opened so that the engine refuses every write, and so that no file appears beside it;
/// one that was left in WAL mode is then read without locks (see IsWithoutLocks). Header and schema are read, so that
/// everything that is wrong with the file is told here, in Japanese: missing, a folder or another special file, empty,
/// another format (a Jet or ACE file with the way to bring it over), damaged or cut off, locked.
SqliteDatabase OpenSqliteFile(const ConnectionRequest& request);

/// Lets a short writing opening roll back what a killed writer left half done, which a read-only opening can't.
/// False where the file may not be written.
bool RollBackHotJournal(const QString& path);

/// Waiting for other programs' locks: 5 s, or the time-out in seconds if that is shorter; 0 is none.
int LockWaitMilliseconds(int timeoutSeconds);

/// The data source as a path of this platform: either separator is taken.
QString SqlitePath(const QString& dataSource);

}  // namespace database

#pragma once

#include "database/DatabaseSession.h"
#include "database/sqlite/SqliteHandle.h"

namespace database {

/// Opens the file of the request's data source; never creates it. With ConnectMode::Read, and if the user lacks write
/// permission, the engine rejects all writes and creates no files next to the database; a file left in WAL mode is then
/// read without locks (see IsWithoutLocks). Reads header and schema, and throws DatabaseError with a Japanese message
/// if the file is missing, a folder or special file, empty, of another format (for Jet and ACE files the message says
/// how to import them), damaged, truncated or locked.
SqliteDatabase OpenSqliteFile(const ConnectionRequest& request);

/// Opens the file for writing for a moment, so that the engine rolls back the transaction of a crashed writer, which a
/// read-only connection can't. `lockWait`: busy timeout in milliseconds. False if the user lacks write permission.
bool RollBackHotJournal(const QString& path, int lockWait);

/// Busy timeout: 5 s, or `timeoutSeconds` if that is positive and shorter.
int LockWaitMilliseconds(int timeoutSeconds);

/// The data source as a local path; accepts both "/" and "\" as separators.
QString SqlitePath(const QString& dataSource);

}  // namespace database

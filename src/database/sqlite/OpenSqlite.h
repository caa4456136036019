#pragma once

#include <sqlite3.h>
#include <QByteArray>
#include <QString>

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

/// How a reader opens a file. Normal readers of a file in WAL mode create a -shm and a -wal file.
enum class WalReading {
    Ordinary,      ///< not in WAL mode, or -shm and -wal exist and are in use
    WithoutLocks,  ///< in WAL mode with an empty -wal: open as immutable
    Refused        ///< in WAL mode, but the -wal has content that only a writer can checkpoint
};
WalReading WalReadingOf(const QString& path);

/// URI for the engine that opens the file as immutable: without locks and without additional files.
QByteArray NameWithoutLocks(const QString& path);
/// True if the database was opened with such a URI. The engine then does not notice changes by other programs.
bool IsWithoutLocks(sqlite3* database);

}  // namespace database

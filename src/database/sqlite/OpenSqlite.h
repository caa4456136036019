#pragma once

#include <sqlite3.h>
#include <QByteArray>
#include <QString>

#include "database/DatabaseSession.h"
#include "database/sqlite/SqliteHandle.h"

namespace database {

/// Opens the file of the request's data source; never creates it. With ConnectMode::Read, or if the user has no write
/// permission, the connection is read-only: the engine rejects all writes and creates no files. A file in WAL mode may
/// be opened without locks (see WalReading). Reads header and schema, and throws kEngineFailure with a Japanese message
/// if the file is missing, a folder or special file, empty, of another format (for Jet and ACE files the message
/// explains how to import them), damaged, truncated or locked, or if it is WalReading::Refused; otherwise the engine's
/// error.
SqliteDatabase OpenSqliteFile(const ConnectionRequest& request);

/// Opens the file for writing and closes it, so that the engine rolls back the transaction of a crashed writer, which a
/// read-only connection can't. `lockWait`: busy timeout in milliseconds. False if the user has no write permission or
/// the schema can't be read. Throws DatabaseError if the file can't be opened.
bool RollBackHotJournal(const QString& path, int lockWait);

/// Busy timeout in milliseconds: 5 s, or `timeoutSeconds` if that is positive and shorter.
int LockWaitMilliseconds(int timeoutSeconds);

/// The data source as an absolute path; "\" is converted to "/" unless the path exists as written. Empty if it is
/// empty.
QString SqlitePath(const QString& dataSource);

/// How a read-only connection opens a file. An ordinary one would create the -shm and -wal files of a database in WAL
/// mode, for which the user may have no permission.
enum class WalReading {
    Ordinary,      ///< not in WAL mode, or the -wal has content and a -shm exists
    WithoutLocks,  ///< in WAL mode with an empty -wal: open as immutable
    Refused        ///< in WAL mode, the -wal has content and there is no -shm: only a writer can read the content
};
WalReading WalReadingOf(const QString& path);

/// URI for the engine that opens the file as immutable: without locks and without additional files.
QByteArray NameWithoutLocks(const QString& path);
/// True if the database was opened with such a URI. The engine then does not detect changes by other programs.
bool IsWithoutLocks(sqlite3* database);

}  // namespace database

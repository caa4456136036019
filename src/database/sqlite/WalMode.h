#pragma once

#include <sqlite3.h>

#include <QByteArray>
#include <QString>

namespace database {

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

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

/// Changes when the file is written or replaced.
struct FileVersion {
    quint64 inode = 0;
    qint64 size = 0, seconds = 0, nanoseconds = 0;
    bool operator==(const FileVersion&) const = default;
};
FileVersion FileVersionOf(const QString& path);

}  // namespace database

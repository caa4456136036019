#pragma once

#include <sqlite3.h>

#include <QByteArray>
#include <QString>

namespace database {

/// How a reader opens a file. An ordinary reader of a file in WAL mode makes a -shm and a -wal file beside it.
enum class WalReading {
    Ordinary,      ///< the file is not in WAL mode, or the side files are there and in use
    WithoutLocks,  ///< in WAL mode, and everything is in the file itself: read it as one that does not change
    Refused        ///< in WAL mode with content in the -wal file that only a writer can bring into the file
};
WalReading WalReadingOf(const QString& path);

/// Name for the engine (an URI) that opens the file without locks and without a file beside it.
QByteArray NameWithoutLocks(const QString& path);
/// True for a database that was opened under such a name: the engine does not notice what others write.
bool IsWithoutLocks(sqlite3* database);

/// Changes whenever the file is written or replaced.
struct FileVersion {
    quint64 inode = 0;
    qint64 size = 0, seconds = 0, nanoseconds = 0;
    bool operator==(const FileVersion&) const = default;
};
FileVersion FileVersionOf(const QString& path);

}  // namespace database

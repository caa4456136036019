#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

namespace platform {

/// Result of reading a path that must be a regular file.
enum class FileRead {
    Done,
    Missing,
    Denied,    ///< no read permission, or no search permission on a parent folder
    NotPlain,  ///< a folder, pipe, socket or device; never read, so the call does not block
    TooLarge,  ///< larger than the limit; not read
    Failed,    ///< read error
};

/// Opens the file for reading; `more` is added to the open mode. Follows symbolic links. Never blocks, unlike a plain
/// open of a pipe without a writer or of a device.
FileRead OpenPlainFile(const QString& path, QFile& file, QIODevice::OpenMode more = {});
/// The same for a QFile with its file name set. True if it is open.
inline bool OpenPlainFile(QFile& file, QIODevice::OpenMode more = {}) {
    return OpenPlainFile(file.fileName(), file, more) == FileRead::Done;
}
/// Reads the whole file of at most `limit` bytes. `content` is changed on Done only.
FileRead ReadPlainFile(const QString& path, qint64 limit, QByteArray& content);
/// True if both are regular files with equal bytes.
bool SameContent(const QString& one, const QString& other);

/// Identifies a state of a file: changes when the file is written or replaced.
struct FileVersion {
    quint64 inode = 0;
    qint64 size = 0, seconds = 0, nanoseconds = 0;
    bool operator==(const FileVersion&) const = default;
};
/// All zero for a missing file.
FileVersion FileVersionOf(const QString& path);

/// True if something other than a regular file exists at `path`: a folder, pipe, socket or device.
bool IsSpecialFile(const QString& path);
/// True if the process may write the file (effective ids).
bool MayWriteFile(const QString& path);

}  // namespace platform

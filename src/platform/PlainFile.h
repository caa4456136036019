#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

namespace platform {

/// Result of opening or reading a path that must be a regular file ("plain").
enum class FileRead {
    Done,
    Missing,
    Denied,    ///< no permission for the file or a parent folder, or any other failure of opening
    NotPlain,  ///< a folder, pipe, socket or device; never read, so the call does not block
    TooLarge,  ///< larger than the limit; not read
    Failed,    ///< read error
};

/// Opens the file for reading; `more` is added to the open mode. Follows symbolic links. Never blocks, although opening
/// a pipe or a device normally may. Returns Done, Missing, Denied, NotPlain or Failed.
FileRead OpenPlainFile(const QString& path, QFile& file, QIODevice::OpenMode more = {});
/// The same for a QFile with its file name set. True if it is open.
inline bool OpenPlainFile(QFile& file, QIODevice::OpenMode more = {}) {
    return OpenPlainFile(file.fileName(), file, more) == FileRead::Done;
}
/// Reads the whole file of at most `limit` bytes. `content` is changed on Done only.
FileRead ReadPlainFile(const QString& path, qint64 limit, QByteArray& content);
/// True if both are regular files with equal bytes; false also if one cannot be read.
bool SameContent(const QString& one, const QString& other);

/// Identifies a state of a file: differs after the file has been written or replaced.
struct FileVersion {
    quint64 inode = 0;
    qint64 size = 0, seconds = 0, nanoseconds = 0;  ///< size in bytes; time of the last write
    bool operator==(const FileVersion&) const = default;
};
/// The current state; all zero for a missing file. Follows symbolic links.
FileVersion FileVersionOf(const QString& path);

/// True if `path` leads to something other than a regular file: a folder, pipe, socket or device. False if it does not
/// exist.
bool IsSpecialFile(const QString& path);
/// True if the effective user and group may write the file.
bool MayWriteFile(const QString& path);

}  // namespace platform

#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

namespace platform {

/// Result of reading a file that must be a plain one.
enum class FileRead {
    Done,
    Missing,
    Denied,    ///< the user may not read it, or a folder on the way to it can't be entered
    NotPlain,  ///< a folder, pipe, socket or device; it is not read, and nothing waits for what it might deliver
    TooLarge,  ///< longer than the limit; it is not read
    Failed,    ///< the disk failed while it was read
};

/// Opens the file for reading; `more` is added to the mode. Symbolic links are followed. Never waits: a pipe without a
/// writer or a device would block an ordinary opening.
FileRead OpenPlainFile(const QString& path, QFile& file, QIODevice::OpenMode more = {});
/// The same for a file that has its name. True if it is open.
inline bool OpenPlainFile(QFile& file, QIODevice::OpenMode more = {}) {
    return OpenPlainFile(file.fileName(), file, more) == FileRead::Done;
}
/// The whole content, up to `limit` bytes.
FileRead ReadPlainFile(const QString& path, qint64 limit, QByteArray& content);
/// True when both are plain files with the same bytes.
bool SameContent(const QString& one, const QString& other);

/// True where something exists at `path` that is no plain file: a folder, a pipe, a socket or a device.
bool IsSpecialFile(const QString& path);
/// True where this process may write the file, by its effective rights.
bool MayWriteFile(const QString& path);

}  // namespace platform

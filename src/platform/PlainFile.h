#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

namespace platform {

/// What became of reading a file that must be a plain one.
enum class FileRead {
    Done,
    Missing,
    Denied,    ///< the user may not read it, or a folder on the way to it can't be entered
    NotPlain,  ///< a folder, pipe, socket or device; it is not read, and nothing waits for what it might deliver
    TooLarge,  ///< longer than the limit; it is not read
    Failed,    ///< the disk failed while it was read
};

/// Opens the file for reading. Links on the way are followed.
FileRead OpenPlainFile(const QString& path, QFile& file);
/// The whole content, up to `limit` bytes.
FileRead ReadPlainFile(const QString& path, qint64 limit, QByteArray& content);
/// True when both are plain files with the same bytes.
bool SameContent(const QString& one, const QString& other);

}  // namespace platform

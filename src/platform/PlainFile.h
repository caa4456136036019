#pragma once

#include <QFile>
#include <QString>

namespace platform {

/// Opens for reading what is a plain file, its symbolic links followed. False for anything else and without the right
/// to read. Never waits: a pipe without a writer or a device would block an ordinary opening. `more` is added to the
/// mode.
bool OpenPlainFile(QFile& file, QIODevice::OpenMode more = {});

/// True where something exists at `path` that is no plain file: a folder, a pipe, a socket or a device.
bool IsSpecialFile(const QString& path);

/// True where this process may write the file, by its effective rights.
bool MayWriteFile(const QString& path);

}  // namespace platform

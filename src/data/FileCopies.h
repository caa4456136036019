#pragma once

#include <QString>

/// True if the path is an existing file, not a folder.
bool FileExistsCheck(const QString& path);
/// Copies and overwrites the target. Returns false on failure, shows no message.
bool CopyFileOver(const QString& source, const QString& target);

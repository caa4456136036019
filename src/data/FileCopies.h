#pragma once

#include <QString>

/// True for an existing file that is not a folder.
bool FileExistsCheck(const QString& path);
/// Copies over whatever stands at the target. A failure gives False and no message.
bool CopyFileOver(const QString& source, const QString& target);

#pragma once

#include <QString>

/// Creates the missing folders up to the last separator of a path; the part after it may be a file name. Accepts
/// network paths ("\\", server and share must exist), drive paths (":\") and absolute paths of this platform; does
/// nothing for others. Both separators are accepted. If a folder cannot be created, stops with a message box; throws
/// nothing.
void EnsureFolderPath(const QString& path);

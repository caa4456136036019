#pragma once

#include <QString>

/// Makes the folders that are missing on the way to the last separator of a path; what stands behind it may be a file's
/// name and is left alone. Network paths (with "\\", server and share taken as they are), drive paths (with ":\") and
/// absolute paths of this platform; any other path is left alone. Either separator counts. A folder that can't be made
/// ends it with a message box, and nothing rises.
void EnsureFolderPath(const QString& path);

#pragma once

#include <QString>

namespace platform {

/// Waits until what was written to an open file is on the disk. False when it does not get there; that is the only
/// sign of a full disk on file systems that reserve their blocks late. A file system that can't wait for the disk is
/// no failure.
bool SyncFile(int descriptor);
/// The same for the names in a folder: a file that was made or renamed there keeps its name after a power failure.
bool SyncFolder(const QString& folder);

}  // namespace platform

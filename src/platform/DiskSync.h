#pragma once

#include <QString>

namespace platform {

/// fsync on an open file. False on failure; on file systems with delayed allocation this is the only report of a full
/// disk. A file system without fsync counts as success.
bool SyncFile(int descriptor);
/// fsync on a folder, so that files created or renamed in it keep their names after a power failure. False on failure.
bool SyncFolder(const QString& folder);

}  // namespace platform

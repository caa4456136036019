// Part of AtomicFile.h: SyncFile and SyncFolder.

#include "platform/AtomicFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <QFile>
#include <cerrno>

namespace platform {

bool SyncFile(int descriptor) {
    int result = 0;
    do result = ::fsync(descriptor);
    while (result != 0 && errno == EINTR);
    return result == 0 || errno == EINVAL || errno == ENOTSUP || errno == EROFS;
}

bool SyncFolder(const QString& folder) {
    const int descriptor = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    // A folder without read permission can't be opened for fsync; files may still be created in it.
    if (descriptor < 0) return errno == EACCES;
    const bool synced = SyncFile(descriptor);
    ::close(descriptor);
    return synced;
}

}  // namespace platform

#include "platform/DiskSync.h"

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
    // A folder that takes files and can't be listed has no descriptor to wait on.
    if (descriptor < 0) return errno == EACCES;
    const bool synced = SyncFile(descriptor);
    ::close(descriptor);
    return synced;
}

}  // namespace platform

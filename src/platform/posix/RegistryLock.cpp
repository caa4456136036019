#include "platform/posix/RegistryLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <cerrno>
#include <chrono>
#include <thread>

#include "platform/Registry.h"

using namespace Qt::StringLiterals;

namespace platform {
namespace {

constexpr mode_t kOwnerOnly = 0600;
constexpr auto kLockTimeout = std::chrono::seconds(5);
constexpr auto kPause = std::chrono::milliseconds(5);

long TakeLock(int file) {
    const auto end = std::chrono::steady_clock::now() + kLockTimeout;
    while (::flock(file, LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR) return kRegistryDenied;
        if (std::chrono::steady_clock::now() > end) return kRegistryLocked;
        std::this_thread::sleep_for(kPause);
    }
    return kRegistryDone;
}

/// Opens the lock file; -1 on failure. Any process that can open it can block writers by holding the lock, so its mode
/// is 0600; also corrected for files that an earlier version created as world-readable.
int OpenLock(const QString& path) {
    const int flags = O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    const int file = ::open(QFile::encodeName(path).constData(), flags, kOwnerOnly);
    if (file < 0) return -1;
    struct stat state = {};
    if (::fstat(file, &state) == 0 && S_ISREG(state.st_mode)) {
        if ((state.st_mode & ALLPERMS) != kOwnerOnly && state.st_uid == ::geteuid()) ::fchmod(file, kOwnerOnly);
        return file;
    }
    ::close(file);
    return -1;
}

}  // namespace

RegistryLock::RegistryLock(const QString& file)
    : lock_(OpenLock(file + u".lock"_s)), status_(lock_ < 0 ? kRegistryDenied : TakeLock(lock_)) {}

RegistryLock::~RegistryLock() {
    if (lock_ >= 0) ::close(lock_);
}

}  // namespace platform

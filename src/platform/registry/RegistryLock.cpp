#include "platform/registry/RegistryLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <QFile>
#include <cerrno>
#include <chrono>
#include <thread>

#include "platform/Registry.h"

using namespace Qt::StringLiterals;

namespace platform {
namespace {

constexpr auto kPatience = std::chrono::seconds(5);
constexpr auto kPause = std::chrono::milliseconds(5);

long TakeLock(int file) {
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (::flock(file, LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR) return kRegistryDenied;
        if (std::chrono::steady_clock::now() > end) return kRegistryLocked;
        std::this_thread::sleep_for(kPause);
    }
    return kRegistryDone;
}

}  // namespace

RegistryLock::RegistryLock(const QString& file)
    : lock_(::open(QFile::encodeName(file + u".lock"_s).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0644)),
      status_(lock_ < 0 ? kRegistryDenied : TakeLock(lock_)) {}

RegistryLock::~RegistryLock() {
    if (lock_ >= 0) ::close(lock_);
}

}  // namespace platform

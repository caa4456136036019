#include "platform/database/AnswerWatch.h"

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <string>
#include <system_error>

namespace platform {
namespace {

bool IsNetworkConnection(int descriptor) {
    sockaddr_storage peer = {};
    socklen_t size = sizeof peer;
    if (::getpeername(descriptor, reinterpret_cast<sockaddr*>(&peer), &size) != 0) return false;
    return peer.ss_family == AF_INET || peer.ss_family == AF_INET6;
}

struct Socket {
    int descriptor;
    unsigned long identity;  // a descriptor's number comes again, this does not as long as the socket is there
};

std::vector<Socket> NetworkConnections() {
    std::vector<Socket> found;
    std::error_code unreadable;
    std::filesystem::directory_iterator entry("/proc/self/fd", unreadable);
    for (; !unreadable && entry != std::filesystem::directory_iterator(); entry.increment(unreadable)) {
        const std::string name = entry->path().filename();
        int descriptor = -1;
        std::from_chars(name.data(), name.data() + name.size(), descriptor);
        struct stat status = {};
        if (IsNetworkConnection(descriptor) && ::fstat(descriptor, &status) == 0)
            found.push_back({descriptor, status.st_ino});
    }
    return found;
}

}  // namespace

AnswerWatch::AnswerWatch() {
    for (const Socket& socket : NetworkConnections()) before_.insert(socket.identity);
}

AnswerWatch::~AnswerWatch() {
    if (thread_.joinable()) {
        {
            const std::lock_guard lock(mutex_);
            over_ = true;
        }
        changed_.notify_one();
        thread_.join();
    }
    for (const int socket : sockets_) ::close(socket);
}

void AnswerWatch::Begin(Clock::duration patience) {
    if (patience <= Clock::duration::zero()) return;
    for (const Socket& socket : NetworkConnections()) {
        if (before_.count(socket.identity) != 0) continue;
        // The driver may close its own at any time, and the number may be another file's when the time is over.
        const int own = ::fcntl(socket.descriptor, F_DUPFD_CLOEXEC, 0);
        if (own >= 0) sockets_.push_back(own);
    }
    if (sockets_.empty()) return;
    patience_ = patience;
    try {
        thread_ = std::thread([this] { Watch(); });
    } catch (const std::system_error&) {
        // Without a thread nothing is watched.
    }
}

bool AnswerWatch::Ended() const {
    const std::lock_guard lock(mutex_);
    return ended_;
}

// A turn need not wake the watcher: one that begins while it sleeps ends no earlier than it wakes by itself.
void AnswerWatch::Watch() {
    std::unique_lock lock(mutex_);
    while (!over_) {
        const Clock::time_point now = Clock::now();
        if (deadline_ <= now) {
            ended_ = true;
            for (const int socket : sockets_) ::shutdown(socket, SHUT_RDWR);
            return;
        }
        changed_.wait_until(lock, std::min(deadline_, now + patience_));
    }
}

AnswerWatch::Turn::Turn(AnswerWatch& watch) : watch_(watch) {
    const std::lock_guard lock(watch_.mutex_);
    outermost_ = watch_.deadline_ == Clock::time_point::max();
    if (outermost_ && watch_.thread_.joinable()) watch_.deadline_ = Clock::now() + watch_.patience_;
}

AnswerWatch::Turn::~Turn() {
    if (!outermost_) return;
    const std::lock_guard lock(watch_.mutex_);
    watch_.deadline_ = Clock::time_point::max();
}

}  // namespace platform

#include "platform/NewConnections.h"

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

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
    quint64 inode;  // unlike the descriptor number, not reused while the socket is open
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

NewConnections::NewConnections() {
    for (const Socket& socket : NetworkConnections()) earlier_.insert(socket.inode);
}

NewConnections::~NewConnections() {
    for (const int socket : taken_) ::close(socket);
}

void NewConnections::Take() {
    for (const Socket& socket : NetworkConnections()) {
        if (earlier_.count(socket.inode) != 0) continue;
        const int duplicate = ::fcntl(socket.descriptor, F_DUPFD_CLOEXEC, 0);
        if (duplicate >= 0) taken_.push_back(duplicate);
    }
}

void NewConnections::ShutDown() const {
    for (const int socket : taken_) ::shutdown(socket, SHUT_RDWR);
}

}  // namespace platform

#include "platform/report-host/HostSocket.h"

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <utility>

#include "platform/ReportHostLink.h"
#include "platform/RuntimeError.h"

using namespace Qt::StringLiterals;

namespace platform {
namespace {

constexpr mode_t kOwnerOnly = 0700;
constexpr qsizetype kLongestFolder = 60;  // sun_path is limited to 107 bytes
constexpr int kPendingConnections = 16;

bool IsOwnFolder(const QByteArray& folder) {
    struct stat found = {};
    return ::lstat(folder.constData(), &found) == 0 && S_ISDIR(found.st_mode) && found.st_uid == ::getuid() &&
           (found.st_mode & 0777) == kOwnerOnly;
}

/// TMPDIR is used only if it is absolute and short enough for a socket path.
QByteArray FolderInTemporary() {
    const QByteArray name = "/youin-meibo-" + QByteArray::number(::getuid());
    const QByteArray temporary = qgetenv("TMPDIR");
    const bool usable = temporary.startsWith('/') && temporary.size() + name.size() <= kLongestFolder;
    return (usable ? temporary : "/tmp") + name;
}

sockaddr_un Address(const QByteArray& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, path.constData(), qMin<size_t>(path.size(), sizeof address.sun_path - 1));
    return address;
}

int NewSocket() { return ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0); }

template <typename Call>
bool OnAddress(const QByteArray& path, Call call) {
    const sockaddr_un address = Address(path);
    return call(reinterpret_cast<const sockaddr*>(&address), static_cast<socklen_t>(sizeof address)) == 0;
}

/// Connects to the process of this user that listens at the path; -1 if there is none.
int ConnectTo(const QByteArray& path) {
    const int socket = NewSocket();
    if (OnAddress(path, [socket](auto* address, auto size) { return ::connect(socket, address, size); }) &&
        PeerIsSameUser(socket))
        return socket;
    ::close(socket);
    return -1;
}

quint64 InodeOf(const QByteArray& path) {
    struct stat found = {};
    return ::lstat(path.constData(), &found) == 0 ? found.st_ino : 0;
}

/// Removes the temporary sockets of processes that were killed before they had taken the path.
void RemoveDeadSockets(const QByteArray& path) {
    const QFileInfo socket(QFile::decodeName(path));
    const QDir folder = socket.dir();
    for (const QString& entry : folder.entryList({socket.fileName() + u".*"_s}, QDir::System)) {
        bool isNumber = false;
        const pid_t process = entry.mid(socket.fileName().size() + 1).toInt(&isNumber);
        if (isNumber && process > 0 && ::kill(process, 0) != 0 && errno == ESRCH) QFile::remove(folder.filePath(entry));
    }
}

}  // namespace

QByteArray HostFolder() {
    const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
    if (!runtime.isEmpty() && runtime.size() <= kLongestFolder && IsOwnFolder(runtime)) return runtime;
    const QByteArray folder = FolderInTemporary();
    ::mkdir(folder.constData(), kOwnerOnly);
    if (IsOwnFolder(folder)) return folder;
    throw RuntimeError(kHostNotFound,
                       u"フォルダ「%1」は自分専用のものではないため、帳票ホストとの連絡に使えません。"_s.arg(
                           QFile::decodeName(folder)));
}

bool PeerIsSameUser(int socket) {
    ucred peer = {};
    socklen_t size = sizeof peer;
    return ::getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 && peer.uid == ::geteuid();
}

bool HostSocket::Listen(const QString& path, const QByteArray& message) {
    path_ = QFile::encodeName(path);
    socket_ = NewSocket();
    if (!ListenAtTemporaryPath() || !TakePath(message)) {
        ::unlink(TemporaryPath().constData());
        ::close(std::exchange(socket_, -1));
    }
    RemoveDeadSockets(path_);
    return IsOpen();
}

QByteArray HostSocket::TemporaryPath() const { return path_ + '.' + QByteArray::number(::getpid()); }

/// At the final path clients would be refused between bind() and listen().
bool HostSocket::ListenAtTemporaryPath() {
    const QByteArray path = TemporaryPath();
    ::unlink(path.constData());
    return OnAddress(path, [this](auto* address, auto size) { return ::bind(socket_, address, size); }) &&
           ::listen(socket_, kPendingConnections) == 0;
}

bool HostSocket::TakePath(const QByteArray& message) {
    const QByteArray path = TemporaryPath();
    const int older = ConnectTo(path_);
    inode_ = InodeOf(path);
    const bool taken = ::rename(path.constData(), path_.constData()) == 0;
    if (older >= 0) {
        if (taken) ::send(older, message.constData(), static_cast<size_t>(message.size()), MSG_NOSIGNAL);
        ::close(older);
    }
    return taken;
}

bool HostSocket::OwnsPath() const { return InodeOf(path_) == inode_; }

int HostSocket::Accept() const {
    for (;;) {
        const int connection = ::accept4(socket_, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
        if (connection < 0 || PeerIsSameUser(connection)) return connection;
        ::close(connection);
    }
}

void HostSocket::Close() {
    if (socket_ < 0) return;
    if (OwnsPath()) ::unlink(path_.constData());
    ::close(std::exchange(socket_, -1));
}

}  // namespace platform

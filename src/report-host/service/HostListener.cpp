#include "report-host/service/HostListener.h"

#include <fcntl.h>
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

#include "platform/RuntimeError.h"
#include "platform/report-host/HostMessages.h"
#include "platform/report-host/SocketPeer.h"

namespace {

constexpr int kBacklog = 16;

sockaddr_un Address(const QByteArray& name) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, name.constData(), qMin<size_t>(name.size(), sizeof address.sun_path - 1));
    return address;
}

int NewSocket() { return ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0); }

template <typename Call>
bool OnAddress(const QByteArray& name, Call call) {
    const sockaddr_un address = Address(name);
    return call(reinterpret_cast<const sockaddr*>(&address), static_cast<socklen_t>(sizeof address)) == 0;
}

/// Connects to the host of this user that has the name now; -1 if there is none.
int ConnectTo(const QByteArray& name) {
    const int client = NewSocket();
    if (OnAddress(name, [client](auto* address, auto size) { return ::connect(client, address, size); }) &&
        platform::PeerIsSameUser(client))
        return client;
    ::close(client);
    return -1;
}

quint64 InodeOf(const QByteArray& name) {
    struct stat found = {};
    return ::lstat(name.constData(), &found) == 0 ? found.st_ino : 0;
}

/// Removes the sockets that hosts of the same template file left because they were killed before they had the name.
void RemoveStaleSockets(const QByteArray& name) {
    const QFileInfo socket(QFile::decodeName(name));
    const QDir folder = socket.dir();
    for (const QString& entry : folder.entryList({socket.fileName() + QStringLiteral(".*")}, QDir::System)) {
        bool isNumber = false;
        const pid_t process = entry.mid(socket.fileName().size() + 1).toInt(&isNumber);
        if (isNumber && process > 0 && ::kill(process, 0) != 0 && errno == ESRCH) QFile::remove(folder.filePath(entry));
    }
}

}  // namespace

HostListener::HostListener(const QString& templateFile) {
    try {
        name_ = QFile::encodeName(platform::HostSocketPath(templateFile));
    } catch (const platform::RuntimeError& error) {
        openError_ = error.Description();
        return;
    }
    socket_ = NewSocket();
    temporaryName_ = name_ + '.' + QByteArray::number(::getpid());
    if (!Listen() || !TakeName()) {
        ::unlink(temporaryName_.constData());
        ::close(std::exchange(socket_, -1));
    }
    RemoveStaleSockets(name_);
}

/// Listens under a temporary name first: a bound socket refuses connections until listen() has been called.
bool HostListener::Listen() {
    ::unlink(temporaryName_.constData());
    return OnAddress(temporaryName_, [this](auto* address, auto size) { return ::bind(socket_, address, size); }) &&
           ::listen(socket_, kBacklog) == 0;
}

bool HostListener::TakeName() {
    const int older = ConnectTo(name_);
    inode_ = InodeOf(temporaryName_);
    const bool taken = ::rename(temporaryName_.constData(), name_.constData()) == 0;
    if (older >= 0) {
        const QByteArray release = platform::LineOf({.verb = platform::HostVerb::Release, .report = {}, .view = 0});
        if (taken) ::send(older, release.constData(), static_cast<size_t>(release.size()), MSG_NOSIGNAL);
        ::close(older);
    }
    return taken;
}

bool HostListener::OwnsPath() const { return InodeOf(name_) == inode_; }

int HostListener::Accept() const {
    for (;;) {
        const int client = ::accept4(socket_, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
        if (client < 0 || platform::PeerIsSameUser(client)) return client;
        ::close(client);
    }
}

void HostListener::Close() {
    if (socket_ < 0) return;
    if (OwnsPath()) ::unlink(name_.constData());
    ::close(std::exchange(socket_, -1));
}

#pragma once

#include <QByteArray>
#include <QString>

namespace platform {

/// Folder for the sockets of this user's report hosts: XDG_RUNTIME_DIR if it is a private folder of the user with a
/// path of at most 60 bytes, otherwise a folder created below TMPDIR or /tmp. Throws RuntimeError kHostNotFound if the
/// latter is a link, belongs to another user or is accessible to others: another user's program might be listening
/// there.
QByteArray HostFolder();

/// True if the process at the other end of a connected local socket has this process's effective user id.
bool PeerIsSameUser(int socket);

/// Listening local socket at a path at which another process of this user may be listening: the new socket replaces the
/// older one atomically, so that a client always finds one of them.
class HostSocket {
  public:
    HostSocket() = default;
    ~HostSocket() { Close(); }
    HostSocket(const HostSocket&) = delete;
    HostSocket& operator=(const HostSocket&) = delete;

    /// Listens at `path`, sends `message` to the process that was listening there, and removes the temporary sockets
    /// that killed processes have left next to the path. False on a system error. To be called once. A temporary socket
    /// has the path with "." and the process id, which must fit into the 107 bytes of a socket address.
    bool Listen(const QString& path, const QByteArray& message);
    bool IsOpen() const { return socket_ >= 0; }
    /// For a notifier; -1 if it is not open.
    int Descriptor() const { return socket_; }
    /// Accepts the next connection and returns its descriptor (non-blocking; the caller closes it); -1 if none is
    /// pending. Connections of other users are closed.
    int Accept() const;
    /// Stops listening. Removes the socket file unless another process has replaced it.
    void Close();

  private:
    bool ListenAtTemporaryPath();
    bool TakePath(const QByteArray& message);
    bool OwnsPath() const;
    QByteArray TemporaryPath() const;

    QByteArray path_;
    int socket_ = -1;
    quint64 inode_ = 0;  // of the socket file that this object created
};

}  // namespace platform

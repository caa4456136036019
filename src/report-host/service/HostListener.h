#pragma once

#include <QString>

/// Listening socket of a report host; its name is derived from the template file. Opened before anything else, even the
/// application object, because a client connects once, 400 ms after starting the host.
///
/// A new host takes the name over from a running one and sends it HostVerb::Release.
class HostListener {
  public:
    /// Opens the socket; check IsOpen.
    explicit HostListener(const QString& templateFile);
    ~HostListener() { Close(); }
    HostListener(const HostListener&) = delete;
    HostListener& operator=(const HostListener&) = delete;

    bool IsOpen() const { return socket_ >= 0; }
    /// Why it could not be opened, as a Japanese sentence; empty if there is only a system error.
    const QString& OpenError() const { return openError_; }
    /// Descriptor of the listening socket, for a notifier.
    int Socket() const { return socket_; }
    /// Accepts the next connection and returns its descriptor; -1 if none is pending. Connections of other users are
    /// closed.
    int Accept() const;
    /// Stops listening. Removes the socket file unless another host has taken it over.
    void Close();

  private:
    bool Listen();
    bool TakeName();
    bool OwnsPath() const;

    QByteArray name_, temporaryName_;
    QString openError_;
    int socket_ = -1;
    quint64 inode_ = 0;  ///< of the socket file that this host created
};

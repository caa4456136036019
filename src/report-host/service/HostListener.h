#pragma once

#include <QString>

/// Where programs find a host: the socket of its forms file. It is opened before anything else is made, even the
/// application object, since a program gives a host it has started no more than 400 ms to be found.
///
/// The host that was started last has the door: it takes it over from an older one, which is told to step aside.
class HostListener {
  public:
    /// Opens the door. `IsOpen` tells whether that went well.
    explicit HostListener(const QString& formsFile);
    ~HostListener() { Close(); }
    HostListener(const HostListener&) = delete;
    HostListener& operator=(const HostListener&) = delete;

    bool IsOpen() const { return socket_ >= 0; }
    /// Why it could not be opened, in a Japanese sentence; empty where only the system knows.
    const QString& Refusal() const { return refusal_; }
    /// The listening socket, to be watched for callers.
    int Socket() const { return socket_; }
    /// Descriptor of the next caller of the same user; -1 when none waits. Callers of other users are disconnected.
    int Accept() const;
    /// Nobody finds this host any more. The name goes too, unless another host has taken it over.
    void Close();

  private:
    bool Listen();
    bool TakeName();
    bool OwnsPath() const;

    QByteArray name_;
    QString refusal_;
    int socket_ = -1;
    quint64 inode_ = 0;  ///< of the name as this host made it
};

#pragma once

#include <QString>

#include "platform/report-host/HostSocket.h"

/// Listening socket of a report host; its path is derived from that of the template file. Opened before anything else,
/// even the application object, because a client connects once, 400 ms after starting the host.
///
/// A new host replaces the socket of a running one and sends that host HostVerb::Release.
class HostListener {
  public:
    /// Opens the socket for the template file at this path. Throws nothing: check IsOpen.
    explicit HostListener(const QString& templateFile);

    bool IsOpen() const { return socket_.IsOpen(); }
    /// Why it could not be opened, as a Japanese sentence; empty if there is only a system error.
    const QString& OpenError() const { return openError_; }
    /// Descriptor of the listening socket, for a notifier.
    int Socket() const { return socket_.Descriptor(); }
    /// Accepts the next connection and returns its descriptor; -1 if none is pending. Connections of other users are
    /// closed.
    int Accept() const { return socket_.Accept(); }
    /// Stops listening. Removes the socket file unless another host has taken it over.
    void Close() { socket_.Close(); }

  private:
    platform::HostSocket socket_;
    QString openError_;
};

#pragma once

#include <QString>
#include <QtGlobal>

/// A TCP relay on loopback between a program and its server, with fault injection. A separate process, so that its
/// sockets are not among those of the program under test.
class NetworkRelay {
  public:
    /// `server` as "127.0.0.1:PORT".
    explicit NetworkRelay(const QString& server);
    ~NetworkRelay();
    NetworkRelay(const NetworkRelay&) = delete;
    NetworkRelay& operator=(const NetworkRelay&) = delete;

    /// The relay's address, in the same form.
    QString Address() const;
    /// From now on drops all data in both directions and keeps the connections open.
    void FallSilent() { Tell('s'); }
    /// Resets all connections.
    void Break() { Tell('b'); }

  private:
    /// Returns once the relay has obeyed.
    void Tell(char command) const;

    quint16 port_ = 0;
    int control_ = -1;
    pid_t process_ = -1;
};

#pragma once

#include <QString>
#include <QtGlobal>

/// Stands between a program and its server, on a port of loopback, and passes on what each says: until the network
/// falls silent, or breaks. A process of its own, as it is none of the program's connections.
class NetworkRelay {
  public:
    /// `server` as "127.0.0.1:PORT".
    explicit NetworkRelay(const QString& server);
    ~NetworkRelay();
    NetworkRelay(const NetworkRelay&) = delete;
    NetworkRelay& operator=(const NetworkRelay&) = delete;

    /// Where programs find it, in the same form.
    QString Address() const;
    /// From now on nothing comes through in either direction, and nobody is told.
    void FallSilent() { Tell('s'); }
    /// Every connection is reset, as by a machine that has no memory of it.
    void Break() { Tell('b'); }

  private:
    /// Comes back when it is done.
    void Tell(char command) const;

    quint16 port_ = 0;
    int control_ = -1;
    pid_t process_ = -1;
};

#pragma once

#include <QByteArray>

namespace platform {

/// The folder for the sockets of this user's report hosts: XDG_RUNTIME_DIR, otherwise one that is made in the temporary
/// directory. Throws RuntimeError kHostNotFound where a folder of that name exists that other users own, reach by a
/// link or may enter: what listens there need not be a host of this user.
QByteArray HostFolder();

}  // namespace platform

#pragma once

#include <QByteArray>

namespace platform {

/// Folder for the sockets of this user's report hosts: XDG_RUNTIME_DIR, otherwise a folder created below TMPDIR or
/// /tmp. Throws RuntimeError kHostNotFound if the latter is a link, belongs to another user or is accessible to others:
/// another user's program might be listening there.
QByteArray HostFolder();

}  // namespace platform

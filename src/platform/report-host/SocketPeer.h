#pragma once

namespace platform {

/// True if the peer of a connected local socket has this process's user id. Checks the credentials at the time of
/// connect or listen.
bool PeerIsSameUser(int socket);

}  // namespace platform

#pragma once

namespace platform {

/// True when the process at the other end of a connected local socket runs under the user id of this one. The other
/// end counts as it was when it connected or began to listen.
bool PeerIsSameUser(int socket);

}  // namespace platform

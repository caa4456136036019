#include "platform/report-host/SocketPeer.h"

#include <sys/socket.h>
#include <unistd.h>

namespace platform {

bool PeerIsSameUser(int socket) {
    ucred peer = {};
    socklen_t size = sizeof peer;
    return ::getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 && peer.uid == ::geteuid();
}

}  // namespace platform

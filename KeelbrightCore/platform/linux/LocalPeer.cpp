#include "KeelbrightCore/platform/system/LocalPeer.h"

#include <sys/socket.h>
#include <unistd.h>

namespace keelbright {

bool isPeerOfThisUser(qintptr socket)
{
    ucred peer = {};
    socklen_t size = sizeof(peer);
    return ::getsockopt(static_cast<int>(socket), SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 &&
           peer.uid == ::geteuid();
}

} // namespace keelbright

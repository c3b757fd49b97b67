#include "KeelbrightCore/platform/system/LocalPeer.h"

#include <sys/socket.h>
#include <unistd.h>

namespace keelbright {

bool isPeerOfThisUser(qintptr socket)
{
    const int descriptor = static_cast<int>(socket);
#ifdef __APPLE__
    uid_t user = 0;
    gid_t group = 0;
    return ::getpeereid(descriptor, &user, &group) == 0 && user == ::geteuid();
#else
    ucred peer = {};
    socklen_t size = sizeof(peer);
    return ::getsockopt(descriptor, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 && peer.uid == ::geteuid();
#endif
}

} // namespace keelbright

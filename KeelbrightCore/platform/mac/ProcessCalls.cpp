#include "KeelbrightCore/platform/system/ProcessCalls.h"

#include <fcntl.h>
#include <unistd.h>

namespace keelbright {

int ProcessCalls::makePipe(std::array<int, 2>& ends)
{
    if (::pipe(ends.data()) != 0)
        return errno;
    ::fcntl(ends[0], F_SETFD, FD_CLOEXEC);
    ::fcntl(ends[1], F_SETFD, FD_CLOEXEC);
    return 0;
}

void ProcessCalls::closeOtherFiles(posix_spawn_file_actions_t&, short& flags)
{
    flags = static_cast<short>(flags | POSIX_SPAWN_CLOEXEC_DEFAULT);
}

FileDescriptor ProcessCalls::watchForEnd(pid_t)
{
    return {};
}

void ProcessCalls::limitOpenFiles(pid_t, rlim_t) {}

} // namespace keelbright

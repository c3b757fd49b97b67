#include "KeelbrightCore/platform/system/ProcessCalls.h"

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace keelbright {

int ProcessCalls::makePipe(std::array<int, 2>& ends)
{
    return ::pipe2(ends.data(), O_CLOEXEC) == 0 ? 0 : errno;
}

void ProcessCalls::closeOtherFiles(posix_spawn_file_actions_t& actions, short&)
{
    ::posix_spawn_file_actions_addclosefrom_np(&actions, STDERR_FILENO + 1);
}

FileDescriptor ProcessCalls::watchForEnd(pid_t process)
{
    // By its number, because the C library of Debian 12 declares the function for C only.
    return FileDescriptor(static_cast<int>(::syscall(SYS_pidfd_open, process, 0)));
}

void ProcessCalls::limitOpenFiles(pid_t child, rlim_t count)
{
    rlimit limit = {};
    if (::prlimit(child, RLIMIT_NOFILE, nullptr, &limit) != 0)
        return;
    limit.rlim_cur = count;
    ::prlimit(child, RLIMIT_NOFILE, &limit, nullptr);
}

} // namespace keelbright

#include "KeelbrightCore/platform/system/ThreadPriority.h"

#include <sys/resource.h>
#include <unistd.h>

namespace keelbright {

unsigned int ThreadPriority::inherited()
{
    return 0;
}

void ThreadPriority::inherit(unsigned int) {}

int ThreadPriority::niceOfThisThread()
{
    return ::getpriority(PRIO_PROCESS, static_cast<id_t>(::gettid()));
}

void ThreadPriority::becomeUserInitiated(int) {}

void ThreadPriority::becomeUtility(int niceOfProgram)
{
    // Linux keeps a nice value for every thread, and takes the I/O priority from it. The priority
    // that Qt would set has no effect under the usual scheduler.
    constexpr int backgroundNice = 10;
    ::setpriority(PRIO_PROCESS, static_cast<id_t>(::gettid()), niceOfProgram + backgroundNice);
}

} // namespace keelbright

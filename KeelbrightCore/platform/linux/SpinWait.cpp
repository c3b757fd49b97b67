#include "KeelbrightCore/platform/system/SpinWait.h"

#include <sched.h>

namespace keelbright {

int SpinWait::currentProcessor()
{
    return ::sched_getcpu();
}

/// To forbid the thread the processor moves it at once; what it was allowed before, it is allowed again.
bool SpinWait::moveAwayFrom(int processor)
{
    cpu_set_t allowed;
    if (::sched_getaffinity(0, sizeof allowed, &allowed) != 0)
        return false;
    cpu_set_t others = allowed;
    CPU_CLR(static_cast<size_t>(processor), &others);
    if (CPU_COUNT(&others) == 0 || ::sched_setaffinity(0, sizeof others, &others) != 0)
        return false;
    return ::sched_setaffinity(0, sizeof allowed, &allowed) == 0;
}

} // namespace keelbright

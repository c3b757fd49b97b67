#include "KeelbrightCore/platform/system/SpinWait.h"

#include <sched.h>

namespace keelbright {

int SpinWait::currentProcessor()
{
    return ::sched_getcpu();
}

} // namespace keelbright

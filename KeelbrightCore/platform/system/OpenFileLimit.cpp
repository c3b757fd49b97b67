#include "KeelbrightCore/platform/system/OpenFileLimit.h"

#include <algorithm>
#include <sys/resource.h>

namespace keelbright::OpenFileLimit {

void raise()
{
    constexpr rlim_t wanted = 4'096;
    rlimit limit = {};
    if (::getrlimit(RLIMIT_NOFILE, &limit) != 0 || limit.rlim_cur >= wanted)
        return;
    limit.rlim_cur = std::min(wanted, limit.rlim_max);
    ::setrlimit(RLIMIT_NOFILE, &limit);
}

} // namespace keelbright::OpenFileLimit

#include "KeelbrightCore/platform/files/FolderChain.h"

#include <sys/resource.h>

namespace keelbright {

size_t maximumOpenFolders()
{
    // Trees of people are rarely deeper. The usual limit of open files is 1,024 or 256; where it is
    // lower, the two chains of a copy leave room for the rest of the program, which needs a file for
    // each of its threads.
    constexpr rlim_t maximum = 24;
    constexpr rlim_t minimum = 4;
    constexpr rlim_t restOfTheProgram = 52;
    rlimit limit = {};
    if (::getrlimit(RLIMIT_NOFILE, &limit) != 0 || limit.rlim_cur >= restOfTheProgram + 2 * maximum)
        return maximum;
    if (limit.rlim_cur <= restOfTheProgram + 2 * minimum)
        return minimum;
    return (limit.rlim_cur - restOfTheProgram) / 2;
}

} // namespace keelbright

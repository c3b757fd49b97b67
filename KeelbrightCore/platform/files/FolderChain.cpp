#include "KeelbrightCore/platform/files/FolderChain.h"

#include "KeelbrightCore/platform/system/OpenFileLimit.h"

namespace keelbright {

namespace {

/// What the program needs besides its walks and copies: a file for each of its threads.
constexpr rlim_t restOfTheProgram = 52;

} // namespace

size_t maximumOpenFolders()
{
    // Trees of people are rarely deeper. Where fewer files may be open, the two chains of a copy leave
    // room for the rest of the program.
    constexpr rlim_t maximum = 24;
    constexpr rlim_t minimum = 4;
    const rlim_t limit = OpenFileLimit::current();
    if (limit >= restOfTheProgram + 2 * maximum)
        return maximum;
    if (limit <= restOfTheProgram + 2 * minimum)
        return minimum;
    return (limit - restOfTheProgram) / 2;
}

size_t openFilesForWalks()
{
    const rlim_t limit = OpenFileLimit::current();
    const rlim_t others = restOfTheProgram + 2 * maximumOpenFolders();
    return limit > others ? (limit - others) / 2 : 0;
}

} // namespace keelbright

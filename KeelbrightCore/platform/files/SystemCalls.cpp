#include "KeelbrightCore/platform/files/SystemCalls.h"

#include <fcntl.h>

namespace keelbright::SystemCalls {

std::expected<void, int> renameWithoutReplacing(int oldFolder, const char* oldName, int newFolder,
                                                const char* newName)
{
    auto renamed = renameInOneStep(oldFolder, oldName, newFolder, newName);
    if (renamed || renamed.error() != ENOTSUP)
        return renamed;
    struct stat status = {};
    if (::fstatat(newFolder, newName, &status, AT_SYMLINK_NOFOLLOW) == 0)
        return std::unexpected(EEXIST);
    if (errno != ENOENT) // something may be there that can't be read
        return std::unexpected(errno);
    if (::renameat(oldFolder, oldName, newFolder, newName) != 0)
        return std::unexpected(errno);
    return {};
}

} // namespace keelbright::SystemCalls

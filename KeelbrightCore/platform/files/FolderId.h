#pragma once

#include <sys/stat.h>
#include <sys/types.h>

namespace keelbright {

/// Identifies a folder, whatever path leads to it.
struct FolderId
{
    dev_t device = 0;
    ino_t inode = 0; ///< 0 is no folder's

    [[nodiscard]] static FolderId of(const struct stat& status) { return {status.st_dev, status.st_ino}; }

    /// The id of an open folder; that of no folder where it can't be read.
    [[nodiscard]] static FolderId of(int folder)
    {
        struct stat status = {};
        return ::fstat(folder, &status) == 0 ? of(status) : FolderId();
    }

    friend bool operator==(const FolderId&, const FolderId&) = default;
};

} // namespace keelbright

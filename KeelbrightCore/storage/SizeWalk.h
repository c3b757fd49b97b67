#pragma once

#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/text/ByteSum.h"

namespace keelbright {

/// The walk that sizes are summed over, the same for one thread and for several. Internal to the
/// storage folder.
[[nodiscard]] inline std::expected<std::unique_ptr<DirectoryEnumerator>, FileError>
openSizeWalk(const FileURL& folder, const FileManager& fm)
{
    return fm.enumerator(folder, DirectoryEnumerator::Option::skipsHiddenFiles |
                                     DirectoryEnumerator::Option::skipsPackageDescendants);
}

/// The sum of the sizes that the walk delivers. `atFolder` is called with the walk at each folder,
/// before it is entered.
template <typename AtFolder> [[nodiscard]] qint64 sumOfSizes(DirectoryEnumerator& walk, AtFolder atFolder)
{
    qint64 total = 0;
    while (walk.next()) {
        if (walk.type() == EntryType::directory)
            atFolder(walk);
        else
            total = addedWithoutOverflow(total, walk.fileSize().value_or(0));
    }
    return total;
}

} // namespace keelbright

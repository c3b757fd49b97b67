#include "KeelbrightCore/storage/FolderSizeService.h"

#include "KeelbrightCore/platform/ByteSum.h"

namespace keelbright::FolderSizeService {

namespace {

using Option = DirectoryEnumerator::Option;

} // namespace

qint64 recursiveSize(const FileURL& url, const FileManager& fm)
{
    const auto walk = fm.enumerator(url, Option::skipsHiddenFiles | Option::skipsPackageDescendants);
    if (!walk)
        return 0;
    qint64 total = 0;
    while ((*walk)->next())
        total = addedWithoutOverflow(total, (*walk)->fileSize().value_or(0));
    return total;
}

} // namespace keelbright::FolderSizeService

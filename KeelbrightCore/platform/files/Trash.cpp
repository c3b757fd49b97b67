#include "KeelbrightCore/platform/files/Trash.h"

#include "KeelbrightCore/platform/files/SystemTrash.h"

#include <cerrno>

namespace keelbright {

std::expected<TrashedItem, FileError> Trash::moveToTrash(const FileURL& item, const FileURL& homeTrash,
                                                         const QList<FileURL>& protectedPlaces)
{
    if (item == FileURL())
        return notTrashed(item, FileError::Reason::neededInItsPlace);
    if (!isFileName(item.nativeLastPathComponent())) // "." or ".."
        return notTrashed(item, EBUSY);
    return moveToSystemTrash(item, homeTrash, protectedPlaces);
}

std::expected<void, FileError> Trash::checkIsThere(const TrashedItem& item)
{
    if (!isInSystemTrash(item))
        return notPutBack(item, FileError::Reason::notInTrash);
    return {};
}

std::expected<void, FileError> Trash::putBack(const TrashedItem& item)
{
    return putBackFromSystemTrash(item);
}

} // namespace keelbright

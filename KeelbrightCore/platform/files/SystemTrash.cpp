#include "KeelbrightCore/platform/files/SystemTrash.h"

#include "KeelbrightCore/platform/files/ResolvedPath.h"

#include <algorithm>
#include <cerrno>
#include <iterator>

namespace keelbright {

namespace {

bool isBelow(const FileURL& location, const FileURL& folder)
{
    return location.nativePath().startsWith(folder.nativePath() + '/');
}

struct CocoaError
{
    long cocoa = 0;
    int code = 0;
};

constexpr CocoaError cocoaErrors[] = {
    {4, ENOENT},     // no such file
    {255, EBUSY},    // locked
    {257, EACCES},   // no permission to read
    {260, ENOENT},   // no such file, of a read
    {513, EACCES},   // no permission to write
    {514, EINVAL},   // a name that the volume refuses
    {516, EEXIST},   // the name is taken
    {640, ENOSPC},   // out of room
    {642, EROFS},    // a volume that is read-only
    {3328, ENOTSUP}, // a volume without a Trash
};

} // namespace

std::optional<FileError::Reason> reasonForTrashPlace(const FileURL& location, const FileURL& homeTrash,
                                                     TrashRelation onVolume)
{
    const FileURL trash = resolvedPath(homeTrash);
    if (location == trash || isBelow(trash, location) || onVolume == TrashRelation::isTrash)
        return FileError::Reason::neededInItsPlace;
    if (isBelow(location, trash) || onVolume == TrashRelation::inside)
        return FileError::Reason::alreadyInTrash;
    return std::nullopt;
}

TrashRelation relationToTrashes(const FileURL& location)
{
    QList<QByteArray> parts = location.nativePath().split('/');
    const qsizetype top = parts.indexOf(".Trashes");
    if (top < 0)
        return TrashRelation::outside;
    constexpr qsizetype folderOfUser = 1;
    return parts.size() - 1 - top > folderOfUser ? TrashRelation::inside : TrashRelation::isTrash;
}

int codeOfCocoaError(long code)
{
    const auto* const known = std::ranges::find(cocoaErrors, code, &CocoaError::cocoa);
    return known == std::end(cocoaErrors) ? EPERM : known->code;
}

} // namespace keelbright

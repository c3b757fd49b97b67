#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/files/ProtectedPlaces.h"
#include "KeelbrightCore/platform/files/ResolvedPath.h"
#include "KeelbrightCore/platform/files/SystemCalls.h"
#include "KeelbrightCore/platform/files/SystemTrash.h"
#include "KeelbrightCore/platform/mac/ObjectiveC.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

namespace keelbright {

namespace {

using ObjectiveC::send;
using ObjectiveC::string;

bool isOfDomain(id error, const char* domain)
{
    return send<BOOL>(send<id>(error, "domain"), "isEqualToString:", string(domain)) != 0;
}

/// The `errno` value behind an error of the system's classes.
int codeOf(id error)
{
    if (error == nullptr)
        return EPERM;
    if (isOfDomain(error, "NSPOSIXErrorDomain"))
        return static_cast<int>(send<long>(error, "code"));
    const id cause = send<id>(send<id>(error, "userInfo"), "objectForKey:", string("NSUnderlyingError"));
    if (cause != nullptr && isOfDomain(cause, "NSPOSIXErrorDomain"))
        return static_cast<int>(send<long>(cause, "code"));
    return isOfDomain(error, "NSCocoaErrorDomain") ? codeOfCocoaError(send<long>(error, "code")) : EPERM;
}

/// By what a file is known again after it was moved.
QByteArray fileNumber(const struct stat& status)
{
    return QByteArray::number(static_cast<qint64>(status.st_dev)) + ':' +
           QByteArray::number(static_cast<quint64>(status.st_ino));
}

/// Lets the system move it, which knows the Trash of each volume and where the item may be put back to; its
/// new place.
std::expected<FileURL, FileError> letSystemMove(const FileURL& item, bool isFolder)
{
    const ObjectiveC::AutoreleasePool pool;
    const id files = send<id>(ObjectiveC::classNamed("NSFileManager"), "defaultManager");
    id place = nullptr;
    id error = nullptr;
    const bool isMoved =
        send<BOOL>(files, "trashItemAtURL:resultingItemURL:error:",
                   ObjectiveC::fileUrl(item.nativePath().constData(), isFolder), &place, &error) != 0;
    if (!isMoved)
        return notTrashed(item, codeOf(error));
    if (place == nullptr)
        return item; // gone, and the system does not say where to
    return FileURL::fromNativePath(send<const char*>(place, "fileSystemRepresentation"));
}

} // namespace

FileURL homeTrashOf(const FileManager& files)
{
    return files.homeDirectory().appendingNative(".Trash");
}

std::expected<TrashedItem, FileError> moveToSystemTrash(const FileURL& item, const FileURL& homeTrash,
                                                        const QList<FileURL>& protectedPlaces)
{
    struct stat status = {};
    if (::lstat(item.nativePath().constData(), &status) != 0)
        return notTrashed(item, errno);
    const FileURL location =
        resolvedPath(item.deletingLastPathComponent()).appendingNative(item.nativeLastPathComponent());
    if (const auto reason = reasonForTrashPlace(location, homeTrash, relationToTrashes(location)))
        return notTrashed(item, *reason);
    if (const auto reason = ProtectedPlaces::reasonToStay(location, status, protectedPlaces))
        return notTrashed(item, *reason);
    const auto place = letSystemMove(location, S_ISDIR(status.st_mode));
    if (!place)
        return std::unexpected(place.error());
    // By its new place, as it may have got to another volume.
    const bool isFound = ::lstat(place->nativePath().constData(), &status) == 0;
    return TrashedItem{location, *place, isFound ? fileNumber(status) : QByteArray()};
}

bool isInSystemTrash(const TrashedItem& item)
{
    struct stat status = {};
    return ::lstat(item.place.nativePath().constData(), &status) == 0 && fileNumber(status) == item.record;
}

std::expected<void, FileError> putBackFromSystemTrash(const TrashedItem& item)
{
    if (!isInSystemTrash(item))
        return notPutBack(item, FileError::Reason::notInTrash);
    const auto moved = SystemCalls::renameWithoutReplacing(AT_FDCWD, item.place.nativePath().constData(),
                                                           AT_FDCWD, item.origin.nativePath().constData());
    if (!moved)
        return notPutBack(item, moved.error());
    return {};
}

} // namespace keelbright

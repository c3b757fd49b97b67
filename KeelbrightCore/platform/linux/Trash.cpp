#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/files/ProtectedPlaces.h"
#include "KeelbrightCore/platform/files/ResolvedPath.h"
#include "KeelbrightCore/platform/files/SystemCalls.h"
#include "KeelbrightCore/platform/files/SystemTrash.h"
#include "KeelbrightCore/platform/files/TrashFolder.h"
#include "KeelbrightCore/platform/files/TrashRecord.h"
#include "KeelbrightCore/platform/files/TrashRecordFile.h"

#include <fcntl.h>

namespace keelbright {

namespace {

using Outcome = std::expected<TrashedItem, FileError>;

/// An item whose folder is kept open: a change of the folders above it can't put another item in its
/// place meanwhile.
struct HeldItem
{
    FileURL location; ///< without links in the path of its folder
    QByteArray name;
    FileDescriptor folder;
    struct stat status = {};
    struct stat folderStatus = {};
};

std::expected<HeldItem, int> hold(const FileURL& item)
{
    HeldItem held;
    held.name = item.nativeLastPathComponent();
    const FileURL folder = resolvedPath(item.deletingLastPathComponent());
    held.location = folder.appendingNative(held.name);
    held.folder = FileDescriptor(retrying([&] {
        return ::open(folder.nativePath().constData(), O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    }));
    if (!held.folder.isOpen() || ::fstat(held.folder.get(), &held.folderStatus) != 0 ||
        ::fstatat(held.folder.get(), held.name.constData(), &held.status, AT_SYMLINK_NOFOLLOW) != 0)
        return std::unexpected(errno);
    return held;
}

QByteArray relativePath(const FileURL& location, const FileURL& folder)
{
    return location.nativePath().mid(folder == FileURL() ? 1 : folder.nativePath().size() + 1);
}

/// Refuses what the machine needs in its place and the root of a volume.
std::expected<void, FileError> checkMayGo(const HeldItem& item, const QList<FileURL>& protectedPlaces)
{
    if (const auto reason = ProtectedPlaces::reasonToStay(item.location, item.status, protectedPlaces))
        return notTrashed(item.location, *reason);
    if (S_ISDIR(item.status.st_mode) && item.status.st_dev != item.folderStatus.st_dev)
        return notTrashed(item.location, FileError::Reason::driveMounted);
    return {};
}

std::expected<TrashedItem, int> moveWithRecord(const TrashFolder& trash, const HeldItem& item,
                                               const QByteArray& recordedPath)
{
    const QByteArray content = TrashRecord::content(recordedPath, QDateTime::currentDateTime());
    const qsizetype maximumLength = trash.maximumNameLength();
    for (int attempt = 1; attempt <= TrashRecord::attempts; ++attempt) {
        const QByteArray name = TrashRecord::itemName(item.name, attempt, maximumLength);
        const QByteArray recordName = name + TrashRecord::suffix.toByteArray();
        // The record also reserves the name for the item. After a power cut nothing else says where the
        // item came from.
        auto done = writeTrashRecord(trash.infoDescriptor(), recordName, content);
        if (done) {
            done = SystemCalls::renameWithoutReplacing(item.folder.get(), item.name.constData(),
                                                       trash.filesDescriptor(), name.constData());
            if (done)
                return TrashedItem{item.location, trash.files().appendingNative(name), content};
            ::unlinkat(trash.infoDescriptor(), recordName.constData(), 0);
        }
        if (done.error() != EEXIST)
            return std::unexpected(done.error());
    }
    return std::unexpected(EEXIST);
}

/// Moves an item that may go to the Trash of its volume, whose top folder is given.
Outcome moveHeld(const HeldItem& held, const FileURL& homeTrash, const FileURL& top)
{
    const auto homeDevice = deviceOf(homeTrash);
    if (!homeDevice)
        return notTrashed(held.location, homeDevice.error());
    const bool isAtHome = held.folderStatus.st_dev == *homeDevice;
    const auto trash = isAtHome ? TrashFolder::ofHome(homeTrash) : TrashFolder::ofVolume(top);
    if (!trash)
        return std::visit([&](auto cause) { return Outcome(notTrashed(held.location, cause)); },
                          trash.error());
    const auto moved = moveWithRecord(
        *trash, held, isAtHome ? held.location.nativePath() : relativePath(held.location, top));
    if (!moved)
        return notTrashed(held.location, moved.error());
    return *moved;
}

/// The two folders of the Trash that an item lies in.
struct TrashFolders
{
    explicit TrashFolders(const TrashedItem& item)
        : files(open(item.place.deletingLastPathComponent()))
        , info(open(
              item.place.deletingLastPathComponent().deletingLastPathComponent().appendingNative("info")))
        , name(item.place.nativeLastPathComponent())
        , recordName(name + TrashRecord::suffix.toByteArray())
    {}

    static FileDescriptor open(const FileURL& folder)
    {
        constexpr int flags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
        return FileDescriptor(retrying([&] { return ::open(folder.nativePath().constData(), flags); }));
    }

    FileDescriptor files;
    FileDescriptor info;
    QByteArray name;
    QByteArray recordName;
};

bool isThere(const TrashedItem& item, const TrashFolders& trash)
{
    struct stat status = {};
    return trash.files.isOpen() && trash.info.isOpen() &&
           ::fstatat(trash.files.get(), trash.name.constData(), &status, AT_SYMLINK_NOFOLLOW) == 0 &&
           isTrashRecord(trash.info.get(), trash.recordName, item.record);
}

} // namespace

FileURL homeTrashOf(const FileManager& files)
{
    return files.applicationSupportDirectory().appending(QStringLiteral("Trash"));
}

Outcome moveToSystemTrash(const FileURL& item, const FileURL& homeTrash,
                          const QList<FileURL>& protectedPlaces)
{
    const auto held = hold(item);
    if (!held)
        return notTrashed(item, held.error());
    if (const auto mayGo = checkMayGo(*held, protectedPlaces); !mayGo)
        return std::unexpected(mayGo.error());
    const auto top = volumeTop(held->location.deletingLastPathComponent(), held->folderStatus.st_dev);
    if (!top)
        return notTrashed(item, top.error());
    const TrashRelation onVolume = relationToVolumeTrash(relativePath(held->location, *top));
    if (const auto reason = reasonForTrashPlace(held->location, homeTrash, onVolume))
        return notTrashed(held->location, *reason);
    return moveHeld(*held, homeTrash, *top);
}

bool isInSystemTrash(const TrashedItem& item)
{
    return isThere(item, TrashFolders(item));
}

std::expected<void, FileError> putBackFromSystemTrash(const TrashedItem& item)
{
    const TrashFolders trash(item);
    if (!isThere(item, trash))
        return notPutBack(item, FileError::Reason::notInTrash);
    const auto moved = SystemCalls::renameWithoutReplacing(trash.files.get(), trash.name.constData(),
                                                           AT_FDCWD, item.origin.nativePath().constData());
    if (!moved)
        return notPutBack(item, moved.error());
    // Other programs pass over a record without its item.
    ::unlinkat(trash.info.get(), trash.recordName.constData(), 0);
    return {};
}

} // namespace keelbright

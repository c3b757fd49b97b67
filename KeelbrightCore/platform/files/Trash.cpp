#include "KeelbrightCore/platform/files/Trash.h"

#ifdef __APPLE__
#include <QFile>
#include <unistd.h>
#else
#include "KeelbrightCore/platform/files/ResolvedPath.h"
#include "KeelbrightCore/platform/files/SystemCalls.h"
#include "KeelbrightCore/platform/files/TrashFolder.h"
#include "KeelbrightCore/platform/files/TrashRecord.h"
#include "KeelbrightCore/platform/files/UnpublishedFile.h"

#include <fcntl.h>
#endif

namespace keelbright {

namespace {

using Outcome = std::expected<FileURL, FileError>;

/// `cause` is an `errno` value or a reason of this program's own.
std::unexpected<FileError> notTrashed(const FileURL& item, auto cause)
{
    return failure(FileError::Operation::trashed, item, cause);
}

bool isBelow(const FileURL& location, const FileURL& folder)
{
    return location.nativePath().startsWith(folder.nativePath() + '/');
}

#ifdef __APPLE__

/// The system's own Trash.
Outcome move(const FileURL& item, const FileURL& homeTrash)
{
    const QByteArray volumeTrash = "/.Trashes/" + QByteArray::number(::getuid()) + '/';
    if (isBelow(item, homeTrash) || item.nativePath().contains(volumeTrash))
        return notTrashed(item, FileError::Reason::alreadyInTrash);
    QString place;
    if (!QFile::moveToTrash(item.path(), &place))
        return notTrashed(item, EPERM);
    return FileURL::fromPath(place);
}

#else

/// An item whose folder is kept open: a change of the folders above it can't put another item in its
/// place meanwhile.
struct HeldItem
{
    FileURL location; ///< without links in the path of its folder
    QByteArray name;
    FileDescriptor folder;
    dev_t device = 0;
};

std::expected<HeldItem, int> hold(const FileURL& item)
{
    HeldItem held;
    held.name = item.nativeLastPathComponent();
    if (item == FileURL() || held.name == "." || held.name == "..")
        return std::unexpected(EBUSY);
    const FileURL folder = resolvedPath(item.deletingLastPathComponent());
    held.location = folder.appendingNative(held.name);
    held.folder = FileDescriptor(retrying([&] {
        return ::open(folder.nativePath().constData(), O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    }));
    struct stat folderStatus = {};
    struct stat status = {};
    if (!held.folder.isOpen() || ::fstat(held.folder.get(), &folderStatus) != 0 ||
        ::fstatat(held.folder.get(), held.name.constData(), &status, AT_SYMLINK_NOFOLLOW) != 0)
        return std::unexpected(errno);
    if (S_ISDIR(status.st_mode) && status.st_dev != folderStatus.st_dev) // the root of a volume
        return std::unexpected(EBUSY);
    held.device = folderStatus.st_dev;
    return held;
}

QByteArray relativePath(const FileURL& location, const FileURL& folder)
{
    return location.nativePath().mid(folder == FileURL() ? 1 : folder.nativePath().size() + 1);
}

/// Refuses what lies in a Trash, a Trash itself, and a folder that holds one.
std::expected<void, FileError> checkIsOutsideTrash(const HeldItem& item, const FileURL& homeTrash,
                                                   const FileURL& top)
{
    const FileURL trash = resolvedPath(homeTrash);
    const TrashRelation relation = relationToVolumeTrash(relativePath(item.location, top));
    if (item.location == trash || isBelow(trash, item.location) || relation == TrashRelation::isTrash)
        return notTrashed(item.location, EBUSY);
    if (isBelow(item.location, trash) || relation == TrashRelation::inside)
        return notTrashed(item.location, FileError::Reason::alreadyInTrash);
    return {};
}

/// Writes the record under a name that nobody has; that reserves the name for the item. Record and
/// name are on the drive before the item moves: after a power cut nothing else says where the item
/// came from.
std::expected<void, int> writeRecord(int folder, const QByteArray& name, const QByteArray& content)
{
    auto record = UnpublishedFile::create(folder, 0600);
    if (!record)
        return std::unexpected(record.error());
    auto done = record->write(content);
    if (done)
        done = record->publish(name);
    if (!done)
        return done;
    done = record->flushWithName();
    if (done)
        done = record->close();
    if (!done)
        ::unlinkat(folder, name.constData(), 0);
    return done;
}

std::expected<FileURL, int> moveWithRecord(const TrashFolder& trash, const HeldItem& item,
                                           const QByteArray& recordedPath)
{
    const QByteArray content = TrashRecord::content(recordedPath, QDateTime::currentDateTime());
    const qsizetype maximumLength = trash.maximumNameLength();
    for (int attempt = 1; attempt <= TrashRecord::attempts; ++attempt) {
        const QByteArray name = TrashRecord::itemName(item.name, attempt, maximumLength);
        const QByteArray recordName = name + TrashRecord::suffix.toByteArray();
        auto done = writeRecord(trash.infoDescriptor(), recordName, content);
        if (done) {
            done = SystemCalls::renameWithoutReplacing(item.folder.get(), item.name.constData(),
                                                       trash.filesDescriptor(), name.constData());
            if (done)
                return trash.files().appendingNative(name);
            ::unlinkat(trash.infoDescriptor(), recordName.constData(), 0);
        }
        if (done.error() != EEXIST)
            return std::unexpected(done.error());
    }
    return std::unexpected(EEXIST);
}

Outcome move(const FileURL& item, const FileURL& homeTrash)
{
    const auto held = hold(item);
    if (!held)
        return notTrashed(item, held.error());
    const auto top = volumeTop(held->location.deletingLastPathComponent(), held->device);
    if (!top)
        return notTrashed(item, top.error());
    if (const auto outside = checkIsOutsideTrash(*held, homeTrash, *top); !outside)
        return std::unexpected(outside.error());
    const auto homeDevice = deviceOf(homeTrash);
    if (!homeDevice)
        return notTrashed(item, homeDevice.error());
    const bool isAtHome = held->device == *homeDevice;
    const auto trash = isAtHome ? TrashFolder::ofHome(homeTrash) : TrashFolder::ofVolume(*top);
    if (!trash)
        return notTrashed(item, trash.error());
    const auto place = moveWithRecord(
        *trash, *held, isAtHome ? held->location.nativePath() : relativePath(held->location, *top));
    if (!place)
        return notTrashed(item, place.error());
    return *place;
}

#endif

} // namespace

std::expected<FileURL, FileError> Trash::moveToTrash(const FileURL& item, const FileURL& homeTrash)
{
    return move(item, homeTrash);
}

} // namespace keelbright

#include "KeelbrightCore/platform/files/Trash.h"

#ifdef __APPLE__
#include <QFile>
#include <unistd.h>
#else
#include "KeelbrightCore/platform/files/ResolvedPath.h"
#include "KeelbrightCore/platform/files/SystemCalls.h"
#include "KeelbrightCore/platform/files/TrashFolder.h"
#include "KeelbrightCore/platform/files/TrashRecord.h"

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

/// An item, found and held: its folder is open, so that a change of the path's upper parts while
/// the work goes on can't put another item in its place.
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

/// Whether the item may go at all: not out of a Trash, and not a Trash itself.
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

/// 0 where it went well.
int codeOf(const std::expected<void, int>& outcome)
{
    return outcome ? 0 : outcome.error();
}

/// Writes the record under a name that nobody has; that reserves the name for the item. It is on
/// the drive before the item moves: after a power cut nobody else would know where that came from.
std::expected<void, int> writeRecord(int folder, const QByteArray& name, const QByteArray& content)
{
    FileDescriptor record(retrying([&] {
        return ::openat(folder, name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
    }));
    if (!record.isOpen())
        return std::unexpected(errno);
    int code = writeAll(record.get(), content.constData(), static_cast<size_t>(content.size()));
    if (code == 0)
        code = codeOf(SystemCalls::flushData(record.get()));
    if (code == 0)
        code = record.close();
    if (code == 0)
        return {};
    ::unlinkat(folder, name.constData(), 0);
    return std::unexpected(code);
}

std::expected<FileURL, int> moveWithRecord(const TrashFolder& trash, const HeldItem& item,
                                           const QByteArray& recordedPath)
{
    const QByteArray content = TrashRecord::content(recordedPath, QDateTime::currentDateTime());
    const qsizetype longest = trash.longestName();
    for (int attempt = 1; attempt <= TrashRecord::attempts; ++attempt) {
        const QByteArray name = TrashRecord::itemName(item.name, attempt, longest);
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
    const auto homeDevice = deviceToBe(homeTrash);
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

#include "KeelbrightCore/platform/files/SystemCalls.h"

#include "KeelbrightCore/platform/files/FlushWays.h"
#include "KeelbrightCore/platform/files/Unsupported.h"

#include <copyfile.h>
#include <fcntl.h>
#include <sys/acl.h>
#include <sys/attr.h>
#include <sys/clonefile.h>
#include <tuple>
#include <unistd.h>

namespace keelbright::SystemCalls {

namespace {

/// Everything that was written to the volume, down into the drive's own cache. `F_FULLFSYNC` on a folder
/// flushes no file.
int flushVolume(int folder)
{
    const auto flush = [&] { return ::fsync_volume_np(folder, SYNC_VOLUME_FULLSYNC | SYNC_VOLUME_WAIT); };
    return retrying(flush) == 0 ? 0 : errno;
}

int flushFully(int file)
{
    return retrying([&] { return ::fcntl(file, F_FULLFSYNC); }) == -1 ? errno : 0;
}

int flushInOrder(int file)
{
    return retrying([&] { return ::fcntl(file, F_BARRIERFSYNC); }) == -1 ? errno : 0;
}

int flushToDrive(int file)
{
    return retrying([&] { return ::fsync(file); }) == 0 ? 0 : errno;
}

} // namespace

std::expected<FileDescriptor, int> openUnnamed(int, mode_t)
{
    return std::unexpected(ENOTSUP);
}

mode_t processUmask()
{
    return 0777;
}

bool hasDefaultAccessList(int)
{
    return true;
}

std::expected<void, int> nameUnnamed(int, int, const char*)
{
    return std::unexpected(ENOTSUP);
}

std::expected<FileDescriptor, int> holdFile(int folder, const char* name)
{
    FileDescriptor file(::openat(folder, name, O_EVTONLY | O_SYMLINK | O_NONBLOCK | O_CLOEXEC));
    if (!file.isOpen())
        return std::unexpected(errno);
    return file;
}

std::expected<void, int> renameInOneStep(int oldFolder, const char* oldName, int newFolder,
                                         const char* newName)
{
    if (::renameatx_np(oldFolder, oldName, newFolder, newName, RENAME_EXCL) == 0)
        return {};
    return std::unexpected(meansUnsupported(errno) || errno == EINVAL ? ENOTSUP : errno);
}

std::expected<void, int> clone(int, int)
{
    return std::unexpected(ENOTSUP);
}

std::expected<void, int> cloneFile(int source, int folder, const char* name)
{
    // A locked file's clone would be locked too, and could not get its name.
    constexpr quint32 locks = UF_IMMUTABLE | UF_APPEND | SF_IMMUTABLE | SF_APPEND | SF_DATALESS;
    struct stat status = {};
    if (::fstat(source, &status) != 0)
        return std::unexpected(errno);
    if ((status.st_flags & locks) != 0)
        return std::unexpected(EINVAL);
    if (::fclonefileat(source, folder, name, CLONE_NOOWNERCOPY) == 0)
        return {};
    return std::unexpected(meansUnsupported(errno) ? ENOTSUP : errno);
}

std::expected<size_t, int> copyRange(int, int, size_t)
{
    return std::unexpected(ENOTSUP);
}

void copyExtendedAttributes(int source, int target)
{
    // With the resource fork, the marks of the Finder and that of a download.
    std::ignore = ::fcopyfile(source, target, nullptr, COPYFILE_XATTR | COPYFILE_ACL);
}

void copySystemFacts(const struct stat& source, int copy)
{
    attrlist creation = {};
    creation.bitmapcount = ATTR_BIT_MAP_COUNT;
    creation.commonattr = ATTR_CMN_CRTIME;
    timespec date = source.st_birthtimespec;
    std::ignore = ::fsetattrlist(copy, &creation, &date, sizeof(date), 0);
    struct stat status = {};
    // Only this flag is the user's. The others say how the file lies on its own drive, or lock it, and
    // a locked copy could never be refreshed.
    constexpr quint32 kept = UF_HIDDEN;
    if (::fstat(copy, &status) != 0 || ((status.st_flags ^ source.st_flags) & kept) == 0)
        return;
    std::ignore = ::fchflags(copy, (status.st_flags & ~kept) | (source.st_flags & kept));
}

void removeAccessLists(int file)
{
    const acl_t none = ::acl_init(1);
    if (none == nullptr)
        return;
    std::ignore = ::acl_set_fd_np(file, none, ACL_TYPE_EXTENDED);
    ::acl_free(none);
}

std::expected<void, int> flushFileSystem(int folder)
{
    return flushInFirstWay(folder, {flushVolume, flushFully, flushInOrder, flushToDrive});
}

std::expected<void, int> flushData(int file)
{
    return flushInFirstWay(file, {flushFully, flushInOrder, flushToDrive});
}

void startWriting(int) {}

std::expected<void, int> waitUntilWritten(int file)
{
    return flushInFirstWay(file, {flushInOrder, flushFully, flushToDrive});
}

bool writesDataBeforeNames(int)
{
    return false;
}

std::optional<quint64> mountId(const char*)
{
    return std::nullopt;
}

bool isMountPoint(int, const char*)
{
    return false;
}

std::optional<qint64> sizeOf(int folder, const char* name)
{
    struct stat status = {};
    if (::fstatat(folder, name, &status, AT_SYMLINK_NOFOLLOW) != 0)
        return std::nullopt;
    return status.st_size;
}

bool hasItsData(const struct stat& status)
{
    return (status.st_flags & SF_DATALESS) == 0;
}

timespec accessTime(const struct stat& status)
{
    return status.st_atimespec;
}

timespec modificationTime(const struct stat& status)
{
    return status.st_mtimespec;
}

timespec changeTime(const struct stat& status)
{
    return status.st_ctimespec;
}

} // namespace keelbright::SystemCalls

#include "KeelbrightCore/platform/files/SystemCalls.h"

#include "KeelbrightCore/platform/files/FlushWays.h"
#include "KeelbrightCore/platform/files/Unsupported.h"

#include <array>
#include <copyfile.h>
#include <fcntl.h>
#include <sys/attr.h>
#include <sys/clonefile.h>
#include <tuple>
#include <unistd.h>

namespace keelbright::SystemCalls {

namespace {

std::expected<void, int> outcome(int result)
{
    if (result != 0)
        return std::unexpected(errno);
    return {};
}

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

std::expected<size_t, int> copyRange(int, int, size_t)
{
    return std::unexpected(ENOTSUP);
}

void copyExtendedAttributes(int source, int target)
{
    std::ignore = ::fcopyfile(source, target, nullptr, COPYFILE_XATTR | COPYFILE_ACL);
}

void removeAccessLists(int) {}

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

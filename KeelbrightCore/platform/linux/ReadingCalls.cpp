#include "KeelbrightCore/platform/files/ReadingCalls.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/uio.h>
#include <sys/vfs.h>
#include <tuple>

namespace keelbright {

FileDescriptor openKeepingAccessTime(int folder, const char* name, int flags)
{
    FileDescriptor file(retrying([&] { return ::openat(folder, name, flags | O_NOATIME); }));
    if (file.isOpen() || errno != EPERM)
        return file;
    return FileDescriptor(retrying([&] { return ::openat(folder, name, flags); }));
}

static std::expected<void, int> setDirect(int file, bool isDirect)
{
    const int flags = ::fcntl(file, F_GETFL);
    if (flags < 0 || ::fcntl(file, F_SETFL, isDirect ? flags | O_DIRECT : flags & ~O_DIRECT) != 0)
        return std::unexpected(errno);
    return {};
}

std::expected<void, int> readDirectly(int file)
{
    return setDirect(file, true);
}

void readThroughMemory(int file)
{
    std::ignore = setDirect(file, false);
}

void forgetData(int file)
{
    std::ignore = ::posix_fadvise(file, 0, 0, POSIX_FADV_DONTNEED);
}

bool remembersData(int file)
{
    char byte = 0;
    const iovec piece{&byte, 1};
    // Fails with this code only where an answer would have to come from the drive.
    return ::preadv2(file, &piece, 1, 0, RWF_NOWAIT) >= 0 || errno != EAGAIN;
}

bool liesOnLocalDrive(int file)
{
    constexpr std::array<quint32, 10> elsewhere{
        TMPFS_MAGIC, RAMFS_MAGIC,      NFS_SUPER_MAGIC, CIFS_SUPER_MAGIC, SMB2_SUPER_MAGIC,
        V9FS_MAGIC,  CODA_SUPER_MAGIC, AFS_SUPER_MAGIC, CEPH_SUPER_MAGIC, FUSE_SUPER_MAGIC,
    };
    struct statfs status = {};
    return ::fstatfs(file, &status) == 0 &&
           std::ranges::find(elsewhere, static_cast<quint32>(status.f_type)) == elsewhere.end();
}

bool isDriveTakenAway(int file)
{
    struct stat status = {};
    // What has no device of its own, such as a file system of several drives, has no entry at any time.
    if (::fstat(file, &status) != 0 || major(status.st_dev) == 0 || ::access("/sys/dev/block", F_OK) != 0)
        return false;
    std::array<char, 64> path = {};
    std::snprintf(path.data(), path.size(), "/sys/dev/block/%u:%u", major(status.st_dev),
                  minor(status.st_dev));
    return ::access(path.data(), F_OK) != 0 && errno == ENOENT;
}

void readAhead(int file, qint64 offset, qint64 size)
{
    std::ignore = ::posix_fadvise(file, offset, size, POSIX_FADV_WILLNEED);
}

} // namespace keelbright

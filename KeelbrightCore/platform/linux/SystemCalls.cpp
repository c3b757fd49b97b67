#include "KeelbrightCore/platform/files/SystemCalls.h"

#include <QByteArrayList>
#include <array>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <linux/fs.h>
#include <linux/magic.h>
#include <sys/ioctl.h>
#include <sys/vfs.h>
#include <sys/xattr.h>
#include <tuple>

namespace keelbright::SystemCalls {

namespace {

std::expected<void, int> outcome(int result)
{
    if (result != 0)
        return std::unexpected(errno);
    return {};
}

} // namespace

std::expected<FileDescriptor, int> openUnnamed(int folder, mode_t mode)
{
    FileDescriptor file(
        retrying([&] { return ::openat(folder, ".", O_TMPFILE | O_WRONLY | O_CLOEXEC, mode); }));
    if (file.isOpen())
        return file;
    // What kernels and file systems answer that do not support unnamed files.
    const bool isUnsupported = errno == EOPNOTSUPP || errno == EISDIR || errno == EINVAL || errno == ENOSYS;
    return std::unexpected(isUnsupported ? ENOTSUP : errno);
}

mode_t processUmask()
{
    // umask() itself reads the value only by changing it, for all threads.
    const FileDescriptor status(::open("/proc/self/status", O_RDONLY | O_CLOEXEC));
    std::array<char, 4096> text = {};
    const ssize_t length = retrying([&] { return ::read(status.get(), text.data(), text.size() - 1); });
    const char* line = length > 0 ? std::strstr(text.data(), "\nUmask:") : nullptr;
    unsigned int mask = 0;
    return line != nullptr && std::sscanf(line, "\nUmask: %o", &mask) == 1 ? mask : 0777U;
}

bool hasDefaultAccessList(int folder)
{
    return ::fgetxattr(folder, "system.posix_acl_default", nullptr, 0) >= 0 ||
           (errno != ENODATA && errno != EOPNOTSUPP);
}

std::expected<void, int> nameUnnamed(int file, int folder, const char* name)
{
    // Newer kernels let anybody do this for a file that they opened; older ones only root, and
    // answer ENOENT to all others.
    if (::linkat(file, "", folder, name, AT_EMPTY_PATH) == 0)
        return {};
    if (errno != ENOENT)
        return std::unexpected(errno);
    std::array<char, 32> path = {};
    std::snprintf(path.data(), path.size(), "/proc/self/fd/%d", file);
    return outcome(::linkat(AT_FDCWD, path.data(), folder, name, AT_SYMLINK_FOLLOW));
}

std::expected<FileDescriptor, int> holdFile(int folder, const char* name)
{
    FileDescriptor file(::openat(folder, name, O_PATH | O_NOFOLLOW | O_CLOEXEC));
    if (!file.isOpen())
        return std::unexpected(errno);
    return file;
}

std::expected<void, int> renameInOneStep(int oldFolder, const char* oldName, int newFolder,
                                         const char* newName)
{
    if (::renameat2(oldFolder, oldName, newFolder, newName, RENAME_NOREPLACE) == 0)
        return {};
    return std::unexpected(errno == EINVAL || errno == ENOSYS ? ENOTSUP : errno);
}

std::expected<void, int> clone(int source, int target)
{
    return outcome(::ioctl(target, FICLONE, source));
}

std::expected<void, int> cloneFile(int, int, const char*)
{
    return std::unexpected(ENOTSUP); // `clone` fills a file without a name
}

std::expected<size_t, int> copyRange(int source, int target, size_t count)
{
    const ssize_t copied =
        retrying([&] { return ::copy_file_range(source, nullptr, target, nullptr, count, 0); });
    if (copied >= 0)
        return static_cast<size_t>(copied);
    const bool isUnsupported = errno == EXDEV || errno == EINVAL || errno == ENOSYS || errno == EOPNOTSUPP ||
                               errno == EPERM || errno == EBADF;
    return std::unexpected(isUnsupported ? ENOTSUP : errno);
}

void copyExtendedAttributes(int source, int target)
{
    const ssize_t needed = ::flistxattr(source, nullptr, 0);
    if (needed <= 0)
        return;
    QByteArray names(needed, Qt::Uninitialized);
    const ssize_t listed = ::flistxattr(source, names.data(), static_cast<size_t>(names.size()));
    if (listed <= 0)
        return;
    names.truncate(listed);
    QByteArray value;
    for (const QByteArray& name : names.split('\0')) {
        const ssize_t size = name.isEmpty() ? -1 : ::fgetxattr(source, name.constData(), nullptr, 0);
        if (size < 0)
            continue;
        value.resize(size);
        if (::fgetxattr(source, name.constData(), value.data(), static_cast<size_t>(size)) == size)
            std::ignore =
                ::fsetxattr(target, name.constData(), value.constData(), static_cast<size_t>(size), 0);
    }
}

void copySystemFacts(const struct stat&, int) {}

void removeAccessLists(int file)
{
    std::ignore = ::fremovexattr(file, "system.posix_acl_default");
    std::ignore = ::fremovexattr(file, "system.posix_acl_access");
}

std::expected<void, int> flushFileSystem(int folder)
{
    return outcome(::syncfs(folder));
}

std::expected<void, int> flushData(int file)
{
    return outcome(retrying([&] { return ::fdatasync(file); }));
}

void startWriting(int file)
{
    std::ignore = ::sync_file_range(file, 0, 0, SYNC_FILE_RANGE_WRITE);
}

std::expected<void, int> waitUntilWritten(int file)
{
    constexpr unsigned int writeAndWait =
        SYNC_FILE_RANGE_WAIT_BEFORE | SYNC_FILE_RANGE_WRITE | SYNC_FILE_RANGE_WAIT_AFTER;
    if (retrying([&] { return ::sync_file_range(file, 0, 0, writeAndWait); }) == 0)
        return {};
    return errno == ENOSYS || errno == EINVAL ? flushData(file) : std::unexpected(errno);
}

bool writesDataBeforeNames(int folder)
{
    struct statfs status = {};
    if (::fstatfs(folder, &status) != 0)
        return false;
    // A power cut leaves nothing of these anyway.
    return status.f_type == TMPFS_MAGIC || status.f_type == RAMFS_MAGIC;
}

std::optional<quint64> mountId(const char* path)
{
    struct statx status = {};
    if (::statx(AT_FDCWD, path, AT_NO_AUTOMOUNT, STATX_MNT_ID, &status) != 0 ||
        (status.stx_mask & STATX_MNT_ID) == 0)
        return std::nullopt;
    return status.stx_mnt_id;
}

bool isMountPoint(int folder, const char* name)
{
    struct statx status = {};
    return ::statx(folder, name, AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT, 0, &status) == 0 &&
           (status.stx_attributes & STATX_ATTR_MOUNT_ROOT) != 0;
}

std::optional<qint64> sizeOf(int folder, const char* name)
{
    // Asking for the size alone spares network drives the rest.
    struct statx status = {};
    if (::statx(folder, name, AT_SYMLINK_NOFOLLOW, STATX_SIZE, &status) != 0)
        return std::nullopt;
    return static_cast<qint64>(status.stx_size);
}

bool hasItsData(const struct stat&)
{
    return true;
}

timespec accessTime(const struct stat& status)
{
    return status.st_atim;
}

timespec modificationTime(const struct stat& status)
{
    return status.st_mtim;
}

timespec changeTime(const struct stat& status)
{
    return status.st_ctim;
}

} // namespace keelbright::SystemCalls

#include "KeelbrightCore/platform/files/FileContents.h"

#include "KeelbrightCore/platform/files/FileDescriptor.h"
#include "KeelbrightCore/platform/files/SystemCalls.h"
#include "KeelbrightCore/platform/system/Cancellation.h"

#include <algorithm>
#include <fcntl.h>

namespace keelbright {

namespace {

/// Up to here one read and one write beat a call for a copy within the kernel.
constexpr qint64 smallFile = qint64{256} * 1024;
constexpr size_t bufferSize = size_t{1024} * 1024;
/// A copy within the kernel goes in pieces of this size, so that quitting is noticed in between.
constexpr qint64 kernelPiece = qint64{16} * 1024 * 1024;
constexpr int maximumCopies = 3;

bool isSame(const timespec& a, const timespec& b)
{
    return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
}

bool isUnchanged(const struct stat& before, const struct stat& after)
{
    return before.st_size == after.st_size &&
           isSame(SystemCalls::changeTime(before), SystemCalls::changeTime(after));
}

bool hasHoles(const struct stat& status)
{
    constexpr qint64 blockSize = 512; // what st_blocks counts in, whatever the file system
    return status.st_blocks * blockSize < status.st_size;
}

/// Whether the answer says that the file system does not support a search for data and holes.
bool isSearchUnsupported(int code)
{
    return code == EINVAL || code == ENOSYS || code == EOPNOTSUPP;
}

} // namespace

FileContents::FileContents()
    : m_buffer(std::make_unique_for_overwrite<char[]>(bufferSize))
{}

std::expected<void, FileError> FileContents::copy(int source, int target, struct stat& status,
                                                  const Cancellation& cancellation, QByteArrayView name)
{
    for (int attempt = 1; attempt <= maximumCopies; ++attempt) {
        const Outcome copied = copyOnce(source, target, status, cancellation);
        if (cancellation.isQuitting())
            return failure(FileError::Operation::copied, name, FileError::Reason::stopped);
        if (!copied)
            return failure(copied.error().operation, name, copied.error().code);
        struct stat after = {};
        if (::fstat(source, &after) != 0)
            return failure(FileError::Operation::read, name, errno);
        if (isUnchanged(status, after))
            return {};
        status = after;
        if (::ftruncate(target, 0) != 0 || ::lseek(target, 0, SEEK_SET) < 0)
            return failure(FileError::Operation::copied, name, errno);
        if (::lseek(source, 0, SEEK_SET) < 0)
            return failure(FileError::Operation::read, name, errno);
    }
    return failure(FileError::Operation::copied, name, FileError::Reason::changedDuringCopy);
}

FileContents::Outcome FileContents::copyOnce(int source, int target, const struct stat& status,
                                             const Cancellation& cancellation)
{
    if (status.st_size == 0)
        return {};
    if (tryClone(source, target, status))
        return {};
    if (hasHoles(status))
        return copySparse(source, target, status, cancellation);
    if (status.st_size <= smallFile)
        return copyThroughMemory(source, target, status.st_size, cancellation);
    return copyExtent(source, target, status.st_size, cancellation);
}

bool FileContents::tryClone(int source, int target, const struct stat& status)
{
    if (m_sourceDevice != status.st_dev) {
        m_sourceDevice = status.st_dev;
        m_triesClone = true;
        m_triesCopyRange = true;
    }
    if (!m_triesClone)
        return false;
    const auto cloned = SystemCalls::clone(source, target);
    // EINVAL is about the one file (its flags or layout); any other error is about the file systems.
    if (!cloned && cloned.error() != EINVAL)
        m_triesClone = false;
    return cloned.has_value();
}

FileContents::Outcome FileContents::copyExtent(int source, int target, qint64 count,
                                               const Cancellation& cancellation)
{
    while (count > 0 && !cancellation.isQuitting() && m_triesCopyRange) {
        const auto copied =
            SystemCalls::copyRange(source, target, static_cast<size_t>(std::min(count, kernelPiece)));
        if (!copied && copied.error() == ENOTSUP)
            m_triesCopyRange = false;
        else if (!copied)
            return std::unexpected(Failure{FileError::Operation::copied, copied.error()});
        else if (*copied == 0)
            break; // the file is shorter by now, or the file system answers so: the plain loop finds out
        else
            count -= static_cast<qint64>(*copied);
    }
    return copyThroughMemory(source, target, count, cancellation);
}

FileContents::Outcome FileContents::copyThroughMemory(int source, int target, qint64 count,
                                                      const Cancellation& cancellation)
{
    while (count > 0 && !cancellation.isQuitting()) {
        const size_t piece = std::min(static_cast<size_t>(count), bufferSize);
        const ssize_t got = retrying([&] { return ::read(source, m_buffer.get(), piece); });
        if (got < 0)
            return std::unexpected(Failure{FileError::Operation::read, errno});
        if (got == 0)
            return {}; // the file is shorter by now, which the check for changes notices
        if (const int code = writeAll(target, m_buffer.get(), static_cast<size_t>(got)))
            return std::unexpected(Failure{FileError::Operation::copied, code});
        count -= got;
    }
    return {};
}

FileContents::Outcome FileContents::copySparse(int source, int target, const struct stat& status,
                                               const Cancellation& cancellation)
{
    qint64 position = 0;
    while (position < status.st_size && !cancellation.isQuitting()) {
        const off_t data = ::lseek(source, position, SEEK_DATA);
        if (data < 0 && errno == ENXIO)
            break; // the rest is one hole
        if (data < 0 && position == 0 && isSearchUnsupported(errno))
            return copyExtent(source, target, status.st_size, cancellation); // all of it is data
        const off_t hole = data < 0 ? -1 : ::lseek(source, data, SEEK_HOLE);
        if (hole < 0 || ::lseek(source, data, SEEK_SET) < 0)
            return std::unexpected(Failure{FileError::Operation::read, errno});
        if (::lseek(target, data, SEEK_SET) < 0)
            return std::unexpected(Failure{FileError::Operation::copied, errno});
        if (const Outcome copied = copyExtent(source, target, hole - data, cancellation); !copied)
            return copied;
        position = hole;
    }
    if (::ftruncate(target, status.st_size) != 0)
        return std::unexpected(Failure{FileError::Operation::copied, errno});
    // Some drivers report success for a size that the drive can't hold.
    struct stat copied = {};
    if (::fstat(target, &copied) != 0)
        return std::unexpected(Failure{FileError::Operation::copied, errno});
    if (!cancellation.isQuitting() && copied.st_size != status.st_size)
        return std::unexpected(Failure{FileError::Operation::copied, EFBIG});
    return {};
}

} // namespace keelbright

#include "KeelbrightCore/platform/files/FileContents.h"

#include "KeelbrightCore/platform/files/FileDescriptor.h"
#include "KeelbrightCore/platform/files/ItemStatus.h"
#include "KeelbrightCore/platform/files/SystemCalls.h"
#include "KeelbrightCore/platform/files/Unsupported.h"
#include "KeelbrightCore/platform/system/Cancellation.h"

#include <algorithm>
#include <ctime>
#include <fcntl.h>
#include <tuple>

namespace keelbright {

namespace {

/// Up to here one read and one write beat a call for a copy within the kernel.
constexpr qint64 smallFile = qint64{256} * 1024;
constexpr size_t bufferSize = size_t{1024} * 1024;
/// A copy within the kernel goes in pieces of this size, so that quitting is noticed in between.
constexpr qint64 kernelPiece = qint64{16} * 1024 * 1024;
constexpr int maximumCopies = 3;

bool hasHoles(const struct stat& status)
{
    constexpr qint64 blockSize = 512; // what st_blocks counts in, whatever the file system
    return status.st_blocks * blockSize < status.st_size;
}

/// Lets the change time say whether the source changes from now on. A program that writes through a mapping
/// sets it only with its first write to a page since the page was last written to the drive, which happens
/// within the longest time below at the latest, or now.
void makeChangesVisible(int source, const struct stat& status)
{
    constexpr time_t longest = 60;
    if (::time(nullptr) - SystemCalls::changeTime(status).tv_sec < longest)
        std::ignore = SystemCalls::waitUntilWritten(source);
}

/// Whether the answer says that the file system does not support a search for data and holes.
bool isSearchUnsupported(int code)
{
    return code == EINVAL || meansUnsupported(code);
}

} // namespace

FileContents::FileContents()
    : m_buffer(std::make_unique_for_overwrite<char[]>(bufferSize))
{}

std::expected<void, FileError> FileContents::copy(int source, int target, struct stat& status,
                                                  const Cancellation& cancellation, QByteArrayView name)
{
    bool hasEndedEarly = false;
    for (int attempt = 1; attempt <= maximumCopies; ++attempt) {
        makeChangesVisible(source, status);
        const Outcome copied = copyOnce(source, target, status, cancellation);
        if (cancellation.isQuitting())
            return failure(FileError::Operation::copied, name, FileError::Reason::stopped);
        if (!copied)
            return failure(copied.error().operation, name, copied.error().code);
        struct stat after = {};
        if (::fstat(source, &after) != 0)
            return failure(FileError::Operation::read, name, errno);
        // Some drivers correct a size that they had given wrong, which is no change of the file.
        const bool endsEarly = hasSameChangeTime(status, after) && *copied < status.st_size;
        if (endsEarly && hasEndedEarly)
            return failure(FileError::Operation::read, name, FileError::Reason::endsEarly);
        if (!endsEarly && isUnchanged(status, after))
            return {};
        if (!endsEarly)
            status = after;
        hasEndedEarly = endsEarly;
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
    const qint64 size = status.st_size;
    if (size > 0 && tryClone(source, target, status))
        return size;
    if (hasHoles(status))
        return copySparse(source, target, status, cancellation);
    if (size <= smallFile)
        return copyToEnd(source, target, 0, size, cancellation);
    const Outcome copied = copyExtent(source, target, size, cancellation);
    return copied && *copied == size ? copyToEnd(source, target, size, size, cancellation) : copied;
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

/// Copies up to `count` bytes; fewer where the source ends before.
FileContents::Outcome FileContents::copyExtent(int source, int target, qint64 count,
                                               const Cancellation& cancellation)
{
    qint64 done = 0;
    while (done < count && !cancellation.isQuitting() && m_triesCopyRange) {
        const auto copied =
            SystemCalls::copyRange(source, target, static_cast<size_t>(std::min(count - done, kernelPiece)));
        if (!copied && copied.error() == ENOTSUP)
            m_triesCopyRange = false;
        else if (!copied)
            return std::unexpected(Failure{FileError::Operation::copied, copied.error()});
        else if (*copied == 0)
            break; // the file is shorter by now, or the file system answers so: the plain loop finds out
        else
            done += static_cast<qint64>(*copied);
    }
    const Outcome rest = copyThroughMemory(source, target, count - done, cancellation);
    return rest ? Outcome(done + *rest) : rest;
}

FileContents::Outcome FileContents::copyThroughMemory(int source, int target, qint64 count,
                                                      const Cancellation& cancellation)
{
    qint64 done = 0;
    while (done < count && !cancellation.isQuitting()) {
        const size_t piece = static_cast<size_t>(std::min<qint64>(count - done, bufferSize));
        const auto got = copyPiece(source, target, piece);
        if (!got || *got == 0)
            return got ? Outcome(done) : got;
        done += *got;
    }
    return done;
}

/// Copies what follows the first `done` bytes.
FileContents::Outcome FileContents::copyToEnd(int source, int target, qint64 done, qint64 size,
                                              const Cancellation& cancellation)
{
    while (!cancellation.isQuitting()) {
        const auto got = copyPiece(source, target, bufferSize);
        if (!got)
            return got;
        done += *got;
        // A piece that is cut short where the size says so needs no further look for the end.
        if (*got == 0 || (done == size && *got < static_cast<qint64>(bufferSize)))
            break;
    }
    return done;
}

/// Copies what one call reads, up to `size` bytes; 0 at the end.
FileContents::Outcome FileContents::copyPiece(int source, int target, size_t size)
{
    const ssize_t got = retrying([&] { return ::read(source, m_buffer.get(), size); });
    if (got < 0)
        return std::unexpected(Failure{FileError::Operation::read, errno});
    if (const int code = writeAll(target, m_buffer.get(), static_cast<size_t>(got)))
        return std::unexpected(Failure{FileError::Operation::copied, code});
    return got;
}

FileContents::Outcome FileContents::copySparse(int source, int target, const struct stat& status,
                                               const Cancellation& cancellation)
{
    const qint64 size = status.st_size;
    qint64 position = 0;
    while (position < size && !cancellation.isQuitting()) {
        const off_t data = ::lseek(source, position, SEEK_DATA);
        if (data < 0 && errno == ENXIO)
            break; // the rest is one hole
        if (data < 0 && position == 0 && isSearchUnsupported(errno))
            return copyToEnd(source, target, 0, size, cancellation); // all of it is data
        const off_t hole = data < 0 ? -1 : ::lseek(source, data, SEEK_HOLE);
        if (hole < 0 || ::lseek(source, data, SEEK_SET) < 0)
            return std::unexpected(Failure{FileError::Operation::read, errno});
        if (::lseek(target, data, SEEK_SET) < 0)
            return std::unexpected(Failure{FileError::Operation::copied, errno});
        const Outcome copied = copyExtent(source, target, hole - data, cancellation);
        if (!copied)
            return copied;
        if (*copied < hole - data)
            return data + *copied; // what was to be data is no hole
        position = hole;
    }
    return finishSparse(source, target, size, cancellation);
}

/// Gives the copy its size, and what the source may have after it.
FileContents::Outcome FileContents::finishSparse(int source, int target, qint64 size,
                                                 const Cancellation& cancellation)
{
    if (::ftruncate(target, size) != 0)
        return std::unexpected(Failure{FileError::Operation::copied, errno});
    // Some drivers report success for a size that the drive can't hold.
    struct stat copied = {};
    if (::fstat(target, &copied) != 0)
        return std::unexpected(Failure{FileError::Operation::copied, errno});
    if (!cancellation.isQuitting() && copied.st_size != size)
        return std::unexpected(Failure{FileError::Operation::copied, EFBIG});
    if (::lseek(source, size, SEEK_SET) < 0)
        return std::unexpected(Failure{FileError::Operation::read, errno});
    if (::lseek(target, size, SEEK_SET) < 0)
        return std::unexpected(Failure{FileError::Operation::copied, errno});
    return copyToEnd(source, target, size, size, cancellation);
}

} // namespace keelbright

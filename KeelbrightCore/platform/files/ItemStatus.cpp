#include "KeelbrightCore/platform/files/ItemStatus.h"

#include "KeelbrightCore/platform/files/SystemCalls.h"

#include <algorithm>
#include <fcntl.h>
#include <limits>
#include <unistd.h>

namespace keelbright {

namespace {

/// Stays at the largest value instead of overflowing: some drives give times far in the future.
qint64 nanosecondsOf(const timespec& time)
{
    constexpr qint64 second = 1'000'000'000;
    constexpr qint64 latest = std::numeric_limits<qint64>::max() / second - 1;
    return std::clamp<qint64>(time.tv_sec, -latest, latest) * second + time.tv_nsec;
}

ItemStatus statusFrom(const struct stat& status)
{
    constexpr qint64 blockSize = 512; // what st_blocks counts in, whatever the file system
    return {.type = typeOfMode(status.st_mode),
            .size = status.st_size,
            .allocated = status.st_blocks * blockSize,
            .modification = nanosecondsOf(SystemCalls::modificationTime(status)),
            .change = nanosecondsOf(SystemCalls::changeTime(status))};
}

} // namespace

std::expected<ItemStatus, int> itemStatus(int folder, const char* name)
{
    struct stat status = {};
    if (::fstatat(folder, name, &status, AT_SYMLINK_NOFOLLOW) != 0)
        return std::unexpected(errno);
    return statusFrom(status);
}

std::expected<ItemStatus, int> itemStatus(int file)
{
    struct stat status = {};
    if (::fstat(file, &status) != 0)
        return std::unexpected(errno);
    return statusFrom(status);
}

bool hasSameChangeTime(const struct stat& before, const struct stat& after)
{
    const timespec first = SystemCalls::changeTime(before);
    const timespec second = SystemCalls::changeTime(after);
    return first.tv_sec == second.tv_sec && first.tv_nsec == second.tv_nsec;
}

bool isUnchanged(const struct stat& before, const struct stat& after)
{
    return before.st_size == after.st_size && hasSameChangeTime(before, after);
}

EntryType typeOfMode(mode_t mode)
{
    if (S_ISREG(mode))
        return EntryType::regularFile;
    if (S_ISDIR(mode))
        return EntryType::directory;
    return S_ISLNK(mode) ? EntryType::symbolicLink : EntryType::other;
}

std::expected<QByteArray, int> linkTarget(int folder, const QByteArray& name)
{
    QByteArray target(256, Qt::Uninitialized);
    for (;;) {
        const ssize_t length =
            ::readlinkat(folder, name.constData(), target.data(), static_cast<size_t>(target.size()));
        if (length < 0)
            return std::unexpected(errno);
        if (length < target.size()) {
            target.truncate(length);
            return target;
        }
        target.resize(target.size() * 2);
    }
}

} // namespace keelbright

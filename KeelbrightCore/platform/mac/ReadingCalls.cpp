#include "KeelbrightCore/platform/files/ReadingCalls.h"

#include <algorithm>
#include <fcntl.h>
#include <sys/mount.h>
#include <tuple>

namespace keelbright {

FileDescriptor openKeepingAccessTime(int folder, const char* name, int flags)
{
    return FileDescriptor(retrying([&] { return ::openat(folder, name, flags); }));
}

static std::expected<void, int> setNoCache(int file, int isDirect)
{
    if (::fcntl(file, F_NOCACHE, isDirect) == -1)
        return std::unexpected(errno);
    return {};
}

std::expected<void, int> readDirectly(int file)
{
    return setNoCache(file, 1);
}

void readThroughMemory(int file)
{
    std::ignore = setNoCache(file, 0);
}

void forgetData(int) {}

bool remembersData(int)
{
    return true;
}

bool liesOnLocalDrive(int file)
{
    struct statfs status = {};
    return ::fstatfs(file, &status) == 0 && (status.f_flags & MNT_LOCAL) != 0;
}

bool isDriveTakenAway(int)
{
    return false;
}

void readAhead(int file, qint64 offset, qint64 size)
{
    constexpr qint64 largest = qint64{1} << 30;
    radvisory advice{offset, static_cast<int>(std::min(size, largest))};
    std::ignore = ::fcntl(file, F_RDADVISE, &advice);
}

} // namespace keelbright

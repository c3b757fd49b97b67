#include "KeelbrightCore/platform/files/VolumeCapacity.h"

#include "KeelbrightCore/platform/files/FileDescriptor.h"
#include "KeelbrightCore/platform/mac/CoreFoundation.h"

#include <algorithm>
#include <sys/mount.h>

namespace keelbright {

namespace {

/// What a file that matters to the user may take, when the system has cleared away what it can get again; 0
/// on volumes where it has nothing of that kind.
qint64 freeForTheUser(const FileURL& url)
{
    const QByteArray& path = url.nativePath();
    const CoreFoundationOwner<CFURLRef> place(::CFURLCreateFromFileSystemRepresentation(
        nullptr, reinterpret_cast<const unsigned char*>(path.constData()), path.size(), 1));
    CFTypeRef found = nullptr;
    if (!place || ::CFURLCopyResourcePropertyForKey(
                      place.get(), kCFURLVolumeAvailableCapacityForImportantUsageKey, &found, nullptr) == 0)
        return 0;
    const CoreFoundationOwner<CFTypeRef> number(found);
    qint64 bytes = 0;
    const bool isNumber =
        number && ::CFNumberGetValue(static_cast<CFNumberRef>(found), kCFNumberSInt64Type, &bytes) != 0;
    return isNumber ? bytes : 0;
}

} // namespace

std::expected<FileSystemCapacity, int> volumeCapacity(const FileURL& url)
{
    // Not statvfs, which counts blocks in 32 bits here.
    struct statfs status = {};
    if (retrying([&] { return ::statfs(url.nativePath().constData(), &status); }) != 0)
        return std::unexpected(errno);
    const auto blockSize = static_cast<qint64>(status.f_bsize);
    const qint64 free = static_cast<qint64>(status.f_bavail) * blockSize;
    return FileSystemCapacity{.totalBytes = static_cast<qint64>(status.f_blocks) * blockSize,
                              .freeBytes = std::max(free, freeForTheUser(url))};
}

} // namespace keelbright

#include "KeelbrightCore/platform/files/VolumeCapacity.h"

#include "KeelbrightCore/platform/files/FileDescriptor.h"

#include <sys/statvfs.h>

namespace keelbright {

std::expected<FileSystemCapacity, int> volumeCapacity(const FileURL& url)
{
    struct statvfs status = {};
    if (retrying([&] { return ::statvfs(url.nativePath().constData(), &status); }) != 0)
        return std::unexpected(errno);
    const auto blockSize = static_cast<qint64>(status.f_frsize);
    return FileSystemCapacity{.totalBytes = static_cast<qint64>(status.f_blocks) * blockSize,
                              .freeBytes = static_cast<qint64>(status.f_bavail) * blockSize};
}

} // namespace keelbright

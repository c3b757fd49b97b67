#include "KeelbrightCore/platform/files/MountPoints.h"

#include <sys/mount.h>
#include <vector>

namespace keelbright {

QList<DeviceMount> deviceMounts()
{
    const int count = ::getfsstat(nullptr, 0, MNT_NOWAIT);
    if (count <= 0)
        return {};
    std::vector<struct statfs> systems(static_cast<size_t>(count));
    const int size = static_cast<int>(systems.size() * sizeof(struct statfs));
    const int filled = ::getfsstat(systems.data(), size, MNT_NOWAIT);
    QList<DeviceMount> mounts;
    for (int i = 0; i < filled; ++i) {
        const struct statfs& system = systems[static_cast<size_t>(i)];
        mounts.append({system.f_mntfromname, FileURL::fromNativePath(system.f_mntonname)});
    }
    return mounts;
}

std::optional<PlaceOnVolume> placeOnVolume(const FileURL&)
{
    return std::nullopt; // this system mounts no folder a second time
}

} // namespace keelbright

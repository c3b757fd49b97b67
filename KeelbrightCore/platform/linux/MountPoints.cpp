#include "KeelbrightCore/platform/files/MountPoints.h"

#include "KeelbrightCore/platform/files/FileDescriptor.h"
#include "KeelbrightCore/platform/files/ResolvedPath.h"
#include "KeelbrightCore/platform/files/SystemCalls.h"

#include <algorithm>
#include <fcntl.h>

namespace keelbright {

namespace {

struct Mount
{
    quint64 id = 0;
    QByteArray volume;
    FileURL root; ///< what of the volume is mounted
    FileURL point;
    QByteArray device;
};

QByteArray mountTable()
{
    const FileDescriptor file(::open("/proc/self/mountinfo", O_RDONLY | O_CLOEXEC));
    constexpr qsizetype piece = qsizetype{16} * 1024;
    QByteArray table;
    for (ssize_t got = 1; file.isOpen() && got > 0;) {
        const qsizetype size = table.size();
        table.resize(size + piece);
        got = retrying([&] { return ::read(file.get(), table.data() + size, piece); });
        table.resize(size + qMax<qsizetype>(got, 0));
    }
    return table;
}

QList<Mount> mounts()
{
    enum Field { id, parent, volume, root, point, count };

    QList<Mount> found;
    for (const QByteArray& line : mountTable().split('\n')) {
        const QList<QByteArray> fields = line.split(' ');
        // Behind a hyphen, as fields of any number come before it.
        const qsizetype device = fields.indexOf("-") + 2;
        if (fields.size() >= count)
            found.append({fields[id].toULongLong(), fields[volume],
                          FileURL::fromNativePath(unescapedMountPoint(fields[root])),
                          FileURL::fromNativePath(unescapedMountPoint(fields[point])),
                          unescapedMountPoint(fields.value(device))});
    }
    return found;
}

} // namespace

QList<DeviceMount> deviceMounts()
{
    QList<DeviceMount> found;
    for (const Mount& mount : mounts())
        found.append({mount.device, mount.point, mount.root});
    return found;
}

std::optional<PlaceOnVolume> placeOnVolume(const FileURL& url)
{
    const FileURL resolved = resolvedPath(url);
    const auto id = SystemCalls::mountId(resolved.nativePath().constData());
    const QList<Mount> all = mounts();
    const auto mount = std::ranges::find_if(all, [&id](const Mount& each) { return each.id == id; });
    if (!id || mount == all.end())
        return std::nullopt;
    const QByteArray& path = resolved.nativePath();
    const QByteArray& point = mount->point.nativePath();
    if (path == point)
        return PlaceOnVolume{mount->volume, mount->root};
    const QByteArray start = point.endsWith('/') ? point : point + '/';
    if (!path.startsWith(start))
        return std::nullopt; // mounted over since
    return PlaceOnVolume{mount->volume, mount->root.appendingNative(path.sliced(start.size()))};
}

} // namespace keelbright

#include "KeelbrightCore/platform/files/MountPoints.h"

#ifdef __APPLE__
#include <sys/mount.h>
#include <vector>
#else
#include "KeelbrightCore/platform/files/FileDescriptor.h"
#include "KeelbrightCore/platform/files/ResolvedPath.h"
#include "KeelbrightCore/platform/files/SystemCalls.h"

#include <algorithm>
#endif

namespace keelbright {

QByteArray unescapedMountPoint(const QByteArray& text)
{
    constexpr qsizetype digits = 3;
    QByteArray path;
    for (qsizetype i = 0; i < text.size(); ++i) {
        bool isOctal = false;
        const int code = text[i] == '\\' ? text.mid(i + 1, digits).toInt(&isOctal, 8) : 0;
        path.append(isOctal ? static_cast<char>(code) : text[i]);
        i += isOctal ? digits : 0;
    }
    return path;
}

#ifdef __APPLE__

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

#else

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
        found.append({mount.device, mount.point});
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

#endif

QList<FileURL> mountPoints()
{
    QList<FileURL> points;
    for (const DeviceMount& mount : deviceMounts())
        points.append(mount.point);
    return points;
}

} // namespace keelbright

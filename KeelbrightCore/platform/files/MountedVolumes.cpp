#include "KeelbrightCore/platform/files/MountedVolumes.h"

#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/files/MachinePlaces.h"

#include <QSet>
#include <algorithm>
#include <utility>

namespace keelbright {

namespace {

/// A network's or the kernel's own has none.
bool isOnDevice(const DeviceMount& mount)
{
    return mount.device.startsWith("/dev/");
}

bool isBelow(const FileURL& url, const FileURL& folder)
{
    return url.nativePath().startsWith(folder.nativePath() + '/');
}

/// The system writes what is no plain letter in the name of a link as "\x" and two digits.
QByteArray unescaped(const QByteArray& name)
{
    constexpr qsizetype length = 4;
    QByteArray text;
    for (qsizetype i = 0; i < name.size(); ++i) {
        bool isHexadecimal = false;
        const int code = name.sliced(i).startsWith("\\x") ? name.mid(i + 2, 2).toInt(&isHexadecimal, 16) : 0;
        text.append(isHexadecimal ? static_cast<char>(code) : name[i]);
        i += isHexadecimal ? length - 1 : 0;
    }
    return text;
}

/// A link for each volume with a label, named by it and leading to the volume's device.
QList<DirectoryEntry> labelLinks(const FileManager& files)
{
    return files.contentsOfDirectory(files.systemLocation(QStringLiteral("/dev/disk/by-label")), {})
        .value_or(QList<DirectoryEntry>());
}

QString labelOf(const DeviceMount& mount, const QList<DirectoryEntry>& links, const FileManager& files)
{
    const FileURL device = files.resolvingSymlinks(files.systemLocation(QString::fromUtf8(mount.device)));
    const auto link = std::ranges::find_if(
        links, [&](const DirectoryEntry& entry) { return files.resolvingSymlinks(entry.url) == device; });
    if (link == links.end())
        return mount.point.lastPathComponent();
    return QString::fromUtf8(unescaped(link->url.nativeLastPathComponent()));
}

} // namespace

QList<MountedVolume> volumesAmong(const QList<DeviceMount>& mounts, const FileManager& files)
{
    const QList<FileURL> places = MachinePlaces::volumeFolders(files);
    const QList<DirectoryEntry> links = labelLinks(files);
    QList<MountedVolume> volumes;
    for (const DeviceMount& mount : mounts) {
        const bool isInPlace = std::ranges::any_of(
            places, [&mount](const FileURL& place) { return isBelow(mount.point, place); });
        if (isInPlace && isOnDevice(mount))
            volumes.append({mount.point, labelOf(mount, links, files)});
    }
    std::ranges::stable_sort(volumes, {}, &MountedVolume::label);
    return volumes;
}

QList<FileURL> topsAmong(const QList<DeviceMount>& mounts)
{
    QList<FileURL> tops;
    QSet<std::pair<QByteArray, FileURL>> known;
    for (const DeviceMount& mount : mounts) {
        const std::pair shown(mount.device, mount.folder);
        if (!isOnDevice(mount) || known.contains(shown) || tops.contains(mount.point))
            continue;
        known.insert(shown);
        tops.append(mount.point);
    }
    return tops;
}

} // namespace keelbright

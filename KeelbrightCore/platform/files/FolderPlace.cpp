#include "KeelbrightCore/platform/files/FolderPlace.h"

#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/files/MachinePlaces.h"
#include "KeelbrightCore/platform/files/MountPoints.h"

#include <algorithm>

namespace keelbright {

namespace {

/// The deepest of the places at or above the folder; the root where there is none.
FileURL deepestAbove(const FileURL& folder, const QList<FileURL>& places)
{
    FileURL deepest;
    for (const FileURL& place : places) {
        if (isAtOrBelow(folder, place) && place.nativePath().size() > deepest.nativePath().size())
            deepest = place;
    }
    return deepest;
}

/// Where the system's table mounts drives besides the root, present or not: its second field.
QList<FileURL> placesOfDrives(const FileManager& files)
{
    constexpr qint64 maximumTable = 1'000'000; // bytes
    const auto table = files.contents(files.systemLocation(QStringLiteral("/etc/fstab")), maximumTable);
    if (!table)
        return {};
    QList<FileURL> places;
    for (const QByteArray& line : table->split('\n')) {
        const QList<QByteArray> fields = line.simplified().split(' ');
        if (fields.size() > 1 && !fields.first().startsWith('#') && fields.at(1).startsWith('/') &&
            fields.at(1) != "/")
            places.append(
                files.systemLocation(FileURL::fromNativePath(unescapedMountPoint(fields.at(1))).path()));
    }
    return places;
}

/// The place of the drive that the table says the folder lies on; the root where it lists none.
FileURL listedPlace(const FileURL& folder, const FileURL& resolved, const FileManager& files)
{
    QList<FileURL> above;
    for (const FileURL& place : placesOfDrives(files)) {
        // To resolve the other places as well could hang with drives that have nothing to do with the folder.
        if (isAtOrBelow(folder, place) || isAtOrBelow(resolved, place))
            above.append(files.resolvingSymlinks(place));
    }
    return deepestAbove(resolved, above);
}

/// Whether it is an empty folder where only desktops make folders, each for a drive that they mount there.
/// They remove it with the drive, but not where the power goes first.
bool isLeftBehind(const FileURL& resolved, const FileManager& files)
{
    const FileURL above = resolved.deletingLastPathComponent();
    const QList<FileURL> places = MachinePlaces::desktopVolumeFolders(files);
    const auto isAbove = [&](const FileURL& place) { return files.resolvingSymlinks(place) == above; };
    if (std::ranges::none_of(places, isAbove))
        return false;
    const auto entries = files.contentsOfDirectory(resolved, {});
    return entries && entries->isEmpty();
}

} // namespace

FolderPlace placeOf(const FileURL& folder)
{
    const FileManager& files = FileManager::defaultManager();
    const FileURL resolved = files.resolvingSymlinks(folder);
    const QList<FileURL> mounted = mountPoints();
    const FileURL listed = listedPlace(folder, resolved, files);
    const bool isMissing = listed != FileURL() && !mounted.contains(listed);
    const bool isLeft = !mounted.contains(resolved) && isLeftBehind(resolved, files);
    return {.isFolder = files.fileExists(folder).isDirectory,
            .mountPoint = deepestAbove(resolved, mounted),
            // Without a table of mounts nothing can be said.
            .isWithoutItsDrive = !mounted.isEmpty() && (isMissing || isLeft)};
}

bool lacksItsDrive(const FolderPlace& place, const FileURL& lastSeenAt)
{
    // Both lie on the way to the folder, so the shorter one is above.
    return place.isWithoutItsDrive || place.mountPoint.nativePath().size() < lastSeenAt.nativePath().size();
}

} // namespace keelbright

#include "KeelbrightCore/platform/files/ProtectedPlaces.h"

#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/files/MountPoints.h"
#include "KeelbrightCore/platform/files/ResolvedPath.h"
#include "KeelbrightCore/platform/files/UserFolders.h"
#include "KeelbrightCore/platform/files/XdgFolders.h"

#include <QSet>
#include <algorithm>

namespace keelbright {

namespace {

constexpr const char* standardFolders[] = {
    "Applications", "Desktop",  "Documents", "Downloads", "Library",      "Movies",
    "Music",        "Pictures", "Public",    "Sites",     "Templates",    "Videos",
    ".Trash",       ".cache",   ".config",   ".local",    ".local/share", ".local/state",
};

constexpr const char* libraryFolders[] = {
    "Accounts",
    "Application Scripts",
    "Application Support",
    "Assistants",
    "Audio",
    "Autosave Information",
    "Caches",
    "Calendars",
    "CloudStorage",
    "ColorPickers",
    "ColorSync",
    "Colors",
    "Containers",
    "Cookies",
    "Daemon Containers",
    "Developer",
    "Extensions",
    "Favorites",
    "FontCollections",
    "Fonts",
    "Frameworks",
    "Group Containers",
    "HTTPStorages",
    "Input Methods",
    "Internet Plug-Ins",
    "Keyboard Layouts",
    "Keychains",
    "LaunchAgents",
    "LaunchDaemons",
    "Logs",
    "Mail",
    "Messages",
    "Metadata",
    "Mobile Documents",
    "PreferencePanes",
    "Preferences",
    "Printers",
    "PrivilegedHelperTools",
    "QuickLook",
    "Receipts",
    "Safari",
    "Saved Application State",
    "Screen Savers",
    "Scripts",
    "Services",
    "Shortcuts",
    "Sounds",
    "Spelling",
    "Spotlight",
    "SyncedPreferences",
    "WebKit",
    "Workflows",
};

void appendLibrary(QList<FileURL>& places, const FileURL& library)
{
    places.append(library);
    for (const char* folder : libraryFolders)
        places.append(library.appendingNative(folder));
}

/// The place and the folders above it.
void insertWithParents(QSet<FileURL>& folders, FileURL place)
{
    for (; place != FileURL() && !folders.contains(place); place = place.deletingLastPathComponent())
        folders.insert(place);
}

bool isSameItem(const struct stat& a, const struct stat& b)
{
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

/// Looks for the item among folders. Folders that turn out to be links are followed: where they lead
/// goes into `targets`, with the folders above it.
bool isOneOf(const QSet<FileURL>& folders, const FileURL& item, const struct stat& status,
             const QSet<FileURL>& mounts, QSet<FileURL>& targets)
{
    if (folders.contains(item))
        return true;
    for (const FileURL& folder : folders) {
        struct stat found = {};
        // A mount point is refused by its path, and a drive that does not answer would be waited for.
        if (mounts.contains(folder) || ::lstat(folder.nativePath().constData(), &found) != 0)
            continue;
        if (isSameItem(found, status))
            return true;
        if (S_ISLNK(found.st_mode))
            insertWithParents(targets, resolvedPath(folder));
    }
    return false;
}

} // namespace

QList<FileURL> ProtectedPlaces::of(const FileManager& files)
{
    const FileURL home = files.homeDirectory();
    QList<FileURL> places{home, files.applicationSupportDirectory(),
                          files.systemLocation(QStringLiteral("/Applications/Utilities"))};
    for (const char* folder : standardFolders)
        places.append(home.appendingNative(folder));
    appendLibrary(places, home.appendingNative("Library"));
    appendLibrary(places, files.systemLocation(QStringLiteral("/Library")));
    for (const FileURL& base :
         {XdgFolders::configuration(files), XdgFolders::caches(files), XdgFolders::state(files)})
        places.append(base);
    return places + userFolders(files).values();
}

std::optional<FileError::Reason> ProtectedPlaces::reasonToStay(const FileURL& location,
                                                               const struct stat& status,
                                                               const QList<FileURL>& places)
{
    if (!S_ISDIR(status.st_mode) && !S_ISLNK(status.st_mode))
        return std::nullopt;
    const QList<FileURL> points = mountPoints();
    const QSet<FileURL> mounts(points.cbegin(), points.cend());
    const auto isAtOrBelow = [&](const FileURL& point) {
        return point == location || point.nativePath().startsWith(location.nativePath() + '/');
    };
    QSet<FileURL> folders;
    for (const FileURL& place : places)
        insertWithParents(folders, place);
    QSet<FileURL> targets;
    QSet<FileURL> further;
    if (location == FileURL() || isOneOf(folders, location, status, mounts, targets) ||
        isOneOf(targets, location, status, mounts, further))
        return FileError::Reason::neededInItsPlace;
    if (std::ranges::any_of(points, isAtOrBelow))
        return FileError::Reason::driveMounted;
    return std::nullopt;
}

} // namespace keelbright

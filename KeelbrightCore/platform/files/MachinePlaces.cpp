#include "KeelbrightCore/platform/files/MachinePlaces.h"

#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/files/MacJunk.h"
#include "KeelbrightCore/platform/files/UserFolders.h"
#include "KeelbrightCore/platform/files/XdgFolders.h"
#include "KeelbrightCore/platform/files/XdgJunk.h"

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

struct FolderNames
{
    const char* mac;
    const char* english; ///< of the other desktops
    const char* key;     ///< in their settings
};

FolderNames namesOf(UserFolder folder)
{
    switch (folder) {
    case UserFolder::desktop:
        return {"Desktop", "Desktop", "DESKTOP"};
    case UserFolder::documents:
        return {"Documents", "Documents", "DOCUMENTS"};
    case UserFolder::pictures:
        return {"Pictures", "Pictures", "PICTURES"};
    case UserFolder::downloads:
        return {"Downloads", "Downloads", "DOWNLOAD"};
    case UserFolder::movies:
        return {"Movies", "Videos", "VIDEOS"};
    case UserFolder::music:
        return {"Music", "Music", "MUSIC"};
    }
    Q_UNREACHABLE();
}

} // namespace

MachinePlaces::MachinePlaces(const FileManager& files)
    : m_files(files)
    , m_home(files.homeDirectory())
    , m_isMac(files.isMac() || files.fileExists(m_home.appending(u"Library"_s)).isDirectory)
{
    if (!m_isMac)
        m_userFolders = userFolders(files);
}

FileURL MachinePlaces::userFolder(UserFolder folder) const
{
    const FolderNames names = namesOf(folder);
    if (m_isMac)
        return m_home.appendingNative(names.mac);
    const FileURL chosen = m_userFolders.value(names.key, m_home);
    // A folder that is switched off must not stand for the whole home.
    return chosen == m_home ? m_home.appendingNative(names.english) : chosen;
}

bool MachinePlaces::isSwitchedOff(UserFolder folder) const
{
    const auto chosen = m_userFolders.constFind(namesOf(folder).key);
    return chosen != m_userFolders.constEnd() && *chosen == m_home;
}

JunkPlaces MachinePlaces::junk() const
{
    return m_isMac ? macJunkPlaces(m_home) : xdgJunkPlaces(m_files);
}

QList<FileURL> MachinePlaces::junkEstimate() const
{
    return m_isMac ? macJunkEstimate(m_home) : xdgJunkEstimate(m_files);
}

QList<FileURL> MachinePlaces::dataFolders() const
{
    return m_isMac ? QList<FileURL>() : XdgFolders::dataFolders(m_files);
}

LinuxPackages MachinePlaces::linuxPackages() const
{
    return {
        .dpkgStatus = m_files.systemLocation(u"/var/lib/dpkg/status"_s),
        .dpkgLists = m_files.systemLocation(u"/var/lib/dpkg/info"_s),
        .snaps = {m_files.systemLocation(u"/snap"_s), m_files.systemLocation(u"/var/lib/snapd/snap"_s)},
        .snapFiles = m_files.systemLocation(u"/var/lib/snapd/snaps"_s),
    };
}

LinuxUsage MachinePlaces::linuxUsage() const
{
    const FileURL data = m_files.applicationSupportDirectory();
    return {
        .recentFiles = data.appending(u"recently-used.xbel"_s),
        .gnomeState = data.appending(u"gnome-shell/application_state"_s),
        .plasmaDatabase = data.appending(u"kactivitymanagerd/resources/database"_s),
    };
}

LinuxAppFolders MachinePlaces::linuxAppFolders() const
{
    return {
        .configuration = XdgFolders::configuration(m_files),
        .data = m_files.applicationSupportDirectory(),
        .state = XdgFolders::state(m_files),
        .caches = XdgFolders::caches(m_files),
        .flatpaks = m_home.appending(u".var/app"_s),
    };
}

QList<FileURL> MachinePlaces::appImageFolders() const
{
    if (m_isMac)
        return {};
    QList<FileURL> folders;
    for (const char* name : {"Applications", "AppImages", "bin", ".local/bin"})
        folders.append(m_home.appendingNative(name));
    return folders + QList{userFolder(UserFolder::downloads), userFolder(UserFolder::desktop), m_home};
}

FileURL MachinePlaces::sharedBundleFolder() const
{
    return m_files.systemLocation(u"/Applications"_s);
}

QList<FileURL> MachinePlaces::bundleFolders() const
{
    if (!m_isMac)
        return {};
    return {sharedBundleFolder(), m_files.systemLocation(u"/Applications/Utilities"_s),
            m_home.appending(u"Applications"_s)};
}

FileURL MachinePlaces::inLibrary(const char* name) const
{
    return m_home.appending(u"Library"_s).appendingNative(name);
}

MacLibrary MachinePlaces::macLibrary() const
{
    return {
        .preferences = inLibrary("Preferences"),
        .caches = inLibrary("Caches"),
        .applicationSupport = inLibrary("Application Support"),
        .containers = inLibrary("Containers"),
        .groupContainers = inLibrary("Group Containers"),
        .savedStates = inLibrary("Saved Application State"),
        .webKit = inLibrary("WebKit"),
        .httpStorages = inLibrary("HTTPStorages"),
        .applicationScripts = inLibrary("Application Scripts"),
        .launchAgents = inLibrary("LaunchAgents"),
        .systemLaunchAgents = m_files.systemLocation(u"/Library/LaunchAgents"_s),
        .systemLaunchDaemons = m_files.systemLocation(u"/Library/LaunchDaemons"_s),
    };
}

FileURL MachinePlaces::metadataTool(const FileManager& files)
{
    return files.systemLocation(u"/usr/bin/mdls"_s);
}

QList<FileURL> MachinePlaces::volumeFolders(const FileManager& files)
{
    return {files.systemLocation(u"/Volumes"_s), files.systemLocation(u"/media"_s),
            files.systemLocation(u"/run/media"_s), files.systemLocation(u"/mnt"_s)};
}

QList<FileURL> MachinePlaces::ownVolumeFolders(const FileManager& files)
{
    return QList{files.systemLocation(u"/Volumes"_s)} + desktopVolumeFolders(files) +
           QList{files.systemLocation(u"/mnt"_s)};
}

QList<FileURL> MachinePlaces::desktopVolumeFolders(const FileManager& files)
{
    const QString user = files.homeDirectory().lastPathComponent();
    return {files.systemLocation(u"/media"_s).appending(user),
            files.systemLocation(u"/run/media"_s).appending(user)};
}

QList<FileURL> MachinePlaces::systemFolders() const
{
    return {m_files.systemLocation(u"/System"_s), m_files.systemLocation(u"/Library"_s),
            m_files.systemLocation(u"/"_s)};
}

} // namespace keelbright

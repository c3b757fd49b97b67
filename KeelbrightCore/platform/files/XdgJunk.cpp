// Where a desktop that follows the XDG specifications has what can be thrown away.

#include "KeelbrightCore/platform/files/XdgJunk.h"

#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/files/PlaceOnVolume.h"
#include "KeelbrightCore/platform/files/TrashFolder.h"
#include "KeelbrightCore/platform/files/XdgFolders.h"

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

struct Browser
{
    QString name;
    QByteArray cache;   ///< below a folder of caches
    QByteArray flatpak; ///< its identifier there; empty where it is none
    QByteArray snap;    ///< its name there; empty where it is none
    QByteArrayList programs;
};

const QList<Browser>& browsers()
{
    static const QByteArrayList firefox{"firefox", "firefox-esr", "firefox-bin"};
    static const QByteArrayList chromium{"chromium", "chromium-browser", "chromium/chrome",
                                         "chromium-browser/chrome"};
    // As Google's own package, and as Flatpak unpacks it.
    static const QByteArrayList chrome{"google/chrome/chrome", "extra/chrome"};
    static const QByteArrayList edge{"msedge", "microsoft-edge"};
    static const QByteArrayList vivaldi{"vivaldi-bin", "vivaldi"};
    static const QList<Browser> all{
        {u"Firefox"_s, "mozilla/firefox", "org.mozilla.firefox", "firefox", firefox},
        {u"Chromium"_s, "chromium", "org.chromium.Chromium", "chromium", chromium},
        {u"Chrome"_s, "google-chrome", "com.google.Chrome", {}, chrome},
        {u"Chrome"_s, "google-chrome-beta", {}, {}, {"google/chrome-beta/chrome"}},
        {u"Chrome"_s,
         "google-chrome-unstable",
         "com.google.ChromeDev",
         {},
         {"google/chrome-unstable/chrome"}},
        {u"Brave"_s, "BraveSoftware/Brave-Browser", "com.brave.Browser", "brave", {"brave"}},
        {u"Edge"_s, "microsoft-edge", "com.microsoft.Edge", {}, edge},
        {u"Edge"_s, "microsoft-edge-beta", {}, {}, edge},
        {u"Edge"_s, "microsoft-edge-dev", "com.microsoft.EdgeDev", {}, edge},
        {u"Vivaldi"_s, "vivaldi", "com.vivaldi.Vivaldi", "vivaldi", vivaldi},
        {u"Vivaldi"_s, "vivaldi-snapshot", {}, {}, vivaldi},
    };
    return all;
}

/// The browsers of the system in their order, then those of Flatpak and of Snap.
QList<BrowserCache> browserCaches(const FileURL& caches, const FileURL& home)
{
    QList<BrowserCache> native;
    QList<BrowserCache> contained;
    for (const Browser& browser : browsers()) {
        const auto add = [&browser](QList<BrowserCache>& list, const FileURL& folder) {
            list.append({folder.appendingNative(browser.cache), browser.name, browser.programs});
        };
        add(native, caches);
        if (!browser.flatpak.isEmpty())
            add(contained, home.appendingNative(".var/app/" + browser.flatpak + "/cache"));
        if (browser.snap.isEmpty())
            continue;
        const FileURL snap = home.appendingNative("snap/" + browser.snap);
        add(contained, snap.appendingNative("common/.cache"));
        add(contained, snap.appendingNative("current/.cache"));
    }
    return native + contained;
}

/// The folder, unless the environment names one that holds everything else of the home as well: its
/// entries would be the user's own.
FileURL unlessAboveHome(const FileURL& folder, const char* usual, const FileURL& home)
{
    return isAtOrBelow(home, folder) ? home.appendingNative(usual) : folder;
}

FileURL cacheFolder(const FileManager& files)
{
    return unlessAboveHome(XdgFolders::caches(files), ".cache", files.homeDirectory());
}

QList<FileURL> cachesOfDeveloping(const FileURL& home)
{
    return {home.appendingNative(".npm/_cacache"), home.appendingNative(".cargo/registry/cache"),
            home.appendingNative(".gradle/caches")};
}

QList<FileURL> sessionLogs(const FileURL& home)
{
    return {home.appendingNative(".xsession-errors"), home.appendingNative(".xsession-errors.old")};
}

FileURL logsOfX(const FileManager& files)
{
    return files.applicationSupportDirectory().appendingNative("xorg");
}

QList<FileURL> trashFolders(const FileManager& files)
{
    QList<FileURL> folders{files.applicationSupportDirectory().appendingNative("Trash/files")};
    for (const MountedVolume& volume : files.mountedVolumes()) {
        for (const FileURL& trash : volumeTrashes(volume.point))
            folders.append(trash.appendingNative("files"));
    }
    return folders;
}

} // namespace

JunkPlaces xdgJunkPlaces(const FileManager& files)
{
    const FileURL home = files.homeDirectory();
    const FileURL caches = cacheFolder(files);
    JunkPlaces places;
    places.caches = {caches};
    places.logs = {logsOfX(files)};
    places.singleLogs = sessionLogs(home);
    places.programStates = {unlessAboveHome(XdgFolders::state(files), ".local/state", home)};
    places.developer = cachesOfDeveloping(home);
    for (const char* name : {"pip", "go-build", "ccache"})
        places.developer.append(caches.appendingNative(name));
    places.browsers = browserCaches(caches, home);
    places.trash = trashFolders(files);
    places.countsFiles = true;
    places.listsOnce = true;
    return places;
}

QList<FileURL> xdgJunkEstimate(const FileManager& files)
{
    const FileURL home = files.homeDirectory();
    return QList{cacheFolder(files), logsOfX(files)} + sessionLogs(home) + cachesOfDeveloping(home);
}

} // namespace keelbright

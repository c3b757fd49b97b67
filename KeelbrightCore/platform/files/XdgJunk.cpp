// Where a desktop that follows the XDG specifications has what can be thrown away.

#include "KeelbrightCore/platform/files/XdgJunk.h"

#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/files/PlaceOnVolume.h"
#include "KeelbrightCore/platform/files/TrashFolder.h"
#include "KeelbrightCore/platform/files/XdgFolders.h"

#include <algorithm>

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
    static const QByteArrayList chromeUnstable{"google/chrome-unstable/chrome", "extra/chrome"};
    static const QByteArrayList brave{"brave"};
    static const QByteArrayList edge{"msedge", "microsoft-edge"};
    static const QByteArrayList vivaldi{"vivaldi-bin", "vivaldi"};
    static const QList<Browser> all{
        {u"Firefox"_s, "mozilla/firefox", "org.mozilla.firefox", "firefox", firefox},
        {u"Chromium"_s, "chromium", "org.chromium.Chromium", "chromium", chromium},
        {u"Chrome"_s, "google-chrome", "com.google.Chrome", {}, chrome},
        {u"Chrome"_s, "google-chrome-beta", {}, {}, {"google/chrome-beta/chrome"}},
        {u"Chrome"_s, "google-chrome-unstable", "com.google.ChromeDev", {}, chromeUnstable},
        {u"Brave"_s, "BraveSoftware/Brave-Browser", "com.brave.Browser", "brave", brave},
        {u"Brave"_s, "BraveSoftware/Brave-Browser-Beta", {}, {}, brave},
        {u"Brave"_s, "BraveSoftware/Brave-Browser-Nightly", {}, {}, brave},
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

/// Where the user keeps other things than caches and logs.
QList<FileURL> keptFolders(const FileManager& files)
{
    return {files.homeDirectory(), XdgFolders::configuration(files), files.applicationSupportDirectory()};
}

bool holdsOneOf(const FileURL& folder, const QList<FileURL>& others)
{
    return std::ranges::any_of(others, [&](const FileURL& other) { return isAtOrBelow(other, folder); });
}

/// The folder; where the environment names one that holds one of the others as well, the usual one below the
/// home. Its entries would be the user's own.
FileURL unlessItHolds(const QList<FileURL>& others, const FileURL& folder, const FileURL& usual)
{
    return holdsOneOf(folder, others) ? usual : folder;
}

FileURL stateFolder(const FileManager& files)
{
    return unlessItHolds(keptFolders(files), XdgFolders::state(files),
                         files.homeDirectory().appendingNative(".local/state"));
}

/// What must not lie in the folder of caches.
QList<FileURL> otherThanCaches(const FileManager& files)
{
    return keptFolders(files) + QList{XdgFolders::state(files)};
}

FileURL cacheFolder(const FileManager& files)
{
    return unlessItHolds(otherThanCaches(files), XdgFolders::caches(files),
                         files.homeDirectory().appendingNative(".cache"));
}

/// The folder whose entries are caches, unless the environment puts something else into the usual one.
QList<FileURL> foldersOfCaches(const FileManager& files)
{
    const FileURL folder = cacheFolder(files);
    return holdsOneOf(folder, otherThanCaches(files)) ? QList<FileURL>() : QList{folder};
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
    const FileURL home = files.homeDirectory();
    return unlessItHolds({home}, files.applicationSupportDirectory(), home.appendingNative(".local/share"))
        .appendingNative("xorg");
}

QList<FileURL> trashFolders(const FileManager& files)
{
    QList<FileURL> folders{files.applicationSupportDirectory().appendingNative("Trash/files")};
    for (const FileURL& top : files.volumeTops()) {
        for (const FileURL& trash : volumeTrashes(top))
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
    places.caches = foldersOfCaches(files);
    places.logs = {logsOfX(files)};
    places.singleLogs = sessionLogs(home);
    places.programStates = {stateFolder(files)};
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
    return foldersOfCaches(files) + QList{logsOfX(files)} + sessionLogs(home) + cachesOfDeveloping(home);
}

} // namespace keelbright

#include "KeelbrightCore/apps/AppLeftoversScanner.h"

#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/storage/FolderSizeService.h"

#include <algorithm>
#include <functional>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

using Kind = AppLeftover::Kind;

struct Place
{
    QByteArray folder; ///< ends with a slash
    QByteArray name;
    Kind kind;
};

/// One scan for one application.
class Search
{
public:
    Search(const QString& bundleID, const QString& appName, const Cancellation& cancellation)
        : m_cancellation(cancellation)
        , m_bundleID(bundleID.toUtf8())
        , m_appName(appName.toUtf8())
        , m_library(m_fileManager.homeDirectory().nativePath() + "/Library/")
    {}

    QList<AppLeftover> run()
    {
        searchFixedPlaces();
        searchGroupContainers();
        searchPreferences();
        std::ranges::stable_sort(m_found, std::greater(), &AppLeftover::sizeBytes);
        return std::move(m_found);
    }

private:
    [[nodiscard]] QByteArray systemPath(const QString& folder) const
    {
        return m_fileManager.systemLocation(folder).nativePath() + '/';
    }

    [[nodiscard]] QList<Place> fixedPlaces() const
    {
        return {{m_library + "Preferences/", m_bundleID + ".plist", Kind::preferences},
                {m_library + "Preferences/", m_bundleID + ".LSSharedFileList.plist", Kind::preferences},
                {m_library + "Caches/", m_bundleID, Kind::cache},
                {m_library + "Application Support/", m_bundleID, Kind::support},
                {m_library + "Application Support/", m_appName, Kind::support},
                {m_library + "Containers/", m_bundleID, Kind::container},
                {m_library + "Saved Application State/", m_bundleID + ".savedState", Kind::savedState},
                {m_library + "WebKit/", m_bundleID, Kind::cache},
                {m_library + "HTTPStorages/", m_bundleID, Kind::cache},
                {m_library + "HTTPStorages/", m_bundleID + ".binarycookies", Kind::cache},
                {m_library + "Application Scripts/", m_bundleID, Kind::support},
                {m_library + "LaunchAgents/", m_bundleID + ".plist", Kind::launchAgent},
                {systemPath(u"/Library/LaunchAgents"_s), m_bundleID + ".plist", Kind::launchAgent},
                {systemPath(u"/Library/LaunchDaemons"_s), m_bundleID + ".plist", Kind::launchAgent}};
    }

    void searchFixedPlaces()
    {
        for (const Place& place : fixedPlaces()) {
            // The identifier comes from the application: "../../Documents" in it would make a folder
            // of the user look like a leftover.
            if (!place.name.isEmpty() && !isFileName(place.name))
                continue;
            const FileURL url = FileURL::fromNativePath(place.folder + place.name);
            if (m_fileManager.fileExists(url).exists)
                append(url, place.kind);
        }
    }

    void searchGroupContainers()
    {
        for (const FileURL& url : contents("Group Containers")) {
            // Behind the prefix of a team, and anywhere else in the name.
            if (url.nativeLastPathComponent().contains(m_bundleID))
                append(url, Kind::container);
        }
    }

    void searchPreferences()
    {
        for (const FileURL& url : contents("Preferences")) {
            const QByteArray name = url.nativeLastPathComponent();
            const bool isListed = std::ranges::find(m_found, url, &AppLeftover::url) != m_found.end();
            if (name.startsWith(m_bundleID) && pathExtensionOf(name) == "plist" && !isListed)
                append(url, Kind::preferences);
        }
    }

    [[nodiscard]] QList<FileURL> contents(const QByteArray& folder) const
    {
        const auto entries = m_fileManager.contentsOfDirectory(FileURL::fromNativePath(m_library + folder),
                                                               DirectoryEnumerator::Option::skipsHiddenFiles);
        QList<FileURL> urls;
        for (const DirectoryEntry& entry : entries.value_or(QList<DirectoryEntry>()))
            urls.append(entry.url);
        return urls;
    }

    void append(const FileURL& url, Kind kind)
    {
        if (m_cancellation.isCancelled())
            return;
        m_found.append({.url = url, .sizeBytes = itemSize(url), .kind = kind});
    }

    [[nodiscard]] qint64 itemSize(const FileURL& url) const
    {
        if (m_fileManager.fileExists(url).isDirectory)
            return FolderSizeService::recursiveSize(url, m_fileManager);
        return m_fileManager.fileSize(url).value_or(0);
    }

    const FileManager& m_fileManager = FileManager::defaultManager();
    const Cancellation& m_cancellation;
    const QByteArray m_bundleID;
    const QByteArray m_appName;
    const QByteArray m_library;
    QList<AppLeftover> m_found;
};

} // namespace

QList<AppLeftover> AppLeftoversScanner::scan(const QString& bundleID, const QString& appName,
                                             const Cancellation& cancellation)
{
    return Search(bundleID, appName, cancellation).run();
}

} // namespace keelbright

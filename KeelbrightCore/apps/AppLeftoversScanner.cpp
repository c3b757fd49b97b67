#include "KeelbrightCore/apps/AppLeftoversScanner.h"

#include "KeelbrightCore/apps/LinuxLeftovers.h"
#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/files/MachinePlaces.h"

#include <algorithm>
#include <functional>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

using Kind = AppLeftover::Kind;

struct Place
{
    FileURL folder;
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
        , m_library(MachinePlaces(m_fileManager).macLibrary())
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
    [[nodiscard]] QList<Place> fixedPlaces() const
    {
        const QByteArray list = m_bundleID + ".plist";
        return {{m_library.preferences, list, Kind::preferences},
                {m_library.preferences, m_bundleID + ".LSSharedFileList.plist", Kind::preferences},
                {m_library.caches, m_bundleID, Kind::cache},
                {m_library.applicationSupport, m_bundleID, Kind::support},
                {m_library.applicationSupport, m_appName, Kind::support},
                {m_library.containers, m_bundleID, Kind::container},
                {m_library.savedStates, m_bundleID + ".savedState", Kind::savedState},
                {m_library.webKit, m_bundleID, Kind::cache},
                {m_library.httpStorages, m_bundleID, Kind::cache},
                {m_library.httpStorages, m_bundleID + ".binarycookies", Kind::cache},
                {m_library.applicationScripts, m_bundleID, Kind::support},
                {m_library.launchAgents, list, Kind::launchAgent},
                {m_library.systemLaunchAgents, list, Kind::launchAgent},
                {m_library.systemLaunchDaemons, list, Kind::launchAgent}};
    }

    void searchFixedPlaces()
    {
        for (const Place& place : fixedPlaces()) {
            // The identifier comes from the application: "../../Documents" in it would make a folder
            // of the user look like a leftover.
            if (!place.name.isEmpty() && !isFileName(place.name))
                continue;
            const FileURL url = place.folder.appendingNative(place.name);
            if (m_fileManager.fileExists(url).exists)
                append(url, place.kind);
        }
    }

    void searchGroupContainers()
    {
        for (const FileURL& url : contents(m_library.groupContainers)) {
            // Behind the prefix of a team, and anywhere else in the name.
            if (url.nativeLastPathComponent().contains(m_bundleID))
                append(url, Kind::container);
        }
    }

    void searchPreferences()
    {
        for (const FileURL& url : contents(m_library.preferences)) {
            const QByteArray name = url.nativeLastPathComponent();
            const bool isListed = std::ranges::find(m_found, url, &AppLeftover::url) != m_found.end();
            if (name.startsWith(m_bundleID) && pathExtensionOf(name) == "plist" && !isListed)
                append(url, Kind::preferences);
        }
    }

    [[nodiscard]] QList<FileURL> contents(const FileURL& folder) const
    {
        const auto entries =
            m_fileManager.contentsOfDirectory(folder, DirectoryEnumerator::Option::skipsHiddenFiles);
        QList<FileURL> urls;
        for (const DirectoryEntry& entry : entries.value_or(QList<DirectoryEntry>()))
            urls.append(entry.url);
        return urls;
    }

    void append(const FileURL& url, Kind kind)
    {
        if (m_cancellation.isCancelled())
            return;
        m_found.append(measuredLeftover(url, kind, m_fileManager));
    }

    const FileManager& m_fileManager = FileManager::defaultManager();
    const Cancellation& m_cancellation;
    const QByteArray m_bundleID;
    const QByteArray m_appName;
    const MacLibrary m_library;
    QList<AppLeftover> m_found;
};

} // namespace

QList<AppLeftover> AppLeftoversScanner::scan(const QString& bundleID, const QString& appName,
                                             const Cancellation& cancellation)
{
    const FileManager& files = FileManager::defaultManager();
    if (!MachinePlaces(files).isMac())
        return LinuxLeftovers::scan(bundleID, files, cancellation);
    return Search(bundleID, appName, cancellation).run();
}

} // namespace keelbright

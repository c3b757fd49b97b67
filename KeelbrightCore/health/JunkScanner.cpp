#include "KeelbrightCore/health/JunkScanner.h"

#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/files/MachinePlaces.h"
#include "KeelbrightCore/platform/system/RunningPrograms.h"
#include "KeelbrightCore/platform/system/TaskPools.h"
#include "KeelbrightCore/storage/FolderSizeService.h"

#include <QCoreApplication>
#include <QSet>
#include <algorithm>

namespace keelbright::JunkScanner {

using namespace Qt::StringLiterals;

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(JunkScanner)
};

/// Whether the name says that nothing but what a program has done is in there: "log", "logs",
/// "session.log", "session.log.1".
bool isLogName(const QByteArray& name)
{
    const QByteArray lower = name.toLower();
    return lower == "log" || lower == "logs" || pathExtensionOf(lower) == "log" || lower.contains(".log.");
}

/// Whether the path of the program is or ends with one of these.
bool isOneOf(const QByteArray& path, const QByteArrayList& programs)
{
    return std::ranges::any_of(
        programs, [&](const QByteArray& end) { return path == end || path.endsWith('/' + end); });
}

/// One scan from beginning to end.
class Scan
{
public:
    QList<JunkCategory> run()
    {
        noteWhatHasItsOwnKind();
        QList<JunkCategory> categories{
            {JunkCategoryID::userCaches, Texts::tr("User Caches"), u"arrow.clockwise.circle.fill"_s,
             byValue(itemsOf(entriesOf(m_places.caches)))},
            {JunkCategoryID::userLogs, Texts::tr("Log Files"), u"doc.text.fill"_s, byValue(itemsOf(logs()))},
            {JunkCategoryID::xcode, Texts::tr("Xcode & Simulators"), u"hammer.fill"_s,
             itemsOf(existing(m_places.developer))},
            {JunkCategoryID::iosBackups, Texts::tr("iOS Device Backups"), u"iphone.fill"_s,
             byValue(itemsOf(entriesOf(m_places.deviceBackups)))},
            {JunkCategoryID::browserCache, Texts::tr("Browser Caches"), u"globe"_s, browserItems()},
            {JunkCategoryID::trash, Texts::tr("Trash"), u"trash.fill"_s,
             byValue(itemsOf(entriesOf(m_places.trash)))},
        };
        categories.removeIf([](const JunkCategory& category) { return category.items.isEmpty(); });
        std::ranges::stable_sort(categories, std::ranges::greater(), &JunkCategory::totalBytes);
        return categories;
    }

private:
    static QList<JunkItem> byValue(QList<JunkItem> items)
    {
        std::ranges::stable_sort(items, std::ranges::greater(), &JunkItem::sizeBytes);
        return items;
    }

    void noteWhatHasItsOwnKind()
    {
        if (!m_places.listsOnce)
            return;
        QList<FileURL> places = m_places.developer;
        for (const BrowserCache& cache : m_places.browsers)
            places.append(cache.folder);
        for (const DirectoryEntry& entry : existing(places)) {
            m_elsewhere.insert(entry.url);
            for (FileURL holder = entry.url; holder != FileURL();) {
                holder = holder.deletingLastPathComponent();
                m_holders.insert(holder);
            }
        }
    }

    [[nodiscard]] QList<DirectoryEntry> listed(const FileURL& folder) const
    {
        return m_files.contentsOfDirectory(folder, DirectoryEnumerator::Option::skipsHiddenFiles)
            .value_or(QList<DirectoryEntry>());
    }

    /// The entries of the folders. An entry that holds something with a kind of its own is replaced by the
    /// rest of its entries.
    [[nodiscard]] QList<DirectoryEntry> entriesOf(const QList<FileURL>& folders) const
    {
        QList<DirectoryEntry> found;
        for (const FileURL& folder : folders) {
            for (const DirectoryEntry& entry : listed(folder)) {
                if (m_elsewhere.contains(entry.url))
                    continue;
                if (m_holders.contains(entry.url))
                    found += entriesOf({entry.url});
                else
                    found.append(entry);
            }
        }
        return found;
    }

    /// What there is of single places, in their order.
    [[nodiscard]] QList<DirectoryEntry> existing(const QList<FileURL>& places) const
    {
        QList<DirectoryEntry> found;
        for (const FileURL& place : places) {
            const FileExistence existence = m_files.fileExists(place);
            if (existence.isDirectory)
                found.append({.url = place, .type = EntryType::directory, .fileSize = {}});
            else if (existence.exists)
                found.append(
                    {.url = place, .type = EntryType::regularFile, .fileSize = m_files.fileSize(place)});
        }
        return found;
    }

    [[nodiscard]] QList<DirectoryEntry> logs() const
    {
        QList<DirectoryEntry> found = entriesOf(m_places.logs) + existing(m_places.singleLogs);
        for (const FileURL& states : m_places.programStates) {
            for (const DirectoryEntry& entry : listed(states)) {
                if (isLogName(entry.url.nativeLastPathComponent()))
                    found.append(entry);
                else if (entry.type == EntryType::directory)
                    found += logsBeside(entry.url);
            }
        }
        return found;
    }

    /// The logs among what a program keeps.
    [[nodiscard]] QList<DirectoryEntry> logsBeside(const FileURL& state) const
    {
        QList<DirectoryEntry> entries = listed(state);
        entries.removeIf(
            [](const DirectoryEntry& entry) { return !isLogName(entry.url.nativeLastPathComponent()); });
        return entries;
    }

    [[nodiscard]] QList<JunkItem> browserItems() const
    {
        QList<FileURL> folders;
        for (const BrowserCache& cache : m_places.browsers)
            folders.append(cache.folder);
        QList<JunkItem> items = itemsOf(existing(folders));
        const bool isReported = std::ranges::any_of(
            m_places.browsers, [](const BrowserCache& cache) { return !cache.programs.isEmpty(); });
        if (items.isEmpty() || !isReported)
            return items;
        const QSet<QByteArray> running = runningPrograms(m_files);
        for (JunkItem& item : items) {
            const auto cache = std::ranges::find(m_places.browsers, item.url, &BrowserCache::folder);
            if (std::ranges::any_of(running,
                                    [&](const QByteArray& path) { return isOneOf(path, cache->programs); }))
                item.inUseBy = cache->browser;
        }
        return items;
    }

    /// Each entry with anything in it as one item, in their order.
    [[nodiscard]] QList<JunkItem> itemsOf(const QList<DirectoryEntry>& entries) const
    {
        QList<FileURL> folders;
        for (const DirectoryEntry& entry : entries) {
            if (entry.type == EntryType::directory)
                folders.append(entry.url);
        }
        const QList<qint64> sizes = FolderSizeService::recursiveSizes(folders, m_files);
        auto size = sizes.begin();
        QList<JunkItem> items;
        for (const DirectoryEntry& entry : entries) {
            const qint64 bytes = entry.type == EntryType::directory ? *size++ : fileBytes(entry);
            if (bytes > 0)
                items.append({.url = entry.url, .sizeBytes = bytes});
        }
        return items;
    }

    [[nodiscard]] qint64 fileBytes(const DirectoryEntry& entry) const
    {
        return m_places.countsFiles && entry.type == EntryType::regularFile ? entry.fileSize.value_or(0) : 0;
    }

    const FileManager& m_files = FileManager::defaultManager();
    const JunkPlaces m_places = MachinePlaces(m_files).junk();
    QSet<FileURL> m_elsewhere; ///< what has a kind of its own
    QSet<FileURL> m_holders;   ///< the folders above it
};

} // namespace

QFuture<QList<JunkCategory>> scan()
{
    return TaskPools::runApart(TaskPools::Priority::utility, [] { return Scan().run(); });
}

} // namespace keelbright::JunkScanner

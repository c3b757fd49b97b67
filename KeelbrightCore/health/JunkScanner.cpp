#include "KeelbrightCore/health/JunkScanner.h"

#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/system/TaskPools.h"
#include "KeelbrightCore/storage/FolderSizeService.h"

#include <QCoreApplication>
#include <algorithm>

namespace keelbright::JunkScanner {

using namespace Qt::StringLiterals;

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(JunkScanner)
};

/// Each folder with anything below it as one item, in their order.
QList<JunkItem> itemsOf(const QList<FileURL>& folders, const FileManager& fm)
{
    const QList<qint64> sizes = FolderSizeService::recursiveSizes(folders, fm);
    QList<JunkItem> items;
    for (qsizetype i = 0; i < folders.size(); ++i) {
        if (sizes[i] > 0)
            items.append({.url = folders[i], .sizeBytes = sizes[i]});
    }
    return items;
}

/// Each child of the folder as an item of its own, the largest first.
QList<JunkItem> topLevelItems(const FileURL& folder, const FileManager& fm)
{
    const auto children = fm.contentsOfDirectory(folder, DirectoryEnumerator::Option::skipsHiddenFiles);
    if (!children)
        return {};
    QList<FileURL> urls;
    urls.reserve(children->size());
    for (const DirectoryEntry& child : *children)
        urls.append(child.url);
    QList<JunkItem> items = itemsOf(urls, fm);
    std::ranges::stable_sort(items, std::ranges::greater(), &JunkItem::sizeBytes);
    return items;
}

/// The folders of a fixed list, as far as they exist.
QList<JunkItem> itemsOfFolders(const FileURL& home, const QStringList& relativePaths, const FileManager& fm)
{
    QList<FileURL> existing;
    for (const QString& path : relativePaths) {
        const FileURL folder = home.appending(path);
        if (fm.fileExists(folder).exists)
            existing.append(folder);
    }
    return itemsOf(existing, fm);
}

JunkCategory scanUserCaches(const FileURL& home, const FileManager& fm)
{
    return {JunkCategoryID::userCaches, Texts::tr("User Caches"), u"arrow.clockwise.circle.fill"_s,
            topLevelItems(home.appending(u"Library/Caches"_s), fm)};
}

JunkCategory scanUserLogs(const FileURL& home, const FileManager& fm)
{
    return {JunkCategoryID::userLogs, Texts::tr("Log Files"), u"doc.text.fill"_s,
            topLevelItems(home.appending(u"Library/Logs"_s), fm)};
}

JunkCategory scanXcode(const FileURL& home, const FileManager& fm)
{
    const QStringList folders{
        u"Library/Developer/Xcode/DerivedData"_s,
        u"Library/Developer/Xcode/Archives"_s,
        u"Library/Developer/Xcode/iOS DeviceSupport"_s,
        u"Library/Developer/Xcode/watchOS DeviceSupport"_s,
        u"Library/Developer/Xcode/visionOS DeviceSupport"_s,
        u"Library/Developer/CoreSimulator/Caches"_s,
    };
    return {JunkCategoryID::xcode, Texts::tr("Xcode & Simulators"), u"hammer.fill"_s,
            itemsOfFolders(home, folders, fm)};
}

JunkCategory scaniOSBackups(const FileURL& home, const FileManager& fm)
{
    return {JunkCategoryID::iosBackups, Texts::tr("iOS Device Backups"), u"iphone.fill"_s,
            topLevelItems(home.appending(u"Library/Application Support/MobileSync/Backup"_s), fm)};
}

JunkCategory scanBrowserCaches(const FileURL& home, const FileManager& fm)
{
    const QStringList folders{
        u"Library/Caches/com.apple.Safari"_s,
        u"Library/Application Support/Google/Chrome/Default/Cache"_s,
        u"Library/Application Support/Google/Chrome/Default/Code Cache"_s,
        u"Library/Caches/Firefox"_s,
        // The whole folder on purpose: no path below it holds caches alone.
        u"Library/Application Support/Firefox/Profiles"_s,
        u"Library/Caches/com.microsoft.edgemac"_s,
        u"Library/Application Support/BraveSoftware/Brave-Browser/Default/Cache"_s,
    };
    return {JunkCategoryID::browserCache, Texts::tr("Browser Caches"), u"globe"_s,
            itemsOfFolders(home, folders, fm)};
}

JunkCategory scanTrash(const FileManager& fm)
{
    return {JunkCategoryID::trash, Texts::tr("Trash"), u"trash.fill"_s,
            topLevelItems(fm.homeDirectory().appending(u".Trash"_s), fm)};
}

QList<JunkCategory> scanSync()
{
    const FileManager& fm = FileManager::defaultManager();
    const FileURL home = fm.homeDirectory();
    QList<JunkCategory> categories{
        scanUserCaches(home, fm), scanUserLogs(home, fm),      scanXcode(home, fm),
        scaniOSBackups(home, fm), scanBrowserCaches(home, fm), scanTrash(fm),
    };
    categories.removeIf([](const JunkCategory& category) { return category.items.isEmpty(); });
    std::ranges::stable_sort(categories, std::ranges::greater(), &JunkCategory::totalBytes);
    return categories;
}

} // namespace

QFuture<QList<JunkCategory>> scan()
{
    return TaskPools::runApart(TaskPools::Priority::utility, scanSync);
}

} // namespace keelbright::JunkScanner

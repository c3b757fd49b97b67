#include "KeelbrightCore/health/JunkScanner.h"
#include "KeelbrightCore/platform/system/TaskPools.h"
#include "tests/support/BackgroundWork.h"
#include "tests/support/HeldFileManager.h"
#include "tests/support/MadeUpMac.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"
#include "tests/support/UnprivilegedUser.h"

#include <QThreadPool>
#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

std::filesystem::path standardPath(const FileURL& url)
{
    return {url.nativePath().toStdString()};
}

/// A machine whose folders are listed in the order that the test gives.
class OrderedFileManager : public SandboxFileManager
{
public:
    using SandboxFileManager::SandboxFileManager;

    [[nodiscard]] std::expected<QList<DirectoryEntry>, FileError>
    contentsOfDirectory(const FileURL& url, DirectoryEnumerator::Options options) const override
    {
        auto entries = SandboxFileManager::contentsOfDirectory(url, options);
        if (entries) {
            std::ranges::sort(*entries, {}, [this](const DirectoryEntry& entry) {
                return order.indexOf(entry.url.nativeLastPathComponent());
            });
        }
        return entries;
    }

    QByteArrayList order;
};

class JunkScannerTest : public ::testing::Test
{
protected:
    /// Writes a file of that many bytes below the home.
    void write(const QByteArray& path, qsizetype bytes) const
    {
        mac.writeFile("Users/mira/" + path, QByteArray(bytes, 'x'));
    }

    void link(const QByteArray& path, const FileURL& target) const
    {
        const FileURL place = mac.home().appendingNative(path);
        std::filesystem::create_directories(standardPath(place).parent_path());
        std::filesystem::create_symlink(standardPath(target), standardPath(place));
    }

    static QList<JunkCategory> scan() { return JunkScanner::scan().result(); }

    /// The one category that is found.
    static JunkCategory onlyCategory()
    {
        const QList<JunkCategory> found = scan();
        EXPECT_EQ(found.size(), 1);
        return found.value(0);
    }

    static QStringList idsOf(const QList<JunkCategory>& categories)
    {
        QStringList ids;
        for (const JunkCategory& category : categories)
            ids.append(category.id);
        return ids;
    }

    static QStringList namesOf(const JunkCategory& category)
    {
        QStringList names;
        for (const JunkItem& item : category.items)
            names.append(item.name());
        return names;
    }

    /// The paths of the items below the home.
    QStringList pathsOf(const JunkCategory& category) const
    {
        QStringList paths;
        for (const JunkItem& item : category.items)
            paths.append(item.url.path().mid(mac.home().path().size() + 1));
        return paths;
    }

    TestMac mac;
};

} // namespace

TEST_F(JunkScannerTest, aHomeWithNoneOfThePathsYieldsNothing)
{
    EXPECT_EQ(scan(), QList<JunkCategory>());
}

TEST_F(JunkScannerTest, aHomeThatIsNotThereYieldsNothing)
{
    std::filesystem::remove_all(standardPath(mac.home()));
    EXPECT_EQ(scan(), QList<JunkCategory>());
}

TEST_F(JunkScannerTest, aFolderWhoseEveryChildIsEmptyIsNoCategory)
{
    mac.makeFolder("Users/mira/Library/Logs/one");
    mac.makeFolder("Users/mira/Library/Logs/two/three");
    write("Library/Logs/four/empty.log", 0);
    EXPECT_EQ(scan(), QList<JunkCategory>());
}

TEST_F(JunkScannerTest, everyCategoryHasItsNameAndIcon)
{
    write("Library/Caches/a/file", 600);
    write("Library/Logs/a/file", 500);
    write("Library/Developer/Xcode/Archives/file", 400);
    write("Library/Application Support/MobileSync/Backup/a/file", 300);
    write("Library/Application Support/Google/Chrome/Default/Cache/file", 200);
    write(".Trash/a/file", 100);
    QStringList found;
    for (const JunkCategory& category : scan()) {
        found.append(u"%1|%2|%3|%4"_s.arg(category.id, category.title, category.icon,
                                          QString::number(category.totalBytes())));
    }
    EXPECT_EQ(found, (QStringList{
                         u"userCaches|User Caches|arrow.clockwise.circle.fill|600"_s,
                         u"userLogs|Log Files|doc.text.fill|500"_s,
                         u"xcode|Xcode & Simulators|hammer.fill|400"_s,
                         u"iosBackups|iOS Device Backups|iphone.fill|300"_s,
                         u"browserCache|Browser Caches|globe|200"_s,
                         u"trash|Trash|trash.fill|100"_s,
                     }));
}

TEST_F(JunkScannerTest, theLargestCategoryComesFirst)
{
    write("Library/Caches/a/file", 1);
    write("Library/Logs/a/file", 3);
    write(".Trash/a/file", 2);
    EXPECT_EQ(idsOf(scan()), (QStringList{u"userLogs"_s, u"trash"_s, u"userCaches"_s}));
}

TEST_F(JunkScannerTest, categoriesOfEqualTotalKeepTheirOrder)
{
    write("Library/Caches/a/file", 7);
    write("Library/Logs/a/file", 7);
    write("Library/Developer/CoreSimulator/Caches/file", 7);
    write("Library/Application Support/MobileSync/Backup/a/file", 7);
    write("Library/Application Support/Firefox/Profiles/file", 7);
    write(".Trash/a/file", 7);
    EXPECT_EQ(idsOf(scan()), (QStringList{u"userCaches"_s, u"userLogs"_s, u"xcode"_s, u"iosBackups"_s,
                                          u"browserCache"_s, u"trash"_s}));
}

TEST_F(JunkScannerTest, theLargestItemComesFirst)
{
    write("Library/Caches/small/file", 10);
    write("Library/Caches/large/file", 1'000);
    write("Library/Caches/middle/deep/below/file", 90);
    write("Library/Caches/middle/file", 10);
    const JunkCategory caches = onlyCategory();
    EXPECT_EQ(namesOf(caches), (QStringList{u"large"_s, u"middle"_s, u"small"_s}));
    EXPECT_EQ(caches.items.at(1).sizeBytes, 100);
    EXPECT_EQ(caches.items.at(1).url, mac.home().appending(u"Library/Caches/middle"_s));
    EXPECT_EQ(caches.totalBytes(), 1'110);
}

TEST_F(JunkScannerTest, itemsOfEqualSizeKeepTheirListingOrder)
{
    OrderedFileManager ordered(mac.root());
    const FileManagerGuard guard(ordered);
    for (const char* name : {"one", "two", "three", "four"})
        write(QByteArray("Library/Logs/") + name + "/file", 5);
    write("Library/Logs/five/file", 6);
    ordered.order = {"three", "one", "five", "four", "two"};
    EXPECT_EQ(namesOf(onlyCategory()), (QStringList{u"five"_s, u"three"_s, u"one"_s, u"four"_s, u"two"_s}));
    ordered.order = {"two", "four", "five", "one", "three"};
    EXPECT_EQ(namesOf(onlyCategory()), (QStringList{u"five"_s, u"two"_s, u"four"_s, u"one"_s, u"three"_s}));
}

TEST_F(JunkScannerTest, aFileOfOneByteIsEnough)
{
    write("Library/Caches/a/file", 1);
    EXPECT_EQ(onlyCategory().totalBytes(), 1);
}

TEST_F(JunkScannerTest, aPlainFileDirectlyInAScannedFolderIsNoItem)
{
    write("Library/Caches/a plain file", 1'000);
    write(".Trash/photo.jpg", 1'000);
    EXPECT_EQ(scan(), QList<JunkCategory>());
}

TEST_F(JunkScannerTest, aHiddenFolderIsNotListed)
{
    write("Library/Caches/.hidden/file", 1'000);
    write("Library/Caches/shown/file", 1);
    EXPECT_EQ(namesOf(onlyCategory()), QStringList{u"shown"_s});
}

TEST_F(JunkScannerTest, hiddenFilesBelowAnItemCountForNothing)
{
    write("Library/Caches/a/file", 5);
    write("Library/Caches/a/.hidden", 1'000);
    write("Library/Caches/a/.folder/file", 1'000);
    EXPECT_EQ(onlyCategory().totalBytes(), 5);
}

TEST_F(JunkScannerTest, theInsideOfAPackageCountsForNothing)
{
    write("Library/Caches/a/file", 5);
    write("Library/Caches/a/Helper.app/Contents/binary", 1'000);
    EXPECT_EQ(onlyCategory().totalBytes(), 5);
}

TEST_F(JunkScannerTest, aPackageThatIsTheItemItselfIsMeasured)
{
    write("Library/Caches/Helper.app/Contents/binary", 1'000);
    EXPECT_EQ(onlyCategory().totalBytes(), 1'000);
}

TEST_F(JunkScannerTest, aLinkAmongTheChildrenIsNotFollowed)
{
    write("Documents/novel.txt", 1'000);
    link("Library/Caches/link", mac.home().appending(u"Documents"_s));
    link("Library/Caches/gone", mac.home().appending(u"Nowhere"_s));
    link(".Trash/link", mac.home().appending(u"Documents"_s));
    EXPECT_EQ(scan(), QList<JunkCategory>());
}

TEST_F(JunkScannerTest, aLinkBelowAnItemIsNotFollowedAndCountsItsOwnFewBytes)
{
    const FileURL novel = mac.home().appending(u"Documents"_s);
    write("Documents/novel.txt", 100'000);
    write("Library/Caches/a/file", 5);
    link("Library/Caches/a/link", novel);
    EXPECT_EQ(onlyCategory().totalBytes(), 5 + novel.nativePath().size());
}

TEST_F(JunkScannerTest, aFolderOfAFixedListIsOneItemHoweverManyChildrenItHas)
{
    write("Library/Developer/Xcode/DerivedData/one/file", 10);
    write("Library/Developer/Xcode/DerivedData/two/file", 20);
    write("Library/Developer/Xcode/DerivedData/file", 3);
    const JunkCategory xcode = onlyCategory();
    EXPECT_EQ(namesOf(xcode), QStringList{u"DerivedData"_s});
    EXPECT_EQ(xcode.totalBytes(), 33);
}

TEST_F(JunkScannerTest, theFoldersOfDevelopingComeInTheOrderOfTheirList)
{
    const QStringList expected{
        u"Library/Developer/Xcode/DerivedData"_s,
        u"Library/Developer/Xcode/Archives"_s,
        u"Library/Developer/Xcode/iOS DeviceSupport"_s,
        u"Library/Developer/Xcode/watchOS DeviceSupport"_s,
        u"Library/Developer/Xcode/visionOS DeviceSupport"_s,
        u"Library/Developer/CoreSimulator/Caches"_s,
    };
    qsizetype bytes = 10;
    for (const QString& path : expected)
        write(path.toUtf8() + "/file", bytes++);
    write("Library/Developer/Xcode/UserData/file", 1'000);
    EXPECT_EQ(pathsOf(onlyCategory()), expected);
}

TEST_F(JunkScannerTest, theFoldersOfBrowsersComeInTheOrderOfTheirList)
{
    const QStringList expected{
        u"Library/Caches/com.apple.Safari"_s,
        u"Library/Application Support/Google/Chrome/Default/Cache"_s,
        u"Library/Application Support/Google/Chrome/Default/Code Cache"_s,
        u"Library/Caches/Firefox"_s,
        u"Library/Application Support/Firefox/Profiles"_s,
        u"Library/Caches/com.microsoft.edgemac"_s,
        u"Library/Application Support/BraveSoftware/Brave-Browser/Default/Cache"_s,
    };
    qsizetype bytes = 10;
    for (const QString& path : expected)
        write(path.toUtf8() + "/file", bytes++);
    const QList<JunkCategory> found = scan();
    ASSERT_EQ(idsOf(found), (QStringList{u"browserCache"_s, u"userCaches"_s}));
    EXPECT_EQ(pathsOf(found.at(0)), expected);
}

TEST_F(JunkScannerTest, anEmptyFolderOfAFixedListIsNoItem)
{
    mac.makeFolder("Users/mira/Library/Developer/Xcode/Archives");
    write("Library/Developer/Xcode/DerivedData/file", 1);
    EXPECT_EQ(namesOf(onlyCategory()), QStringList{u"DerivedData"_s});
}

TEST_F(JunkScannerTest, aPlainFileInThePlaceOfAFixedFolderIsNoItem)
{
    write("Library/Developer/Xcode/Archives", 1'000);
    EXPECT_EQ(scan(), QList<JunkCategory>());
}

TEST_F(JunkScannerTest, aBrowserCacheBelowTheUserCachesIsListedTwiceWithIdsOfItsOwn)
{
    write("Library/Caches/com.apple.Safari/file", 10);
    write("Library/Caches/Firefox/file", 20);
    write("Library/Caches/com.microsoft.edgemac/file", 30);
    const QList<JunkCategory> found = scan();
    ASSERT_EQ(idsOf(found), (QStringList{u"userCaches"_s, u"browserCache"_s}));
    EXPECT_EQ(namesOf(found.at(0)),
              (QStringList{u"com.microsoft.edgemac"_s, u"Firefox"_s, u"com.apple.Safari"_s}));
    EXPECT_EQ(namesOf(found.at(1)),
              (QStringList{u"com.apple.Safari"_s, u"Firefox"_s, u"com.microsoft.edgemac"_s}));
    EXPECT_EQ(found.at(0).totalBytes(), 60);
    EXPECT_EQ(found.at(1).totalBytes(), 60);
    EXPECT_EQ(found.at(0).items.at(2).url, found.at(1).items.at(0).url);
    EXPECT_NE(found.at(0).items.at(2).id, found.at(1).items.at(0).id);
}

TEST_F(JunkScannerTest, aFolderThatMayNotBeListedYieldsNoItems)
{
    write("Library/Caches/a/file", 10);
    write("Library/Logs/a/file", 5);
    std::filesystem::permissions(standardPath(mac.root()), std::filesystem::perms(0755));
    const auto caches = standardPath(mac.home().appending(u"Library/Caches"_s));
    std::filesystem::permissions(caches, std::filesystem::perms::none);
    QStringList found;
    {
        const UnprivilegedUser user;
        found = idsOf(scan());
    }
    std::filesystem::permissions(caches, std::filesystem::perms::owner_all);
    EXPECT_EQ(found, QStringList{u"userLogs"_s});
}

TEST_F(JunkScannerTest, aNameThatIsNoTextIsMeasuredAndKeptToTheByte)
{
    write("Library/Caches/bad\xff\xfename/file", 10);
    EXPECT_EQ(onlyCategory().items.value(0).url.nativeLastPathComponent(), "bad\xff\xfename");
}

TEST_F(JunkScannerTest, everyScanGivesNewIds)
{
    write("Library/Logs/a/file", 5);
    const JunkItem first = onlyCategory().items.value(0);
    const JunkItem second = onlyCategory().items.value(0);
    EXPECT_EQ(first.url, second.url);
    EXPECT_NE(first.id, second.id);
}

TEST_F(JunkScannerTest, aScanChangesNothingOnDisk)
{
    MadeUpMac(mac.root()).addLibrary();
    const auto everything = [this] {
        QByteArrayList lines;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(standardPath(mac.root())))
            lines.append(QByteArray::fromStdString(entry.path().string()));
        std::ranges::sort(lines);
        return lines;
    };
    const QByteArrayList before = everything();
    EXPECT_EQ(idsOf(scan()), (QStringList{u"iosBackups"_s, u"xcode"_s, u"browserCache"_s, u"userCaches"_s,
                                          u"trash"_s, u"userLogs"_s}));
    EXPECT_EQ(everything(), before);
}

TEST_F(JunkScannerTest, theWorkIsDoneOnAThreadOfItsOwnWhileTheCallerGoesOn)
{
    write("Library/Logs/a/file", 5);
    HeldFileManager held(mac.root());
    const FileManagerGuard guard(held);
    waitForBackgroundWork();
    held.holdNextLookAt(mac.home().appending(u"Library/Logs"_s));
    const QFuture<QList<JunkCategory>> scan = JunkScanner::scan();
    ASSERT_TRUE(held.waitUntilHeld());
    EXPECT_FALSE(scan.isFinished());
    EXPECT_TRUE(TaskPools::isAtWork());
    EXPECT_EQ(TaskPools::utility().activeThreadCount(), 0);
    EXPECT_EQ(TaskPools::userInitiated().activeThreadCount(), 0);
    held.letGo();
    EXPECT_EQ(idsOf(scan.result()), QStringList{u"userLogs"_s});
    waitForBackgroundWork();
}

TEST_F(JunkScannerTest, theResultNeedsNoReceiver)
{
    HeldFileManager held(mac.root());
    const FileManagerGuard guard(held);
    held.holdNextLookAt(mac.home().appending(u".Trash"_s));
    {
        const auto dropped = JunkScanner::scan();
    }
    ASSERT_TRUE(held.waitUntilHeld());
    held.letGo();
    waitForBackgroundWork();
    EXPECT_EQ(held.looksAt(mac.home().appending(u".Trash"_s)), 1);
}

} // namespace keelbright::testing

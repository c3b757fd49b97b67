#include "KeelbrightCore/backup/FileScanner.h"
#include "KeelbrightCore/platform/files/FileManager.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"
#include "tests/support/UnprivilegedUser.h"

#include <QScopeGuard>
#include <QTemporaryDir>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <limits>
#include <vector>

namespace keelbright::testing {

using namespace Qt::StringLiterals;
using FileScanner::ScanResult;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

namespace {

std::filesystem::path standardPath(const FileURL& url)
{
    return {url.nativePath().toStdString()};
}

class FileScannerTest : public ::testing::Test
{
protected:
    /// Writes a file below the source folder.
    void write(const QByteArray& path, const QByteArray& content = "12345") const
    {
        mac.writeFile("Users/mira/Source/" + path, content);
    }

    void makeFolder(const QByteArray& path) const { mac.makeFolder("Users/mira/Source/" + path); }

    void link(const QByteArray& path, const FileURL& target) const
    {
        std::filesystem::create_symlink(standardPath(target), standardPath(folder.appendingNative(path)));
    }

    [[nodiscard]] ScanResult scan(bool isEnabled = true) const
    {
        return FileScanner::scan({BackupSource{QUuid::createUuid(), folder, isEnabled}});
    }

    struct Judgement
    {
        QByteArrayList skipped;
        QByteArrayList kept;
    };

    /// Every delivered item below the source folder, by what the rule says of it.
    [[nodiscard]] Judgement judge(DirectoryEnumerator::Options options) const
    {
        Judgement judgement;
        const auto walk = FileManager::defaultManager().enumerator(folder, options);
        if (!walk) {
            ADD_FAILURE() << walk.error().localizedDescription().toStdString();
            return judgement;
        }
        while ((*walk)->next()) {
            const QByteArray name = (*walk)->name().toByteArray();
            (FileScanner::shouldSkip(**walk) ? judgement.skipped : judgement.kept).append(name);
        }
        return judgement;
    }

    [[nodiscard]] Judgement judge() const { return judge(DirectoryEnumerator::Option::skipsHiddenFiles); }

    TestMac mac;
    FileURL folder = mac.makeFolder("Users/mira/Source");
};

} // namespace

TEST_F(FileScannerTest, theTablesHoldTheirNames)
{
    EXPECT_THAT(FileScanner::skippedFolderNames(),
                ElementsAre("node_modules", ".git", "build", "dist", "cache", ".cache", "DerivedData",
                            ".Trash", "__pycache__", ".DS_Store"));
    EXPECT_THAT(FileScanner::skippedExtensions(),
                ElementsAre("dmg", "pkg", "iso", "tmp", "app", "framework", "dylib", "o"));
}

TEST_F(FileScannerTest, noSourcesYieldNothing)
{
    EXPECT_EQ(FileScanner::scan({}), (ScanResult{0, 0}));
}

TEST_F(FileScannerTest, disabledSourcesYieldNothing)
{
    write("a.txt");
    EXPECT_EQ(scan(false), (ScanResult{0, 0}));
}

TEST_F(FileScannerTest, regularFilesAreCountedWithTheirSizes)
{
    write("a.txt", "1234567");
    write("empty.txt", "");
    write("one/two/three/b.txt", "12345");
    makeFolder("nothing in here");
    EXPECT_EQ(scan(), (ScanResult{3, 12}));
}

TEST_F(FileScannerTest, theSameFilesAreCountedWhereSizesAreLeftOut)
{
    mac.writeFile("Users/mira/Documents/a.txt", "12345");
    mac.writeFile("Users/mira/Documents/sub/b.txt", "1");
    mac.writeFile("Users/mira/Documents/c.dmg", "1");
    const QList<BackupSource> sources = {
        {QUuid::createUuid(), mac.home().appending(QStringLiteral("Documents")), true}};
    EXPECT_EQ(FileScanner::scan(sources, FileScanner::Sizes::leftOut),
              (FileScanner::ScanResult{.fileCount = 2, .totalBytes = 0}));
    EXPECT_EQ(FileScanner::scan(sources), (FileScanner::ScanResult{.fileCount = 2, .totalBytes = 6}));
}

TEST_F(FileScannerTest, theCountIsGivenUpWhenTheUserCancelsOrTheProgramQuits)
{
    write("a.txt", "1");
    const QList<BackupSource> sources = {{QUuid(), folder, true}};
    Cancellation cancelled;
    cancelled.cancel();
    EXPECT_EQ(FileScanner::scan(sources, FileScanner::Sizes::read, cancelled), (ScanResult{0, 0}));
    Cancellation quit;
    quit.quit();
    EXPECT_EQ(FileScanner::scan(sources, FileScanner::Sizes::read, quit), (ScanResult{0, 0}));
}

TEST_F(FileScannerTest, aLargeSourceIsCountedLikeASmallOne)
{
    constexpr int folders = 60;
    for (int i = 0; i < folders; ++i) {
        const QByteArray path = "folder " + QByteArray::number(i);
        for (int j = 0; j < 10; ++j)
            write(path + "/file " + QByteArray::number(j) + ".txt", "12");
        write(path + "/image.dmg", "345");
        write(path + "/node_modules/lib.js", "345");
        write(path + "/.hidden/file", "345");
        write(path + "/Notes.app/Contents/Info.plist", "1");
    }
    for (int round = 0; round < 20; ++round)
        ASSERT_EQ(scan(), (ScanResult{folders * 11, folders * 21}));
}

TEST_F(FileScannerTest, severalSourcesAddUp)
{
    write("a.txt", "1");
    const FileURL other = mac.writeFile("Users/mira/Other/b.txt", "22").deletingLastPathComponent();
    const FileURL disabled = mac.writeFile("Users/mira/Disabled/c.txt", "333").deletingLastPathComponent();
    EXPECT_EQ(
        FileScanner::scan({{QUuid(), folder, true}, {QUuid(), disabled, false}, {QUuid(), other, true}}),
        (ScanResult{2, 3}));
}

TEST_F(FileScannerTest, aSourceGivenTwiceCountsTwice)
{
    write("a.txt", "1");
    EXPECT_EQ(FileScanner::scan({{QUuid(), folder, true}, {QUuid(), folder, true}}), (ScanResult{2, 2}));
}

TEST_F(FileScannerTest, aSourceThatDoesNotExistAddsNothing)
{
    write("a.txt", "1");
    EXPECT_EQ(FileScanner::scan({{QUuid(), mac.home().appending(u"Gone"_s), true}, {QUuid(), folder, true}}),
              (ScanResult{1, 1}));
}

TEST_F(FileScannerTest, aSourceThatIsAFileAddsNothing)
{
    write("a.txt", "1");
    EXPECT_EQ(FileScanner::scan({{QUuid(), folder.appending(u"a.txt"_s), true}}), (ScanResult{0, 0}));
}

TEST_F(FileScannerTest, aSourceThatIsALinkToAFolderIsFollowed)
{
    write("inside/a.txt", "123");
    link("door", folder.appending(u"inside"_s));
    EXPECT_EQ(FileScanner::scan({{QUuid(), folder.appending(u"door"_s), true}}), (ScanResult{1, 3}));
}

TEST_F(FileScannerTest, aSourceThatIsNamedLikeASkippedFolderIsWalked)
{
    const FileURL build = mac.writeFile("Users/mira/build/a.txt", "123").deletingLastPathComponent();
    EXPECT_EQ(FileScanner::scan({{QUuid(), build, true}}), (ScanResult{1, 3}));
}

TEST_F(FileScannerTest, linksAreNeverCountedNorWalked)
{
    const FileURL outside = mac.writeFile("Users/mira/Outside/big.txt", "12345678");
    write("a.txt", "1");
    link("link to a file", outside);
    link("link to a folder", outside.deletingLastPathComponent());
    link("link to nowhere", mac.home().appending(u"Gone"_s));
    EXPECT_EQ(scan(), (ScanResult{1, 1}));
}

TEST_F(FileScannerTest, hiddenItemsAreNeverCounted)
{
    write(".hidden.txt");
    write(".folder/visible.txt");
    write(".git/config");
    EXPECT_EQ(scan(), (ScanResult{0, 0}));
    EXPECT_THAT(judge().skipped, IsEmpty());
}

TEST_F(FileScannerTest, everySkippedFolderIsLeftOutWithAllThatLiesBelow)
{
    for (const char* name : {"node_modules", "build", "dist", "cache", "DerivedData", "__pycache__"}) {
        write(name + QByteArray("/a.txt"));
        write(name + QByteArray("/deep/er/b.txt"));
    }
    EXPECT_EQ(scan(), (ScanResult{0, 0}));
    const Judgement judgement = judge();
    EXPECT_THAT(judgement.skipped,
                UnorderedElementsAre("node_modules", "build", "dist", "cache", "DerivedData", "__pycache__"));
    EXPECT_THAT(judgement.kept, IsEmpty());
}

TEST_F(FileScannerTest, folderNamesCompareWithLetterCase)
{
    write("Build/a.txt", "1");
    write("CACHE/b.txt", "22");
    write("deriveddata/c.txt", "333");
    EXPECT_EQ(scan(), (ScanResult{3, 6}));
}

TEST_F(FileScannerTest, folderNamesCompareWhole)
{
    write("builds/a.txt", "1");
    write("my cache/b.txt", "1");
    write("buil/c.txt", "1");
    EXPECT_EQ(scan(), (ScanResult{3, 3}));
}

TEST_F(FileScannerTest, aSkippedFolderDeepInsideIsLeftOutToo)
{
    write("project/src/build/out.txt");
    write("project/src/main.c", "1");
    EXPECT_EQ(scan(), (ScanResult{1, 1}));
}

TEST_F(FileScannerTest, aPlainFileWithTheNameOfASkippedFolderIsKept)
{
    write("cache", "1");
    write("build", "22");
    write("node_modules", "333");
    EXPECT_EQ(scan(), (ScanResult{3, 6}));
}

TEST_F(FileScannerTest, aLinkToAFolderIsJudgedByNameLikeAFolder)
{
    write("real/a.txt", "1");
    link("build", folder.appending(u"real"_s));
    const Judgement judgement = judge();
    EXPECT_THAT(judgement.skipped, ElementsAre("build"));
    EXPECT_THAT(judgement.kept, UnorderedElementsAre("real", "a.txt"));
}

TEST_F(FileScannerTest, aLinkToAFileOrToNowhereIsNotJudgedLikeAFolder)
{
    write("a.txt", "1");
    link("build", folder.appending(u"a.txt"_s));
    link("cache", folder.appending(u"gone"_s));
    const Judgement judgement = judge();
    EXPECT_THAT(judgement.skipped, IsEmpty());
    EXPECT_THAT(judgement.kept, UnorderedElementsAre("a.txt", "build", "cache"));
}

TEST_F(FileScannerTest, everySkippedExtensionIsLeftOutInAnyLetterCase)
{
    for (const char* name :
         {"a.dmg", "a.DMG", "a.pkg", "a.Iso", "a.tmp", "a.app", "a.FrameWork", "a.dylib", "a.O"})
        write(name);
    EXPECT_EQ(scan(), (ScanResult{0, 0}));
    EXPECT_EQ(judge().skipped.size(), 9);
}

TEST_F(FileScannerTest, onlyTheLastExtensionCountsAndCountsWhole)
{
    for (const char* name :
         {"a.dmg.txt", "dmg", "a.dmgx", "a.xdmg", "a.", "a.frameworks", "a.oo", "photo", "a.d"})
        write(name, "1");
    write("a.txt.dmg", "1");
    EXPECT_EQ(scan(), (ScanResult{9, 9}));
}

TEST_F(FileScannerTest, aBundleIsOneSkipAndTheFilesInsideAreKept)
{
    write("Notes.app/Contents/Info.plist", "123");
    write("Notes.app/Contents/MacOS/Notes", "4567");
    write("Notes.app/Contents/Frameworks/Kit.framework/Kit", "89");
    EXPECT_EQ(scan(), (ScanResult{3, 9}));
    EXPECT_THAT(judge().skipped, UnorderedElementsAre("Notes.app", "Kit.framework"));
}

TEST_F(FileScannerTest, packagesAreWalkedLikeFolders)
{
    write("Photos Library.photoslibrary/originals/1.heic", "123");
    write("Letter.rtfd/TXT.rtf", "4567");
    EXPECT_EQ(scan(), (ScanResult{2, 7}));
}

TEST_F(FileScannerTest, aHiddenFolderIsLeftOutBeforeItsNameIsLookedUp)
{
    write(".git/config");
    const Judgement judgement = judge({});
    EXPECT_THAT(judgement.skipped, ElementsAre(".git"));
    EXPECT_THAT(judgement.kept, ElementsAre("config"));
}

TEST_F(FileScannerTest, namesThatAreNotUtf8AreCounted)
{
    write("caf\xe9.txt", "1");
    write("\xff\xfe/\xe9.jpg", "22");
    write("\xe9.dmg", "333");
    write("a.dm\xc7", "4444");
    EXPECT_EQ(scan(), (ScanResult{3, 7}));
}

TEST_F(FileScannerTest, anUnreadableSubfolderIsPassedOver)
{
    write("open/a.txt", "1");
    write("closed/b.txt", "22");
    std::filesystem::permissions(standardPath(mac.root()), std::filesystem::perms(0755));
    const std::filesystem::path closed = standardPath(folder.appending(u"closed"_s));
    std::filesystem::permissions(closed, std::filesystem::perms(0));
    // Else a plain user could not remove the machine.
    const auto reopened =
        qScopeGuard([&] { std::filesystem::permissions(closed, std::filesystem::perms(0755)); });
    const UnprivilegedUser user;
    EXPECT_EQ(scan(), (ScanResult{1, 1}));
}

TEST_F(FileScannerTest, aFileWhoseSizeCantBeReadIsNotCountedAndHoldsNothingUp)
{
    // Whoever may list a folder but not enter it sees the names and nothing more.
    std::vector<std::filesystem::path> listedOnly;
    for (int i = 0; i < 20; ++i) {
        write("open " + QByteArray::number(i) + "/a.txt", "1");
        const QByteArray closed = "closed " + QByteArray::number(i);
        write(closed + "/b.txt", "22");
        listedOnly.push_back(standardPath(folder.appendingNative(closed)));
    }
    std::filesystem::permissions(standardPath(mac.root()), std::filesystem::perms(0755));
    const auto setAll = [&](unsigned mode) {
        for (const auto& path : listedOnly)
            std::filesystem::permissions(path, std::filesystem::perms(mode));
    };
    setAll(0444);
    const auto reopened = qScopeGuard([&] { setAll(0755); });
    const UnprivilegedUser user;
    EXPECT_EQ(scan(), (ScanResult{20, 20}));
}

TEST_F(FileScannerTest, deepFoldersAreCounted)
{
    QByteArray path;
    for (int depth = 0; depth < 200; ++depth)
        path += "a folder/";
    write(path + "bottom.txt", "1");
    EXPECT_EQ(scan(), (ScanResult{1, 1}));
}

TEST_F(FileScannerTest, aSumThatDoesNotFitStaysAtTheLargestValue)
{
    // Few file systems take a file of 4 EiB, all of it a hole; the one in memory does.
    const QTemporaryDir memory(u"/dev/shm/keelbright-XXXXXX"_s);
    if (!memory.isValid())
        GTEST_SKIP() << "there is no file system in memory: " << memory.errorString().toStdString();
    constexpr auto huge = std::uintmax_t{1} << 62;
    for (const char* name : {"a.bin", "b.bin", "c.bin"}) {
        const std::filesystem::path path = std::filesystem::path(memory.path().toStdString()) / name;
        std::ofstream(path).close();
        std::filesystem::resize_file(path, huge);
    }
    EXPECT_EQ(FileScanner::scan({{QUuid(), FileURL::fromPath(memory.path()), true}}),
              (ScanResult{3, std::numeric_limits<qint64>::max()}));
}

} // namespace keelbright::testing

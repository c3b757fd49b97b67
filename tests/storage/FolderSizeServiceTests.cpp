#include "KeelbrightCore/storage/FolderSizeService.h"
#include "tests/storage/StorageFixture.h"

#include <QTemporaryDir>

#include <cstdint>
#include <fstream>
#include <limits>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

class FolderSizeServiceTest : public StorageFixture
{
protected:
    [[nodiscard]] qint64 sizeOf(const FileURL& url)
    {
        return FolderSizeService::recursiveSize(url, mac.fileManager());
    }

    [[nodiscard]] qint64 size() { return sizeOf(folder); }
};

} // namespace

TEST_F(FolderSizeServiceTest, anEmptyFolderHoldsNothing)
{
    EXPECT_EQ(size(), 0);
}

TEST_F(FolderSizeServiceTest, logicalSizesOfAllFilesAtAnyDepthAddUp)
{
    write("a.txt", 1);
    write("one/b.txt", 20);
    write("one/two/c.txt", 300);
    write("one/two/empty", 0);
    makeFolder("nothing in here");
    EXPECT_EQ(size(), 321);
}

TEST_F(FolderSizeServiceTest, aFileWithAHoleCountsWithItsLogicalSize)
{
    write("hole", 1);
    std::filesystem::resize_file(standardPath(at("hole")), 5'000'000);
    EXPECT_EQ(size(), 5'000'000);
}

TEST_F(FolderSizeServiceTest, aFileWithTwoNamesCountsTwice)
{
    write("a", 7);
    std::filesystem::create_hard_link(standardPath(at("a")), standardPath(at("b")));
    EXPECT_EQ(size(), 14);
}

TEST_F(FolderSizeServiceTest, hiddenEntriesAndWhatLiesBelowThemAddNothing)
{
    write(".hidden", 5);
    write(".folder/visible", 50);
    write("seen/.hidden", 500);
    EXPECT_EQ(size(), 0);
}

TEST_F(FolderSizeServiceTest, aHiddenFolderAskedForDirectlyIsMeasured)
{
    write(".folder/visible", 50);
    EXPECT_EQ(sizeOf(at(".folder")), 50);
}

TEST_F(FolderSizeServiceTest, aPackageBelowTheFolderAddsNothing)
{
    write("Tool.app/Contents/MacOS/Tool", 100);
    write("Library.photoslibrary/originals/1.heic", 1000);
    write("Kit.framework/Kit", 3);
    EXPECT_EQ(size(), 3) << "a framework is a plain folder";
}

TEST_F(FolderSizeServiceTest, aPackageAskedForDirectlyIsMeasuredButNotThePackagesInIt)
{
    write("Tool.app/Contents/MacOS/Tool", 100);
    write("Tool.app/Contents/PlugIns/Extra.appex/Extra", 1000);
    EXPECT_EQ(sizeOf(at("Tool.app")), 100);
}

TEST_F(FolderSizeServiceTest, aFileNamedLikeAPackageAddsItsSize)
{
    write("image.pkg", 12);
    EXPECT_EQ(size(), 12);
}

TEST_F(FolderSizeServiceTest, linksBelowTheFolderAddTheirOwnTextAndAreNotFollowed)
{
    mac.writeFile("Users/mira/Outside/big", QByteArray(9999, 'x'));
    link("toFile", "../Outside/big");
    link("toFolder", "../Outside");
    link("dangling", "gone");
    link("loop", ".");
    EXPECT_EQ(size(), 14 + 10 + 4 + 1);
}

TEST_F(FolderSizeServiceTest, aLinkAskedForDirectlyIsNotFollowed)
{
    write("real/a.txt", 10);
    link("door", "real");
    EXPECT_EQ(sizeOf(at("door")), 0);
}

TEST_F(FolderSizeServiceTest, whatIsNoFolderOrIsNotThereHoldsNothing)
{
    write("a.txt", 10);
    EXPECT_EQ(sizeOf(at("a.txt")), 0);
    EXPECT_EQ(sizeOf(at("gone")), 0);
}

TEST_F(FolderSizeServiceTest, anUnreadableSubfolderCostsOnlyWhatItHolds)
{
    write("open/a.txt", 1);
    write("closed/b.txt", 20);
    const auto reopened = withMode("closed", 0);
    const UnprivilegedUser user;
    EXPECT_EQ(size(), 1);
    EXPECT_EQ(sizeOf(at("closed")), 0);
}

TEST_F(FolderSizeServiceTest, filesWhoseSizesCantBeReadAddNothing)
{
    write("open/a.txt", 1);
    write("listed/b.txt", 20);
    // A folder that may be listed but not entered shows its names only.
    const auto reopened = withMode("listed", 0444);
    const UnprivilegedUser user;
    EXPECT_EQ(size(), 1);
}

TEST_F(FolderSizeServiceTest, namesThatAreNotUtf8AreMeasured)
{
    write("caf\xe9.txt", 1);
    write("\xff\xfe/\xe9.jpg", 20);
    EXPECT_EQ(size(), 21);
}

TEST_F(FolderSizeServiceTest, severalFoldersAreMeasuredInTheirOrder)
{
    write("a/1", 5);
    write("b/2", 7);
    write("c/sub/3", 9);
    EXPECT_EQ(FolderSizeService::recursiveSizes({at("c"), at("gone"), at("a"), at("b"), at("a")},
                                                mac.fileManager()),
              (QList<qint64>{9, 0, 5, 7, 5}));
    EXPECT_EQ(FolderSizeService::recursiveSizes({}, mac.fileManager()), QList<qint64>());
}

TEST_F(FolderSizeServiceTest, depthHasNoLimit)
{
    QByteArray path;
    for (int depth = 0; depth < 200; ++depth)
        path += "a folder/";
    write(path + "bottom.txt", 1);
    EXPECT_EQ(size(), 1);
}

TEST_F(FolderSizeServiceTest, sizesAbove64BitsStayAtTheLargestValue)
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
    EXPECT_EQ(sizeOf(FileURL::fromPath(memory.path())), std::numeric_limits<qint64>::max());
}

} // namespace keelbright::testing

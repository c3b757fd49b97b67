#include "KeelbrightCore/platform/files/FolderChain.h"

#include "tests/support/TestMac.h"

#include <fcntl.h>
#include <gmock/gmock.h>

namespace keelbright {
namespace {

class FolderChainTest : public ::testing::Test
{
protected:
    FolderChain<int> chain()
    {
        return FolderChain<int>(
            FileDescriptor(::open(mac.root().nativePath().constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)));
    }

    testing::TestMac mac;
};

TEST_F(FolderChainTest, goesInAndOutAndKnowsItsPath)
{
    mac.makeFolder("a/b");
    FolderChain<int> folders = chain();
    ASSERT_TRUE(folders.enter("a").has_value());
    ASSERT_TRUE(folders.enter("b").has_value());
    EXPECT_EQ(folders.relativePath(), "a/b");
    EXPECT_EQ(folders.depth(), 2U);
    ASSERT_TRUE(folders.leave().has_value());
    EXPECT_EQ(folders.relativePath(), "a");
    ASSERT_TRUE(folders.leave().has_value());
    EXPECT_EQ(folders.relativePath(), "");
    EXPECT_EQ(folders.depth(), 0U);
}

TEST_F(FolderChainTest, refusesLinksFilesAndWhatIsMissing)
{
    mac.makeFolder("folder");
    mac.writeFile("file", "x");
    ASSERT_EQ(::symlink("folder", mac.root().appending(QStringLiteral("link")).nativePath().constData()), 0);
    FolderChain<int> folders = chain();
    EXPECT_EQ(folders.enter("missing").error(), ENOENT);
    EXPECT_EQ(folders.enter("file").error(), ENOTDIR);
    EXPECT_THAT(folders.enter("link").error(), ::testing::AnyOf(ELOOP, ENOTDIR));
    EXPECT_EQ(folders.depth(), 0U);
}

TEST_F(FolderChainTest, keepsABoundedNumberOfFoldersOpen)
{
    QByteArray path;
    for (int level = 0; level < 100; ++level)
        path += "d/";
    mac.makeFolder(path);
    FolderChain<int> folders = chain();
    for (int level = 0; level < 100; ++level)
        ASSERT_TRUE(folders.enter("d").has_value());
    EXPECT_EQ(folders.depthToClose(), 77U) << "24 of 100 stay open";
    for (int level = 0; level < 100; ++level)
        ASSERT_TRUE(folders.leave().has_value());
    EXPECT_EQ(folders.depth(), 0U);
    EXPECT_GE(folders.descriptor(), 0);
}

TEST_F(FolderChainTest, keepsTheDataOfEachFolderWithIt)
{
    mac.makeFolder("a/b");
    mac.makeFolder("a/c");
    FolderChain<int> folders = chain();
    EXPECT_EQ(folders.data(), 0);
    folders.data() = 1;
    ASSERT_TRUE(folders.enter("a").has_value());
    EXPECT_EQ(folders.data(), 0);
    folders.data() = 2;
    folders.enter(openFolder(folders.descriptor(), "b"), "b", 3);
    EXPECT_EQ(folders.relativePath(), "a/b");
    EXPECT_EQ(folders.data(), 3);
    EXPECT_EQ(folders.dataAt(0), 1);
    EXPECT_EQ(folders.dataAt(1), 2);
    ASSERT_TRUE(folders.leave().has_value());
    EXPECT_EQ(folders.data(), 2);
    ASSERT_TRUE(folders.enter("c").has_value());
    EXPECT_EQ(folders.data(), 0) << "not that of the folder before it";
    folders.leaveAll();
    EXPECT_EQ(folders.data(), 1);
}

TEST_F(FolderChainTest, keepsTheDataOfFoldersThatWereClosedMeanwhile)
{
    mac.makeFolder(QByteArray("d/").repeated(60));
    FolderChain<int> folders = chain();
    for (int level = 1; level <= 60; ++level) {
        ASSERT_TRUE(folders.enter("d").has_value());
        folders.data() = level;
    }
    for (int level = 60; level >= 1; --level) {
        ASSERT_EQ(folders.data(), level);
        ASSERT_TRUE(folders.leave().has_value());
    }
}

TEST_F(FolderChainTest, findsAParentByNameWhenAFolderWasMovedAway)
{
    mac.makeFolder("top" + QByteArray("/d").repeated(60));
    FolderChain<int> folders = chain();
    ASSERT_TRUE(folders.enter("top").has_value());
    for (int level = 0; level < 60; ++level)
        ASSERT_TRUE(folders.enter("d").has_value());
    // From the middle on ".." now leads to a folder that the chain never entered.
    const QByteArray from = mac.root().nativePath() + "/top" + QByteArray("/d").repeated(30);
    const QByteArray to = mac.makeFolder("elsewhere").nativePath() + "/d";
    ASSERT_EQ(::rename(from.constData(), to.constData()), 0);
    while (folders.depth() > 0)
        ASSERT_TRUE(folders.leave().has_value());
    EXPECT_EQ(folders.relativePath(), "");
}

TEST_F(FolderChainTest, goesBackToTheRootWhenNoParentIsFoundAnyMore)
{
    mac.makeFolder("top" + QByteArray("/d").repeated(60));
    FolderChain<int> folders = chain();
    ASSERT_TRUE(folders.enter("top").has_value());
    for (int level = 0; level < 60; ++level)
        ASSERT_TRUE(folders.enter("d").has_value());
    const QByteArray root = mac.root().nativePath();
    const QByteArray elsewhere = mac.makeFolder("elsewhere").nativePath();
    ASSERT_EQ(
        ::rename((root + "/top" + QByteArray("/d").repeated(30)).constData(), (elsewhere + "/d").constData()),
        0);
    ASSERT_EQ(::rename((root + "/top").constData(), (root + "/renamed").constData()), 0);
    while (folders.depth() > 31)
        ASSERT_TRUE(folders.leave().has_value());
    EXPECT_EQ(folders.leave().error(), ENOENT);
    EXPECT_EQ(folders.depth(), 0U);
    EXPECT_EQ(folders.relativePath(), "");
    EXPECT_TRUE(folders.enter("renamed").has_value());
}

} // namespace
} // namespace keelbright

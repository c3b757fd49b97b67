#include "KeelbrightCore/platform/files/ReadOnlyTree.h"

#include "tests/support/TemporaryVolume.h"
#include "tests/support/TestMac.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

namespace keelbright {
namespace {

class ReadOnlyTreeTests : public ::testing::Test
{
protected:
    [[nodiscard]] std::unique_ptr<ReadOnlyTree> open(QByteArrayView below = {}) const
    {
        auto tree = ReadOnlyTree::open(mac.root(), below);
        EXPECT_TRUE(tree.has_value());
        return tree ? std::move(*tree) : nullptr;
    }

    void link(const char* target, const char* place) const
    {
        ASSERT_EQ(::symlink(target, mac.root().appendingNative(place).nativePath().constData()), 0);
    }

    testing::TestMac mac;
};

TEST_F(ReadOnlyTreeTests, findsItemsInAnyOrderOfFolders)
{
    mac.writeFile("tree/one/two/a", "1");
    mac.writeFile("tree/one/b", "22");
    mac.writeFile("tree/other/c", "333");
    mac.writeFile("tree/d", "4444");
    const auto tree = open("tree");
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(tree->status("one/two", "a")->size, 1);
        EXPECT_EQ(tree->status("other", "c")->size, 3);
        EXPECT_EQ(tree->status("one", "b")->size, 2);
        EXPECT_EQ(tree->status({}, "d")->size, 4);
        EXPECT_EQ(tree->status({}, "one")->type, EntryType::directory);
    }
}

TEST_F(ReadOnlyTreeTests, saysWhatIsMissingAndFindsTheRestAllTheSame)
{
    mac.writeFile("one/a", "1");
    const auto tree = open();
    EXPECT_EQ(tree->status("one", "b").error(), ENOENT);
    EXPECT_EQ(tree->status("one/two/three", "a").error(), ENOENT);
    EXPECT_EQ(tree->status("one/a", "b").error(), ENOTDIR);
    EXPECT_EQ(tree->status("one", "a")->size, 1);
}

TEST_F(ReadOnlyTreeTests, followsNoLinkBelowItsRoot)
{
    mac.writeFile("one/a", "1");
    link("one", "link");
    link("a", "one/file link");
    const auto tree = open();
    EXPECT_THAT(tree->status("link", "a").error(), ::testing::AnyOf(ELOOP, ENOTDIR));
    EXPECT_EQ(tree->status("one", "file link")->type, EntryType::symbolicLink);
    EXPECT_EQ(tree->linkTarget("one", "file link"), "a");
    EXPECT_EQ(tree->openFile("one", "file link").error(), ELOOP);
    EXPECT_FALSE(ReadOnlyTree::open(mac.root(), "link").has_value());
    EXPECT_TRUE(ReadOnlyTree::open(mac.root().appendingNative("link")).has_value()) << "the base may be one";
}

TEST_F(ReadOnlyTreeTests, opensRegularFilesAndNothingElse)
{
    mac.writeFile("a", "text");
    mac.makeFolder("folder");
    ASSERT_EQ(::mkfifo(mac.root().appendingNative("pipe").nativePath().constData(), 0600), 0);
    const auto tree = open();
    EXPECT_EQ(tree->openFile({}, "a")->status().size, 4);
    EXPECT_EQ(tree->openFile({}, "folder").error(), EISDIR);
    EXPECT_EQ(tree->openFile({}, "pipe").error(), EOPNOTSUPP);
    EXPECT_EQ(tree->openFile({}, "missing").error(), ENOENT);
}

TEST_F(ReadOnlyTreeTests, goesAsDeepAsFoldersDo)
{
    QByteArray path;
    for (int level = 0; level < 60; ++level)
        path += QByteArray(level == 0 ? "" : "/") + "level " + QByteArray::number(level);
    mac.writeFile(path + "/a", "1");
    const auto tree = open();
    EXPECT_EQ(tree->status(path, "a")->size, 1);
    EXPECT_EQ(tree->status("level 0", "level 1")->type, EntryType::directory);
    EXPECT_EQ(tree->status(path, "a")->size, 1);
}

TEST_F(ReadOnlyTreeTests, knowsWhenItsPlaceIsGone)
{
    const FileURL folder = mac.makeFolder("drive");
    mac.writeFile("drive/a", "1");
    const auto tree = open("drive");
    EXPECT_FALSE(tree->isGone(EIO));
    EXPECT_TRUE(tree->isGone(ENODEV));
    EXPECT_TRUE(tree->isGone(ENOTCONN));
    ASSERT_EQ(::rename(folder.nativePath().constData(),
                       mac.root().appendingNative("elsewhere").nativePath().constData()),
              0);
    EXPECT_TRUE(tree->isGone(EIO));
    EXPECT_EQ(tree->status({}, "a")->size, 1) << "what is open stays open";
}

TEST_F(ReadOnlyTreeTests, knowsItsOwnFolderTheOneAroundAndTheCopyOfASource)
{
    mac.makeFolder("around/root/copies/of source/inside");
    mac.makeFolder("around/beside");
    const auto tree = open("around/root");
    const FolderId copy = tree->folderId("copies/of source");
    EXPECT_NE(copy, FolderId());
    EXPECT_EQ(tree->folderId("copies/missing"), FolderId());
    const auto ownFolders = [&](const FolderId& copyOfSource) {
        const auto walk = DirectoryEnumerator::open(mac.root(), {});
        QByteArrayList own;
        while ((*walk)->next()) {
            if (tree->isOwnFolder(**walk, copyOfSource))
                own.append((*walk)->name().toByteArray());
        }
        return own;
    };
    EXPECT_THAT(ownFolders({}), ::testing::ElementsAre("around", "root"));
    EXPECT_THAT(ownFolders(copy), ::testing::ElementsAre("around", "root", "of source"));
}

TEST_F(ReadOnlyTreeTests, knowsItsRootFromAnywhereAboveIt)
{
    mac.makeFolder("around/root/inside");
    mac.makeFolder("beside/root");
    link("around/root", "link");
    const auto tree = open("around/root");
    const auto walk = DirectoryEnumerator::open(mac.root(), {});
    QByteArrayList roots;
    while ((*walk)->next()) {
        if (tree->isRoot(**walk))
            roots.append((*walk)->url().nativePath());
    }
    EXPECT_THAT(roots, ::testing::ElementsAre(mac.root().appendingNative("around/root").nativePath()));
}

TEST_F(ReadOnlyTreeTests, knowsAPartOfItsOwnFolderThatIsMountedElsewhere)
{
    const FileURL part = mac.makeFolder("around/root/part");
    const testing::TemporaryVolume mounted(mac.makeFolder("elsewhere/mounted"), part);
    const testing::TemporaryVolume another(mac.makeFolder("elsewhere/another"), mac.makeFolder("beside"));
    if (!mounted.isMounted() || !another.isMounted())
        GTEST_SKIP() << "mounting a folder a second time is not permitted here";
    const auto tree = open("around/root");
    const auto walk = DirectoryEnumerator::open(mac.root().appendingNative("elsewhere"), {});
    QByteArrayList own;
    while ((*walk)->next()) {
        if (tree->isOwnFolder(**walk, {}))
            own.append((*walk)->name().toByteArray());
    }
    EXPECT_THAT(own, ::testing::ElementsAre("mounted"));
}

} // namespace
} // namespace keelbright

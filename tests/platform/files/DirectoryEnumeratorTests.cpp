#include "KeelbrightCore/platform/files/DirectoryEnumerator.h"

#include "tests/support/DeepTree.h"
#include "tests/support/TestMac.h"

#include <QByteArrayList>
#include <algorithm>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace keelbright {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;
using Option = DirectoryEnumerator::Option;

class DirectoryEnumeratorTest : public ::testing::Test
{
protected:
    /// Relative paths of all entries, in the order of the walk.
    QByteArrayList walk(const FileURL& folder, DirectoryEnumerator::Options options = {})
    {
        QByteArrayList paths;
        auto items = DirectoryEnumerator::open(folder, options);
        if (!items)
            return {"not opened"};
        while ((*items)->next()) {
            QByteArray path = (*items)->relativeFolder().toByteArray();
            if (!path.isEmpty())
                path += '/';
            paths.append(path + (*items)->name().toByteArray());
        }
        return paths;
    }

    void link(const QByteArray& target, const QByteArray& path)
    {
        const FileURL url = mac.root().appendingNative(path);
        ASSERT_EQ(::symlink(target.constData(), url.nativePath().constData()), 0);
    }

    testing::TestMac mac;
    FileURL root = mac.makeFolder("tree");
};

TEST_F(DirectoryEnumeratorTest, deliversFoldersBeforeWhatIsInThem)
{
    mac.writeFile("tree/a/b/file", "x");
    EXPECT_THAT(walk(root), ElementsAre("a", "a/b", "a/b/file"));
}

TEST_F(DirectoryEnumeratorTest, givesTheNumberOfEachEntry)
{
    const FileURL file = mac.writeFile("tree/file", "x");
    struct stat status = {};
    ASSERT_EQ(::stat(file.nativePath().constData(), &status), 0);
    const auto items = DirectoryEnumerator::open(root, {});
    ASSERT_TRUE((*items)->next());
    EXPECT_EQ((*items)->number(), status.st_ino);
}

TEST_F(DirectoryEnumeratorTest, keepsTheAccessTimesOfFoldersWhereItIsAsked)
{
    mac.writeFile("tree/a/b/file", "x");
    const auto accessTime = [&](const FileURL& folder) {
        struct stat status = {};
        EXPECT_EQ(::stat(folder.nativePath().constData(), &status), 0);
        return status.st_atim.tv_sec;
    };
    const QList<FileURL> folders{root, root.appendingNative("a"), root.appendingNative("a/b")};
    const timespec times[] = {{1'000, 0}, {2'000, 0}};
    for (const FileURL& folder : folders)
        ASSERT_EQ(::utimensat(AT_FDCWD, folder.nativePath().constData(), times, 0), 0);
    EXPECT_EQ(walk(root, Option::keepsAccessTimes).size(), 3);
    for (const FileURL& folder : folders)
        EXPECT_EQ(accessTime(folder), 1'000) << folder.path().toStdString();
}

TEST_F(DirectoryEnumeratorTest, deliversNothingOfAnEmptyFolder)
{
    EXPECT_THAT(walk(root), IsEmpty());
}

TEST_F(DirectoryEnumeratorTest, leavesHiddenEntriesOutOnlyWhenAsked)
{
    mac.writeFile("tree/.hidden/file", "x");
    mac.writeFile("tree/seen", "x");
    EXPECT_THAT(walk(root, Option::skipsHiddenFiles), ElementsAre("seen"));
    EXPECT_THAT(walk(root), UnorderedElementsAre(".hidden", ".hidden/file", "seen"));
}

TEST_F(DirectoryEnumeratorTest, deliversAPackageWithoutEnteringIt)
{
    mac.writeFile("tree/Tool.app/Contents/file", "x");
    EXPECT_THAT(walk(root, Option::skipsPackageDescendants), ElementsAre("Tool.app"));
    EXPECT_THAT(walk(root), ElementsAre("Tool.app", "Tool.app/Contents", "Tool.app/Contents/file"));
}

TEST_F(DirectoryEnumeratorTest, entersAPackageThatIsTheRootItself)
{
    mac.writeFile("tree/Tool.app/file", "x");
    EXPECT_THAT(walk(root.appending(QStringLiteral("Tool.app")), Option::skipsPackageDescendants),
                ElementsAre("file"));
}

TEST_F(DirectoryEnumeratorTest, whatIsSeenInTwoPlacesIsWalkedInOneOfThem)
{
    mac.writeFile("tree/System/Volumes/Data/Users/file", "x");
    mac.writeFile("tree/Users/file", "x");
    const QList<FileURL> twice{root.appendingNative("System/Volumes/Data")};
    const auto walkFrom = [&](const FileURL& start) {
        QByteArrayList paths;
        const auto items = DirectoryEnumerator::open(start, {}, twice);
        while (items && (*items)->next())
            paths.append((*items)->url().nativePath().sliced(root.nativePath().size() + 1));
        return paths;
    };
    EXPECT_THAT(walkFrom(root), UnorderedElementsAre("System", "System/Volumes", "System/Volumes/Data",
                                                     "Users", "Users/file"));
    EXPECT_THAT(walkFrom(root.appendingNative("System")),
                UnorderedElementsAre("System/Volumes", "System/Volumes/Data"));
    EXPECT_THAT(walkFrom(twice.first()),
                UnorderedElementsAre("System/Volumes/Data/Users", "System/Volumes/Data/Users/file"))
        << "who asks for the place itself gets it";
}

TEST_F(DirectoryEnumeratorTest, aBranchPassesOverTheSamePlaces)
{
    mac.writeFile("tree/System/Data/file", "x");
    const auto items = DirectoryEnumerator::open(root, {}, {root.appendingNative("System/Data")});
    ASSERT_TRUE((*items)->next());
    const auto branch = (*items)->branchOff();
    ASSERT_TRUE(branch);
    ASSERT_TRUE(branch->next());
    EXPECT_EQ(branch->name(), "Data");
    EXPECT_FALSE(branch->branchOff());
    EXPECT_FALSE(branch->next());
}

TEST_F(DirectoryEnumeratorTest, staysOutOfAFolderThatTheCallerSkips)
{
    mac.writeFile("tree/skipped/file", "x");
    auto items = DirectoryEnumerator::open(root, {});
    ASSERT_TRUE((*items)->next());
    (*items)->skipDescendants();
    EXPECT_FALSE((*items)->next());
}

TEST_F(DirectoryEnumeratorTest, aFolderThatIsBranchedOffIsWalkedByTheBranchAlone)
{
    mac.writeFile("tree/a/b/file", "x");
    auto items = DirectoryEnumerator::open(root, {});
    ASSERT_TRUE((*items)->next());
    const auto branch = (*items)->branchOff();
    ASSERT_TRUE(branch);
    EXPECT_FALSE((*items)->next());
    ASSERT_TRUE(branch->next());
    EXPECT_EQ(branch->name(), "b");
    EXPECT_EQ(branch->relativeFolder(), "");
    EXPECT_EQ(branch->url(), root.appending(QStringLiteral("a/b")));
    ASSERT_TRUE(branch->next());
    EXPECT_EQ(branch->url(), root.appending(QStringLiteral("a/b/file")));
    EXPECT_EQ(branch->fileSize(), 1);
    EXPECT_FALSE(branch->next());
}

TEST_F(DirectoryEnumeratorTest, aBranchKeepsTheOptionsAndOutlivesItsTrunk)
{
    mac.writeFile("tree/a/.hidden", "x");
    mac.writeFile("tree/a/Tool.app/file", "x");
    auto items = DirectoryEnumerator::open(root, Option::skipsHiddenFiles | Option::skipsPackageDescendants);
    ASSERT_TRUE((*items)->next());
    const auto branch = (*items)->branchOff();
    items->reset();
    ASSERT_TRUE(branch);
    ASSERT_TRUE(branch->next());
    EXPECT_EQ(branch->name(), "Tool.app");
    EXPECT_FALSE(branch->next());
}

TEST_F(DirectoryEnumeratorTest, onlyWhatTheWalkWouldEnterCanBeBranchedOff)
{
    mac.writeFile("tree/file", "x");
    mac.writeFile("tree/Tool.app/inside", "x");
    mac.makeFolder("tree/skipped");
    link("skipped", "tree/link");
    auto items = DirectoryEnumerator::open(root, Option::skipsPackageDescendants);
    int entries = 0;
    while ((*items)->next()) {
        if ((*items)->name() == "skipped")
            (*items)->skipDescendants();
        EXPECT_FALSE((*items)->branchOff()) << (*items)->name().toByteArray().toStdString();
        ++entries;
    }
    EXPECT_EQ(entries, 4);
}

TEST_F(DirectoryEnumeratorTest, aFolderSwappedForALinkIsNotBranchedOff)
{
    mac.makeFolder("tree/a");
    mac.writeFile("elsewhere/file", "x");
    auto items = DirectoryEnumerator::open(root, {});
    ASSERT_TRUE((*items)->next());
    const QByteArray path = root.appending(QStringLiteral("a")).nativePath();
    ASSERT_EQ(::rmdir(path.constData()), 0);
    link("../elsewhere", "tree/a");
    EXPECT_FALSE((*items)->branchOff());
}

TEST_F(DirectoryEnumeratorTest, deliversLinksWithoutFollowingThem)
{
    mac.writeFile("elsewhere/file", "x");
    link("../elsewhere", "tree/toFolder");
    link("missing", "tree/dangling");
    link(".", "tree/loop");
    EXPECT_THAT(walk(root), UnorderedElementsAre("toFolder", "dangling", "loop"));
}

TEST_F(DirectoryEnumeratorTest, followsALinkAtTheRootOnlyWhenAsked)
{
    mac.writeFile("tree/file", "x");
    link("tree", "toTree");
    const FileURL linked = mac.root().appending(QStringLiteral("toTree"));
    EXPECT_THAT(walk(linked, Option::followsRootLink), ElementsAre("file"));
    EXPECT_FALSE(DirectoryEnumerator::open(linked, {}).has_value());
}

TEST_F(DirectoryEnumeratorTest, failsOnAFileAndOnNothing)
{
    const FileURL file = mac.writeFile("tree/file", "x");
    const auto onFile = DirectoryEnumerator::open(file, {});
    ASSERT_FALSE(onFile.has_value());
    EXPECT_EQ(onFile.error().localizedDescription(),
              QStringLiteral("“file” could not be opened: a file stands in the place of a folder."));
    const auto onNothing = DirectoryEnumerator::open(root.appending(QStringLiteral("none")), {});
    ASSERT_FALSE(onNothing.has_value());
    EXPECT_EQ(onNothing.error().localizedDescription(),
              QStringLiteral("“none” could not be opened: it does not exist."));
}

TEST_F(DirectoryEnumeratorTest, deliversTypesAndSizes)
{
    mac.writeFile("tree/five", "12345");
    mac.makeFolder("tree/folder");
    link("five", "tree/link");
    ASSERT_EQ(::mkfifo(root.appending(QStringLiteral("fifo")).nativePath().constData(), 0600), 0);
    auto items = DirectoryEnumerator::open(root, {});
    int seen = 0;
    while ((*items)->next()) {
        ++seen;
        const QByteArrayView name = (*items)->name();
        if (name == "five") {
            EXPECT_EQ((*items)->type(), EntryType::regularFile);
            EXPECT_EQ((*items)->fileSize(), 5);
            EXPECT_FALSE((*items)->isDirectoryFollowingLinks());
        } else if (name == "folder") {
            EXPECT_EQ((*items)->type(), EntryType::directory);
            EXPECT_EQ((*items)->fileSize(), std::nullopt);
            EXPECT_TRUE((*items)->isDirectoryFollowingLinks());
        } else if (name == "link") {
            EXPECT_EQ((*items)->type(), EntryType::symbolicLink);
            EXPECT_EQ((*items)->fileSize(), 4);
            EXPECT_FALSE((*items)->isDirectoryFollowingLinks());
        } else {
            EXPECT_EQ((*items)->type(), EntryType::other);
        }
    }
    EXPECT_EQ(seen, 4);
}

TEST_F(DirectoryEnumeratorTest, recognisesALinkThatLeadsToAFolder)
{
    mac.makeFolder("elsewhere");
    link("../elsewhere", "tree/link");
    auto items = DirectoryEnumerator::open(root, {});
    ASSERT_TRUE((*items)->next());
    EXPECT_EQ((*items)->type(), EntryType::symbolicLink);
    EXPECT_TRUE((*items)->isDirectoryFollowingLinks());
}

TEST_F(DirectoryEnumeratorTest, deliversNamesOfAnyBytesAndOf255Bytes)
{
    const QByteArray longName(255, 'n');
    mac.writeFile("tree/\xff\xfe\n.bin", "x");
    mac.writeFile("tree/" + longName, "x");
    EXPECT_THAT(walk(root), UnorderedElementsAre(QByteArray("\xff\xfe\n.bin"), longName));
    auto items = DirectoryEnumerator::open(root, {});
    while ((*items)->next())
        EXPECT_EQ((*items)->url().deletingLastPathComponent(), root);
}

TEST_F(DirectoryEnumeratorTest, walks2000LevelsWithFewOpenFiles)
{
    constexpr int levels = 2000;
    testing::makeLevels(root, levels);
    rlimit limit = {};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &limit), 0);
    rlimit few = limit;
    few.rlim_cur = 64;
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &few), 0);
    const QByteArrayList paths = walk(root);
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &limit), 0);
    EXPECT_EQ(paths.size(), 2 * levels);
    const auto longest = std::ranges::max_element(paths, {}, &QByteArray::size);
    EXPECT_EQ(longest->count('/'), levels - 1);
    EXPECT_EQ(std::ranges::count_if(paths, [](const QByteArray& path) { return path.endsWith("beside"); }),
              levels);
}

TEST_F(DirectoryEnumeratorTest, deliversEachOf100000FilesOnce)
{
    constexpr int count = 100'000;
    const int folder = ::open(root.nativePath().constData(), O_RDONLY | O_DIRECTORY);
    for (int i = 0; i < count; ++i) {
        const QByteArray name = QByteArray::number(i);
        const int file = ::openat(folder, name.constData(), O_WRONLY | O_CREAT, 0644);
        ASSERT_GE(file, 0);
        ::close(file);
    }
    ::close(folder);
    QByteArrayList names = walk(root);
    EXPECT_EQ(names.size(), count);
    std::ranges::sort(names);
    EXPECT_TRUE(std::ranges::adjacent_find(names) == names.end());
}

TEST_F(DirectoryEnumeratorTest, passesOverAFolderThatWasSwappedForALink)
{
    mac.writeFile("elsewhere/secret", "x");
    mac.makeFolder("tree/folder");
    auto items = DirectoryEnumerator::open(root, {});
    QByteArrayList problems;
    (*items)->setErrorHandler(
        [&](const FileURL& folder, const FileError&) { problems.append(folder.nativeLastPathComponent()); });
    ASSERT_TRUE((*items)->next());
    const QByteArray path = root.appending(QStringLiteral("folder")).nativePath();
    ASSERT_EQ(::rmdir(path.constData()), 0);
    ASSERT_EQ(::symlink("../elsewhere", path.constData()), 0);
    EXPECT_FALSE((*items)->next());
    EXPECT_THAT(problems, ElementsAre("folder"));
}

TEST_F(DirectoryEnumeratorTest, reportsNothingForAFolderThatVanished)
{
    mac.makeFolder("tree/folder");
    auto items = DirectoryEnumerator::open(root, {});
    bool hasProblem = false;
    (*items)->setErrorHandler([&](const FileURL&, const FileError&) { hasProblem = true; });
    ASSERT_TRUE((*items)->next());
    ASSERT_EQ(::rmdir(root.appending(QStringLiteral("folder")).nativePath().constData()), 0);
    EXPECT_FALSE((*items)->next());
    EXPECT_FALSE(hasProblem);
}

TEST_F(DirectoryEnumeratorTest, findsItsWayBackWhenADeepFolderWasMovedAway)
{
    // Deeper than the folders that stay open, so that the way up has to be looked for.
    QByteArray path = "tree";
    for (int level = 0; level < 60; ++level)
        path += "/d";
    mac.writeFile(path + "/last", "x");
    auto items = DirectoryEnumerator::open(root, {});
    while ((*items)->next() && (*items)->name() != "last") {
    }
    ASSERT_EQ((*items)->name(), "last");
    // The whole chain now hangs below another folder; ".." still leads up through it.
    const FileURL moved = mac.makeFolder("moved").appending(QStringLiteral("d"));
    ASSERT_EQ(::rename(root.appending(QStringLiteral("d")).nativePath().constData(),
                       moved.nativePath().constData()),
              0);
    EXPECT_FALSE((*items)->next());
}

} // namespace
} // namespace keelbright

#include "KeelbrightCore/platform/files/FolderOpening.h"

#include "tests/support/TestMac.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>

namespace keelbright {
namespace {

using testing::TestMac;

class FolderOpeningTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        mac.makeFolder("folder");
        mac.writeFile("file", "x");
        ASSERT_EQ(::symlink("folder", mac.root().appendingNative("link").nativePath().constData()), 0);
    }

    [[nodiscard]] bool isFolder(const char* path) const
    {
        struct stat status = {};
        return ::fstatat(root.get(), path, &status, AT_SYMLINK_NOFOLLOW) == 0 && S_ISDIR(status.st_mode);
    }

    [[nodiscard]] bool isSame(int folder, const char* path) const
    {
        struct stat actual = {};
        struct stat expected = {};
        return ::fstat(folder, &actual) == 0 && ::fstatat(root.get(), path, &expected, 0) == 0 &&
               actual.st_dev == expected.st_dev && actual.st_ino == expected.st_ino;
    }

    TestMac mac;
    FileDescriptor root{::open(mac.root().nativePath().constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)};
};

TEST_F(FolderOpeningTest, opensFoldersAndNothingElse)
{
    EXPECT_TRUE(isSame(openFolder(root.get(), "folder").get(), "folder"));
    EXPECT_FALSE(openFolder(root.get(), "missing").isOpen());
    EXPECT_EQ(errno, ENOENT);
    EXPECT_FALSE(openFolder(root.get(), "file").isOpen());
    EXPECT_EQ(errno, ENOTDIR);
    EXPECT_FALSE(openFolder(root.get(), "link").isOpen());
    EXPECT_THAT(errno, ::testing::AnyOf(ELOOP, ENOTDIR));
}

TEST_F(FolderOpeningTest, createsAFolderThatIsMissing)
{
    const auto opened = openOrCreateFolder(root.get(), "new");
    ASSERT_TRUE(opened.has_value());
    EXPECT_TRUE(opened->wasCreated);
    EXPECT_TRUE(isSame(opened->folder.get(), "new"));
    const auto again = openOrCreateFolder(root.get(), "new");
    ASSERT_TRUE(again.has_value());
    EXPECT_FALSE(again->wasCreated);
}

TEST_F(FolderOpeningTest, saysWhatStandsInTheWayOfAFolder)
{
    EXPECT_EQ(
        openOrCreateFolder(root.get(), "link").error().localizedDescription(),
        QStringLiteral("“link” could not be created: a symbolic link stands in the place of a folder."));
    EXPECT_EQ(openOrCreateFolder(root.get(), "file").error().localizedDescription(),
              QStringLiteral("“file” could not be created: a file stands in the place of a folder."));
}

TEST_F(FolderOpeningTest, createsWhatIsMissingOfAPath)
{
    const auto opened = openOrCreatePath(root.get(), "folder/one//two");
    ASSERT_TRUE(opened.has_value());
    EXPECT_TRUE(isSame(opened->get(), "folder/one/two"));
    EXPECT_TRUE(isFolder("folder/one"));
}

TEST_F(FolderOpeningTest, opensTheParentItselfForAnEmptyPath)
{
    const auto opened = openOrCreatePath(root.get(), {});
    ASSERT_TRUE(opened.has_value());
    EXPECT_TRUE(isSame(opened->get(), "."));
}

TEST_F(FolderOpeningTest, neverGoesThroughALinkOnAPath)
{
    EXPECT_EQ(openOrCreatePath(root.get(), "link/inside").error().reason,
              FileError::Reason::symbolicLinkInTheWay);
    EXPECT_FALSE(isFolder("folder/inside"));
}

TEST_F(FolderOpeningTest, removesAnEmptyFolderUnderItsOwnNameOnly)
{
    const auto opened = openOrCreatePath(root.get(), "folder/empty");
    ASSERT_TRUE(opened.has_value());
    EXPECT_FALSE(removeIfEmpty(opened->get(), "other"));
    const auto around = openOrCreatePath(root.get(), "folder");
    ASSERT_TRUE(around.has_value());
    EXPECT_FALSE(removeIfEmpty(around->get(), "folder")) << "it holds another one";
    ASSERT_TRUE(openOrCreatePath(root.get(), "folder/other").has_value());
    EXPECT_FALSE(removeIfEmpty(opened->get(), "other")) << "another folder has the name";
    EXPECT_TRUE(isFolder("folder/other"));
    EXPECT_TRUE(removeIfEmpty(opened->get(), "empty"));
    EXPECT_FALSE(isFolder("folder/empty"));
}

TEST_F(FolderOpeningTest, takesAPathApart)
{
    QByteArrayView path("one//two");
    EXPECT_EQ(takeComponent(path), "one");
    EXPECT_EQ(path, "/two");
    EXPECT_EQ(takeComponent(path), "");
    EXPECT_EQ(takeComponent(path), "two");
    EXPECT_EQ(path, "");
}

} // namespace
} // namespace keelbright

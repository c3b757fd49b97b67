#include "tests/support/EngineRun.h"
#include "tests/support/Printing.h"
#include "tests/support/UnprivilegedUser.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace keelbright {
namespace {

using ::testing::Each;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using testing::TestMac;
using testing::UnprivilegedUser;

/// What a run makes of the folders of its sources.
class FolderAttributesTest : public ::testing::Test, public testing::EngineRun
{
protected:
    [[nodiscard]] static struct stat status(const FileURL& url)
    {
        struct stat result = {};
        EXPECT_EQ(::lstat(url.nativePath().constData(), &result), 0) << url.nativePath().constData();
        return result;
    }

    [[nodiscard]] static mode_t mode(const FileURL& url) { return status(url).st_mode & 07777; }

    static void setMode(const FileURL& url, mode_t mode)
    {
        EXPECT_EQ(::chmod(url.nativePath().constData(), mode), 0);
    }

    static void setTime(const FileURL& url, time_t seconds)
    {
        const timespec times[2] = {{seconds, 1}, {seconds, 123'456'789}};
        EXPECT_EQ(::utimensat(AT_FDCWD, url.nativePath().constData(), times, 0), 0);
    }

    FileURL documents = mac.makeFolder("Users/mira/Documents");
    FileURL folder = documents.appendingNative("private");
    FileURL copy = mirrored("Documents/private");
};

TEST_F(FolderAttributesTest, copiesPermissionsAndTimesInEveryRun)
{
    mac.writeFile("Users/mira/Documents/private/below/deeper/file", "x");
    mac.writeFile("Users/mira/Documents/private/other/file", "x");
    setMode(folder.appendingNative("below/deeper"), 0750);
    setMode(folder.appendingNative("below"), 0711);
    setMode(folder, 0700);
    setMode(documents, 0751);
    setTime(folder.appendingNative("below/deeper"), 1'100'000'000);
    setTime(folder.appendingNative("below"), 1'200'000'000);
    setTime(folder, 1'300'000'000);
    setTime(documents, 1'400'000'000);
    for (int round = 0; round < 2; ++round) {
        run({documents});
        EXPECT_THAT(engine.progress().errors, IsEmpty());
        EXPECT_EQ(mode(copy.appendingNative("below/deeper")), 0750U);
        EXPECT_EQ(mode(copy.appendingNative("below")), 0711U);
        EXPECT_EQ(mode(copy), 0700U);
        EXPECT_EQ(mode(mirrored("Documents")), 0751U);
        EXPECT_EQ(status(copy.appendingNative("below/deeper")).st_mtim.tv_sec, 1'100'000'000);
        EXPECT_EQ(status(copy.appendingNative("below")).st_mtim.tv_sec, 1'200'000'000);
        EXPECT_EQ(status(copy).st_mtim.tv_sec, 1'300'000'000);
        EXPECT_EQ(status(copy).st_mtim.tv_nsec, 123'456'789);
        EXPECT_EQ(status(mirrored("Documents")).st_mtim.tv_sec, 1'400'000'000);
    }
}

TEST_F(FolderAttributesTest, closesAFolderThatIsMoreOpenOnTheDriveBeforeAnythingIsCopiedToIt)
{
    for (int number = 0; number < 200; ++number)
        mac.writeFile("Users/mira/Documents/private/" + QByteArray::number(number), "x");
    setMode(folder, 0700);
    mac.makeFolder("Volumes/Drive/Keelbright/miras Mac/Latest/Personal Files/Documents/private");
    setMode(copy, 0755);
    QList<mode_t> seen;
    QObject::connect(&engine, &BackupEngine::progressChanged, [&] {
        if (engine.progress().filesCopied > 0)
            seen.append(mode(copy));
    });
    run({documents});
    EXPECT_THAT(seen, SizeIs(600));
    EXPECT_THAT(seen, Each(0700U));
}

TEST_F(FolderAttributesTest, fillsAFolderThatItsOwnerMayNotWriteTo)
{
    mac.writeFile("Users/mira/Documents/private/file", "x");
    mac.writeFile("Users/mira/Documents/private/inner/file", "x");
    for (const FileURL& own : {folder.appendingNative("inner"), folder}) {
        if (::geteuid() == 0) {
            ASSERT_EQ(::chown(own.nativePath().constData(), UnprivilegedUser::nobody, 0), 0);
        }
        setMode(own, 0500);
        setTime(own, 1'300'000'000);
    }
    setMode(mac.root(), 0755);
    setMode(drive, 0777);
    for (int round = 0; round < 2; ++round) {
        {
            const UnprivilegedUser user;
            run({documents});
        }
        EXPECT_THAT(engine.progress().errors, IsEmpty());
        EXPECT_EQ(engine.progress().filesCopied, 2);
        EXPECT_EQ(mode(copy), 0500U);
        EXPECT_EQ(mode(copy.appendingNative("inner")), 0500U);
        EXPECT_EQ(status(copy).st_mtim.tv_sec, 1'300'000'000);
        EXPECT_EQ(status(copy.appendingNative("inner")).st_mtim.tv_sec, 1'300'000'000);
    }
    for (const FileURL& own : {folder.appendingNative("inner"), folder, copy.appendingNative("inner"), copy})
        setMode(own, 0700); // for the removal of the test's files
}

TEST_F(FolderAttributesTest, copiesExtendedAttributesOfFolders)
{
    mac.writeFile("Users/mira/Documents/private/file", "x");
    if (::setxattr(folder.nativePath().constData(), "user.comment", "kept", 4, 0) != 0)
        GTEST_SKIP() << "the temporary folder's file system has no extended attributes";
    run({documents});
    char value[8] = {};
    EXPECT_EQ(::getxattr(copy.nativePath().constData(), "user.comment", value, sizeof value), 4);
    EXPECT_STREQ(value, "kept");
}

TEST_F(FolderAttributesTest, completesTheFoldersOfARunThatIsCancelled)
{
    for (int number = 0; number < 100; ++number)
        mac.writeFile("Users/mira/Documents/private/" + QByteArray::number(number), "x");
    setMode(folder, 0500);
    setTime(folder, 1'300'000'000);
    QObject::connect(&engine, &BackupEngine::progressChanged, [&] {
        if (engine.progress().filesCopied == 10)
            engine.cancel();
    });
    run({documents});
    EXPECT_EQ(engine.progress().filesCopied, 10);
    EXPECT_EQ(mode(copy), 0500U);
    EXPECT_EQ(status(copy).st_mtim.tv_sec, 1'300'000'000);
    setMode(folder, 0700); // for the removal of the test's files
    setMode(copy, 0700);
}

TEST_F(FolderAttributesTest, makesNoFolderForFilesThatACancelledRunDoesNotCopy)
{
    for (int number = 0; number < 50; ++number)
        mac.writeFile("Users/mira/Documents/" + QByteArray::number(number) + "/inner/file", "x");
    const FileURL old =
        mac.makeFolder("Volumes/Drive/Keelbright/miras Mac/Latest/Personal Files/Documents/old");
    QObject::connect(&engine, &BackupEngine::progressChanged, [&] {
        if (engine.progress().filesCopied == 3)
            engine.cancel();
    });
    run({documents});
    EXPECT_EQ(engine.progress().filesCopied, 3);
    EXPECT_THAT(everythingBelow(mirrored("Documents")), SizeIs(3 * 3 + 1))
        << "three files and what was there";
    EXPECT_TRUE(mac.fileManager().fileExists(old).isDirectory);
}

TEST_F(FolderAttributesTest, opensAFolderOfTwoSourcesToNobodyWhomOneOfThemKeepsOut)
{
    mac.writeFile("one/Photos/first.jpg", "x");
    mac.writeFile("one/Photos/inner/first.jpg", "x");
    mac.writeFile("two/Photos/second.jpg", "x");
    mac.writeFile("two/Photos/inner/second.jpg", "x");
    const FileURL one = mac.root().appendingNative("one/Photos");
    const FileURL two = mac.root().appendingNative("two/Photos");
    setMode(one, 0700);
    setMode(one.appendingNative("inner"), 0755);
    setMode(two, 0775);
    setMode(two.appendingNative("inner"), 0750);
    for (int round = 0; round < 2; ++round) {
        run({one, two, one});
        EXPECT_THAT(engine.progress().errors, IsEmpty());
        EXPECT_EQ(mode(mirrored("Photos")), 0700U);
        EXPECT_EQ(mode(mirrored("Photos/inner")), 0750U);
    }
    run({two});
    EXPECT_EQ(mode(mirrored("Photos")), 0775U) << "alone, a source has its own permissions";
}

TEST_F(FolderAttributesTest, givesASourceThatIsListedTwiceItsOwnPermissions)
{
    mac.writeFile("Users/mira/Documents/private/file", "x");
    run({documents});
    EXPECT_EQ(mode(copy), 0755U);
    setMode(folder, 0775);
    run({documents, documents});
    EXPECT_EQ(mode(copy), 0775U);
}

TEST_F(FolderAttributesTest, leavesTheFoldersAboveTheSourcesAsTheyAre)
{
    mac.writeFile("Users/mira/Documents/file", "x");
    setMode(documents, 0700);
    run({documents});
    const mode_t before = ::umask(022);
    ::umask(before);
    EXPECT_EQ(mode(mirrored("")), 0777 & ~before);
    EXPECT_EQ(mode(latest("")), 0777 & ~before);
}

TEST_F(FolderAttributesTest, completesFoldersOfManyLevels)
{
    QByteArray path = "Users/mira/Documents";
    for (int level = 0; level < 60; ++level)
        path += "/level";
    mac.writeFile(path + "/file", "x");
    const QByteArray outer = "level/level";
    setMode(documents.appendingNative(outer), 0500);
    setTime(documents.appendingNative(outer), 1'234'567'890);
    run({documents});
    EXPECT_THAT(engine.progress().errors, IsEmpty());
    EXPECT_EQ(mode(mirrored("Documents/" + outer)), 0500U);
    setMode(documents.appendingNative(outer), 0700); // for the removal of the test's files
    setMode(mirrored("Documents/" + outer), 0700);
    EXPECT_EQ(status(mirrored("Documents/" + outer)).st_mtim.tv_sec, 1'234'567'890);
}

} // namespace
} // namespace keelbright

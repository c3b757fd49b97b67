#include "tests/support/FailingDrive.h"
#include "tests/support/FatImage.h"
#include "tests/support/ImageDrive.h"
#include "tests/support/TestMac.h"
#include "tests/support/TmpfsMount.h"
#include "tests/support/UnprivilegedUser.h"

#include <fcntl.h>
#include <fstream>
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

// Tests that ask for a fault would pass without testing anything if the fault did not happen.

namespace keelbright {
namespace {

bool canWrite(const FileURL& url, size_t bytes)
{
    std::ofstream file(url.nativePath().toStdString(), std::ios::binary);
    file << std::string(bytes, 'x') << std::flush;
    return file.good();
}

bool canRead(const FileURL& url)
{
    return std::ifstream(url.nativePath().toStdString()).is_open();
}

TEST(TmpfsMount, isFullBehindItsBytes)
{
    const testing::TmpfsMount disk({.bytes = 65'536});
    if (!disk.reasonMissing().empty())
        GTEST_SKIP() << disk.reasonMissing();
    EXPECT_TRUE(canWrite(disk.root().appendingNative("small"), 1'000));
    EXPECT_FALSE(canWrite(disk.root().appendingNative("large"), 200'000));
}

TEST(TmpfsMount, isFullBehindItsInodes)
{
    const testing::TmpfsMount disk({.inodes = 3});
    if (!disk.reasonMissing().empty())
        GTEST_SKIP() << disk.reasonMissing();
    EXPECT_TRUE(canWrite(disk.root().appendingNative("1"), 0));
    EXPECT_TRUE(canWrite(disk.root().appendingNative("2"), 0));
    EXPECT_FALSE(canWrite(disk.root().appendingNative("3"), 0));
}

TEST(TmpfsMount, turnsReadOnly)
{
    const testing::TmpfsMount disk({});
    if (!disk.reasonMissing().empty())
        GTEST_SKIP() << disk.reasonMissing();
    disk.makeReadOnly();
    EXPECT_FALSE(canWrite(disk.root().appendingNative("file"), 1));
}

TEST(FatImage, hasNeitherLinksNorCase)
{
    const testing::FatImage drive;
    if (!drive.reasonMissing().empty())
        GTEST_SKIP() << drive.reasonMissing();
    EXPECT_TRUE(canWrite(drive.root().appendingNative("File.txt"), 10));
    struct stat status = {};
    EXPECT_EQ(::stat(drive.root().appendingNative("FILE.TXT").nativePath().constData(), &status), 0);
    EXPECT_NE(::symlink("File.txt", drive.root().appendingNative("link").nativePath().constData()), 0);
}

bool hasEntry(const FileURL& url)
{
    struct stat status = {};
    return ::lstat(url.nativePath().constData(), &status) == 0;
}

void writeThrough(const FileURL& root)
{
    const int folder = ::open(root.nativePath().constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    EXPECT_EQ(::syncfs(folder), 0);
    ::close(folder);
}

TEST(ImageDrive, foldsLetterCaseWhereItIsOfAForeignKind)
{
    for (const auto kind : {testing::ImageDrive::Kind::exFat, testing::ImageDrive::Kind::ntfs}) {
        const testing::ImageDrive drive(kind, 16'777'216);
        if (!drive.reasonMissing().empty())
            GTEST_SKIP() << drive.reasonMissing();
        EXPECT_TRUE(canWrite(drive.root().appendingNative("File.txt"), 10));
        EXPECT_TRUE(hasEntry(drive.root().appendingNative("FILE.TXT")));
        EXPECT_FALSE(canWrite(drive.root().appendingNative("what?"), 10));
    }
}

TEST(ImageDrive, takesNoMoreWritesAfterAnErrorInside)
{
    const testing::ImageDrive drive(testing::ImageDrive::Kind::ext4, 16'777'216);
    if (!drive.reasonMissing().empty())
        GTEST_SKIP() << drive.reasonMissing();
    EXPECT_TRUE(canWrite(drive.root().appendingNative("before"), 10));
    drive.failInside();
    EXPECT_FALSE(canWrite(drive.root().appendingNative("after"), 10));
    EXPECT_TRUE(canRead(drive.root().appendingNative("before")));
}

TEST(ImageDrive, losesWhatWasNotWrittenThroughWhenItIsPulled)
{
    const testing::ImageDrive drive(testing::ImageDrive::Kind::ext4, 16'777'216);
    if (!drive.reasonMissing().empty())
        GTEST_SKIP() << drive.reasonMissing();
    EXPECT_TRUE(canWrite(drive.root().appendingNative("kept"), 10));
    writeThrough(drive.root());
    EXPECT_TRUE(canWrite(drive.root().appendingNative("lost"), 10));
    drive.pull();
    EXPECT_FALSE(canWrite(drive.root().appendingNative("after"), 10));
    drive.putBack();
    EXPECT_TRUE(hasEntry(drive.root().appendingNative("kept")));
    EXPECT_FALSE(hasEntry(drive.root().appendingNative("lost")));
}

TEST(FailingDrive, failsFromTheGivenByteOn)
{
    const testing::FailingDrive drive(QStringLiteral("write"), 5'000, QStringLiteral("EIO"));
    if (!drive.reasonMissing().empty())
        GTEST_SKIP() << drive.reasonMissing();
    EXPECT_TRUE(canWrite(drive.root().appendingNative("first"), 4'000));
    EXPECT_FALSE(canWrite(drive.root().appendingNative("second"), 4'000));
    EXPECT_FALSE(canWrite(drive.root().appendingNative("third"), 1));
    EXPECT_TRUE(canRead(drive.root().appendingNative("first")));
}

TEST(FailingDrive, isGoneWhenItIsPulled)
{
    testing::FailingDrive drive(QStringLiteral("none"), 0, QStringLiteral("EIO"));
    if (!drive.reasonMissing().empty())
        GTEST_SKIP() << drive.reasonMissing();
    EXPECT_TRUE(canWrite(drive.root().appendingNative("file"), 10));
    drive.pull();
    EXPECT_FALSE(canRead(drive.root().appendingNative("file")));
    EXPECT_TRUE(canRead(drive.folder().appendingNative("file")));
}

TEST(FailingDrive, signalsNobodyElseOnceItsProgramHasEnded)
{
    testing::FailingDrive drive(QStringLiteral("none"), 0, QStringLiteral("EIO"));
    if (!drive.reasonMissing().empty())
        GTEST_SKIP() << drive.reasonMissing();
    drive.pull();
    EXPECT_NONFATAL_FAILURE(drive.failNow(), "not there any more");
}

TEST(UnprivilegedUser, mayNotReadWhatIsLockedAsLongAsItLives)
{
    const testing::TestMac mac;
    const FileURL open = mac.writeFile("open", "x");
    const FileURL locked = mac.writeFile("locked", "x");
    ASSERT_EQ(::chmod(mac.root().nativePath().constData(), 0755), 0);
    ASSERT_EQ(::chmod(locked.nativePath().constData(), 0), 0);
    const uid_t before = ::geteuid();
    {
        const testing::UnprivilegedUser user;
        EXPECT_NE(::geteuid(), 0U);
        EXPECT_TRUE(canRead(open));
        EXPECT_FALSE(canRead(locked));
    }
    EXPECT_EQ(::geteuid(), before);
}

} // namespace
} // namespace keelbright

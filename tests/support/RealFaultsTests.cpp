#include "tests/support/FatImage.h"
#include "tests/support/TestMac.h"
#include "tests/support/TmpfsMount.h"
#include "tests/support/UnprivilegedUser.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

// A fault that isn't there would let every test that asks for it pass for nothing.

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

TEST(UnprivilegedUser, mayNotReadWhatIsLockedAndIsHeldBackNoLonger)
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

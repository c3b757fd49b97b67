#include "tests/support/AsOtherUser.h"
#include "tests/support/FatImage.h"
#include "tests/support/TestMac.h"
#include "tests/support/TmpfsMount.h"

#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest-spi.h>
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

TEST(AsOtherUser, mayNotReadWhatIsTheUsersOwn)
{
    const testing::TestMac mac;
    const FileURL open = mac.writeFile("open", "x");
    const FileURL closed = mac.writeFile("closed", "x");
    ASSERT_EQ(::chmod(closed.nativePath().constData(), 0600), 0);
    const std::string reason = testing::asOtherUser(mac.root(), [&] {
        EXPECT_EQ(::access(open.nativePath().constData(), R_OK), 0);
        EXPECT_NE(::access(closed.nativePath().constData(), R_OK), 0);
    });
    if (!reason.empty())
        GTEST_SKIP() << reason;
}

TEST(AsOtherUser, whatItFailsToExpectFailsTheTest)
{
    const testing::TestMac mac;
    std::string reason;
    ::testing::TestPartResultArray failures;
    {
        const ::testing::ScopedFakeTestPartResultReporter reporter(
            ::testing::ScopedFakeTestPartResultReporter::INTERCEPT_ONLY_CURRENT_THREAD, &failures);
        reason = testing::asOtherUser(mac.root(), [] { ::_exit(1); });
    }
    if (!reason.empty())
        GTEST_SKIP() << reason;
    EXPECT_EQ(failures.size(), 1);
}

} // namespace
} // namespace keelbright

#include "KeelbrightCore/platform/files/CopyDestination.h"
#include "KeelbrightCore/platform/system/Cancellation.h"
#include "tests/support/TestMac.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>

namespace keelbright {
namespace {

#ifdef __linux__

/// How many open files of the process had that name and have none any more.
qsizetype openFilesThatWere(const FileURL& file)
{
    const std::string target = file.nativePath().toStdString() + " (deleted)";
    return std::ranges::count_if(std::filesystem::directory_iterator("/proc/self/fd"),
                                 [&](const auto& entry) {
                                     std::error_code gone; // that of the listing itself
                                     return std::filesystem::read_symlink(entry.path(), gone) == target;
                                 });
}

std::unique_ptr<PreparedCopy> prepareOnly(const FileURL& source, CopyDestination& mirror)
{
    const auto items = DirectoryEnumerator::open(source, {});
    if (!items || !(*items)->next() || !mirror.enterFolder("Documents"))
        return nullptr;
    const auto plan = mirror.plan(**items);
    auto copy = plan ? mirror.makeWorker()->prepare(*plan, Cancellation()) : nullptr;
    return copy ? std::move(*copy) : nullptr;
}

TEST(PreparedFileTest, keepsTheRoomOfTheOldCopyUntilItIsDestroyed)
{
    testing::TestMac mac;
    const FileURL source = mac.makeFolder("source");
    const FileURL drive = mac.makeFolder("drive");
    mac.writeFile("source/a.txt", "new");
    mac.writeFile("drive/Latest/Documents/a.txt", "old");
    const auto mirror = mac.fileManager().openCopyDestination(drive, "Latest");
    ASSERT_TRUE(mirror);
    auto copy = prepareOnly(source, **mirror);
    ASSERT_NE(copy, nullptr);
    ASSERT_TRUE(copy->publish());
    const FileURL target = drive.appendingNative("Latest/Documents/a.txt");
    EXPECT_EQ(testing::TestMac::read(target), "new");
    EXPECT_EQ(openFilesThatWere(target), 1);
    copy.reset();
    EXPECT_EQ(openFilesThatWere(target), 0);
}

#endif

} // namespace
} // namespace keelbright

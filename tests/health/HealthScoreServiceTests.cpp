#include "KeelbrightCore/health/HealthScoreService.h"
#include "KeelbrightCore/platform/system/TaskPools.h"
#include "tests/support/BackgroundWork.h"
#include "tests/support/HeldFileManager.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <QThreadPool>
#include <cerrno>
#include <filesystem>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;
using Grade = HealthScore::Grade;

namespace {

constexpr qint64 terabyte = 1'000'000'000'000;

/// The test's machine with a disk whose capacity the test sets.
class DiskFileManager : public SandboxFileManager
{
public:
    using SandboxFileManager::SandboxFileManager;

    [[nodiscard]] std::expected<FileSystemCapacity, FileError>
    fileSystemCapacity(const FileURL& url) const override
    {
        EXPECT_EQ(url, homeDirectory());
        if (fails)
            return std::unexpected(
                FileError::fromCode(FileError::Operation::measured, url.lastPathComponent(), EIO));
        return capacity;
    }

    FileSystemCapacity capacity{.totalBytes = terabyte, .freeBytes = terabyte};
    bool fails = false;
};

class HealthScoreServiceTest : public ::testing::Test
{
protected:
    /// Writes a file of that length below the home, all of it a hole.
    void writeHole(const QByteArray& path, qint64 bytes) const
    {
        const FileURL file = mac.writeFile("Users/mira/" + path, "");
        std::filesystem::resize_file(file.nativePath().toStdString(), static_cast<std::uintmax_t>(bytes));
    }

    HealthScore compute(const std::optional<QDateTime>& lastBackup = std::nullopt) const
    {
        return HealthScoreService::compute(lastBackup, mac.clock()).result();
    }

    HealthScore scoreOfDisk(std::optional<qint64> total, std::optional<qint64> free)
    {
        disk.capacity = {.totalBytes = total, .freeBytes = free};
        return compute(now);
    }

    TestMac mac;
    DiskFileManager disk{mac.root()};
    FileManagerGuard guard{disk};
    QDateTime now = mac.clock()();
};

} // namespace

TEST_F(HealthScoreServiceTest, withoutABackupAnEmptyDiskWithoutJunkScoresSixty)
{
    EXPECT_EQ(compute(), (HealthScore{.grade = Grade::c,
                                      .points = 60,
                                      .detail = u"No backup on record."_s,
                                      .diskUsedBytes = 0,
                                      .diskTotalBytes = terabyte,
                                      .junkEstimateBytes = 0,
                                      .backupPoints = 0,
                                      .diskPoints = 30,
                                      .junkPoints = 30}));
}

TEST_F(HealthScoreServiceTest, theBestCaseScoresAHundred)
{
    EXPECT_EQ(compute(now).points, 100);
    EXPECT_EQ(compute(now).grade, Grade::a);
}

TEST_F(HealthScoreServiceTest, theAgeOfTheBackupGoesByTheClock)
{
    const QDateTime lastBackup = now;
    mac.setNow(now.addDays(7));
    EXPECT_EQ(compute(lastBackup).backupPoints, 15);
    EXPECT_EQ(compute(lastBackup).detail, u"No backup in 7 days — consider backing up soon."_s);
}

TEST_F(HealthScoreServiceTest, withoutAClockItIsTheSystems)
{
    const QDateTime anHourAgo = systemClock().addSecs(-3'600);
    EXPECT_EQ(HealthScoreService::compute(anHourAgo).result().backupPoints, 40);
    EXPECT_EQ(HealthScoreService::compute(anHourAgo.addDays(-1)).result().backupPoints, 35);
}

TEST_F(HealthScoreServiceTest, aDiskExactlyEightyFivePercentFullIsMentioned)
{
    const HealthScore score = scoreOfDisk(terabyte, 150'000'000'000);
    EXPECT_EQ(score.diskPoints, 4);
    EXPECT_EQ(score.detail, u"Backed up today. Disk is 85% full — freeing space is recommended."_s);
}

TEST_F(HealthScoreServiceTest, aDiskJustUnderEightyFivePercentIsNotMentioned)
{
    const HealthScore score = scoreOfDisk(terabyte, 150'100'000'000);
    EXPECT_EQ(score.diskUsedBytes, 849'900'000'000);
    EXPECT_EQ(score.diskPoints, 10);
    EXPECT_EQ(score.detail, u"Backed up today."_s);
}

TEST_F(HealthScoreServiceTest, aDiskThatClaimsMoreFreeThanItHasIsEmpty)
{
    const HealthScore score = scoreOfDisk(terabyte, terabyte + 1);
    EXPECT_EQ(score.diskUsedBytes, 0);
    EXPECT_EQ(score.diskUsedFraction(), 0.0);
    EXPECT_EQ(score.diskPoints, 30);
}

TEST_F(HealthScoreServiceTest, aDiskThatCanNotBeAskedScoresInTheMiddle)
{
    disk.fails = true;
    const HealthScore score = compute(now);
    EXPECT_EQ(score.diskTotalBytes, 0);
    EXPECT_EQ(score.diskUsedBytes, 0);
    EXPECT_EQ(score.diskPoints, 15);
    EXPECT_EQ(score.detail, u"Backed up today."_s);
}

TEST_F(HealthScoreServiceTest, anUnknownTotalCountsAsNothing)
{
    const HealthScore score = scoreOfDisk(std::nullopt, 5);
    EXPECT_EQ(score.diskTotalBytes, 0);
    EXPECT_EQ(score.diskUsedBytes, 0);
    EXPECT_EQ(score.diskPoints, 15);
}

TEST_F(HealthScoreServiceTest, anUnknownFreeSpaceCountsAsNoneFree)
{
    const HealthScore score = scoreOfDisk(terabyte, std::nullopt);
    EXPECT_EQ(score.diskUsedBytes, terabyte);
    EXPECT_EQ(score.diskPoints, 0);
}

TEST_F(HealthScoreServiceTest, theRealDiskIsAsked)
{
    const FileManagerGuard real(mac.fileManager());
    const HealthScore score = compute();
    const FileSystemCapacity capacity = mac.fileManager().fileSystemCapacity(mac.home()).value();
    EXPECT_EQ(score.diskTotalBytes, capacity.totalBytes);
    EXPECT_GT(score.diskUsedBytes, 0);
    EXPECT_LT(score.diskUsedBytes, score.diskTotalBytes);
}

TEST_F(HealthScoreServiceTest, theEstimateIsTheSumOfCachesLogsAndTheTwoFoldersOfXcode)
{
    writeHole("Library/Caches/a/file", 1);
    writeHole("Library/Logs/file", 20);
    writeHole("Library/Developer/Xcode/DerivedData/one/two/file", 300);
    writeHole("Library/Developer/Xcode/Archives/file", 4'000);
    EXPECT_EQ(compute().junkEstimateBytes, 4'321);
}

TEST_F(HealthScoreServiceTest, theEstimateIsNarrowerThanTheJunkScanner)
{
    writeHole("Library/Application Support/MobileSync/Backup/a/file", 1);
    writeHole("Library/Application Support/Google/Chrome/Default/Cache/file", 1);
    writeHole("Library/Developer/Xcode/iOS DeviceSupport/file", 1);
    writeHole("Library/Developer/CoreSimulator/Caches/file", 1);
    writeHole(".Trash/a/file", 1);
    EXPECT_EQ(compute().junkEstimateBytes, 0);
}

TEST_F(HealthScoreServiceTest, plainFilesDirectlyInAFolderCountInTheEstimate)
{
    writeHole("Library/Caches/file", 5);
    EXPECT_EQ(compute().junkEstimateBytes, 5);
}

TEST_F(HealthScoreServiceTest, hiddenFilesAndTheInsideOfPackagesCountForNothing)
{
    writeHole("Library/Caches/file", 5);
    writeHole("Library/Caches/.hidden", 1'000);
    writeHole("Library/Caches/.folder/file", 1'000);
    writeHole("Library/Caches/Helper.app/Contents/binary", 1'000);
    EXPECT_EQ(compute().junkEstimateBytes, 5);
}

TEST_F(HealthScoreServiceTest, junkCostsPointsAndIsMentioned)
{
    writeHole("Library/Caches/file", 2'147'483'648);
    const HealthScore score = compute(now);
    EXPECT_EQ(score.junkPoints, 8);
    EXPECT_EQ(score.points, 78);
    EXPECT_EQ(score.grade, Grade::b);
    EXPECT_EQ(score.detail, u"Backed up today. 2.15 GB of cached junk found."_s);
}

TEST_F(HealthScoreServiceTest, theWorkIsDoneOnAThreadOfItsOwnWhileTheCallerGoesOn)
{
    HeldFileManager held(mac.root());
    const FileManagerGuard heldGuard(held);
    waitForBackgroundWork();
    held.holdNextLookAt(mac.home());
    const QFuture<HealthScore> score = HealthScoreService::compute(std::nullopt, mac.clock());
    ASSERT_TRUE(held.waitUntilHeld());
    EXPECT_FALSE(score.isFinished());
    EXPECT_TRUE(TaskPools::isAtWork());
    EXPECT_EQ(TaskPools::utility().activeThreadCount(), 0);
    EXPECT_EQ(TaskPools::userInitiated().activeThreadCount(), 0);
    held.letGo();
    EXPECT_EQ(score.result().backupPoints, 0);
    waitForBackgroundWork();
}

} // namespace keelbright::testing

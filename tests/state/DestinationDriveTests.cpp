#include "Keelbright/state/DestinationDrive.h"

#include "KeelbrightCore/backup/PreflightService.h"
#include "tests/state/AppStateFixture.h"
#include "tests/support/BackgroundWork.h"
#include "tests/support/TemporaryVolume.h"

#include <QSignalSpy>
#include <QTest>
#include <memory>

namespace keelbright::testing {

namespace {

constexpr int patience = 60'000; // milliseconds

class DestinationDriveTest : public AppStateFixture
{
protected:
    ~DestinationDriveTest() override { waitForBackgroundWork(); }

    DestinationDriveTest() = default;
    DestinationDriveTest(const DestinationDriveTest&) = delete;
    DestinationDriveTest& operator=(const DestinationDriveTest&) = delete;

    [[nodiscard]] bool becomes(bool isAway) const
    {
        return QTest::qWaitFor([&] { return state->isDestinationAway() == isAway; }, patience);
    }

    /// Waits until the look that is under way has brought its answer.
    static void waitForAnswers()
    {
        waitForBackgroundWork();
        QCoreApplication::processEvents();
    }

    void SetUp() override { state->setIsOnboardingCompleted(true); }

    FileURL place = mac.makeFolder("Volumes/Anchor");
    std::unique_ptr<AppState> state = makeState();
};

} // namespace

TEST_F(DestinationDriveTest, aDestinationThatIsMissingIsAwayUntilItIsThere)
{
    state->setSelectedDestination(
        BackupDestination{QUuid::createUuid(), mac.root().appendingNative("Volumes/None")});
    const DestinationDrive drive(*state);
    EXPECT_TRUE(becomes(true));
    state->setSelectedDestination(this->drive());
    EXPECT_FALSE(state->isDestinationAway());
    waitForAnswers();
    EXPECT_FALSE(state->isDestinationAway());
}

TEST_F(DestinationDriveTest, nothingIsLookedUpBeforeTheOnboardingIsPassed)
{
    state->setIsOnboardingCompleted(false);
    state->setSelectedDestination(
        BackupDestination{QUuid::createUuid(), mac.root().appendingNative("Volumes/None")});
    const DestinationDrive drive(*state);
    waitForAnswers();
    EXPECT_FALSE(state->isDestinationAway());
    state->setIsOnboardingCompleted(true);
    EXPECT_TRUE(becomes(true));
}

TEST_F(DestinationDriveTest, withoutADestinationNothingIsAway)
{
    const DestinationDrive drive(*state);
    const QSignalSpy changes(state.get(), &AppState::isDestinationAwayChanged);
    waitForAnswers();
    EXPECT_FALSE(state->isDestinationAway());
    EXPECT_EQ(changes.count(), 0);
}

TEST_F(DestinationDriveTest, aDriveThatGoesAndComesShows)
{
    auto volume = std::make_unique<TemporaryVolume>(place);
    if (!volume->isMounted())
        GTEST_SKIP() << "needs the right to mount";
    state->setSelectedDestination(drive());
    const DestinationDrive watched(*state);
    waitForAnswers();
    EXPECT_FALSE(state->isDestinationAway());
    EXPECT_EQ(state->destinationDriveSeenAt(), place);
    volume.reset(); // its empty mount point stays
    EXPECT_TRUE(becomes(true));
    volume = std::make_unique<TemporaryVolume>(place);
    EXPECT_TRUE(becomes(false));
}

TEST_F(DestinationDriveTest, aDriveThatIsMountedLaterOnAnEmptyFolderMayGoAgain)
{
    state->setSelectedDestination(drive());
    const DestinationDrive watched(*state);
    waitForAnswers();
    EXPECT_FALSE(state->isDestinationAway());
    auto volume = std::make_unique<TemporaryVolume>(place);
    if (!volume->isMounted())
        GTEST_SKIP() << "needs the right to mount";
    EXPECT_TRUE(QTest::qWaitFor([&] { return state->destinationDriveSeenAt() == place; }, patience));
    EXPECT_FALSE(state->isDestinationAway());
    volume.reset();
    EXPECT_TRUE(becomes(true));
}

TEST_F(DestinationDriveTest, noBackupStartsOntoAnEmptyMountPoint)
{
    mac.writeFile("Users/mira/Desktop/a.txt", "12345");
    mac.writeFile("etc/fstab", "UUID=3456 /Volumes/Anchor ext4 noauto 0 2\n");
    state->setSelectedDestination(drive());
    const DestinationDrive watched(*state);
    ASSERT_TRUE(becomes(true));
    EXPECT_FALSE(state->confirmBackup());
    EXPECT_FALSE(state->engine().isRunning());
    const PreflightResult result = state->runPreflight(std::make_shared<Cancellation>()).result();
    EXPECT_EQ(result.errors.value(0),
              QStringLiteral("Destination folder does not exist or is not a directory."));
    EXPECT_FALSE(result.canProceed());
}

TEST_F(DestinationDriveTest, noBackupStartsOntoAFolderThatADriveHasLeftBehindBefore)
{
    mac.writeFile("Users/mira/Desktop/a.txt", "12345");
    const FileURL left = mac.makeFolder("media/mira/Anchor");
    state->setSelectedDestination(BackupDestination{QUuid::createUuid(), left});
    const DestinationDrive watched(*state);
    ASSERT_TRUE(becomes(true));
    EXPECT_FALSE(state->confirmBackup());
    const PreflightResult result = state->runPreflight(std::make_shared<Cancellation>()).result();
    EXPECT_EQ(result.errors.value(0),
              QStringLiteral("Destination folder does not exist or is not a directory."));
    EXPECT_FALSE(result.canProceed());
}

TEST_F(DestinationDriveTest, noBackupStartsWhereTheDriveHasGoneAndNobodyKnowsYet)
{
    mac.writeFile("Users/mira/Desktop/a.txt", "12345");
    auto volume = std::make_unique<TemporaryVolume>(place);
    if (!volume->isMounted())
        GTEST_SKIP() << "needs the right to mount";
    state->setSelectedDestination(drive());
    {
        const DestinationDrive watched(*state);
        ASSERT_TRUE(QTest::qWaitFor([&] { return state->destinationDriveSeenAt() == place; }, patience));
    }
    volume.reset(); // nothing watches any more
    EXPECT_FALSE(state->isDestinationAway());
    EXPECT_TRUE(state->confirmBackup());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !state->engine().isRunning(); }, patience));
    EXPECT_EQ(
        state->engine().lastError(),
        QStringLiteral("Could not create backup folders: “Anchor” could not be opened: the destination is "
                       "no longer in its place."));
    EXPECT_FALSE(fileManager.fileExists(place.appendingNative("Keelbright")).exists);
}

} // namespace keelbright::testing

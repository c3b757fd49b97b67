#include "Keelbright/screens/shell/StateAnnouncer.h"

#include "Keelbright/screens/shell/MainWindow.h"
#include "tests/screens/shared/ScreenTestCase.h"
#include "tests/support/SpokenTexts.h"

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

/// What is said in the whole window, on a screen that has nothing to do with backups.
class StateAnnouncerTests : public ScreenTestCase
{
protected:
    StateAnnouncerTests()
    {
        state->setIsOnboardingCompleted(true);
        state->setSelectedScreen(Screen::settings);
        window.show();
    }

    void setProgress(qint64 copied)
    {
        BackupProgress progress;
        progress.filesCopied = copied;
        progress.totalFilesEstimate = 1'000;
        state->engine().setProgress(progress);
        turnFrame();
    }

    MainWindow window{context()};
};

} // namespace

TEST_F(StateAnnouncerTests, aRunIsAnnouncedFromItsStartToItsEnd)
{
    mac.writeFile("Users/mira/Documents/a.txt", "a");
    mac.makeFolder("Users/mira/Desktop");
    mac.makeFolder("Users/mira/Pictures");
    chooseDrive();
    const SpokenTexts spoken;
    ASSERT_TRUE(state->confirmBackup());
    EXPECT_EQ(spoken.all(), QStringList{u"Backup running"_s});
    turnUntil([this] { return !state->engine().isRunning(); });
    turnFrame();
    EXPECT_EQ(spoken.last(), u"Backup Complete"_s);
}

TEST_F(StateAnnouncerTests, eachQuarterIsAnnouncedOnce)
{
    state->engine().setIsRunning(true);
    const SpokenTexts spoken;
    for (const qint64 copied : {0, 249, 250, 300, 499, 500, 750, 999, 1'000})
        setProgress(copied);
    EXPECT_EQ(spoken.all(),
              (QStringList{u"Backup 25% complete"_s, u"Backup 50% complete"_s, u"Backup 75% complete"_s}));
}

TEST_F(StateAnnouncerTests, aQuickRunSkipsQuarters)
{
    state->engine().setIsRunning(true);
    const SpokenTexts spoken;
    setProgress(800);
    EXPECT_EQ(spoken.all(), QStringList{u"Backup 75% complete"_s});
}

TEST_F(StateAnnouncerTests, theNextRunBeginsAgain)
{
    state->engine().setIsRunning(true);
    setProgress(600);
    state->engine().setIsRunning(false);
    state->engine().setIsRunning(true);
    setProgress(0);
    const SpokenTexts spoken;
    setProgress(300);
    EXPECT_EQ(spoken.all(), QStringList{u"Backup 25% complete"_s});
}

TEST_F(StateAnnouncerTests, aCancelAndItsEndAreAnnounced)
{
    state->engine().setIsRunning(true);
    const SpokenTexts spoken;
    state->engine().cancel();
    EXPECT_EQ(spoken.all(), QStringList{u"Cancelling..."_s});
    setProgress(600);
    state->engine().setLastReport(sampleReport());
    state->engine().setIsRunning(false);
    EXPECT_EQ(spoken.all(), (QStringList{u"Cancelling..."_s,
                                         u"This backup was cancelled before everything was copied."_s}));
}

TEST_F(StateAnnouncerTests, aRunThatCannotStartIsAnnouncedWithItsReason)
{
    mac.writeFile("Volumes/Anchor/Keelbright", "a file in the way");
    chooseDrive();
    const SpokenTexts spoken;
    ASSERT_TRUE(state->confirmBackup());
    turnUntil([this] { return !state->engine().isRunning(); });
    EXPECT_TRUE(spoken.last().startsWith(u"Could not create backup folders: "_s))
        << spoken.last().toStdString();
}

TEST_F(StateAnnouncerTests, warningsAreAnnouncedWithTheirAlert)
{
    state->engine().setIsRunning(true);
    BackupReport report = sampleReport();
    report.errors = {u"Skip a"_s};
    state->engine().setLastReport(report);
    const SpokenTexts spoken;
    state->engine().setIsRunning(false);
    settle();
    EXPECT_EQ(
        spoken.all(),
        (QStringList{
            u"Backup Finished with Warnings"_s,
            u"Backup completed with warnings. 1 file(s) were skipped. View the report for details."_s}));
}

TEST_F(StateAnnouncerTests, anAlertIsAnnouncedWhenItIsRaised)
{
    const SpokenTexts spoken;
    state->startBackup();
    EXPECT_EQ(spoken.all(), QStringList{u"No Destination Selected. Go to Settings and choose a backup "
                                        u"destination first."_s});
    state->setAlerts({});
    EXPECT_EQ(spoken.all().size(), 1);
}

TEST_F(StateAnnouncerTests, aDriveThatGoesAndComesBackIsAnnounced)
{
    chooseDrive();
    const SpokenTexts spoken;
    state->setIsDestinationAway(true);
    state->setIsDestinationAway(false);
    EXPECT_EQ(spoken.all(), (QStringList{u"Anchor is not connected"_s, u"Anchor is connected again"_s}));
}

TEST_F(StateAnnouncerTests, anotherDestinationIsNotAnnouncedAsConnected)
{
    chooseDrive();
    state->setIsDestinationAway(true);
    const SpokenTexts spoken;
    state->setSelectedDestination(
        BackupDestination{QUuid::createUuid(), mac.root().appending(u"Volumes/Other"_s)});
    state->setIsDestinationAway(false);
    EXPECT_EQ(spoken.all(), QStringList());
}

TEST_F(StateAnnouncerTests, aBackupOnItsOwnScreenIsAnnouncedOnce)
{
    mac.writeFile("Volumes/Anchor/Keelbright", "a file in the way");
    chooseDrive();
    state->setSelectedScreen(Screen::backupProgress);
    const SpokenTexts spoken;
    ASSERT_TRUE(state->confirmBackup());
    turnUntil([this] { return !state->engine().isRunning(); });
    turnFrame();
    EXPECT_EQ(spoken.all().count(*state->engine().lastError()), 1);
}

} // namespace keelbright::testing

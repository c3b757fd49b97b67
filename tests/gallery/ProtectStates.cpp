#include "KeelbrightCore/backup/ErrorLine.h"
#include "tests/gallery/ScreenStates.h"
#include "tests/gallery/Stage.h"

#include <cerrno>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

void populateAndChooseDrive(Stage& stage)
{
    stage.mira.populate();
    stage.start();
    stage.chooseDrive();
}

BackupProgress wellOnItsWay()
{
    BackupProgress progress;
    progress.currentFile = u"IMG_4117.jpg"_s;
    progress.filesCopied = 1'862;
    progress.filesSkipped = 14;
    progress.totalFilesEstimate = 3'020;
    progress.bytesCopied = 8'410'000'000;
    return progress;
}

/// Brings the engine into the state that it has in the middle of a run.
void run(Stage& stage, const BackupProgress& progress)
{
    stage.state().engine().setIsRunning(true);
    stage.state().engine().setProgress(progress);
}

void playOnboardingWelcome(Stage& stage)
{
    stage.startWithOnboarding();
    Stage::turnFrames();
}

void playOnboardingDestination(Stage& stage)
{
    stage.startWithOnboarding();
    stage.press(u"Continue"_s);
}

void playOnboardingChosen(Stage& stage)
{
    stage.mira.addBackupDrive();
    stage.startWithOnboarding();
    stage.press(u"Continue"_s);
    stage.chooseDrive();
    Stage::turnFrames();
}

void playWelcome(Stage& stage)
{
    stage.start();
    Stage::turnFrames();
}

void playDashboardLoading(Stage& stage)
{
    stage.mira.populate();
    stage.files.holdNextLookAt(stage.mac.home());
    stage.goTo(Screen::dashboard);
}

void playDashboardFirst(Stage& stage)
{
    stage.mira.populate();
    stage.goTo(Screen::dashboard);
    stage.settle();
}

void playDashboardProtected(Stage& stage)
{
    populateAndChooseDrive(stage);
    stage.backUp();
    stage.goTo(Screen::dashboard);
    stage.settle();
}

void playDashboardDriveAway(Stage& stage)
{
    playDashboardProtected(stage);
    stage.state().setIsDestinationAway(true);
    Stage::turnFrames();
}

void playDashboardAlert(Stage& stage)
{
    stage.mira.populate();
    stage.goTo(Screen::dashboard);
    stage.settle();
    stage.press(u"Backup Now"_s);
}

void playDashboardRunning(Stage& stage)
{
    populateAndChooseDrive(stage);
    stage.goTo(Screen::dashboard);
    stage.settle();
    run(stage, wellOnItsWay());
    Stage::turnFrames();
}

void playDashboardHighContrast(Stage& stage)
{
    playDashboardProtected(stage);
    Stage::raiseContrast();
}

void playProtectedItems(Stage& stage)
{
    stage.mira.populate();
    stage.goTo(Screen::protectedItems);
}

void playProtectedItemsCustom(Stage& stage)
{
    stage.mira.populate();
    stage.start();
    stage.state().addCustomSource(stage.mac.makeFolder("Users/mira/Documents/Projects"));
    stage.state().addCustomSource(stage.mac.makeFolder(
        "Users/mira/Documents/Everything that Grandma wrote down about the garden, year by year, since the "
        "spring of 1961/and what Anna & Björn added to it later on"));
    stage.goTo(Screen::protectedItems);
}

void playPreflightBusy(Stage& stage)
{
    populateAndChooseDrive(stage);
    stage.files.holdNextLookAt(stage.mira.backupDrive());
    stage.goTo(Screen::preflight);
    EXPECT_TRUE(stage.files.waitUntilHeld());
    Stage::turnFrames();
}

void playPreflightReady(Stage& stage)
{
    populateAndChooseDrive(stage);
    stage.goTo(Screen::preflight);
    stage.settle();
}

void playPreflightWarnings(Stage& stage)
{
    populateAndChooseDrive(stage);
    stage.state().addCustomSource(stage.mac.home().appending(u"Documents/A folder that is gone"_s));
    stage.goTo(Screen::preflight);
    stage.settle();
}

void playPreflightErrors(Stage& stage)
{
    populateAndChooseDrive(stage);
    stage.files.freeBytes = 1'000'000;
    stage.goTo(Screen::preflight);
    stage.settle();
}

void playProgressEmpty(Stage& stage)
{
    stage.goTo(Screen::backupProgress);
}

void playProgressRunning(Stage& stage)
{
    populateAndChooseDrive(stage);
    stage.goTo(Screen::backupProgress);
    run(stage, wellOnItsWay());
    Stage::turnFrames();
}

void playProgressTimeLeft(Stage& stage)
{
    populateAndChooseDrive(stage);
    stage.goTo(Screen::backupProgress);
    stage.state().timeLeft().expect(13'900'000'000);
    BackupProgress progress = wellOnItsWay();
    run(stage, progress);
    const qint64 copied = progress.bytesCopied;
    constexpr int minutes = 6;
    for (int minute = 1; minute <= minutes; ++minute) {
        progress.bytesCopied = copied * minute / minutes;
        stage.state().engine().setProgress(progress);
        stage.steadyNow += std::chrono::minutes(1);
        stage.state().timeLeft().measure();
    }
    EXPECT_FALSE(stage.state().timeLeft().text().isEmpty());
    stage.waitUntil([&stage] { return stage.texts().contains(stage.state().timeLeft().text()); });
    Stage::turnFrames();
}

void playProgressCancelling(Stage& stage)
{
    playProgressRunning(stage);
    stage.state().engine().cancel();
    Stage::turnFrames();
}

void playProgressLongName(Stage& stage)
{
    BackupProgress progress = wellOnItsWay();
    progress.currentFile = u"The whole long story of how we rowed around the Lofoten in three weeks of rain, "
                           "as told by Anna & Björn on the evening after (final, corrected).pages"_s;
    populateAndChooseDrive(stage);
    stage.goTo(Screen::backupProgress);
    run(stage, progress);
    const QString name = u"The whole long story.pages"_s;
    stage.state().engine().appendError(
        skipLine(name, FileError::fromCode(FileError::Operation::read, name, EACCES)));
    Stage::turnFrames();
}

void playProgressFinished(Stage& stage)
{
    populateAndChooseDrive(stage);
    stage.backUp();
    stage.goTo(Screen::backupProgress);
}

void playProgressCancelled(Stage& stage)
{
    populateAndChooseDrive(stage);
    stage.backUp();
    stage.goTo(Screen::backupProgress);
    stage.state().engine().cancel();
    Stage::turnFrames();
}

void playProgressFailed(Stage& stage)
{
    stage.mira.populate();
    stage.mac.writeFile("Volumes/Backup Drive/Keelbright", "a file in the way");
    stage.start();
    stage.chooseDrive();
    stage.backUp();
    stage.goTo(Screen::backupProgress);
}

} // namespace

QList<ScreenState> protectStates()
{
    return {
        {"onboarding", "welcome", playOnboardingWelcome, true},
        {"onboarding", "destination", playOnboardingDestination},
        {"onboarding", "chosen", playOnboardingChosen},
        {"window", "nothing-selected", playWelcome},
        {"dashboard", "loading", playDashboardLoading},
        {"dashboard", "first-start", playDashboardFirst},
        {"dashboard", "protected", playDashboardProtected, true},
        {"dashboard", "drive-away", playDashboardDriveAway},
        {"dashboard", "alert", playDashboardAlert},
        {"dashboard", "running", playDashboardRunning},
        {"dashboard", "high-contrast", playDashboardHighContrast},
        {"protected-items", "recommended", playProtectedItems},
        {"protected-items", "custom", playProtectedItemsCustom},
        {"preflight", "busy", playPreflightBusy},
        {"preflight", "ready", playPreflightReady, true},
        {"preflight", "warnings", playPreflightWarnings},
        {"preflight", "errors", playPreflightErrors},
        {"progress", "empty", playProgressEmpty},
        {"progress", "running", playProgressRunning, true},
        {"progress", "time-left", playProgressTimeLeft, true},
        {"progress", "cancelling", playProgressCancelling},
        {"progress", "long-name", playProgressLongName},
        {"progress", "finished", playProgressFinished},
        {"progress", "cancelled", playProgressCancelled},
        {"progress", "failed", playProgressFailed},
    };
}

} // namespace keelbright::testing

#include "Keelbright/screens/BackupProgressView.h"

#include "Keelbright/screens/backup/BackupFinishedPanel.h"
#include "Keelbright/screens/backup/BackupRunningPanel.h"
#include "Keelbright/widgets/Progress.h"
#include "tests/screens/shared/ScreenTestCase.h"
#include "tests/support/Accessible.h"
#include "tests/support/AnimationClock.h"
#include "tests/support/HangingSources.h"
#include "tests/support/WorkTimer.h"

#include <QTest>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

const QStringList emptyTexts{u"No Backup Running"_s, u"Hit \"Backup Now\" on the Dashboard to start."_s};

const QString cancelledText = u"This backup was cancelled before everything was copied."_s;

class BackupProgressViewTests : public ScreenTestCase
{
protected:
    /// Two small files and a drive to copy them to.
    void makeSmallBackup(AppState& app)
    {
        mac.writeFile("Users/mira/Documents/a.txt", QByteArray(1'500, 'a'));
        mac.writeFile("Users/mira/Documents/b.txt", QByteArray(500, 'b'));
        mac.makeFolder("Users/mira/Desktop");
        mac.makeFolder("Users/mira/Pictures");
        app.setSelectedDestination(driveDestination());
    }

    /// Copies 4 MB a second of the test's clock.
    void copySteadily(AppState& app, int seconds)
    {
        BackupProgress progress = halfway();
        progress.bytesCopied = 0;
        for (int second = 0; second < seconds; ++second) {
            app.engine().setProgress(progress);
            app.timeLeft().measure();
            steadyNow += std::chrono::seconds(1);
            progress.bytesCopied += 4'000'000;
        }
    }

    static BackupProgress halfway()
    {
        BackupProgress progress;
        progress.currentFile = u"IMG_2041.heic"_s;
        progress.filesCopied = 12;
        progress.filesSkipped = 3;
        progress.totalFilesEstimate = 28;
        progress.bytesCopied = 2'500'000;
        return progress;
    }
};

} // namespace

TEST_F(BackupProgressViewTests, withoutARunOrAReportThereIsTheEmptyState)
{
    BackupProgressView view(makeState(), workspace);
    EXPECT_EQ(textsIn(view), emptyTexts);
    EXPECT_TRUE(shownSymbols(view).contains(u"arrow.clockwise.circle"_s));
}

TEST_F(BackupProgressViewTests, aRunThatCouldNotStartIsReportedAboveTheEmptyState)
{
    AppState& app = makeState();
    BackupProgressView view(app, workspace);
    show(view);
    app.engine().setIsRunning(true);
    turnFrame();
    app.engine().setLastError(u"Could not create backup folders: No space."_s);
    app.engine().setIsRunning(false);
    turnFrame();
    EXPECT_EQ(textsIn(view), QStringList{u"Could not create backup folders: No space."_s} + emptyTexts);
    EXPECT_TRUE(accessibleNames(view).contains(u"Could not create backup folders: No space."_s));
    app.engine().setLastError(std::nullopt);
    turnFrame();
    EXPECT_EQ(textsIn(view), emptyTexts);
}

TEST_F(BackupProgressViewTests, aRunThatCouldNotStartIsReportedAboveTheReportOfAnEarlierOne)
{
    AppState& app = makeState(sampleReport());
    app.engine().setLastError(u"Could not create backup folders: No space."_s);
    BackupProgressView view(app, workspace);
    EXPECT_EQ(textsIn(view).first(), u"Could not create backup folders: No space."_s);
    EXPECT_TRUE(textsIn(view).contains(u"Backup Complete"_s));
}

TEST_F(BackupProgressViewTests, aRealRunThatCannotStartShowsTheReason)
{
    AppState& app = makeState();
    mac.writeFile("Volumes/Anchor/Keelbright", "a file in the way");
    app.setSelectedDestination(driveDestination());
    BackupProgressView view(app, workspace);
    show(view);
    ASSERT_TRUE(app.confirmBackup());
    turnUntil([&] { return !app.engine().isRunning(); });
    turnFrame();
    EXPECT_TRUE(textsIn(view).first().startsWith(u"Could not create backup folders: "_s));
    EXPECT_EQ(textsIn(view).mid(1), emptyTexts);
}

TEST_F(BackupProgressViewTests, showsTheRunningBackup)
{
    AppState& app = makeState(sampleReport());
    app.setSelectedDestination(driveDestination());
    BackupProgressView view(app, workspace);
    show(view);
    app.engine().setIsRunning(true);
    app.engine().setProgress(halfway());
    turnFrame();
    EXPECT_EQ(textsIn(view), (QStringList{u"Backing up to Anchor"_s, u"IMG_2041.heic"_s, u"Copied"_s, u"12"_s,
                                          u"Skipped"_s, u"3"_s, u"Size"_s, u"2.5 MB"_s}));
    auto* ring = view.findChild<RingProgress*>();
    EXPECT_EQ(ring->centerText(), u"53%"_s);
    EXPECT_EQ(ring->caption(), u"complete"_s);
    EXPECT_DOUBLE_EQ(ring->fraction(), 15.0 / 28.0);
    EXPECT_EQ(ring->colorRole(), Role::accent);
    EXPECT_EQ(accessibleValue(ring), 53);
    const QStringList names = accessibleNames(view);
    for (const QString& name : {u"Copied 12"_s, u"Skipped 3"_s, u"Size 2.5 MB"_s})
        EXPECT_TRUE(names.contains(name)) << name.toStdString();
    for (const QString& icon : {u"doc.fill"_s, u"minus.circle"_s, u"internaldrive"_s})
        EXPECT_TRUE(shownSymbols(view).contains(icon)) << icon.toStdString();
    EXPECT_TRUE(names.contains(u"Backup running"_s));
}

TEST_F(BackupProgressViewTests, saysHowLongItStillTakesBelowTheFile)
{
    AppState& app = makeState();
    BackupProgressView view(app, workspace);
    show(view);
    app.timeLeft().expect(1'000'000'000);
    app.engine().setIsRunning(true);
    turnFrame();
    const int buttonBefore = button(view, u"Cancel Backup"_s)->mapTo(&view, QPoint()).y();
    copySteadily(app, 30);
    turnFrame();
    EXPECT_EQ(textsIn(view).mid(1, 2), (QStringList{u"IMG_2041.heic"_s, u"About 4 minutes left"_s}));
    EXPECT_TRUE(accessibleNames(view).contains(u"About 4 minutes left"_s));
    EXPECT_EQ(button(view, u"Cancel Backup"_s)->mapTo(&view, QPoint()).y(), buttonBefore)
        << "nothing moves when it appears";
    app.engine().cancel();
    turnFrame();
    EXPECT_FALSE(textsIn(view).contains(u"About 4 minutes left"_s));
}

TEST_F(BackupProgressViewTests, aScreenThatIsReachedAgainShowsTheRemainingTimeAtOnce)
{
    AppState& app = makeState();
    app.timeLeft().expect(1'000'000'000);
    app.engine().setIsRunning(true);
    copySteadily(app, 30);
    const BackupProgressView view(app, workspace);
    EXPECT_TRUE(textsIn(view).contains(u"About 4 minutes left"_s));
}

TEST_F(BackupProgressViewTests, beforeTheFirstFileItIsScanning)
{
    AppState& app = makeState();
    app.engine().setIsRunning(true);
    const BackupProgressView view(app, workspace);
    EXPECT_EQ(textsIn(view).mid(0, 2), (QStringList{u"Backing up to …"_s, u"Scanning files…"_s}));
    EXPECT_EQ(view.findChild<RingProgress*>()->centerText(), u"0%"_s);
}

TEST_F(BackupProgressViewTests, theRingStaysAtHundredPercentWhileTheRunContinues)
{
    AppState& app = makeState();
    app.engine().setIsRunning(true);
    BackupProgress progress = halfway();
    progress.filesSkipped = 500;
    app.engine().setProgress(progress);
    const BackupProgressView view(app, workspace);
    EXPECT_EQ(view.findChild<RingProgress*>()->centerText(), u"100%"_s);
    EXPECT_EQ(view.findChild<RingProgress*>()->fraction(), 1.0);
    EXPECT_NE(view.findChild<BackupRunningPanel*>(), nullptr);
}

TEST_F(BackupProgressViewTests, thePercentageIsCutAndNotRounded)
{
    AppState& app = makeState();
    app.engine().setIsRunning(true);
    BackupProgress progress;
    progress.filesCopied = 1'999;
    progress.totalFilesEstimate = 2'000;
    app.engine().setProgress(progress);
    const BackupProgressView view(app, workspace);
    EXPECT_EQ(view.findChild<RingProgress*>()->centerText(), u"99%"_s);
}

TEST_F(BackupProgressViewTests, cancelAsksTheEngineToStop)
{
    AppState& app = makeState();
    app.engine().setIsRunning(true);
    BackupProgressView view(app, workspace);
    show(view);
    button(view, u"Cancel Backup"_s)->click();
    EXPECT_TRUE(app.engine().isCancelled());
    turnFrame();
    EXPECT_FALSE(button(view, u"Cancel Backup"_s)->isEnabled());
}

TEST_F(BackupProgressViewTests, aRunThatHasNotEndedYetIsShownAsCancelling)
{
    AppState& app = makeState();
    app.engine().setIsRunning(true);
    BackupProgressView view(app, workspace);
    show(view);
    EXPECT_FALSE(textsIn(view).contains(u"Cancelling..."_s));
    const int buttonBefore = button(view, u"Cancel Backup"_s)->x();
    button(view, u"Cancel Backup"_s)->click();
    turnFrame();
    EXPECT_TRUE(textsIn(view).contains(u"Cancelling..."_s));
    EXPECT_TRUE(accessibleNames(view).contains(u"Cancelling..."_s));
    EXPECT_EQ(button(view, u"Cancel Backup"_s)->x(), buttonBefore) << "the text appears beside it";
    app.engine().setIsRunning(false);
    turnFrame();
    EXPECT_FALSE(textsIn(view).contains(u"Cancelling..."_s));
}

TEST_F(BackupProgressViewTests, aCancelIsShownWhileASourceHangs)
{
    mac.writeFile("Users/mira/Documents/a.txt", "a");
    HangingSources sources(mac.root());
    const FileManagerGuard guard(sources);
    AppState& app = makeState();
    app.setSelectedDestination(driveDestination());
    BackupProgressView view(app, workspace);
    show(view);
    ASSERT_TRUE(app.confirmBackup());
    sources.waitUntilReached();
    turnFrame();
    button(view, u"Cancel Backup"_s)->click();
    turnUntil([&] { return textsIn(view).contains(u"Cancelling..."_s); });
    EXPECT_TRUE(app.engine().isRunning());
    sources.letGo();
    turnUntil([&] { return view.findChild<BackupFinishedPanel*>() != nullptr; });
    EXPECT_EQ(app.lastReport()->filesCopied, 0);
    EXPECT_FALSE(textsIn(view).contains(u"Cancelling..."_s));
}

TEST_F(BackupProgressViewTests, aCancelledBackupIsCalledSoUntilTheNextOneStarts)
{
    AppState& app = makeState(sampleReport());
    app.engine().setIsRunning(true);
    BackupProgressView view(app, workspace);
    show(view);
    EXPECT_FALSE(textsIn(view).contains(cancelledText));
    app.engine().cancel();
    turnFrame();
    EXPECT_EQ(textsIn(view).first(), cancelledText);
    app.engine().setIsRunning(false);
    turnFrame();
    EXPECT_EQ(textsIn(view).mid(0, 2), (QStringList{cancelledText, u"Backup Complete"_s}));
    EXPECT_EQ(shownSymbols(view).first(), u"exclamationmark.triangle.fill"_s);
    const BackupProgressView later(app, workspace);
    EXPECT_EQ(textsIn(later).first(), cancelledText);
    makeSmallBackup(app);
    ASSERT_TRUE(app.confirmBackup());
    turnUntil([&] { return !app.engine().isRunning(); });
    turnFrame();
    EXPECT_FALSE(textsIn(view).contains(cancelledText));
}

TEST_F(BackupProgressViewTests, aScreenReaderFindsThatTheBackupWasCancelled)
{
    AppState& app = makeState(sampleReport());
    app.engine().setIsRunning(true);
    BackupProgressView view(app, workspace);
    show(view);
    app.engine().cancel();
    turnFrame();
    EXPECT_TRUE(accessibleNames(view).contains(cancelledText));
    app.engine().setIsRunning(false);
    turnFrame();
    EXPECT_TRUE(accessibleNames(view).contains(cancelledText));
    EXPECT_TRUE(accessibleNames(view).contains(u"Backup Complete"_s));
}

TEST_F(BackupProgressViewTests, theNameIsThatOfTheRunningBackupsDestination)
{
    AppState& app = makeState();
    makeSmallBackup(app);
    ASSERT_TRUE(app.confirmBackup());
    app.setSelectedDestination(BackupDestination{QUuid::createUuid(), mac.makeFolder("Volumes/Other")});
    const BackupProgressView view(app, workspace);
    EXPECT_EQ(textsIn(view).first(), u"Backing up to Anchor"_s);
    app.setSelectedDestination(std::nullopt);
    const BackupProgressView withoutDestination(app, workspace);
    EXPECT_EQ(textsIn(withoutDestination).first(), u"Backing up to …"_s);
    turnUntil([&] { return !app.engine().isRunning(); });
}

TEST_F(BackupProgressViewTests, showsAFinishedBackup)
{
    AppState& app = makeState(sampleReport());
    const BackupProgressView view(app, workspace);
    EXPECT_EQ(textsIn(view), (QStringList{u"Backup Complete"_s, u"Files Copied"_s, u"1234"_s,
                                          u"Data Copied"_s, u"2.5 MB"_s, u"Skipped"_s, u"5"_s,
                                          u"Files backed up to:"_s, sampleReport().personalFilesPath}));
    const QStringList symbols = shownSymbols(view);
    for (const QString& icon :
         {u"checkmark.seal.fill"_s, u"doc.fill"_s, u"internaldrive"_s, u"minus.circle"_s, u"folder.fill"_s})
        EXPECT_TRUE(symbols.contains(icon)) << icon.toStdString();
    EXPECT_TRUE(accessibleNames(view).contains(u"Files Copied 1234"_s));
    EXPECT_EQ(button(view, u"Open Personal Files in Finder"_s)->symbol(), u"folder.badge.magnifyingglass"_s);
}

TEST_F(BackupProgressViewTests, showsABackupThatFinishedWithWarnings)
{
    BackupReport report = sampleReport();
    report.errors = {u"Skip a"_s};
    AppState& app = makeState(report);
    const BackupProgressView view(app, workspace);
    EXPECT_EQ(textsIn(view).first(), u"Backup Finished with Warnings"_s);
    EXPECT_TRUE(shownSymbols(view).contains(u"exclamationmark.triangle.fill"_s));
}

TEST_F(BackupProgressViewTests, theButtonsOfAFinishedBackupOpenFilesAndScreens)
{
    BackupReport report = sampleReport();
    const FileURL folder = mac.makeFolder("Volumes/Anchor/Personal Files");
    report.personalFilesPath = folder.path();
    AppState& app = makeState(report);
    const BackupProgressView view(app, workspace);
    button(view, u"Open Personal Files in Finder"_s)->click();
    EXPECT_EQ(workspace.opened, QStringList{folder.path()});
    button(view, u"View Full Report"_s)->click();
    EXPECT_EQ(app.selectedScreen(), Screen::backupReport);
    button(view, u"Back to Dashboard"_s)->click();
    EXPECT_EQ(app.selectedScreen(), Screen::dashboard);
}

TEST_F(BackupProgressViewTests, followsARealBackupToItsEnd)
{
    AppState& app = makeState();
    makeSmallBackup(app);
    BackupProgressView view(app, workspace);
    show(view);
    ASSERT_TRUE(app.confirmBackup());
    turnUntil([&] { return view.findChild<BackupFinishedPanel*>() != nullptr; });
    turnFrame();
    EXPECT_EQ(textsIn(view).mid(0, 3), (QStringList{u"Backup Complete"_s, u"Files Copied"_s, u"2"_s}));
    EXPECT_TRUE(textsIn(view).contains(u"2 KB"_s));
    EXPECT_TRUE(accessibleNames(view).contains(u"Backup Complete"_s));
    button(view, u"Open Personal Files in Finder"_s)->click();
    ASSERT_EQ(workspace.opened.size(), 1);
    EXPECT_EQ(TestMac::read(FileURL::fromPath(workspace.opened.first() + u"/Documents/b.txt"_s)),
              QByteArray(500, 'b'));
}

TEST_F(BackupProgressViewTests, leavingTheScreenDoesNotAffectTheRun)
{
    for (int i = 0; i < 200; ++i)
        mac.writeFile("Users/mira/Documents/" + QByteArray::number(i), "x");
    AppState& app = makeState();
    app.setSelectedDestination(driveDestination());
    auto view = std::make_unique<BackupProgressView>(app, workspace);
    show(*view);
    ASSERT_TRUE(app.confirmBackup());
    view.reset();
    turnUntil([&] { return app.lastReport().has_value(); });
    EXPECT_EQ(app.lastReport()->filesCopied, 200);
    EXPECT_FALSE(app.engine().isCancelled());
    const BackupProgressView again(app, workspace);
    EXPECT_TRUE(textsIn(again).contains(u"200"_s));
}

TEST_F(BackupProgressViewTests, theRingIsAnimatedOverThreeTenthsOfASecond)
{
    Theme::instance().setMotionReduced(false);
    AnimationClock clock;
    AppState& app = makeState();
    app.engine().setIsRunning(true);
    BackupProgressView view(app, workspace);
    show(view);
    auto* ring = view.findChild<RingProgress*>();
    const QImage empty = pictureOf(*ring);
    app.engine().setProgress(halfway());
    turnFrame();
    clock.advance(150);
    const QImage between = pictureOf(*ring);
    EXPECT_NE(between, empty);
    clock.advance(149);
    const QImage almost = pictureOf(*ring);
    EXPECT_NE(almost, between);
    clock.advance(1);
    const QImage full = pictureOf(*ring);
    clock.advance(1'000);
    EXPECT_EQ(pictureOf(*ring), full);
}

TEST_F(BackupProgressViewTests, threeHundredThousandSignalsAreDrawnOncePerFrame)
{
    AppState& app = makeState();
    app.engine().setIsRunning(true);
    BackupProgressView view(app, workspace);
    show(view);
    app.engine().setTotalFilesEstimate(100'000);
    turnFrame();
    const auto* ring = view.findChild<RingProgress*>();
    const WorkTimer timer;
    for (int i = 0; i < 100'000; ++i)
        app.engine().incrementCopied(1, u"a"_s);
    EXPECT_LT(timer.milliseconds(), 5'000);
    EXPECT_EQ(ring->fraction(), 0);
    turnUntil([&] { return ring->fraction() == 1; });
    EXPECT_TRUE(textsIn(view).contains(u"100000"_s));
}

TEST_F(BackupProgressViewTests, everyControlHasANameAndIsReachedByTab)
{
    AppState& app = makeState(sampleReport());
    BackupProgressView view(app, workspace);
    show(view);
    expectEveryControlIsNamedAndReachedByTab(view);
    app.engine().setIsRunning(true);
    turnFrame();
    expectEveryControlIsNamedAndReachedByTab(view);
}

} // namespace keelbright::testing

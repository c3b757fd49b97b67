#include "Keelbright/screens/DashboardView.h"

#include "Keelbright/screens/shared/HealthCard.h"
#include "Keelbright/widgets/BackupCards.h"
#include "Keelbright/widgets/Progress.h"
#include "tests/screens/dashboard/DashboardFixture.h"
#include "tests/support/AnimationClock.h"
#include "tests/support/WorkTimer.h"

#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QtTest/qtestspontaneevent.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

TEST_F(DashboardViewTests, theMainButtonAndThePanelFollowTheEngine)
{
    AppState& app = makeState();
    DashboardView view(app);
    show(view);
    EXPECT_EQ(button(view, u"Backup Now"_s)->kind(), Button::Kind::primary);
    app.engine().setIsRunning(true);
    turnFrame();
    EXPECT_EQ(button(view, u"Cancel Backup"_s)->symbol(), QString());
    EXPECT_FALSE(app.engine().isCancelled());
    app.engine().setIsRunning(false);
    turnFrame();
    EXPECT_EQ(button(view, u"Backup Now"_s)->symbol(), u"arrow.clockwise"_s);
    EXPECT_EQ(app.selectedScreen(), Screen::dashboard);
}

TEST_F(DashboardViewTests, aRunningBackupShowsItsPanelAndTheCancelButton)
{
    AppState& app = makeState();
    DashboardView view(app);
    show(view);
    app.engine().setIsRunning(true);
    BackupProgress progress;
    progress.currentFile = u"IMG_2041.heic"_s;
    progress.filesCopied = 29;
    progress.filesSkipped = 1;
    progress.totalFilesEstimate = 100;
    progress.bytesCopied = 2'500'000;
    app.engine().setProgress(progress);
    turnFrame();
    EXPECT_EQ(textsOf<ProgressPanel>(view), (QStringList{u"IMG_2041.heic"_s, u"30%"_s, u"Backing Up…"_s,
                                                         u"29 copied"_s, u"1 skipped"_s, u"2.5 MB"_s}));
    button(view, u"Cancel Backup"_s)->click();
    EXPECT_TRUE(app.engine().isCancelled());
    turnFrame();
    EXPECT_FALSE(button(view, u"Cancel Backup"_s)->isEnabled());

    app.engine().setIsRunning(false);
    turnFrame();
    EXPECT_EQ(textsOf<ProgressPanel>(view), QStringList());
    EXPECT_TRUE(button(view, u"Backup Now"_s)->isEnabled());
}

TEST_F(DashboardViewTests, thePanelIsScrolledIntoViewWhenARunStarts)
{
    AppState& app = makeState();
    DashboardView view(app);
    show(view);
    view.resize(620, 400);
    turnFrame();
    app.engine().setIsRunning(true);
    turnUntil([&] {
        const auto* panel = view.findChild<ProgressPanel*>();
        return panel->isVisible() && panel->visibleRegion().boundingRect() == panel->rect();
    });
    view.verticalScrollBar()->triggerAction(QAbstractSlider::SliderToMinimum);
    app.engine().incrementCopied(1, u"a"_s);
    turnFrame();
    EXPECT_EQ(view.verticalScrollBar()->value(), 0) << "it was shown before";
}

TEST_F(DashboardViewTests, theScoreCountsABackupThatHasJustEnded)
{
    // A backup takes its time from the computer.
    mac.setNow(QDateTime::currentDateTimeUtc());
    mac.writeFile("Users/mira/Documents/a.txt", "a");
    AppState& app = makeState();
    app.setSelectedDestination(driveDestination());
    DashboardView view(app);
    show(view);
    turnUntil([&] { return app.healthScore().has_value(); });
    EXPECT_EQ(app.healthScore()->backupPoints, 0);
    ASSERT_TRUE(app.confirmBackup());
    turnUntil([&] { return app.healthScore()->backupPoints == 40; });
    turnFrame();
    EXPECT_TRUE(textsIn(view).contains(u"Backup  40/40"_s));
    EXPECT_EQ(card(view, u"Last Backup"_s)->insight().value, u"Today"_s);
}

TEST_F(DashboardViewTests, thePanelLeadsToTheProgressOfTheBackup)
{
    AppState& app = makeState();
    DashboardView view(app);
    show(view);
    app.engine().setIsRunning(true);
    turnFrame();
    auto* panel = view.findChild<ProgressPanel*>();
    EXPECT_EQ(panel->accessibleName(), u"Backing Up…"_s);
    EXPECT_EQ(panel->accessibleDescription(), u"Show Backup Progress"_s);
    EXPECT_EQ(accessibleRole(panel), QAccessible::Button);
    QTest::mouseClick(panel, Qt::LeftButton);
    EXPECT_EQ(app.selectedScreen(), Screen::backupProgress);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Space}) {
        app.setSelectedScreen(Screen::dashboard);
        panel->setFocus(Qt::TabFocusReason);
        QTest::keyClick(panel, key);
        EXPECT_EQ(app.selectedScreen(), Screen::backupProgress);
    }
}

TEST_F(DashboardViewTests, thePanelSlidesInAndOutUnlessMotionIsReduced)
{
    Theme::instance().setMotionReduced(false);
    AnimationClock clock;
    AppState& app = makeState();
    DashboardView view(app);
    show(view);
    const auto* panel = view.findChild<ProgressPanel*>();
    app.engine().setIsRunning(true);
    turnFrame();
    clock.advance(100);
    EXPECT_TRUE(panel->isVisible());
    EXPECT_NE(panel->graphicsEffect(), nullptr);
    clock.advance(120);
    EXPECT_EQ(panel->graphicsEffect(), nullptr);
    turnUntil([&] { return panel->y() == 0; });
    app.engine().setIsRunning(false);
    turnFrame();
    clock.advance(100);
    EXPECT_TRUE(panel->isVisible());
    EXPECT_NE(panel->graphicsEffect(), nullptr);
    clock.advance(120);
    EXPECT_FALSE(panel->isVisible());
}

TEST_F(DashboardViewTests, unchangedPartsKeepTheirWidgets)
{
    AppState& app = makeState();
    app.setSelectedDestination(driveDestination());
    DashboardView view(app);
    show(view);
    app.setAlerts({RiskAlert(u"First"_s, u"One."_s, RiskAlert::Severity::low)});
    turnFrame();
    const auto rows = view.findChildren<SourceRowCard*>();
    const auto alertCards = view.findChildren<RiskAlertCard*>();
    app.engine().setIsRunning(true);
    app.engine().incrementCopied(1, u"a"_s);
    app.setSelectedDestination(driveDestination());
    turnFrame();
    EXPECT_EQ(view.findChildren<SourceRowCard*>(), rows);
    EXPECT_EQ(view.findChildren<RiskAlertCard*>(), alertCards);
}

TEST_F(DashboardViewTests, threeHundredThousandSignalsAreDrawnOncePerFrame)
{
    AppState& app = makeState();
    DashboardView view(app);
    show(view);
    app.engine().setIsRunning(true);
    turnFrame();
    auto* bar = view.findChild<ProgressPanel*>()->findChild<BarProgress*>();
    app.engine().setTotalFilesEstimate(100'000);
    const WorkTimer timer;
    for (int i = 0; i < 100'000; ++i)
        app.engine().incrementCopied(1, u"a"_s);
    // Nothing was drawn in this turn of the event loop, however many signals there were.
    EXPECT_EQ(bar->fraction(), 0);
    const qint64 announced = timer.milliseconds();
    RecordProperty("milliseconds", static_cast<int>(announced));
    EXPECT_LT(announced, 5'000);
    turnUntil([&] { return bar->fraction() == 1; });
    EXPECT_TRUE(textsIn(view).contains(u"100%"_s));
}

TEST_F(DashboardViewTests, aHiddenDashboardRefreshesNothing)
{
    AppState& app = makeState();
    const DashboardView view(app);
    waitForBackgroundWork();
    turnFrame();
    EXPECT_EQ(app.healthScore(), std::nullopt);
    EXPECT_FALSE(app.isAppScanning());
    EXPECT_EQ(textsOf<HealthCard>(view), QStringList());
}

TEST_F(DashboardViewTests, eachAppearanceRefreshesTheHealthScore)
{
    AppState& app = makeState();
    DashboardView view(app);
    const QSignalSpy scores(&app, &AppState::healthScoreChanged);
    const QSignalSpy scans(&app, &AppState::isAppScanningChanged);
    show(view);
    turnUntil([&] { return scores.count() == 1 && scans.count() == 2; });
    view.hide();
    view.show();
    turnUntil([&] { return scores.count() == 2 && scans.count() == 4; });
}

TEST_F(DashboardViewTests, knownApplicationsAreNotScannedAgain)
{
    AppState& app = makeState();
    app.setScannedApps({AppInfo(AppFacts{.name = u"Editor"_s}, app.now())});
    const QSignalSpy scans(&app, &AppState::isAppScanningChanged);
    DashboardView view(app);
    show(view);
    turnUntil([&] { return app.healthScore().has_value(); });
    EXPECT_EQ(scans.count(), 0);
    EXPECT_EQ(card(view, u"Apps"_s)->insight().value, u"1 apps"_s);
}

TEST_F(DashboardViewTests, aRestoredWindowRefreshesNothing)
{
    AppState& app = makeState();
    DashboardView view(app);
    QShowEvent event;
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(&view, &event);
    waitForBackgroundWork();
    turnFrame();
    EXPECT_EQ(app.healthScore(), std::nullopt);
}

TEST_F(DashboardViewTests, showsTheScoreOnceItIsComputed)
{
    AppState& app = makeState();
    DashboardView view(app);
    EXPECT_EQ(textsOf<HealthCard>(view), QStringList());
    show(view);
    turnUntil([&] { return app.healthScore().has_value(); });
    turnFrame();
    const HealthScore& score = *app.healthScore();
    EXPECT_EQ(textsOf<HealthCard>(view), (QStringList{HealthScore::headline(score.grade), score.detail,
                                                      u"Backup  %1/40"_s.arg(score.backupPoints),
                                                      u"Storage  %1/30"_s.arg(score.diskPoints),
                                                      u"Junk  %1/30"_s.arg(score.junkPoints)}));
    EXPECT_EQ(card(view, u"Storage"_s)->insight(), Insights::storage(score));
    EXPECT_EQ(card(view, u"Junk"_s)->insight(), Insights::junk(score));
}

TEST_F(DashboardViewTests, recalculatesTheScoreOnDemand)
{
    AppState& app = makeState();
    DashboardView view(app);
    show(view);
    turnUntil([&] { return app.healthScore().has_value(); });
    turnFrame();
    const QSignalSpy scores(&app, &AppState::healthScoreChanged);
    button(view, u"Recalculate health score"_s)->click();
    turnUntil([&] { return scores.count() == 1; });
}

} // namespace keelbright::testing

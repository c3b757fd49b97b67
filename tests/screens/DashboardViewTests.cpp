#include "Keelbright/screens/DashboardView.h"

#include "Keelbright/screens/dashboard/InsightCard.h"
#include "Keelbright/screens/dashboard/ProtectedFoldersCard.h"
#include "Keelbright/screens/shared/HealthCard.h"
#include "Keelbright/screens/shared/PageSection.h"
#include "Keelbright/widgets/BackupCards.h"
#include "Keelbright/widgets/Headers.h"
#include "Keelbright/widgets/Progress.h"
#include "Keelbright/widgets/SymbolLabel.h"
#include "tests/screens/dashboard/DashboardFixture.h"
#include "tests/support/WorkTimer.h"

#include <QScrollBar>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

TEST_F(DashboardViewTests, greetsByTheLocalHour)
{
    AppState& app = makeState();
    const QList<std::pair<QTime, QString>> greetings{
        {QTime(0, 0), u"Working late?"_s},    {QTime(4, 59), u"Working late?"_s},
        {QTime(5, 0), u"Good morning."_s},    {QTime(11, 59), u"Good morning."_s},
        {QTime(12, 0), u"Good afternoon."_s}, {QTime(16, 59), u"Good afternoon."_s},
        {QTime(17, 0), u"Good evening."_s},   {QTime(20, 59), u"Good evening."_s},
        {QTime(21, 0), u"Working late?"_s},   {QTime(23, 59), u"Working late?"_s},
    };
    for (const auto& [time, greeting] : greetings) {
        setLocalTime(time.hour(), time.minute());
        const DashboardView view(app);
        EXPECT_EQ(textsIn(view).first(), greeting) << time.toString().toStdString();
    }
}

TEST_F(DashboardViewTests, updatesTheGreetingWhenItAppearsAgain)
{
    setLocalTime(11, 59);
    DashboardView view(makeState());
    show(view);
    EXPECT_EQ(textsIn(view).first(), u"Good morning."_s);
    view.hide();
    setLocalTime(12, 0);
    view.show();
    EXPECT_EQ(textsIn(view).first(), u"Good afternoon."_s);
}

TEST_F(DashboardViewTests, withoutAnyDataThereAreOnlyHeaderAndInsights)
{
    const DashboardView view(makeState());
    EXPECT_EQ(textsIn(view),
              (QStringList{u"Good morning."_s, u"Here's how your Mac is doing."_s, u"Storage"_s, u"—"_s,
                           u"Scanning…"_s, u"Last Backup"_s, u"Never"_s, u"No backup yet"_s, u"Junk"_s,
                           u"—"_s, u"cached files found"_s, u"Apps"_s, u"—"_s, u"Tap to analyse"_s}));
    EXPECT_EQ(button(view, u"Backup Now"_s)->symbol(), u"arrow.clockwise"_s);
    EXPECT_EQ(button(view, u"Quick Clean"_s)->symbol(), u"sparkles"_s);
    EXPECT_EQ(button(view, u"Quick Clean"_s)->toolTip(), u"Clean safe junk items with one tap"_s);
}

TEST_F(DashboardViewTests, thePartsAreInOrderFromTopToBottom)
{
    AppState& app = makeState(sampleReport());
    app.setSelectedDestination(driveDestination());
    app.setAlerts({RiskAlert(u"First"_s, u"One."_s, RiskAlert::Severity::low)});
    app.engine().setIsRunning(true);
    DashboardView view(app);
    show(view);
    const QList<int> tops{placeOf<PageHeader>(view).y(),   placeOf<HealthCard>(view).y(),
                          placeOf<InsightCard>(view).y(),  placeOf<ProtectedFoldersCard>(view).y(),
                          placeOf<PageSection>(view).y(),  placeOf<RiskAlertCard>(view).y(),
                          placeOf<ProgressPanel>(view).y()};
    for (qsizetype i = 1; i < tops.size(); ++i)
        EXPECT_LT(tops.at(i - 1), tops.at(i)) << "part " << i;
}

TEST_F(DashboardViewTests, theInsightsAreInOrder)
{
    const DashboardView view(makeState());
    QStringList titles;
    QStringList symbols;
    for (const auto* insight : view.findChildren<InsightCard*>()) {
        titles.append(insight->insight().title);
        symbols.append(insight->findChild<Tile*>()->key());
        EXPECT_EQ(insight->findChild<Tile*>()->colorRole(), insight->insight().color);
    }
    EXPECT_EQ(titles, (QStringList{u"Storage"_s, u"Last Backup"_s, u"Junk"_s, u"Apps"_s}));
    EXPECT_EQ(symbols, (QStringList{u"internaldrive.fill"_s, u"arrow.clockwise.circle.fill"_s,
                                    u"trash.fill"_s, u"app.badge.checkmark"_s}));
}

TEST_F(DashboardViewTests, theSymbolOfTheLastBackupHasTheColourOfItsResult)
{
    const auto colorOf = [this](const BackupReport& report, const QString& key) {
        AppState& app = makeState(report);
        app.setSelectedDestination(driveDestination());
        const DashboardView view(app);
        for (const auto* symbol : view.findChildren<Tile*>()) {
            if (symbol->key() == key)
                return symbol->colorRole();
        }
        return Role::window;
    };
    BackupReport report = sampleReport();
    EXPECT_EQ(colorOf(report, u"checkmark.circle.fill"_s), Role::green);
    report.errors = {u"Skip a"_s};
    EXPECT_EQ(colorOf(report, u"exclamationmark.circle.fill"_s), Role::orange);
}

TEST_F(DashboardViewTests, quickCleanOnlyOpensTheJunkCleaner)
{
    AppState& app = makeState();
    const DashboardView view(app);
    button(view, u"Quick Clean"_s)->click();
    EXPECT_EQ(app.selectedScreen(), Screen::junkCleaner);
}

TEST_F(DashboardViewTests, backupNowWithoutADestinationRaisesAnAlert)
{
    AppState& app = makeState();
    DashboardView view(app);
    show(view);
    button(view, u"Backup Now"_s)->click();
    turnFrame();
    EXPECT_EQ(app.selectedScreen(), Screen::dashboard);
    EXPECT_EQ(textsOf<PageSection>(view),
              (QStringList{u"Attention"_s, u"No Destination Selected"_s,
                           u"Go to Settings and choose a backup destination first."_s}));
}

TEST_F(DashboardViewTests, anAlertIsScrolledIntoView)
{
    AppState& app = makeState();
    DashboardView view(app);
    show(view);
    view.resize(620, 400);
    turnFrame();
    ASSERT_GT(view.verticalScrollBar()->maximum(), 0);
    button(view, u"Backup Now"_s)->click();
    turnUntil([&] {
        const auto* alert = view.findChild<RiskAlertCard*>();
        return alert != nullptr && !alert->visibleRegion().isEmpty() &&
               alert->visibleRegion().boundingRect() == alert->rect();
    });
    view.verticalScrollBar()->triggerAction(QAbstractSlider::SliderToMinimum);
    app.setSelectedDestination(driveDestination());
    turnFrame();
    EXPECT_EQ(view.verticalScrollBar()->value(), 0) << "the alert is the same";
}

TEST_F(DashboardViewTests, backupNowOpensThePreflightScreen)
{
    AppState& app = makeState();
    app.setSelectedDestination(driveDestination());
    const DashboardView view(app);
    button(view, u"Backup Now"_s)->click();
    EXPECT_EQ(app.selectedScreen(), Screen::preflight);
}

TEST_F(DashboardViewTests, showsAlertsInOrderAndRemovesThem)
{
    AppState& app = makeState();
    DashboardView view(app);
    show(view);
    app.setAlerts({RiskAlert(u"First"_s, u"One."_s, RiskAlert::Severity::low),
                   RiskAlert(u"Second"_s, u"Two."_s, RiskAlert::Severity::medium)});
    turnFrame();
    EXPECT_EQ(textsOf<PageSection>(view),
              (QStringList{u"Attention"_s, u"First"_s, u"One."_s, u"Second"_s, u"Two."_s}));
    app.setAlerts({});
    turnFrame();
    EXPECT_EQ(textsOf<PageSection>(view), QStringList());
}

TEST_F(DashboardViewTests, showsFoldersAndDestinationWithTheirActions)
{
    AppState& app = makeState();
    app.setSelectedDestination(driveDestination());
    const DashboardView view(app);
    const QString home = mac.home().path();
    EXPECT_EQ(textsOf<ProtectedFoldersCard>(view),
              (QStringList{u"Protected Folders"_s, u"Anchor"_s, u"Desktop"_s, home + u"/Desktop"_s,
                           u"Documents"_s, home + u"/Documents"_s, u"Pictures"_s, home + u"/Pictures"_s}));
    EXPECT_TRUE(shownSymbols(view).contains(u"externaldrive.fill"_s));
    const FileURL other = mac.makeFolder("Volumes/Other");
    chooser.willChoose({other});
    button(view, u"Change"_s)->click();
    EXPECT_EQ(app.selectedDestination()->url, other);
    button(view, u"Manage"_s)->click();
    EXPECT_EQ(app.selectedScreen(), Screen::protectedItems);
}

TEST_F(DashboardViewTests, saysBesideTheDestinationsNameThatItsDriveIsAway)
{
    AppState& app = makeState();
    app.setSelectedDestination(driveDestination());
    DashboardView view(app);
    show(view);
    EXPECT_FALSE(textsIn(view).contains(u"Not connected"_s));
    app.setIsDestinationAway(true);
    turnUntil([&] { return textsIn(view).contains(u"Not connected"_s); });
    app.setIsDestinationAway(false);
    turnUntil([&] { return !textsIn(view).contains(u"Not connected"_s); });
}

TEST_F(DashboardViewTests, theTextsOfLinksEndWhereTheFrameOfAButtonEnds)
{
    AppState& app = makeState(sampleReport());
    app.setSelectedDestination(driveDestination());
    DashboardView view(app);
    show(view);
    turnFrame();
    const auto rightEdge = [&view](const QString& name) {
        const Button* shown = button(view, name);
        return shown->mapTo(&view, QPoint(shown->width(), 0)).x();
    };
    const int frame = rightEdge(u"Change"_s);
    for (const QString& link : {u"Manage"_s, u"View Report"_s})
        EXPECT_EQ(rightEdge(link) - Button::linkPadding, frame) << link.toStdString();
}

TEST_F(DashboardViewTests, followsAChangeOfTheDestination)
{
    AppState& app = makeState();
    DashboardView view(app);
    show(view);
    EXPECT_FALSE(textsIn(view).contains(u"Protected Folders"_s));
    app.setSelectedDestination(driveDestination());
    turnFrame();
    EXPECT_TRUE(textsIn(view).contains(u"Anchor"_s));
    app.setSelectedDestination(std::nullopt);
    turnFrame();
    EXPECT_FALSE(textsIn(view).contains(u"Protected Folders"_s));
}

TEST_F(DashboardViewTests, countsTheFoldersAfterTheThird)
{
    AppState& app = makeState();
    app.setSelectedDestination(driveDestination());
    DashboardView view(app);
    show(view);
    EXPECT_EQ(view.findChildren<SourceRowCard*>().size(), 3);
    EXPECT_EQ(textsIn(view).filter(u"more folders"_s), QStringList());
    app.addCustomSource(mac.makeFolder("Users/mira/Code"));
    turnFrame();
    EXPECT_EQ(view.findChildren<SourceRowCard*>().size(), 3);
    EXPECT_EQ(textsIn(view).filter(u"more folders"_s), QStringList{u"+ 1 more folders"_s});
    app.addCustomSource(mac.makeFolder("Users/mira/Letters"));
    turnFrame();
    EXPECT_EQ(textsIn(view).filter(u"more folders"_s), QStringList{u"+ 2 more folders"_s});
    app.resetToDefaults();
    turnFrame();
    EXPECT_EQ(textsIn(view).filter(u"more folders"_s), QStringList());
}

TEST_F(DashboardViewTests, showsThatTheLastBackupSucceeded)
{
    AppState& app = makeState(sampleReport());
    app.setSelectedDestination(driveDestination());
    const DashboardView view(app);
    EXPECT_TRUE(textsIn(view).contains(u"Last backup completed successfully"_s));
    EXPECT_TRUE(textsIn(view).contains(u"1234 files · 2.5 MB"_s));
    EXPECT_TRUE(shownSymbols(view).contains(u"checkmark.circle.fill"_s));
    button(view, u"View Report"_s)->click();
    EXPECT_EQ(app.selectedScreen(), Screen::backupReport);
}

TEST_F(DashboardViewTests, showsThatTheLastBackupHadWarnings)
{
    BackupReport report = sampleReport();
    report.errors = {u"Skip a"_s};
    AppState& app = makeState(report);
    app.setSelectedDestination(driveDestination());
    const DashboardView view(app);
    EXPECT_TRUE(textsIn(view).contains(u"Last backup had warnings"_s));
    EXPECT_TRUE(shownSymbols(view).contains(u"exclamationmark.circle.fill"_s));
}

TEST_F(DashboardViewTests, eachInsightOpensItsScreen)
{
    AppState& app = makeState();
    const DashboardView view(app);
    const QList<std::pair<QString, Screen>> ways{
        {u"Storage"_s, Screen::storageBrowser},
        {u"Last Backup"_s, Screen::backupReport},
        {u"Junk"_s, Screen::junkCleaner},
        {u"Apps"_s, Screen::appManager},
    };
    for (const auto& [title, screen] : ways) {
        card(view, title)->click();
        EXPECT_EQ(app.selectedScreen(), screen) << title.toStdString();
    }
    EXPECT_EQ(shownSymbols(view).count(u"chevron.right"_s), 4);
}

TEST_F(DashboardViewTests, showsTheAgeOfTheLastBackup)
{
    AppState& app = makeState(sampleReport());
    mac.setNow(sampleReport().completedAt.addDays(3));
    const DashboardView view(app);
    const InsightCard* lastBackup = card(view, u"Last Backup"_s);
    EXPECT_EQ(lastBackup->insight().value, u"3 days ago"_s);
    EXPECT_EQ(lastBackup->insight().color, Role::orange);
    EXPECT_EQ(textsIn(*lastBackup),
              (QStringList{u"Last Backup"_s, u"3 days ago"_s, u"Tap to view report"_s}));
    EXPECT_EQ(lastBackup->accessibleName(), u"Last Backup: 3 days ago, Tap to view report"_s);
}

TEST_F(DashboardViewTests, showsWhetherApplicationsAreBeingScanned)
{
    AppState& app = makeState();
    const DashboardView view(app);
    app.setIsAppScanning(true);
    turnFrame();
    EXPECT_EQ(textsIn(*card(view, u"Apps"_s)),
              (QStringList{u"Apps"_s, u"Scanning…"_s, u"Analysing usage…"_s}));
    app.setIsAppScanning(false);
    turnFrame();
    EXPECT_EQ(textsIn(*card(view, u"Apps"_s)), (QStringList{u"Apps"_s, u"—"_s, u"Tap to analyse"_s}));
}

TEST_F(DashboardViewTests, everyControlHasANameAndIsReachedByTab)
{
    AppState& app = makeState(sampleReport());
    app.setSelectedDestination(driveDestination());
    DashboardView view(app);
    show(view);
    expectEveryControlIsNamedAndReachedByTab(view);
}

} // namespace keelbright::testing

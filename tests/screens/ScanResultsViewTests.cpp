#include "Keelbright/screens/ScanResultsView.h"

#include "Keelbright/screens/review/ScanReportPanel.h"
#include "Keelbright/widgets/rows/RowListView.h"
#include "tests/screens/shared/ListDriver.h"
#include "tests/screens/shared/ScreenTestCase.h"
#include "tests/support/HeldFileManager.h"
#include "tests/support/MadeUpMac.h"

#include <QApplication>
#include <QTest>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

const QStringList idleTexts{
    u"Scan Results"_s, u"Run a full scan to see what can be cleaned up."_s, u"Ready to scan"_s,
    u"Tap Full Scan to check junk files, unused apps, storage pressure, and backup status "
    "all at once."_s};

class ScanResultsViewTests : public ScreenTestCase
{
protected:
    void waitForReport(const QWidget& view)
    {
        turnUntil([&view] { return view.findChild<ScanReportPanel*>()->isVisible(); });
    }

    void scan(const QWidget& view)
    {
        button(view, u"Full Scan"_s)->click();
        turnFrame();
        waitForReport(view);
    }

    /// Every row as a screen reader reads it.
    [[nodiscard]] static QStringList rows(const QWidget& view)
    {
        const RowModel* model = view.findChild<RowListView*>()->rowModel();
        QStringList texts;
        for (int row = 0; row < model->rowCount(); ++row)
            texts.append(model->index(row).data(Qt::AccessibleTextRole).toString());
        return texts;
    }

    static int rowOf(const QWidget& view, const QString& title)
    {
        const RowModel* model = view.findChild<RowListView*>()->rowModel();
        for (int row = 0; row < model->rowCount(); ++row) {
            if (model->index(row).data().toString() == title)
                return row;
        }
        return -1;
    }

    HeldFileManager disk{mac.root()};
    FileManagerGuard guard{disk};
    FileURL trash = mac.home().appending(u".Trash"_s);
    MadeUpMac mira{mac.root(), mac.clock()()};
};

} // namespace

TEST_F(ScanResultsViewTests, isIdleBeforeTheFirstScan)
{
    ScanResultsView view(context());
    show(view);
    EXPECT_EQ(textsIn(view), idleTexts);
    EXPECT_EQ(shownSymbols(view), QStringList{u"magnifyingglass.circle"_s});
    EXPECT_EQ(button(view, u"Full Scan"_s)->symbol(), u"magnifyingglass"_s);
    EXPECT_EQ(button(view, u"Start Full Scan"_s)->symbol(), u"magnifyingglass"_s);
    expectEveryControlIsNamedAndReachedByTab(view);
}

TEST_F(ScanResultsViewTests, showsThatItScansUntilTheReportIsThere)
{
    ScanResultsView view(context());
    show(view);
    disk.holdNextLookAt(trash);
    button(view, u"Start Full Scan"_s)->click();
    ASSERT_TRUE(disk.waitUntilHeld());
    turnFrame();
    EXPECT_EQ(
        textsIn(view),
        (QStringList{u"Scan Results"_s, u"Run a full scan to see what can be cleaned up."_s,
                     u"Scanning your Mac…"_s, u"Checking junk files, apps, storage, and backup health."_s}));
    EXPECT_FALSE(button(view, u"Scanning…"_s)->isEnabled());
    disk.letGo();
    waitForReport(view);
    EXPECT_TRUE(button(view, u"Full Scan"_s)->isEnabled());
    EXPECT_TRUE(textsIn(view).contains(u"Last scanned Mar 2, 2026, 10:05\x202F"
                                       u"AM"_s));
    expectEveryControlIsNamedAndReachedByTab(view);
}

TEST_F(ScanResultsViewTests, anEmptyMachineWithABackupOfTodayIsFine)
{
    BackupReport report = sampleReport();
    report.completedAt = mac.clock()();
    (void)makeState(report);
    ScanResultsView view(context());
    show(view);
    scan(view);
    QStringList findings = rows(view);
    // The finding depends on how full the disk of this computer is.
    if (const int storage = rowOf(view, u"STORAGE"_s); storage >= 0)
        findings.remove(storage, 2);
    EXPECT_EQ(findings,
              (QStringList{u"BACKUP"_s, u"Backup is current, Last backed up today., low severity"_s}));
    for (const QString& text : textsIn(view))
        EXPECT_FALSE(text.startsWith(u"You can free up "_s));
}

TEST_F(ScanResultsViewTests, findsJunkAndUnusedApplicationsOnAUsedMachine)
{
    mira.populate();
    ScanResultsView view(context());
    show(view);
    scan(view);
    EXPECT_EQ(rows(view).first(2),
              (QStringList{u"BACKUP"_s,
                           u"No backup on record, Your files have never been backed up., high severity"_s}));
    EXPECT_TRUE(rows(view).contains(u"iOS Device Backups, 1 items taking up 5.3 GB, 5.3 GB, high severity"_s))
        << rows(view).join(u'\n').toStdString();
    EXPECT_GE(rowOf(view, u"Old Scanner"_s), 0);
    EXPECT_TRUE(view.findChild<ScanReportPanel*>()->accessibleName().endsWith(u" need attention"_s));
}

TEST_F(ScanResultsViewTests, usesTheApplicationsThatAreKnown)
{
    state->setScannedApps({AppInfo({.name = u"Tidewater"_s}, mac.clock()())});
    ScanResultsView view(context());
    show(view);
    scan(view);
    EXPECT_GE(rowOf(view, u"Tidewater"_s), 0);
}

TEST_F(ScanResultsViewTests, aNewScanReplacesThePageUntilItsReportIsThere)
{
    ScanResultsView view(context());
    show(view);
    scan(view);
    disk.holdNextLookAt(trash);
    button(view, u"Full Scan"_s)->click();
    ASSERT_TRUE(disk.waitUntilHeld());
    turnFrame();
    EXPECT_TRUE(textsIn(view).contains(u"Scanning your Mac…"_s));
    EXPECT_FALSE(view.findChild<ScanReportPanel*>()->isVisible());
    // The header still shows the earlier report.
    EXPECT_TRUE(textsIn(view).at(1).startsWith(u"Last scanned "_s));
    disk.letGo();
    waitForReport(view);
}

TEST_F(ScanResultsViewTests, aNewVisitIsIdleAgain)
{
    {
        ScanResultsView view(context());
        show(view);
        scan(view);
    }
    ScanResultsView again(context());
    show(again);
    EXPECT_EQ(textsIn(again), idleTexts);
}

TEST_F(ScanResultsViewTests, canBeLeftDuringAScan)
{
    {
        ScanResultsView view(context());
        show(view);
        disk.holdNextLookAt(trash);
        button(view, u"Full Scan"_s)->click();
        ASSERT_TRUE(disk.waitUntilHeld());
    }
    disk.letGo();
    waitForBackgroundWork();
    settle();
    EXPECT_EQ(state->selectedScreen(), Screen::dashboard);
}

TEST_F(ScanResultsViewTests, theButtonsOfFindingsOpenTheirScreensAndStartNothing)
{
    mira.populate();
    ScanResultsView view(context());
    show(view);
    scan(view);
    RowListView* list = view.findChild<ScanReportPanel*>()->list();
    const auto press = [&](const QString& title, const QString& name) {
        state->setSelectedScreen(Screen::scanResults);
        const int row = rowOf(view, title);
        EXPECT_EQ(list->rowModel()->rowAt(row).actions.first().name, name);
        EXPECT_TRUE(ListDriver(*list).press(row, RowActionId::resolve)) << title.toStdString();
        return state->selectedScreen();
    };
    EXPECT_EQ(press(u"No backup on record"_s, u"Back Up"_s), Screen::dashboard);
    EXPECT_FALSE(state->engine().isRunning());
    EXPECT_TRUE(state->alerts().isEmpty());
    EXPECT_EQ(press(u"iOS Device Backups"_s, u"Fix"_s), Screen::junkCleaner);
    EXPECT_EQ(press(u"Old Scanner"_s, u"Fix"_s), Screen::appManager);
}

TEST_F(ScanResultsViewTests, aFindingWithAUrlOpensIt)
{
    const ScanResultsView view(context());
    const ScanFinding finding{.category = ScanFinding::Category::storage,
                              .title = u"Somewhere"_s,
                              .detail = {},
                              .sizeBytes = 0,
                              .action = ScanFinding::OpenURL{mac.home()},
                              .severity = ScanFinding::Severity::low};
    Q_EMIT view.findChild<ScanReportPanel*>()->findingPressed(finding);
    EXPECT_EQ(workspace.opened, QStringList{mac.home().path()});
    EXPECT_EQ(state->selectedScreen(), Screen::dashboard);
}

TEST_F(ScanResultsViewTests, f5AndControlRScanUnlessAScanRuns)
{
    ScanResultsView view(context());
    show(view);
    disk.holdNextLookAt(trash);
    QTest::keyClick(&view, Qt::Key_F5);
    ASSERT_TRUE(disk.waitUntilHeld());
    const qsizetype looks = disk.looksAt(trash);
    QTest::keyClick(&view, Qt::Key_F5);
    QTest::keyClick(&view, Qt::Key_R, Qt::ControlModifier);
    disk.letGo();
    turnFrame();
    waitForReport(view);
    EXPECT_EQ(disk.looksAt(trash), looks);
    QTest::keyClick(&view, Qt::Key_R, Qt::ControlModifier);
    turnFrame();
    waitForReport(view);
    EXPECT_GT(disk.looksAt(trash), looks);
}

TEST_F(ScanResultsViewTests, theFocusStaysOnTheScreen)
{
    ScanResultsView view(context());
    show(view);
    disk.holdNextLookAt(trash);
    button(view, u"Start Full Scan"_s)->setFocus();
    QTest::keyClick(button(view, u"Start Full Scan"_s), Qt::Key_Space);
    ASSERT_TRUE(disk.waitUntilHeld());
    turnFrame();
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    EXPECT_EQ(QApplication::focusWidget()->accessibleName(), u"Scanning your Mac…"_s);
    disk.letGo();
    waitForReport(view);
    EXPECT_EQ(QApplication::focusWidget(), view.findChild<RowListView*>());
}

} // namespace keelbright::testing

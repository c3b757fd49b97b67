#include "Keelbright/screens/review/ScanReportPanel.h"

#include "Keelbright/screens/review/ScanFindingsModel.h"
#include "Keelbright/widgets/Progress.h"
#include "Keelbright/widgets/rows/RowListView.h"
#include "KeelbrightCore/platform/text/UtcZone.h"
#include "tests/screens/shared/ListDriver.h"
#include "tests/screens/shared/ScreenTestCase.h"
#include "tests/support/WorkTimer.h"

#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

using Category = ScanFinding::Category;
using Severity = ScanFinding::Severity;

class ScanReportPanelTests : public ScreenTestCase
{
protected:
    [[nodiscard]] static ScanFinding finding(Category category, Severity severity, const QString& title)
    {
        return {.category = category,
                .title = title,
                .detail = u"Explained"_s,
                .sizeBytes = 0,
                .action = ScanFinding::NavigateTo{u"Junk Cleaner"_s},
                .severity = severity};
    }

    [[nodiscard]] static FullScanReport report(const QList<Severity>& severities, qint64 reclaimable = 0)
    {
        FullScanReport made;
        made.scannedAt = QDateTime(QDate(2026, 3, 2), QTime(9, 5), utcZone);
        made.totalReclaimableBytes = reclaimable;
        for (const Severity severity : severities)
            made.findings.append(finding(Category::junk, severity, u"Caches"_s));
        return made;
    }

    ScanReportPanel panel;
};

} // namespace

TEST_F(ScanReportPanelTests, withoutAHighFindingAllLooksGood)
{
    panel.setReport(report({Severity::low}));
    EXPECT_EQ(textsIn(panel),
              (QStringList{u"Everything looks good"_s, u"1 findings · Zero KB reclaimable"_s}));
}

TEST_F(ScanReportPanelTests, oneHighFindingIsOneIssueThatNeed)
{
    panel.setReport(report({Severity::high, Severity::medium}, 1));
    EXPECT_EQ(textsIn(panel), (QStringList{u"1 issue need attention"_s, u"2 findings · 1 byte reclaimable"_s,
                                           u"You can free up 1 byte of storage."_s}));
}

TEST_F(ScanReportPanelTests, severalHighFindingsAreIssues)
{
    panel.setReport(report({Severity::high, Severity::high, Severity::low}, 4'440'000'000));
    EXPECT_EQ(textsIn(panel),
              (QStringList{u"2 issues need attention"_s, u"3 findings · 4.44 GB reclaimable"_s,
                           u"You can free up 4.44 GB of storage."_s}));
}

TEST_F(ScanReportPanelTests, theBannerShowsTheScoreIfThereIsOne)
{
    FullScanReport shown = report({Severity::low});
    panel.setReport(shown);
    EXPECT_FALSE(panel.findChild<RingProgress*>()->isVisibleTo(&panel));
    shown.healthScore = HealthScore{.grade = HealthScore::Grade::b,
                                    .points = 82,
                                    .detail = {},
                                    .diskUsedBytes = 0,
                                    .diskTotalBytes = 0,
                                    .junkEstimateBytes = 0,
                                    .backupPoints = 40,
                                    .diskPoints = 20,
                                    .junkPoints = 22};
    panel.setReport(shown);
    const auto* ring = panel.findChild<RingProgress*>();
    EXPECT_TRUE(ring->isVisibleTo(&panel));
    EXPECT_EQ(ring->centerText(), u"82"_s);
    EXPECT_EQ(ring->caption(), u"Health"_s);
    EXPECT_DOUBLE_EQ(ring->fraction(), 0.82);
    EXPECT_EQ(ring->colorRole(), Role::jade);
    EXPECT_EQ(ring->accessibleName(), u"Health"_s);
}

TEST_F(ScanReportPanelTests, theButtonOfARowReportsItsFinding)
{
    FullScanReport shown = report({});
    shown.findings = {finding(Category::apps, Severity::low, u"Tidewater"_s),
                      finding(Category::backup, Severity::low, u"Backup is current"_s)};
    panel.setReport(shown);
    show(panel);
    QStringList pressed;
    QObject::connect(&panel, &ScanReportPanel::findingPressed, &panel,
                     [&pressed](const ScanFinding& finding) { pressed.append(finding.title); });
    // Rows 0 and 2 are the headers of the groups.
    EXPECT_TRUE(ListDriver(*panel.list()).press(1, RowActionId::resolve));
    EXPECT_TRUE(ListDriver(*panel.list()).press(3, RowActionId::resolve));
    EXPECT_FALSE(ListDriver(*panel.list()).press(0, RowActionId::resolve));
    EXPECT_EQ(pressed, (QStringList{u"Backup is current"_s, u"Tidewater"_s}));
}

TEST_F(ScanReportPanelTests, theMenuOfARowHoldsItsButton)
{
    FullScanReport shown = report({});
    shown.findings = {finding(Category::apps, Severity::low, u"Tidewater"_s),
                      finding(Category::backup, Severity::low, u"Backup is current"_s)};
    shown.findings.last().action = ScanFinding::NavigateTo{u"Nowhere"_s};
    panel.setReport(shown);
    show(panel);
    QStringList pressed;
    QObject::connect(&panel, &ScanReportPanel::findingPressed, &panel,
                     [&pressed](const ScanFinding& finding) { pressed.append(finding.title); });
    const ListDriver rows(panel, u"Findings"_s);
    EXPECT_EQ(rows.openMenu(0), nullptr);
    // A row without a button has no menu.
    EXPECT_EQ(rows.openMenu(1), nullptr);
    const QMenu* menu = rows.openMenu(3);
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(ListDriver::textsIn(*menu), QStringList{u"Fix"_s});
    menu->actions().first()->trigger();
    EXPECT_EQ(pressed, QStringList{u"Tidewater"_s});
}

TEST_F(ScanReportPanelTests, aRowIsReachedAndPressedFromTheKeyboard)
{
    panel.setReport(report({Severity::high}));
    show(panel);
    panel.list()->setFocus(Qt::TabFocusReason);
    QTest::keyClick(panel.list(), Qt::Key_Down);
    expectEveryControlIsNamedAndReachedByTab(panel);
    const QSignalSpy pressed(&panel, &ScanReportPanel::findingPressed);
    QTest::keyClick(button(panel, u"Fix"_s), Qt::Key_Space);
    EXPECT_EQ(pressed.count(), 1);
}

TEST_F(ScanReportPanelTests, aHundredThousandFindingsOpenAndScrollWithoutAStall)
{
    FullScanReport shown = report({});
    for (int i = 0; i < 100'000; ++i)
        shown.findings.append(
            finding(i % 2 == 0 ? Category::apps : Category::junk, Severity::low, QString::number(i)));
    WorkTimer timer;
    panel.setReport(shown);
    show(panel);
    panel.grab();
    const qint64 opened = timer.milliseconds();
    timer.restart();
    panel.list()->verticalScrollBar()->setValue(panel.list()->verticalScrollBar()->maximum() / 2);
    panel.grab();
    const qint64 scrolled = timer.milliseconds();
    EXPECT_EQ(panel.list()->rowModel()->rowCount(), 100'002);
    RecordProperty("opened", static_cast<int>(opened));
    RecordProperty("scrolled", static_cast<int>(scrolled));
    // Many times the measured value, so that a sanitizer does not fail the test.
    EXPECT_LT(opened, 2000);
    EXPECT_LT(scrolled, 500);
}

} // namespace keelbright::testing

#include "Keelbright/screens/StorageBrowserView.h"

#include "Keelbright/screens/shell/ScreenFactory.h"
#include "Keelbright/screens/storage/BreadcrumbBar.h"
#include "Keelbright/screens/storage/BreakdownBar.h"
#include "Keelbright/screens/storage/LargestFilesPanel.h"
#include "Keelbright/screens/storage/ShortcutBar.h"
#include "Keelbright/screens/storage/treemap/TreemapView.h"
#include "Keelbright/widgets/MenuButton.h"
#include "Keelbright/widgets/SegmentedControl.h"
#include "tests/screens/shared/ListDriver.h"
#include "tests/screens/storage/StorageBrowserViewFixture.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QRadioButton>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>

namespace keelbright::testing {

using namespace Qt::StringLiterals;
using ViewMode = StorageBrowserModel::ViewMode;

using StorageBrowserViewTests = StorageBrowserViewFixture;

TEST_F(StorageBrowserViewTests, isTheScreenOfItsName)
{
    const std::unique_ptr<QWidget> screen(makeScreen(Screen::storageBrowser, context(), nullptr));
    EXPECT_NE(qobject_cast<StorageBrowserView*>(screen.get()), nullptr);
}

TEST_F(StorageBrowserViewTests, startsWithThePrompt)
{
    StorageBrowserView view(context());
    show(view);
    EXPECT_EQ(
        textsIn(view),
        (QStringList{u"Storage Browser"_s, u"Navigate any folder to see what's taking up space."_s,
                     u"Choose a Folder to Explore"_s,
                     u"Use the shortcuts above or \"Choose Folder\" to browse any location on your Mac."_s}));
    EXPECT_EQ(shownSymbols(view), QStringList{u"folder.badge.magnifyingglass"_s});
    EXPECT_EQ(shownButtons(view), (QStringList{u"Choose Folder"_s, u"Home"_s, u"Documents"_s, u"Desktop"_s,
                                               u"Downloads"_s, u"Pictures"_s, u"Choose Folder"_s}));
    EXPECT_FALSE(view.findChild<SegmentedControl*>()->isVisible());
}

TEST_F(StorageBrowserViewTests, bothButtonsChooseAFolder)
{
    StorageBrowserView view(context());
    show(view);
    int pressed = 0;
    for (Button* each : view.findChildren<Button*>()) {
        if (each->caption() != u"Choose Folder"_s)
            continue;
        chooser.willChoose({pressed == 0 ? documents() : pictures()});
        each->click();
        waitForLevel(view.model());
        ++pressed;
    }
    EXPECT_EQ(pressed, 2);
    EXPECT_EQ(view.model().currentURL(), pictures());
}

TEST_F(StorageBrowserViewTests, aLevelShowsTheWayTheKindsAndTheEntries)
{
    StorageBrowserView view(context());
    browse(view, documents());
    drillIn(view, u"Work"_s);
    EXPECT_EQ(view.findChild<BreadcrumbBar*>()->crumbs(), (QStringList{u"Documents"_s, u"Work"_s}));
    EXPECT_EQ(textsIn(*view.findChild<BreakdownBar*>()),
              (QStringList{u"Folders"_s, u"4 KB"_s, u"Documents"_s, u"3 KB"_s}));
    EXPECT_EQ(rows(list(view)), (QStringList{u"Old 4 KB"_s, u"a.pdf 3 KB"_s}));
    EXPECT_TRUE(list(view)->isVisible());
    EXPECT_FALSE(view.findChild<TreemapView*>()->isVisible());
}

TEST_F(StorageBrowserViewTests, theHeaderOffersViewSortAndOrganise)
{
    StorageBrowserView view(context());
    browse(view, documents());
    auto* mode = view.findChild<SegmentedControl*>();
    EXPECT_TRUE(mode->isVisible());
    EXPECT_EQ(mode->accessibleName(), u"View"_s);
    EXPECT_EQ(mode->width(), 260);
    EXPECT_EQ(button(view, u"Sort: Size"_s)->symbol(), u"arrow.up.arrow.down"_s);
    EXPECT_EQ(button(view, u"Organise"_s)->symbol(), u"folder.badge.gearshape"_s);
    EXPECT_EQ(button(view, u"Organise"_s)->toolTip(), u"Open this folder in Smart Organizer"_s);
    choose(view, ViewMode::treemap);
    EXPECT_FALSE(view.findChild<MenuButton*>()->isVisible());
    choose(view, ViewMode::list);
    EXPECT_TRUE(view.findChild<MenuButton*>()->isVisible());
}

TEST_F(StorageBrowserViewTests, theMenuSortsTheList)
{
    StorageBrowserView view(context());
    browse(view, documents());
    const auto* sort = view.findChild<MenuButton*>();
    const QList<QAction*> orders = sort->choiceMenu()->actions();
    ASSERT_EQ(orders.size(), 2);
    EXPECT_EQ(orders.at(0)->text(), u"Size"_s);
    EXPECT_EQ(orders.at(1)->text(), u"Name"_s);
    EXPECT_TRUE(orders.at(0)->isChecked());
    orders.at(1)->trigger();
    turnFrame();
    EXPECT_EQ(sort->caption(), u"Sort: Name"_s);
    EXPECT_TRUE(orders.at(1)->isChecked());
    EXPECT_EQ(rows(list(view)), (QStringList{u"c.txt 2 KB"_s, u"d.JPG 1 KB"_s, u"Work 7 KB"_s}));
    // The order outlives a new walk.
    navigate(view.model(), documents().appending(u"Work"_s));
    turnFrame();
    EXPECT_EQ(rows(list(view)), (QStringList{u"a.pdf 3 KB"_s, u"Old 4 KB"_s}));
}

TEST_F(StorageBrowserViewTests, aFolderOpensAndAFileDoesNot)
{
    StorageBrowserView view(context());
    browse(view, documents());
    Q_EMIT list(view)->opened(1);
    EXPECT_FALSE(view.model().isScanning());
    Q_EMIT list(view)->opened(0);
    EXPECT_TRUE(view.model().isScanning());
    waitForLevel(view.model());
    EXPECT_EQ(walked(view.model()), (QStringList{u"Documents"_s, u"Work"_s}));
}

TEST_F(StorageBrowserViewTests, aClickOnARowLeadsIntoAFolderAndNowhereForAFile)
{
    StorageBrowserView view(context());
    browse(view, documents());
    const ListDriver entries(view, u"Entries"_s);
    entries.clickTitle(1);
    EXPECT_FALSE(view.model().isScanning());
    entries.clickTitle(0);
    EXPECT_TRUE(view.model().isScanning());
    waitForLevel(view.model());
    turnFrame();
    EXPECT_EQ(walked(view.model()), (QStringList{u"Documents"_s, u"Work"_s}));
    // Its buttons do not open it as well.
    entries.clickAction(0, 2);
    EXPECT_EQ(workspace.revealed, QStringList{documents().appending(u"Work/Old"_s).path()});
    EXPECT_FALSE(view.model().isScanning());
}

TEST_F(StorageBrowserViewTests, aClickOnACrumbCutsTheWayThere)
{
    StorageBrowserView view(context());
    browse(view, documents());
    drillIn(view, u"Work"_s);
    drillIn(view, u"Old"_s);
    for (auto* crumb : view.findChild<BreadcrumbBar*>()->findChildren<Button*>()) {
        if (crumb->isVisible() && crumb->caption() == u"Work"_s)
            QTest::mouseClick(crumb, Qt::LeftButton);
    }
    turnFrame();
    EXPECT_EQ(walked(view.model()), (QStringList{u"Documents"_s, u"Work"_s}));
    EXPECT_FALSE(view.model().isScanning());
}

TEST_F(StorageBrowserViewTests, aClickOnASegmentChoosesTheViewAndOnTheLargestFilesLoadsThem)
{
    StorageBrowserView view(context());
    browse(view, documents());
    const auto segments = view.findChild<SegmentedControl*>()->findChildren<QRadioButton*>();
    ASSERT_EQ(segments.size(), 3);
    QTest::mouseClick(segments.at(1), Qt::LeftButton);
    turnFrame();
    EXPECT_TRUE(view.findChild<TreemapView*>()->isVisible());
    for (int chosen = 0; chosen < 2; ++chosen) {
        QTest::mouseClick(segments.at(2), Qt::LeftButton);
        EXPECT_TRUE(view.model().isLoadingLargest());
        waitForLargest(view.model());
    }
    turnFrame();
    EXPECT_TRUE(view.findChild<LargestFilesPanel*>()->isVisible());
    QTest::mouseClick(segments.at(0), Qt::LeftButton);
    turnFrame();
    EXPECT_TRUE(list(view)->isVisible());
    EXPECT_EQ(segments.at(0)->text(), u"List"_s);
    EXPECT_EQ(segments.at(1)->text(), u"Treemap"_s);
    EXPECT_EQ(segments.at(2)->text(), u"Largest Files"_s);
}

TEST_F(StorageBrowserViewTests, backLeadsToTheLevelBeforeAndACrumbToItsOwn)
{
    StorageBrowserView view(context());
    browse(view, documents());
    EXPECT_FALSE(button(view, u"Back"_s)->isEnabled());
    drillIn(view, u"Work"_s);
    drillIn(view, u"Old"_s);
    button(view, u"Back"_s)->click();
    turnFrame();
    EXPECT_EQ(walked(view.model()), (QStringList{u"Documents"_s, u"Work"_s}));
    EXPECT_EQ(list(view)->currentRow(), rowOf(list(view), u"Old"_s));
    drillIn(view, u"Old"_s);
    Q_EMIT view.findChild<BreadcrumbBar*>()->crumbPressed(0);
    turnFrame();
    EXPECT_EQ(walked(view.model()), QStringList{u"Documents"_s});
    EXPECT_EQ(list(view)->currentRow(), rowOf(list(view), u"Work"_s));
    EXPECT_FALSE(button(view, u"Back"_s)->isEnabled());
}

TEST_F(StorageBrowserViewTests, aSingleFileIsRed)
{
    StorageBrowserView view(context());
    browse(view, documents().appending(u"Work/Old"_s));
    const ListRow row = list(view)->rowModel()->rowAt(0);
    EXPECT_EQ(row.bar, 1.0);
    EXPECT_EQ(row.symbolColor, Role::red);
    EXPECT_EQ(row.barColor, Role::red);
}

TEST_F(StorageBrowserViewTests, anEmptyFolderHasNoRowsNoKindsAndNoMessage)
{
    StorageBrowserView view(context());
    browse(view, pictures());
    EXPECT_EQ(list(view)->rowModel()->rowCount(), 0);
    EXPECT_FALSE(view.findChild<BreakdownBar*>()->isVisible());
    EXPECT_EQ(textsIn(view), (QStringList{u"Storage Browser"_s, u"Zero KB in Pictures"_s, u"Pictures"_s}));
    choose(view, ViewMode::treemap);
    EXPECT_TRUE(view.findChild<TreemapView*>()->cells().isEmpty());
}

TEST_F(StorageBrowserViewTests, theTreemapShowsTheLevelAndDrillsIn)
{
    StorageBrowserView view(context());
    browse(view, documents());
    choose(view, ViewMode::treemap);
    auto* map = view.findChild<TreemapView*>();
    ASSERT_TRUE(map->isVisible());
    EXPECT_EQ(map->height(), 420);
    ASSERT_EQ(map->cells().size(), 3);
    QTest::mouseClick(map, Qt::LeftButton, {}, map->cells().at(1).rect.center().toPoint());
    EXPECT_FALSE(view.model().isScanning());
    QTest::mouseClick(map, Qt::LeftButton, {}, map->cells().at(0).rect.center().toPoint());
    EXPECT_TRUE(view.model().isScanning());
    waitForLevel(view.model());
    turnFrame();
    EXPECT_EQ(view.model().viewMode(), ViewMode::treemap);
    EXPECT_EQ(walked(view.model()), (QStringList{u"Documents"_s, u"Work"_s}));
    EXPECT_EQ(map->cells().size(), 2);
}

TEST_F(StorageBrowserViewTests, switchingToTheLargestFilesLoadsThemEachTime)
{
    StorageBrowserView view(context());
    browse(view, documents());
    choose(view, ViewMode::largest);
    const auto* panel = view.findChild<LargestFilesPanel*>();
    EXPECT_EQ(textsIn(*panel), QStringList{u"Top 4 largest files in Documents"_s});
    EXPECT_EQ(rows(panel->list()),
              (QStringList{u"b.zip 4 KB"_s, u"a.pdf 3 KB"_s, u"c.txt 2 KB"_s, u"d.JPG 1 KB"_s}));
    choose(view, ViewMode::list);
    write("e.mov", 9'000);
    choose(view, ViewMode::largest);
    EXPECT_EQ(textsIn(*panel), QStringList{u"Top 5 largest files in Documents"_s});
}

TEST_F(StorageBrowserViewTests, aFolderWithoutFilesHasNoLargestOnes)
{
    StorageBrowserView view(context());
    browse(view, pictures());
    choose(view, ViewMode::largest);
    EXPECT_EQ(textsIn(*view.findChild<LargestFilesPanel*>()), QStringList{u"No files found."_s});
}

TEST_F(StorageBrowserViewTests, goingBackKeepsTheLargestFilesUntilTheyAreRefreshed)
{
    StorageBrowserView view(context());
    browse(view, documents());
    drillIn(view, u"Work"_s);
    choose(view, ViewMode::largest);
    const auto* panel = view.findChild<LargestFilesPanel*>();
    button(view, u"Back"_s)->click();
    turnFrame();
    EXPECT_EQ(rows(panel->list()), (QStringList{u"b.zip 4 KB"_s, u"a.pdf 3 KB"_s}));
    button(view, u"Refresh"_s)->click();
    waitForLargest(view.model());
    turnFrame();
    EXPECT_EQ(panel->list()->rowModel()->rowCount(), 4);
}

TEST_F(StorageBrowserViewTests, leavingInTheMiddleOfAMeasurementIsSafe)
{
    HeldWalks held(mac.root());
    const FileManagerGuard guard(held);
    auto view = std::make_unique<StorageBrowserView>(context());
    show(*view);
    held.holdNextLookAt(documents());
    button(*view, u"Documents"_s)->click();
    ASSERT_TRUE(held.waitUntilHeld());
    view.reset();
    held.letGo();
    waitForBackgroundWork();
    settle();
}

TEST_F(StorageBrowserViewTests, leavingInTheMiddleOfASearchIsSafe)
{
    HeldWalks held(mac.root());
    const FileManagerGuard guard(held);
    auto view = std::make_unique<StorageBrowserView>(context());
    browse(*view, documents());
    held.holdNextLookAt(documents());
    Q_EMIT view->findChild<SegmentedControl*>()->chosen(2);
    ASSERT_TRUE(held.waitUntilHeld());
    turnFrame();
    EXPECT_EQ(textsIn(*view->findChild<LargestFilesPanel*>()), QStringList{u"Scanning for large files…"_s});
    view.reset();
    held.letGo();
    waitForBackgroundWork();
    settle();
}

TEST_F(StorageBrowserViewTests, nothingIsCutInANarrowWindow)
{
    const QString name = u"A folder with a name that goes on for longer than any window is wide "_s;
    write((name + u"one/"_s + name + u"two/"_s + name + u"three/file.txt"_s).toUtf8(), 100'000);
    for (const QString& shortcut : {u"Desktop"_s, u"Downloads"_s})
        mac.makeFolder("Users/mira/" + shortcut.toUtf8());
    StorageBrowserView view(context());
    show(view);
    view.resize(640, 560);
    navigate(view.model(), documents());
    for (const QString& level : {u"one"_s, u"two"_s, u"three"_s})
        StorageBrowserFixture::drillIn(view.model(), name + level);
    turnFrame();
    EXPECT_EQ(view.width(), 640);
    EXPECT_LE(view.minimumSizeHint().width(), 640);
    EXPECT_LE(view.minimumSizeHint().height(), 560);
    for (const ViewMode mode : StorageBrowserModel::allViewModes()) {
        choose(view, mode);
        for (const Button* each : view.findChildren<Button*>()) {
            if (!each->isVisible() || each->kind() == Button::Kind::link)
                continue;
            EXPECT_GE(each->width(), each->sizeHint().width()) << each->caption().toStdString();
        }
    }
    choose(view, ViewMode::list);
    EXPECT_GE(list(view)->height(), list(view)->rowHeight());
}

TEST_F(StorageBrowserViewTests, theMapTakesTheWholeWidthOfAWideWindow)
{
    StorageBrowserView view(context());
    browse(view, documents());
    view.resize(1360, 900);
    choose(view, ViewMode::treemap);
    EXPECT_EQ(view.findChild<TreemapView*>()->width(), 1360 - 2 * Metrics::pageMarginX);
    choose(view, ViewMode::list);
    EXPECT_GE(list(view)->width(), 1360 - 2 * Metrics::pageMarginX - 2);
}

TEST_F(StorageBrowserViewTests, theSmallestWindowShowsAtLeastEightEntries)
{
    // Of many kinds, so that the legend is as long as it gets.
    int size = 1'000;
    for (const char* extension : {"pdf", "jpg", "mp4", "zip", "cpp", "mp3", "other"}) {
        for (int i = 0; i < 2; ++i)
            write(u"entry %1.%2"_s.arg(i).arg(QLatin1String(extension)).toUtf8(), ++size);
    }
    for (const QString& shortcut : {u"Desktop"_s, u"Downloads"_s})
        mac.makeFolder("Users/mira/" + shortcut.toUtf8());
    StorageBrowserView view(context());
    browse(view, documents());
    view.resize(620, 592);
    turnFrame();
    EXPECT_EQ(list(view)->visualRect(list(view)->model()->index(0, 0)).height(), RowMetrics::denseRow);
    EXPECT_GE(list(view)->viewport()->height(), 8 * RowMetrics::denseRow - 1);
    const auto* shortcuts = view.findChild<ShortcutBar*>();
    EXPECT_EQ(shortcuts->height(), Metrics::buttonHeight) << "one line";
}

TEST_F(StorageBrowserViewTests, inTheSmallestWindowOneTurnOfTheWheelShowsTheRestOfTheMap)
{
    write("entry.pdf", 1'000);
    StorageBrowserView view(context());
    browse(view, documents());
    choose(view, ViewMode::treemap);
    view.resize(620, 592);
    turnFrame();
    auto* map = view.findChild<TreemapView*>();
    EXPECT_EQ(map->height(), 420);
    const auto shown = [map] { return map->visibleRegion().boundingRect(); };
    EXPECT_EQ(shown().top(), 0);
    EXPECT_LT(shown().bottom(), 419);
    QWheelEvent turn(QPointF(50, 50), map->mapToGlobal(QPointF(50, 50)), {}, {0, -120}, Qt::NoButton,
                     Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(map->parentWidget(), &turn); // an event that is sent does not go on to the parent
    EXPECT_EQ(shown().bottom(), 419);
}

TEST_F(StorageBrowserViewTests, aLargeWindowKeepsItsRows)
{
    write("entry.pdf", 1'000);
    StorageBrowserView view(context());
    browse(view, documents());
    view.resize(940, 732);
    turnFrame();
    EXPECT_EQ(list(view)->visualRect(list(view)->model()->index(0, 0)).height(), RowMetrics::tableRow);
}

TEST_F(StorageBrowserViewTests, anEmptyMapHasNothingToScrollTo)
{
    mac.makeFolder("Users/mira/Empty");
    StorageBrowserView view(context());
    browse(view, mac.home().appending(u"Empty"_s));
    view.resize(620, 592);
    choose(view, ViewMode::treemap);
    for (const auto* bar : view.findChildren<QScrollBar*>())
        EXPECT_FALSE(bar->isVisible());
}

TEST_F(StorageBrowserViewTests, theWholeLegendIsSeenInANarrowWindow)
{
    for (const QByteArray name : {"a.mov", "b.zip", "c.mp3", "d.cpp", "e.iso"})
        write(name, 123'456);
    StorageBrowserView view(context());
    show(view);
    view.resize(640, 560);
    navigate(view.model(), documents());
    turnFrame();
    const auto* bar = view.findChild<BreakdownBar*>();
    for (const QLabel* label : bar->findChildren<QLabel*>()) {
        const QRect place(label->mapTo(bar, QPoint()), label->size());
        EXPECT_TRUE(bar->rect().contains(place)) << label->text().toStdString();
    }
    EXPECT_EQ(textsIn(*bar).size(), 12);
}

TEST_F(StorageBrowserViewTests, theModelOfTheListKeepsItsPromises)
{
    StorageBrowserView view(context());
    const QAbstractItemModelTester tester(list(view)->rowModel(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    browse(view, documents());
    drillIn(view, u"Work"_s);
    view.model().setSortOrder(StorageBrowserModel::SortOrder::name);
    turnFrame();
    EXPECT_EQ(list(view)->rowModel()->rowCount(), 2);
}

} // namespace keelbright::testing

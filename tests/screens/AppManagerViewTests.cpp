#include "Keelbright/screens/AppManagerView.h"

#include "Keelbright/screens/apps/AppDetailPanel.h"
#include "Keelbright/screens/shared/ScreenCommand.h"
#include "Keelbright/screens/shell/ScreenFactory.h"
#include "Keelbright/widgets/MenuButton.h"
#include "Keelbright/widgets/SearchField.h"
#include "tests/screens/apps/AppManagerTestCase.h"
#include "tests/screens/shared/ListDriver.h"
#include "tests/support/HeldFileManager.h"
#include "tests/support/WorkTimer.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QScrollBar>
#include <QTest>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

using AppManagerViewTests = AppManagerTestCase;

TEST_F(AppManagerViewTests, theFactoryMakesIt)
{
    QWidget parent;
    EXPECT_NE(qobject_cast<AppManagerView*>(makeScreen(Screen::appManager, context(), &parent)), nullptr);
}

TEST_F(AppManagerViewTests, beforeAnyScanItOffersOneAndStartsNone)
{
    const auto view = makeView();
    const QStringList texts = textsIn(*view);
    EXPECT_TRUE(texts.contains(u"App Manager"_s));
    EXPECT_TRUE(texts.contains(u"No apps scanned yet"_s));
    EXPECT_TRUE(texts.contains(u"Select an app to see details"_s));
    EXPECT_TRUE(texts.filter(u" apps"_s).filter(u" of "_s).isEmpty());
    EXPECT_TRUE(shownSymbols(*view).contains(u"app.badge.checkmark"_s));
    EXPECT_TRUE(shownSymbols(*view).contains(u"arrow.left.circle"_s));
    EXPECT_NE(buttonIn(*view, u"Scan Now"_s), nullptr);
    EXPECT_FALSE(state->isAppScanning());
}

TEST_F(AppManagerViewTests, scanNowListsTheApplications)
{
    addApplications();
    HeldFileManager held(mac.root());
    const FileManagerGuard guard(held);
    held.holdNextLookAt(applications());
    const auto view = makeView();
    button(*view, u"Scan Now"_s)->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    ASSERT_TRUE(held.waitUntilHeld());
    turnFrame();
    EXPECT_TRUE(textsIn(*view).contains(u"Scanning applications…"_s));
    EXPECT_TRUE(textsIn(*view).contains(u"Reading Spotlight metadata"_s));
    held.letGo();
    turnUntil([&] { return textsIn(*view).contains(u"8 of 8 apps"_s); });
    EXPECT_FALSE(textsIn(*view).contains(u"Scanning applications…"_s));
    EXPECT_EQ(titlesIn(*apps(*view)).size(), 8);
    EXPECT_EQ(QApplication::focusWidget(), apps(*view));
    waitForBackgroundWork();
}

TEST_F(AppManagerViewTests, aScanThatBeganElsewhereIsShown)
{
    addApplications();
    HeldFileManager held(mac.root());
    const FileManagerGuard guard(held);
    held.holdNextLookAt(applications());
    state->refreshAppsIfNeeded();
    ASSERT_TRUE(held.waitUntilHeld());
    const auto view = makeView();
    EXPECT_TRUE(textsIn(*view).contains(u"Scanning applications…"_s));
    held.letGo();
    turnUntil([&] { return textsIn(*view).contains(u"8 of 8 apps"_s); });
    waitForBackgroundWork();
}

TEST_F(AppManagerViewTests, theListHasTheVerdictsInTheOrderOfCleaningUp)
{
    const auto view = makeListedView();
    EXPECT_EQ(titlesIn(*apps(*view)),
              (QStringList{u"Never Indexed"_s, u"Old Scanner"_s, u"Brew Timer"_s, u"Tidewater"_s,
                           u"Sketchbook"_s, u"Just Installed"_s, u"Disk Doctor"_s, u"Harbour Mail"_s}))
        << titlesIn(*apps(*view)).join(u'|').toStdString();
    const ListRow first = apps(*view)->rowModel()->rowAt(0);
    EXPECT_EQ(first.tag, u"Rarely Used"_s);
    EXPECT_EQ(first.detail, u"Never opened."_s);
}

TEST_F(AppManagerViewTests, theSortMenuHasFourOrders)
{
    const auto view = makeListedView();
    const MenuButton* sort = menuButton(*view, u"Sort apps"_s);
    EXPECT_EQ(sort->symbol(), u"arrow.up.arrow.down"_s);
    EXPECT_EQ(sort->toolTip(), u"Sort apps"_s);
    EXPECT_EQ(choices(*view, u"Sort apps"_s),
              (QStringList{u"Cleanup Priority"_s, u"Last Used"_s, u"Name"_s, u"Times Used"_s}));
    EXPECT_EQ(sort->currentIndex(), 0);
    choose(*view, u"Sort apps"_s, u"Name"_s);
    EXPECT_EQ(titlesIn(*apps(*view)),
              (QStringList{u"Brew Timer"_s, u"Disk Doctor"_s, u"Harbour Mail"_s, u"Just Installed"_s,
                           u"Never Indexed"_s, u"Old Scanner"_s, u"Sketchbook"_s, u"Tidewater"_s}));
    choose(*view, u"Sort apps"_s, u"Times Used"_s);
    EXPECT_EQ(titlesIn(*apps(*view)).first(), u"Harbour Mail"_s);
    choose(*view, u"Sort apps"_s, u"Last Used"_s);
    EXPECT_EQ(titlesIn(*apps(*view)).mid(0, 2), (QStringList{u"Never Indexed"_s, u"Old Scanner"_s}));
}

TEST_F(AppManagerViewTests, theFilterLeavesOneCategoryAndCanBeCleared)
{
    const auto view = makeListedView();
    EXPECT_TRUE(shownSymbols(*view).contains(u"line.3.horizontal.decrease.circle"_s));
    EXPECT_EQ(choices(*view, u"Filter"_s),
              (QStringList{u"All Apps"_s, u"Active"_s, u"Was Important"_s, u"Occasional"_s, u"Rarely Used"_s,
                           u"New"_s, u"Unknown"_s}));
    EXPECT_EQ(menuButton(*view, u"Filter"_s)->caption(), u"All Apps"_s);
    EXPECT_EQ(buttonIn(*view, u"Clear filter"_s), nullptr);
    choose(*view, u"Filter"_s, u"New"_s);
    EXPECT_EQ(titlesIn(*apps(*view)), QStringList{u"Just Installed"_s});
    EXPECT_TRUE(textsIn(*view).contains(u"1 of 8 apps"_s));
    EXPECT_EQ(menuButton(*view, u"Filter"_s)->caption(), u"New"_s);
    const Button* clear = button(*view, u"Clear filter"_s);
    EXPECT_EQ(clear->symbol(), u"xmark.circle.fill"_s);
    EXPECT_EQ(clear->toolTip(), u"Clear filter"_s);
    button(*view, u"Clear filter"_s)->click();
    EXPECT_TRUE(textsIn(*view).contains(u"8 of 8 apps"_s));
    EXPECT_EQ(menuButton(*view, u"Filter"_s)->caption(), u"All Apps"_s);
    EXPECT_EQ(buttonIn(*view, u"Clear filter"_s), nullptr);
}

TEST_F(AppManagerViewTests, aCategoryWithoutApplicationsLeavesAnEmptyList)
{
    const auto view = makeListedView();
    choose(*view, u"Filter"_s, u"Unknown"_s);
    EXPECT_EQ(titlesIn(*apps(*view)), QStringList());
    EXPECT_TRUE(textsIn(*view).contains(u"0 of 8 apps"_s));
}

TEST_F(AppManagerViewTests, theSearchFindsByNameInAnyCaseAndNothingByIdentifier)
{
    const auto view = makeListedView();
    auto* search = view->findChild<SearchField*>();
    EXPECT_EQ(search->placeholderText(), u"Search apps"_s);
    QTest::keyClicks(search, u"SKETCH"_s);
    EXPECT_EQ(titlesIn(*apps(*view)), QStringList{u"Sketchbook"_s});
    EXPECT_TRUE(textsIn(*view).contains(u"1 of 8 apps"_s));
    search->setText(u"com.example"_s);
    EXPECT_EQ(titlesIn(*apps(*view)), QStringList());
    EXPECT_TRUE(textsIn(*view).contains(u"0 of 8 apps"_s));
    QTest::keyClick(search, Qt::Key_Escape);
    EXPECT_TRUE(textsIn(*view).contains(u"8 of 8 apps"_s));
}

TEST_F(AppManagerViewTests, anAppThatIsChosenIsShownInDetail)
{
    made.addLibrary();
    const auto view = makeListedView();
    choose(*view, u"Sketchbook"_s);
    ASSERT_TRUE(view->selectedApp().has_value());
    EXPECT_EQ(view->selectedApp()->name, u"Sketchbook"_s);
    ASSERT_NE(panel(*view), nullptr);
    EXPECT_EQ(panel(*view)->app().id, app(u"Sketchbook"_s).id);
    EXPECT_FALSE(textsIn(*view).contains(u"Select an app to see details"_s));
    waitForFiles(*view);
    EXPECT_TRUE(textsIn(*view).contains(u"Total: 148 MB"_s));
}

TEST_F(AppManagerViewTests, aChoiceThatIsTakenBackClosesThePanel)
{
    const auto view = makeListedView();
    const ListDriver rows(*view, u"Applications"_s);
    rows.clickTitle(2);
    ASSERT_TRUE(view->selectedApp().has_value());
    rows.clickTitle(2, Qt::ControlModifier);
    EXPECT_FALSE(view->selectedApp().has_value());
    EXPECT_EQ(panel(*view), nullptr);
    EXPECT_EQ(rows.selectedRow(), -1);
    EXPECT_TRUE(textsIn(*view).contains(u"Select an app to see details"_s));
}

TEST_F(AppManagerViewTests, controlFGoesToTheSearch)
{
    const auto view = makeListedView();
    auto* search = view->findChild<SearchField*>();
    search->setText(u"book"_s);
    choose(*view, u"Sketchbook"_s);
    ASSERT_FALSE(search->hasFocus());
    QTest::keyClick(apps(*view), Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(search->hasFocus());
    EXPECT_EQ(search->selectedText(), u"book"_s);
}

TEST_F(AppManagerViewTests, whatWasLookedUpGoesWithTheSelection)
{
    server.setAnswer(LoopbackAnswer::http(R"({"results": []})"));
    const auto view = makeListedView();
    choose(*view, u"Sketchbook"_s);
    button(*view, u"Look Up on App Store"_s)->click();
    turnUntil([&] { return textsIn(*view).contains(u"Not found on the Mac App Store."_s); });
    choose(*view, u"Tidewater"_s);
    EXPECT_FALSE(textsIn(*view).contains(u"Not found on the Mac App Store."_s));
    EXPECT_NE(buttonIn(*view, u"Look Up on App Store"_s), nullptr);
    choose(*view, u"Sketchbook"_s);
    EXPECT_NE(buttonIn(*view, u"Look Up on App Store"_s), nullptr);
    EXPECT_EQ(server.requests().size(), 1);
}

TEST_F(AppManagerViewTests, anAnswerForTheAppBeforeIsDropped)
{
    server.setAnswer(
        {.pieces =
             {LoopbackAnswer::http(R"({"results": [{"trackName": "Ink", "description": "Late."}]})").pieces},
         .pause = std::chrono::milliseconds(50)});
    const auto view = makeListedView();
    choose(*view, u"Sketchbook"_s);
    button(*view, u"Look Up on App Store"_s)->click();
    turnUntil([&] { return server.requests().size() == 1; });
    choose(*view, u"Tidewater"_s);
    turnUntil([&] { return server.endedConnections() == 1; });
    turnFrame();
    EXPECT_FALSE(textsIn(*view).contains(u"Late."_s));
    EXPECT_NE(buttonIn(*view, u"Look Up on App Store"_s), nullptr);
}

TEST_F(AppManagerViewTests, filesOfTheAppBeforeAreDropped)
{
    made.addLibrary();
    scan();
    HeldFileManager held(mac.root());
    const FileManagerGuard guard(held);
    const auto view = makeView();
    held.holdNextLookAt(mac.home().appending(u"Library/Group Containers"_s));
    choose(*view, u"Sketchbook"_s);
    ASSERT_TRUE(held.waitUntilHeld());
    choose(*view, u"Tidewater"_s);
    waitForFiles(*view);
    EXPECT_TRUE(textsIn(*view).contains(u"No leftover files found."_s));
    held.letGo();
    waitForBackgroundWork();
    turnFrame();
    EXPECT_TRUE(textsIn(*view).contains(u"No leftover files found."_s));
}

TEST_F(AppManagerViewTests, theSelectionStaysWhileTheListIsFiltered)
{
    const auto view = makeListedView();
    choose(*view, u"Sketchbook"_s);
    const AppDetailPanel* before = panel(*view);
    choose(*view, u"Filter"_s, u"New"_s);
    EXPECT_EQ(apps(*view)->currentRow(), -1);
    EXPECT_EQ(panel(*view), before);
    button(*view, u"Clear filter"_s)->click();
    EXPECT_EQ(titlesIn(*apps(*view)).at(apps(*view)->currentRow()), u"Sketchbook"_s);
    choose(*view, u"Sort apps"_s, u"Name"_s);
    EXPECT_EQ(titlesIn(*apps(*view)).at(apps(*view)->currentRow()), u"Sketchbook"_s);
    EXPECT_EQ(panel(*view), before);
}

TEST_F(AppManagerViewTests, reScanningClearsTheSelectionBeforeTheScanBegins)
{
    const auto view = makeListedView();
    choose(*view, u"Sketchbook"_s);
    bool hadSelection = true;
    QObject::connect(state.get(), &AppState::isAppScanningChanged, view.get(), [&] {
        if (state->isAppScanning())
            hadSelection = view->selectedApp().has_value();
    });
    const Button* scan = button(*view, u"Re-scan apps"_s);
    EXPECT_EQ(scan->symbol(), u"arrow.clockwise"_s);
    EXPECT_EQ(scan->toolTip(), u"Re-scan apps"_s);
    button(*view, u"Re-scan apps"_s)->click();
    EXPECT_FALSE(hadSelection);
    EXPECT_TRUE(state->isAppScanning());
    EXPECT_FALSE(view->selectedApp().has_value());
    EXPECT_TRUE(textsIn(*view).contains(u"Select an app to see details"_s));
    turnUntil([&] { return !state->isAppScanning(); });
}

TEST_F(AppManagerViewTests, aScanTakesThePlaceOfTheListAndKeepsItsHeader)
{
    scan();
    HeldFileManager held(mac.root());
    const FileManagerGuard guard(held);
    const auto view = makeView();
    held.holdNextLookAt(applications());
    button(*view, u"Re-scan apps"_s)->click();
    ASSERT_TRUE(held.waitUntilHeld());
    turnFrame();
    EXPECT_TRUE(textsIn(*view).contains(u"Scanning applications…"_s));
    EXPECT_TRUE(textsIn(*view).contains(u"8 of 8 apps"_s));
    EXPECT_FALSE(view->findChild<SearchField*>()->isVisible());
    EXPECT_NE(buttonIn(*view, u"All Apps"_s), nullptr);
    held.letGo();
    turnUntil([this] { return !state->isAppScanning(); });
    turnFrame();
    EXPECT_EQ(titlesIn(*apps(*view)).size(), 8);
    waitForBackgroundWork();
}

TEST_F(AppManagerViewTests, noScanCanBeAskedForWhileOneIsUnderWay)
{
    scan();
    HeldFileManager held(mac.root());
    const FileManagerGuard guard(held);
    const auto view = makeView();
    Button* rescan = button(*view, u"Re-scan apps"_s);
    const QAction* command = offeredCommand(view.get(), ScreenCommand::rescan);
    ASSERT_NE(command, nullptr);
    EXPECT_TRUE(rescan->isEnabled());
    EXPECT_TRUE(command->isEnabled());
    held.holdNextLookAt(applications());
    rescan->setFocus();
    QTest::keyClick(rescan, Qt::Key_Space);
    ASSERT_TRUE(held.waitUntilHeld());
    turnUntil([&] { return !rescan->isEnabled(); });
    EXPECT_FALSE(command->isEnabled());
    held.letGo();
    turnUntil([&] { return rescan->isEnabled(); });
    EXPECT_TRUE(command->isEnabled());
    EXPECT_EQ(QApplication::focusWidget(), rescan) << "the keyboard is where it was";
    waitForBackgroundWork();
}

TEST_F(AppManagerViewTests, openedDuringAScanItOffersNoOther)
{
    addApplications();
    HeldFileManager held(mac.root());
    const FileManagerGuard guard(held);
    held.holdNextLookAt(applications());
    state->scanApps();
    ASSERT_TRUE(held.waitUntilHeld());
    const auto view = makeView();
    EXPECT_FALSE(button(*view, u"Re-scan apps"_s)->isEnabled());
    EXPECT_FALSE(offeredCommand(view.get(), ScreenCommand::rescan)->isEnabled());
    held.letGo();
    turnUntil([this] { return !state->isAppScanning(); });
    waitForBackgroundWork();
}

TEST_F(AppManagerViewTests, fFiveAndControlRScanAgain)
{
    const auto view = makeListedView();
    for (const auto& [key, modifier] :
         {std::pair(Qt::Key_F5, Qt::NoModifier), std::pair(Qt::Key_R, Qt::ControlModifier)}) {
        QTest::keyClick(apps(*view), key, modifier);
        EXPECT_TRUE(state->isAppScanning());
        turnUntil([&] { return !state->isAppScanning(); });
        turnFrame();
    }
}

TEST_F(AppManagerViewTests, everyControlHasANameAndIsReachedByTab)
{
    const auto empty = makeView();
    expectEveryControlIsNamedAndReachedByTab(*empty);
    empty->hide();
    const auto view = makeListedView();
    choose(*view, u"Filter"_s, u"Was Important"_s);
    choose(*view, u"Sketchbook"_s);
    waitForFiles(*view);
    expectEveryControlIsNamedAndReachedByTab(*view);
}

TEST_F(AppManagerViewTests, closedInTheMiddleOfAScanTheScanGoesOn)
{
    addApplications();
    auto view = makeView();
    view->scanApps();
    view.reset();
    turnUntil([&] { return !state->isAppScanning(); });
    EXPECT_EQ(state->scannedApps().size(), 8);
}

TEST_F(AppManagerViewTests, thousandsOpenAtOnceAndScrollWithoutAStall)
{
    const QDateTime now = mac.clock()();
    QList<AppInfo> many;
    for (int i = 0; i < 5'000; ++i) {
        many.append(AppInfo({.name = u"Application %1"_s.arg(i),
                             .bundleID = u"org.example.app%1"_s.arg(i),
                             .url = applications().appending(u"Application %1.app"_s.arg(i)),
                             .useCount = i % 50},
                            now));
    }
    state->setScannedApps(many);
    WorkTimer timer;
    const auto view = makeView();
    EXPECT_LT(timer.milliseconds(), 1'000);
    RowListView* rows = apps(*view);
    qint64 longest = 0;
    for (int position = 0; position < rows->verticalScrollBar()->maximum(); position += 5'000) {
        timer.restart();
        rows->verticalScrollBar()->setValue(position);
        QCoreApplication::processEvents();
        longest = std::max(longest, timer.milliseconds());
    }
    EXPECT_LT(longest, KEELBRIGHT_IS_SANITIZED ? 150 : 50);
}

} // namespace keelbright::testing

#include "Keelbright/screens/JunkCleanerView.h"

#include "Keelbright/widgets/Panels.h"
#include "Keelbright/widgets/SymbolLabel.h"
#include "tests/screens/shared/ListDriver.h"
#include "tests/screens/shared/ScreenTestCase.h"
#include "tests/support/HeldFileManager.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QFile>
#include <QScrollBar>
#include <QTest>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 gibibyte = 1'073'741'824;
const QString categoryList = u"Junk categories"_s;
const QString itemList = u"Junk items"_s;

class JunkCleanerViewTests : public ScreenTestCase
{
protected:
    /// A folder in the library with one file of this size, which takes no room on disk.
    FileURL addJunk(const QByteArray& folder, qint64 bytes) const
    {
        const FileURL file = mac.writeFile("Users/mira/Library/" + folder + "/data", {});
        EXPECT_TRUE(QFile::resize(file.path(), bytes));
        return file.deletingLastPathComponent();
    }

    /// Two caches, a log and a device backup.
    void addSomeJunk() const
    {
        addJunk("Caches/com.example.editor", 6'000'000);
        addJunk("Caches/com.example.music", 5'000'000);
        addJunk("Logs/Example", 3'000'000);
        addJunk("Application Support/MobileSync/Backup/Phone", 2'000'000);
    }

    void open()
    {
        view = std::make_unique<JunkCleanerView>(context());
        show(*view);
        waitForScan();
    }

    /// While another machine stands in the place of the test's own.
    void close()
    {
        view.reset();
        waitForBackgroundWork();
    }

    void waitForScan() const
    {
        turnUntil([this] { return !model().isScanning(); });
        turnFrame();
    }

    [[nodiscard]] JunkCleanerVM& model() const { return *view->findChild<JunkCleanerVM*>(); }

    [[nodiscard]] ListDriver categories() const { return {*view, categoryList}; }

    [[nodiscard]] ListDriver items() const { return {*view, itemList}; }

    /// Of the bar at the bottom, whose buttons come last.
    [[nodiscard]] Button* lastButton(const QString& name) const
    {
        Button* last = nullptr;
        for (auto* candidate : view->findChildren<Button*>()) {
            if (candidate->isVisible() && candidate->accessibleName() == name)
                last = candidate;
        }
        return last;
    }

    void press(const QString& name) const
    {
        button(*view, name)->click();
        turnFrame();
    }

    void tick(int item) const
    {
        items().clickMark(item);
        turnFrame();
    }

    void chooseCategory(int row) const
    {
        categories().clickTitle(row);
        turnFrame();
    }

    [[nodiscard]] bool shows(const QString& text) const { return textsIn(*view).contains(text); }

    std::unique_ptr<JunkCleanerView> view;
};

} // namespace

TEST_F(JunkCleanerViewTests, scansByItselfWhenItComesUp)
{
    addSomeJunk();
    HeldFileManager held(mac.root());
    const FileManagerGuard guard(held);
    const FileURL caches = mac.home().appending(u"Library/Caches"_s);
    held.holdNextLookAt(caches);
    view = std::make_unique<JunkCleanerView>(context());
    show(*view);
    ASSERT_TRUE(held.waitUntilHeld());
    turnFrame();
    EXPECT_EQ(textsIn(*view),
              (QStringList{u"Junk Cleaner"_s, u"Scanning…"_s, u"Select a category"_s,
                           u"Click a category on the left to review its items."_s, u"Nothing selected"_s}));
    EXPECT_EQ(shownSymbols(*view), (QStringList{u"trash.fill"_s, u"trash.slash"_s}));
    EXPECT_FALSE(button(*view, u"Re-scan"_s)->isEnabled());
    EXPECT_FALSE(button(*view, u"Select All"_s)->isEnabled());
    EXPECT_FALSE(button(*view, u"Move to Trash"_s)->isEnabled());
    held.letGo();
    waitForScan();
    EXPECT_EQ(held.looksAt(caches), 1);
    EXPECT_EQ(categories().count(), 3);
    EXPECT_TRUE(button(*view, u"Re-scan"_s)->isEnabled());
    close();
}

TEST_F(JunkCleanerViewTests, theFirstPictureAlreadySaysThatItScans)
{
    view = std::make_unique<JunkCleanerView>(context());
    view->show();
    EXPECT_TRUE(shows(u"Scanning…"_s));
    EXPECT_FALSE(shows(u"All clean!"_s));
}

TEST_F(JunkCleanerViewTests, aMachineWithoutJunkIsClean)
{
    open();
    EXPECT_EQ(textsIn(*view),
              (QStringList{u"Junk Cleaner"_s, u"All clean!"_s, u"No junk found."_s, u"Select a category"_s,
                           u"Click a category on the left to review its items."_s, u"Nothing selected"_s}));
    EXPECT_EQ(shownSymbols(*view),
              (QStringList{u"trash.fill"_s, u"checkmark.circle.fill"_s, u"trash.slash"_s}));
    EXPECT_FALSE(button(*view, u"Move to Trash"_s)->isEnabled());
    expectEveryControlIsNamedAndReachedByTab(*view);
}

TEST_F(JunkCleanerViewTests, aNewVisitBeginsAnew)
{
    addSomeJunk();
    open();
    press(u"Select All"_s);
    chooseCategory(2);
    addJunk("Logs/Later", 1'000'000);
    open();
    EXPECT_TRUE(shows(u"Nothing selected"_s));
    EXPECT_EQ(categories().selectedRow(), 0);
    EXPECT_EQ(categories().row(1).detail, u"2 items"_s);
}

TEST_F(JunkCleanerViewTests, aWindowThatComesBackKeepsItsCategories)
{
    addSomeJunk();
    open();
    lastButton(u"Select All"_s)->click();
    turnFrame();
    view->hide();
    view->show();
    EXPECT_FALSE(model().isScanning());
    EXPECT_TRUE(shows(u"4 items selected"_s));
}

TEST_F(JunkCleanerViewTests, whereAllWasCleanItLooksAgainWhenItComesUpAgain)
{
    open();
    EXPECT_TRUE(shows(u"All clean!"_s));
    addJunk("Logs/Later", 1'000'000);
    view->hide();
    view->show();
    EXPECT_TRUE(model().isScanning());
    waitForScan();
    EXPECT_EQ(categories().texts(), QStringList(u"Log Files, 1 item, 1 MB"_s));
}

TEST_F(JunkCleanerViewTests, theCategoriesStandAtTheLeftWithTheirNumbers)
{
    addSomeJunk();
    open();
    EXPECT_EQ(categories().texts(),
              (QStringList{u"User Caches, 2 items, 11 MB"_s, u"Log Files, 1 item, 3 MB"_s,
                           u"iOS Device Backups, 1 item, 2 MB"_s}));
    EXPECT_EQ(categories().row(0).symbol, u"arrow.clockwise.circle.fill"_s);
    EXPECT_EQ(categories().row(0).mark, ListRow::Mark::circle);
    EXPECT_EQ(categories().selectedRow(), 0);
    EXPECT_EQ(categories().marks(), (QList{Qt::Unchecked, Qt::Unchecked, Qt::Unchecked}));
}

TEST_F(JunkCleanerViewTests, aCategoryHasItsColourAtTheLeftAndAboveItsItems)
{
    addSomeJunk();
    open();
    const QList<Role> colors{Role::accent, Role::mint, Role::purple};
    const auto symbolAboveTheItems = [this] {
        for (const auto* header : view->findChildren<PanelHeader*>()) {
            const auto* symbol = header->findChild<SymbolLabel*>();
            if (symbol->isVisible() && symbol->key() != u"trash.fill"_s)
                return std::pair(symbol->key(), symbol->colorRole());
        }
        return std::pair(QString(), Role::window);
    };
    for (int i = 0; i < colors.size(); ++i) {
        EXPECT_EQ(categories().row(i).symbolColor, colors.at(i));
        chooseCategory(i);
        EXPECT_EQ(symbolAboveTheItems(), std::pair(categories().row(i).symbol, colors.at(i)));
    }
    EXPECT_EQ(view->findChild<PanelHeader*>()->findChild<SymbolLabel*>()->colorRole(), Role::orange);
}

TEST_F(JunkCleanerViewTests, theItemsStandAtTheRight)
{
    addSomeJunk();
    open();
    EXPECT_TRUE(shows(u"User Caches"_s));
    EXPECT_TRUE(shows(u"2 items · 11 MB total"_s));
    const QString caches = mac.home().path() + u"/Library/Caches/"_s;
    EXPECT_EQ(items().texts(),
              (QStringList{u"com.example.editor, "_s + caches + u"com.example.editor, 6 MB"_s,
                           u"com.example.music, "_s + caches + u"com.example.music, 5 MB"_s}));
    EXPECT_EQ(items().row(0).mark, ListRow::Mark::checkBox);
    EXPECT_EQ(items().row(0).detailElide, Qt::ElideMiddle);
    chooseCategory(1);
    // The plural stays for one.
    EXPECT_TRUE(shows(u"1 items · 3 MB total"_s));
    EXPECT_EQ(items().row(0).title, u"Example"_s);
}

TEST_F(JunkCleanerViewTests, theMarkOfACategoryFollowsItsItems)
{
    addSomeJunk();
    open();
    tick(0);
    EXPECT_EQ(categories().row(0).markState, Qt::PartiallyChecked);
    tick(1);
    EXPECT_EQ(categories().row(0).markState, Qt::Checked);
    tick(0);
    tick(1);
    EXPECT_EQ(categories().row(0).markState, Qt::Unchecked);
}

TEST_F(JunkCleanerViewTests, theMarkTicksACategoryWithoutShowingIt)
{
    addSomeJunk();
    open();
    categories().clickMark(1);
    turnFrame();
    EXPECT_EQ(categories().marks(), (QList{Qt::Unchecked, Qt::Checked, Qt::Unchecked}));
    EXPECT_EQ(categories().selectedRow(), 0);
    EXPECT_TRUE(shows(u"2 items · 11 MB total"_s));
    EXPECT_TRUE(shows(u"1 item selected"_s));
    EXPECT_TRUE(shows(u"3 MB"_s));
    categories().clickMark(1);
    turnFrame();
    EXPECT_TRUE(shows(u"Nothing selected"_s));
}

TEST_F(JunkCleanerViewTests, theMarkOfAPartlyTickedCategoryTicksTheRest)
{
    addSomeJunk();
    open();
    tick(1);
    categories().clickMark(0);
    turnFrame();
    EXPECT_EQ(items().marks(), (QList{Qt::Checked, Qt::Checked}));
    EXPECT_TRUE(shows(u"2 items selected"_s));
}

TEST_F(JunkCleanerViewTests, spaceTicksWhatIsCurrent)
{
    addSomeJunk();
    open();
    categories().view()->setFocus();
    QTest::keyClick(categories().view(), Qt::Key_Down);
    QTest::keyClick(categories().view(), Qt::Key_Space);
    turnFrame();
    EXPECT_EQ(items().row(0).title, u"Example"_s);
    EXPECT_EQ(categories().marks(), (QList{Qt::Unchecked, Qt::Checked, Qt::Unchecked}));
    items().view()->setFocus();
    QTest::keyClick(items().view(), Qt::Key_Down);
    QTest::keyClick(items().view(), Qt::Key_Space);
    turnFrame();
    EXPECT_TRUE(shows(u"Nothing selected"_s));
}

TEST_F(JunkCleanerViewTests, aSelectionAcrossCategoriesSurvivesSwitching)
{
    addSomeJunk();
    open();
    tick(1);
    chooseCategory(2);
    tick(0);
    EXPECT_TRUE(shows(u"2 items selected"_s));
    EXPECT_TRUE(shows(u"7 MB"_s));
    chooseCategory(0);
    EXPECT_EQ(items().marks(), (QList{Qt::Unchecked, Qt::Checked}));
    chooseCategory(2);
    EXPECT_EQ(items().marks(), (QList{Qt::Checked}));
}

TEST_F(JunkCleanerViewTests, oneSelectAllIsForTheCategoryAndTheOtherForEverything)
{
    addSomeJunk();
    open();
    Button* ofCategory = button(*view, u"Select All"_s);
    Button* ofAll = lastButton(u"Select All"_s);
    ASSERT_NE(ofCategory, ofAll);
    ofCategory->click();
    turnFrame();
    EXPECT_TRUE(shows(u"2 items selected"_s));
    EXPECT_EQ(ofCategory->caption(), u"Deselect All"_s);
    EXPECT_EQ(ofAll->caption(), u"Deselect All"_s);
    ofAll->click();
    turnFrame();
    EXPECT_TRUE(shows(u"Nothing selected"_s));
    ofAll->click();
    turnFrame();
    EXPECT_TRUE(shows(u"4 items selected"_s));
    EXPECT_TRUE(shows(u"16 MB"_s));
    ofCategory->click();
    turnFrame();
    EXPECT_TRUE(shows(u"2 items selected"_s));
    EXPECT_EQ(ofCategory->caption(), u"Select All"_s);
    EXPECT_EQ(ofAll->caption(), u"Deselect All"_s);
}

TEST_F(JunkCleanerViewTests, anItemIsRevealed)
{
    addSomeJunk();
    open();
    EXPECT_EQ(items().row(0).actions,
              (QList<RowAction>{{.symbol = u"folder"_s, .name = u"Reveal in Finder"_s}}));
    items().clickAction(1);
    EXPECT_EQ(workspace.revealed, QStringList(mac.home().path() + u"/Library/Caches/com.example.music"_s));
}

TEST_F(JunkCleanerViewTests, asksBeforeAnythingIsMoved)
{
    addSomeJunk();
    open();
    press(u"Select All"_s);
    Button* clean = button(*view, u"Move to Trash"_s);
    EXPECT_EQ(clean->symbol(), u"trash"_s);
    clean->click();
    EXPECT_TRUE(model().showCleanConfirm());
    ASSERT_EQ(alerts.requests().size(), 1);
    const AlertRequest& request = alerts.requests().first();
    EXPECT_EQ(request.title, u"Move 2 items to Trash?"_s);
    EXPECT_EQ(request.message,
              u"Selected junk (11 MB) will be moved to Trash. Nothing is permanently deleted "
              u"— you can restore from Trash if needed."_s);
    EXPECT_EQ(request.action, u"Move to Trash"_s);
    EXPECT_EQ(request.cancel, u"Cancel"_s);
    EXPECT_TRUE(request.isDestructive);
    EXPECT_EQ(categories().count(), 3);
}

TEST_F(JunkCleanerViewTests, movingToTheTrashIsTheOneProminentActionAndOrange)
{
    addSomeJunk();
    open();
    tick(0);
    int prominent = 0;
    for (const auto* each : view->findChildren<Button*>())
        prominent += each->kind() == Button::Kind::primary ? 1 : 0;
    EXPECT_EQ(prominent, 1);
    Button* clean = button(*view, u"Move to Trash"_s);
    EXPECT_EQ(clean->kind(), Button::Kind::primary);
    EXPECT_TRUE(holdsColor(pictureOf(*clean), Theme::instance().color(Role::orangeFill)));
}

TEST_F(JunkCleanerViewTests, aDismissedQuestionLeavesAllAsItIs)
{
    addSomeJunk();
    open();
    tick(0);
    press(u"Move to Trash"_s);
    EXPECT_EQ(alerts.requests().last().title, u"Move 1 item to Trash?"_s);
    alerts.dismiss();
    turnFrame();
    EXPECT_FALSE(model().showCleanConfirm());
    EXPECT_TRUE(shows(u"1 item selected"_s));
    EXPECT_EQ(items().count(), 2);
    press(u"Move to Trash"_s);
    EXPECT_EQ(alerts.requests().size(), 2);
}

TEST_F(JunkCleanerViewTests, whatIsConfirmedGoesToTheTrash)
{
    addSomeJunk();
    open();
    tick(0);
    press(u"Move to Trash"_s);
    alerts.confirm();
    turnFrame();
    EXPECT_FALSE(model().showCleanConfirm());
    EXPECT_FALSE(
        mac.fileManager().fileExists(mac.home().appending(u"Library/Caches/com.example.editor"_s)).exists);
    EXPECT_EQ(categories().row(0).detail, u"1 item"_s);
    EXPECT_EQ(categories().row(0).value, u"5 MB"_s);
    EXPECT_TRUE(shows(u"1 items · 5 MB total"_s));
    EXPECT_TRUE(shows(u"Nothing selected"_s));
    ASSERT_EQ(activityStore.load().size(), 1);
    EXPECT_EQ(activityStore.load().first().title, u"Junk files moved to Trash"_s);
}

TEST_F(JunkCleanerViewTests, afterTheShownCategoryTheNextIsShown)
{
    addSomeJunk();
    open();
    chooseCategory(1);
    categories().clickMark(1);
    turnFrame();
    press(u"Move to Trash"_s);
    alerts.confirm();
    turnFrame();
    EXPECT_EQ(categories().count(), 2);
    EXPECT_EQ(categories().selectedRow(), 0);
    EXPECT_TRUE(shows(u"2 items · 11 MB total"_s));
}

TEST_F(JunkCleanerViewTests, afterEverythingAllIsClean)
{
    addSomeJunk();
    open();
    lastButton(u"Select All"_s)->click();
    turnFrame();
    press(u"Move to Trash"_s);
    alerts.confirm();
    turnFrame();
    EXPECT_TRUE(shows(u"All clean!"_s));
    EXPECT_TRUE(shows(u"Select a category"_s));
    EXPECT_TRUE(shows(u"Nothing selected"_s));
    EXPECT_FALSE(button(*view, u"Move to Trash"_s)->isEnabled());
}

TEST_F(JunkCleanerViewTests, anItemThatCouldNotBeMovedStaysTickedAndCounted)
{
    // One folder is a cache of the user and of a browser: it can be moved once.
    const FileURL shared = addJunk("Caches/com.apple.Safari", 4'000'000);
    open();
    ASSERT_EQ(categories().count(), 2);
    lastButton(u"Select All"_s)->click();
    turnFrame();
    EXPECT_TRUE(shows(u"2 items selected"_s));
    press(u"Move to Trash"_s);
    alerts.confirm();
    turnFrame();
    EXPECT_FALSE(mac.fileManager().fileExists(shared).exists);
    EXPECT_EQ(categories().texts(), QStringList(u"Browser Caches, 1 item, 4 MB"_s));
    EXPECT_EQ(items().marks(), (QList{Qt::Checked}));
    EXPECT_TRUE(shows(u"1 item selected"_s));
    EXPECT_TRUE(shows(u"4 MB"_s));
    // What is gone counts as a file.
    turnUntil([this] { return items().row(0).symbol == u"doc.fill"_s; });
}

TEST_F(JunkCleanerViewTests, aCleanKeepsThePlaceInTheList)
{
    for (int i = 0; i < 60; ++i)
        addJunk("Caches/cache" + QByteArray::number(i).rightJustified(2, '0'), 1'000'000 - i);
    open();
    items().view()->setCurrentRow(41);
    const int place = items().view()->verticalScrollBar()->value();
    ASSERT_GT(place, 0);
    tick(40);
    press(u"Move to Trash"_s);
    alerts.confirm();
    turnFrame();
    EXPECT_EQ(items().count(), 59);
    EXPECT_EQ(items().view()->verticalScrollBar()->value(), place);
    EXPECT_EQ(items().view()->currentRow(), 40);
    EXPECT_EQ(items().row(40).title, u"cache41"_s);
}

TEST_F(JunkCleanerViewTests, aChoiceThatIsTakenBackClosesTheCategory)
{
    addSomeJunk();
    open();
    categories().clickTitle(0, Qt::ControlModifier);
    turnFrame();
    EXPECT_EQ(model().selectedCategoryID(), std::nullopt);
    EXPECT_EQ(categories().selectedRow(), -1);
    EXPECT_TRUE(shows(u"Select a category"_s));
    chooseCategory(0);
    EXPECT_FALSE(shows(u"Select a category"_s));
}

TEST_F(JunkCleanerViewTests, theDeleteKeyAsksLikeTheButton)
{
    addSomeJunk();
    open();
    items().view()->setFocus();
    QTest::keyClick(items().view(), Qt::Key_Delete);
    // Nothing is ticked, and the button is off.
    EXPECT_TRUE(alerts.requests().isEmpty());
    tick(0);
    QTest::keyClick(items().view(), Qt::Key_Delete);
    ASSERT_EQ(alerts.requests().size(), 1);
    EXPECT_EQ(alerts.requests().first().title, u"Move 1 item to Trash?"_s);
    alerts.dismiss();
    categories().view()->setFocus();
    QTest::keyClick(categories().view(), Qt::Key_Delete);
    EXPECT_EQ(alerts.requests().size(), 2);
    EXPECT_EQ(items().count(), 2);
    alerts.confirm();
    turnFrame();
    EXPECT_EQ(items().count(), 1);
}

TEST_F(JunkCleanerViewTests, theMenuOfAnItemRevealsItToo)
{
    const FileURL cache = addJunk("Caches/com.example.editor", 6'000'000);
    open();
    QMenu* menu = items().openMenu(0);
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(ListDriver::textsIn(*menu), QStringList{u"Reveal in Finder"_s});
    menu->actions().first()->trigger();
    EXPECT_EQ(workspace.revealed, QStringList{cache.path()});
}

TEST_F(JunkCleanerViewTests, reScanDropsTheSelectionAtOnce)
{
    addSomeJunk();
    HeldFileManager held(mac.root());
    const FileManagerGuard guard(held);
    open();
    press(u"Select All"_s);
    held.holdNextLookAt(mac.home().appending(u"Library/Logs"_s));
    Button* rescan = button(*view, u"Re-scan"_s);
    EXPECT_EQ(rescan->symbol(), u"arrow.clockwise"_s);
    rescan->click();
    ASSERT_TRUE(held.waitUntilHeld());
    turnFrame();
    EXPECT_TRUE(shows(u"Nothing selected"_s));
    EXPECT_TRUE(shows(u"Scanning…"_s));
    EXPECT_TRUE(shows(u"Select a category"_s));
    EXPECT_FALSE(rescan->isEnabled());
    EXPECT_FALSE(button(*view, u"Select All"_s)->isEnabled());
    held.letGo();
    waitForScan();
    EXPECT_EQ(categories().selectedRow(), 0);
    EXPECT_TRUE(shows(u"Nothing selected"_s));
    EXPECT_TRUE(rescan->isEnabled());
    close();
}

TEST_F(JunkCleanerViewTests, theKeysForItScanAnew)
{
    open();
    const std::pair<Qt::Key, Qt::KeyboardModifiers> keys[] = {{Qt::Key_F5, Qt::NoModifier},
                                                              {Qt::Key_R, Qt::ControlModifier}};
    int found = 0;
    for (const auto& [key, modifiers] : keys) {
        addJunk("Logs/log" + QByteArray::number(++found), 1'000'000);
        QTest::keyClick(view.get(), key, modifiers);
        EXPECT_TRUE(model().isScanning());
        waitForScan();
        EXPECT_EQ(items().count(), found);
    }
}

TEST_F(JunkCleanerViewTests, theKeyboardIsWhereItWasAfterAScan)
{
    addSomeJunk();
    open();
    items().view()->setFocus();
    QTest::keyClick(items().view(), Qt::Key_F5);
    waitForScan();
    EXPECT_EQ(QApplication::focusWidget(), items().view());
    button(*view, u"Re-scan"_s)->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    waitForScan();
    EXPECT_EQ(QApplication::focusWidget(), button(*view, u"Re-scan"_s));
}

TEST_F(JunkCleanerViewTests, theScreenMayCloseInTheMiddleOfAScan)
{
    addSomeJunk();
    HeldFileManager held(mac.root());
    const FileManagerGuard guard(held);
    held.holdNextLookAt(mac.home().appending(u"Library/Caches"_s));
    view = std::make_unique<JunkCleanerView>(context());
    show(*view);
    ASSERT_TRUE(held.waitUntilHeld());
    view.reset();
    held.letGo();
    waitForBackgroundWork();
    turnFrame();
    EXPECT_TRUE(activityStore.load().isEmpty());
}

TEST_F(JunkCleanerViewTests, aLargeSizeStandsOut)
{
    addJunk("Caches/a", gibibyte);
    addJunk("Caches/b", gibibyte - 1);
    // A tenth of a GiB is 107,374,182.4 bytes.
    addJunk("Caches/c", 107'374'183);
    addJunk("Caches/d", 107'374'182);
    open();
    QList<Role> colors;
    for (int i = 0; i < items().count(); ++i)
        colors.append(items().row(i).valueColor);
    EXPECT_EQ(colors, (QList{Role::red, Role::orange, Role::orange, Role::primaryText}));
}

TEST_F(JunkCleanerViewTests, aNameThatIsNotTextIsShownAndMoved)
{
    const FileURL odd = mac.writeFile("Users/mira/Library/Caches/Br\xfc"
                                      "cke\n<b>/data",
                                      QByteArray(1'000, 'x'))
                            .deletingLastPathComponent();
    open();
    EXPECT_EQ(items().texts().first().section(u", "_s, 0, 0), u"Br\xFFFD"
                                                              u"cke␊<b>"_s);
    tick(0);
    press(u"Move to Trash"_s);
    alerts.confirm();
    EXPECT_FALSE(mac.fileManager().fileExists(odd).exists);
}

TEST_F(JunkCleanerViewTests, everyControlIsNamedAndReachedByTab)
{
    addSomeJunk();
    open();
    tick(0);
    items().view()->setCurrentRow(1);
    expectEveryControlIsNamedAndReachedByTab(*view);
}

TEST_F(JunkCleanerViewTests, whatIsSelectedIsToldToAScreenReader)
{
    addSomeJunk();
    open();
    EXPECT_TRUE(accessibleNames(*view).contains(u"Nothing selected"_s));
    tick(0);
    EXPECT_TRUE(accessibleNames(*view).contains(u"1 item selected, 6 MB"_s));
}

TEST_F(JunkCleanerViewTests, itsModelsAreSound)
{
    addSomeJunk();
    open();
    const auto mode = QAbstractItemModelTester::FailureReportingMode::Fatal;
    const QAbstractItemModelTester ofCategories(categories().view()->rowModel(), mode);
    const QAbstractItemModelTester ofItems(items().view()->rowModel(), mode);
    tick(0);
    press(u"Move to Trash"_s);
    alerts.confirm();
    turnFrame();
    chooseCategory(1);
    press(u"Re-scan"_s);
    waitForScan();
    EXPECT_EQ(categories().count(), 3);
}

} // namespace keelbright::testing

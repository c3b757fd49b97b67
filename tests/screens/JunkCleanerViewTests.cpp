#include "Keelbright/widgets/Panels.h"
#include "Keelbright/widgets/SymbolLabel.h"
#include "tests/screens/junk/JunkCleanerTestCase.h"
#include "tests/support/HeldFileManager.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QTest>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 gibibyte = 1'073'741'824;

} // namespace

using JunkCleanerViewTests = JunkCleanerTestCase;

TEST_F(JunkCleanerViewTests, scansByItselfWhenItIsShown)
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

TEST_F(JunkCleanerViewTests, theFirstFrameShowsThatItScans)
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

TEST_F(JunkCleanerViewTests, aNewVisitStartsOver)
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

TEST_F(JunkCleanerViewTests, keepsItsCategoriesWhenTheWindowIsShownAgain)
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

TEST_F(JunkCleanerViewTests, scansAgainWhenItIsShownAgainAfterAllWasClean)
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

TEST_F(JunkCleanerViewTests, anItemIsRevealed)
{
    addSomeJunk();
    open();
    EXPECT_EQ(items().row(0).actions,
              (QList<RowAction>{
                  {.id = RowActionId::reveal, .symbol = u"folder"_s, .name = u"Reveal in Finder"_s}}));
    items().clickAction(1);
    EXPECT_EQ(workspace.revealed, QStringList(mac.home().path() + u"/Library/Caches/com.example.music"_s));
}

TEST_F(JunkCleanerViewTests, aClearedChoiceClosesTheCategory)
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

TEST_F(JunkCleanerViewTests, f5AndControlRScanAgain)
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

TEST_F(JunkCleanerViewTests, everyControlIsNamedAndReachedByTab)
{
    addSomeJunk();
    open();
    tick(0);
    items().view()->setCurrentRow(1);
    expectEveryControlIsNamedAndReachedByTab(*view);
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

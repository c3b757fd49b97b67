#include "Keelbright/widgets/rows/RowListView.h"

#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/rows/RowLayout.h"
#include "Keelbright/widgets/theme/Theme.h"
#include "tests/support/Accessible.h"
#include "tests/support/Printing.h"
#include "tests/support/SampleRows.h"
#include "tests/support/ThemeGuard.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <functional>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

/// The actions that were asked for, with their rows.
using Presses = QList<std::pair<int, RowActionId>>;

class RowListViewTest : public ::testing::Test
{
protected:
    RowListViewTest()
    {
        view.setRowModel(&model);
        view.resize(600, 400);
    }

    void show()
    {
        view.show();
        view.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
    }

    /// Where a part of the row is in the viewport, as the delegate lays it out.
    [[nodiscard]] RowLayout layoutOf(int row) const
    {
        const QRect rect = view.visualRect(model.index(row)).adjusted(0, 0, 0, -1);
        return layOutRow(model.rowAt(row), rect, RowMetrics::tablePadding);
    }

    void click(const QPoint& place) { QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, place); }

    void collect(Presses& presses)
    {
        QObject::connect(&view, &RowListView::actionPressed, &view,
                         [&presses](int row, RowActionId action) { presses.append({row, action}); });
    }

    [[nodiscard]] QList<Button*> shownButtons() const
    {
        QList<Button*> buttons;
        for (auto* button : view.findChildren<Button*>()) {
            if (button->isVisible())
                buttons.append(button);
        }
        return buttons;
    }

    ThemeGuard theme{ColorScheme::light, true};
    SampleRows model{{u"Letters"_s, u"Music"_s, u"Pictures"_s}};
    RowListView view{RowListView::Look::table, u"Junk items"_s};
};

} // namespace

TEST_F(RowListViewTest, itsModelIsSound)
{
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.tick(1);
    model.setTitles({u"#Today"_s, u"Letters"_s});
    EXPECT_EQ(model.rowCount(), 2);
}

TEST_F(RowListViewTest, aScreenReaderReadsTheTextsAndNumbersOfARow)
{
    EXPECT_EQ(model.index(2).data(Qt::AccessibleTextRole).toString(),
              u"Pictures, /Users/mira/Pictures, 2 MB"_s);
    EXPECT_EQ(accessibleName(&view), u"Junk items"_s);
    QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&view);
    ASSERT_EQ(list->childCount(), 3);
    EXPECT_EQ(list->child(2)->text(QAccessible::Name), u"Pictures, /Users/mira/Pictures, 2 MB"_s);
}

TEST_F(RowListViewTest, aScreenReaderReadsTheMark)
{
    model.tick(1);
    QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&view);
    EXPECT_FALSE(list->child(0)->state().checked);
    EXPECT_TRUE(list->child(1)->state().checked);
    EXPECT_TRUE(list->child(1)->state().checkable);
}

TEST_F(RowListViewTest, aClickOnTheMarkTicksAndDoesNotChooseTheRow)
{
    show();
    const QSignalSpy marks(&view, &RowListView::markPressed);
    const QSignalSpy rows(&view, &RowListView::currentRowChanged);
    const QSignalSpy opened(&view, &RowListView::opened);
    click(layoutOf(1).mark.center());
    ASSERT_EQ(marks.size(), 1);
    EXPECT_EQ(marks.first().first().toInt(), 1);
    EXPECT_TRUE(rows.isEmpty());
    EXPECT_TRUE(opened.isEmpty());
}

TEST_F(RowListViewTest, aClickOnTheRowChoosesAndOpensIt)
{
    show();
    const QSignalSpy rows(&view, &RowListView::currentRowChanged);
    const QSignalSpy opened(&view, &RowListView::opened);
    click(layoutOf(1).title.center());
    ASSERT_EQ(rows.size(), 1);
    EXPECT_EQ(rows.first().first().toInt(), 1);
    ASSERT_EQ(opened.size(), 1);
    EXPECT_EQ(opened.first().first().toInt(), 1);
}

TEST_F(RowListViewTest, reportsThatTheSelectionWasCleared)
{
    show();
    click(layoutOf(1).title.center());
    const QSignalSpy rows(&view, &RowListView::currentRowChanged);
    const QSignalSpy cleared(&view, &RowListView::currentRowCleared);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::ControlModifier, layoutOf(1).title.center());
    EXPECT_EQ(cleared.size(), 1);
    EXPECT_TRUE(rows.isEmpty());
    // Another selection, setCurrentRow and new rows do not clear it.
    click(layoutOf(0).title.center());
    click(layoutOf(2).title.center());
    view.setCurrentRow(-1);
    view.setCurrentRow(1);
    model.setTitles({u"Letters"_s});
    EXPECT_EQ(cleared.size(), 1);
    EXPECT_EQ(rows.size(), 2);
}

TEST_F(RowListViewTest, theActionsOfEveryRowFollowAClick)
{
    show();
    Presses pressed;
    collect(pressed);
    click(layoutOf(2).actions.at(0).center());
    click(layoutOf(0).actions.at(1).center());
    EXPECT_EQ(pressed, (Presses{{2, RowActionId::reveal}, {0, RowActionId::trash}}));
    EXPECT_TRUE(view.selectionModel()->selectedIndexes().isEmpty());
}

TEST_F(RowListViewTest, aPressThatEndsElsewhereDoesNothing)
{
    show();
    const QSignalSpy actions(&view, &RowListView::actionPressed);
    QTest::mousePress(view.viewport(), Qt::LeftButton, {}, layoutOf(0).actions.at(1).center());
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, layoutOf(1).actions.at(1).center());
    EXPECT_TRUE(actions.isEmpty());
}

TEST_F(RowListViewTest, theCurrentRowHasRealButtonsThatTabReaches)
{
    show();
    view.setCurrentRow(1);
    view.setFocus();
    ASSERT_EQ(shownButtons().size(), 2);
    EXPECT_EQ(shownButtons().at(0)->accessibleName(), u"Reveal in Finder"_s);
    EXPECT_EQ(shownButtons().at(1)->accessibleName(), u"Move to Trash"_s);
    const QPoint center = view.viewport()->mapFromGlobal(
        shownButtons().at(1)->mapToGlobal(shownButtons().at(1)->rect().center()));
    EXPECT_TRUE(layoutOf(1).actions.at(1).contains(center));
    Presses pressed;
    collect(pressed);
    QTest::keyClick(&view, Qt::Key_Tab);
    ASSERT_EQ(QApplication::focusWidget(), shownButtons().at(0));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(pressed, (Presses{{1, RowActionId::reveal}, {1, RowActionId::trash}}));
}

TEST_F(RowListViewTest, toAScreenReaderTheButtonsAreBesideTheList)
{
    QWidget screen;
    auto* layout = new QVBoxLayout(&screen);
    auto* list = new RowListView(RowListView::Look::table, u"Junk items"_s);
    list->setRowModel(&model);
    layout->addWidget(list);
    screen.resize(600, 400);
    screen.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&screen));
    list->setCurrentRow(1);
    QStringList names;
    const std::function<void(QAccessibleInterface*)> collect = [&](QAccessibleInterface* part) {
        if (part->role() == QAccessible::Button && !part->state().invisible)
            names.append(part->text(QAccessible::Name));
        for (int i = 0; i < part->childCount(); ++i)
            collect(part->child(i));
    };
    collect(QAccessible::queryAccessibleInterface(&screen));
    EXPECT_EQ(names, (QStringList{u"Reveal in Finder"_s, u"Move to Trash"_s}));
    list->hide();
    names.clear();
    collect(QAccessible::queryAccessibleInterface(&screen));
    EXPECT_EQ(names, QStringList());
}

TEST_F(RowListViewTest, theArrowsLeadFromAButtonToTheNextRow)
{
    show();
    view.setCurrentRow(0);
    shownButtons().at(0)->setFocus();
    QTest::keyClick(shownButtons().at(0), Qt::Key_Down);
    EXPECT_EQ(view.currentRow(), 1);
    EXPECT_TRUE(view.hasFocus());
}

TEST_F(RowListViewTest, theKeyboardTicksOpensAndTrashes)
{
    show();
    const QSignalSpy marks(&view, &RowListView::markPressed);
    const QSignalSpy opened(&view, &RowListView::opened);
    Presses pressed;
    collect(pressed);
    view.setFocus();
    view.setCurrentRow(0);
    QTest::keyClick(&view, Qt::Key_Down);
    QTest::keyClick(&view, Qt::Key_Space);
    QTest::keyClick(&view, Qt::Key_Return);
    QTest::keyClick(&view, Qt::Key_Delete);
    ASSERT_EQ(marks.size(), 1);
    EXPECT_EQ(marks.first().first().toInt(), 1);
    ASSERT_EQ(opened.size(), 1);
    EXPECT_EQ(pressed, (Presses{{1, RowActionId::trash}}));
}

TEST_F(RowListViewTest, theMenuOfARowHoldsItsActions)
{
    show();
    view.setCurrentRow(2);
    Presses pressed;
    collect(pressed);
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5), QPoint(5, 5));
    QApplication::sendEvent(view.viewport(), &event);
    auto* menu = view.findChild<QMenu*>();
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().size(), 2);
    EXPECT_EQ(menu->actions().at(0)->text(), u"Reveal in Finder"_s);
    menu->actions().at(1)->trigger();
    EXPECT_EQ(pressed, (Presses{{2, RowActionId::trash}}));
}

TEST_F(RowListViewTest, anActionOfTheMenuAloneHasNoButton)
{
    show();
    model.menuActions = {{RowActionId::open, {}, u"Rename…"_s}};
    model.announceAllRows();
    view.setCurrentRow(1);
    EXPECT_EQ(shownButtons().size(), 2);
    Presses pressed;
    collect(pressed);
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5), QPoint(5, 5));
    QApplication::sendEvent(view.viewport(), &event);
    auto* menu = view.findChild<QMenu*>();
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().size(), 3);
    EXPECT_EQ(menu->actions().at(2)->text(), u"Rename…"_s);
    menu->actions().at(2)->trigger();
    EXPECT_EQ(pressed, (Presses{{1, RowActionId::open}}));
}

TEST_F(RowListViewTest, theDeleteKeyKnowsTheActionsOfTheMenu)
{
    show();
    model.menuActions = {{RowActionId::remove, {}, u"Remove…"_s, true}};
    model.hasButtons = false;
    Presses pressed;
    collect(pressed);
    view.setFocus();
    view.setCurrentRow(1);
    QTest::keyClick(&view, Qt::Key_Delete);
    EXPECT_EQ(pressed, (Presses{{1, RowActionId::remove}}));
}

TEST_F(RowListViewTest, aRowThatIsCurrentByTheFocusAloneCanBeSelected)
{
    show();
    view.setFocus(Qt::TabFocusReason);
    ASSERT_EQ(view.currentRow(), 0);
    EXPECT_TRUE(view.selectionModel()->selectedIndexes().isEmpty());
    view.setCurrentRow(0);
    EXPECT_EQ(view.selectionModel()->selectedIndexes(), QModelIndexList{model.index(0)});
    view.setCurrentRow(-1);
    EXPECT_TRUE(view.selectionModel()->selectedIndexes().isEmpty());
    EXPECT_EQ(view.currentRow(), -1);
}

TEST_F(RowListViewTest, aHeaderIsNeitherChosenNorPressed)
{
    model.setTitles({u"#Today"_s, u"Letters"_s, u"#Yesterday"_s, u"Music"_s});
    show();
    const QSignalSpy rows(&view, &RowListView::currentRowChanged);
    const QSignalSpy opened(&view, &RowListView::opened);
    click(view.visualRect(model.index(2)).center());
    EXPECT_TRUE(rows.isEmpty());
    EXPECT_TRUE(opened.isEmpty());
    EXPECT_EQ(view.visualRect(model.index(0)).height(), RowMetrics::header);
    EXPECT_EQ(view.visualRect(model.index(1)).height(), RowMetrics::tableRow);
    view.setFocus();
    view.setCurrentRow(1);
    QTest::keyClick(&view, Qt::Key_Down);
    EXPECT_EQ(view.currentRow(), 3);
    EXPECT_EQ(model.index(2).data(Qt::AccessibleTextRole).toString(), u"Yesterday"_s);
}

TEST_F(RowListViewTest, theToolTipHoldsWhatIsCutAndTheNamesOfActions)
{
    model.setTitles({u"short"_s, QString(200, u'x')});
    show();
    EXPECT_EQ(view.toolTipAt(layoutOf(0).title.center()), QString());
    EXPECT_EQ(view.toolTipAt(layoutOf(1).title.center()),
              QString(200, u'x') + u" /Users/mira/"_s + QString(200, u'x'));
    EXPECT_EQ(view.toolTipAt(layoutOf(0).actions.at(0).center()), u"Reveal in Finder"_s);
}

TEST_F(RowListViewTest, nothingOfARowOverlapsInANarrowList)
{
    model.setTitles({QString(300, u'w')});
    for (const int width : {280, 340, 600}) {
        const RowLayout layout =
            layOutRow(model.rowAt(0), QRect(0, 0, width, RowMetrics::tableRow), RowMetrics::tablePadding);
        EXPECT_LT(layout.mark.right(), layout.picture.left());
        EXPECT_LT(layout.picture.right(), layout.title.left());
        EXPECT_LT(layout.title.right(), layout.value.left()) << width;
        EXPECT_LT(layout.detail.right(), layout.value.left()) << width;
        EXPECT_LT(layout.value.right(), layout.actions.at(0).left());
        EXPECT_LT(layout.actions.at(1).right(), width);
    }
}

TEST_F(RowListViewTest, setCurrentRowIsNotReportedAsAChoiceOfTheUser)
{
    show();
    const QSignalSpy rows(&view, &RowListView::currentRowChanged);
    view.setCurrentRow(1);
    EXPECT_TRUE(rows.isEmpty());
    EXPECT_EQ(view.currentRow(), 1);
    view.setCurrentRow(-1);
    EXPECT_EQ(view.currentRow(), -1);
    EXPECT_TRUE(shownButtons().isEmpty());
}

TEST_F(RowListViewTest, onlyVisibleRowsAreMade)
{
    QStringList titles;
    for (int i = 0; i < 100'000; ++i)
        titles.append(QString::number(i));
    model.setTitles(titles);
    model.rowsMade = 0;
    show();
    view.scrollToBottom();
    (void)view.grab();
    EXPECT_GT(model.rowsMade, 0);
    EXPECT_LT(model.rowsMade, 400);
}

TEST_F(RowListViewTest, tabSkipsAListWithoutRows)
{
    EXPECT_EQ(view.focusPolicy(), Qt::StrongFocus);
    model.setTitles({});
    EXPECT_EQ(view.focusPolicy(), Qt::NoFocus);
    model.setTitles({u"Letters"_s});
    EXPECT_EQ(view.focusPolicy(), Qt::StrongFocus);
}

TEST_F(RowListViewTest, thereIsNoLineBelowTheLastRow)
{
    show();
    const QImage picture = view.grab().toImage();
    const auto lineBelow = [&](int row) {
        return picture.pixelColor(2, view.visualRect(model.index(row, 0)).bottom());
    };
    const QColor ground = picture.pixelColor(2, view.visualRect(model.index(0, 0)).top());
    EXPECT_NE(lineBelow(0), ground);
    EXPECT_EQ(lineBelow(model.rowCount() - 1), ground);
}

TEST_F(RowListViewTest, theRowBelowThePointerHasAFaintGround)
{
    show();
    const auto groundOf = [&](int row) {
        const QPoint corner = view.visualRect(model.index(row)).topLeft() + QPoint(2, 2);
        return pictureOf(view).pixelColor(corner);
    };
    const QColor bare = groundOf(1);
    QTest::mouseMove(view.viewport(), layoutOf(1).title.center());
    QColor faint = Theme::instance().color(Role::secondaryText);
    faint.setAlphaF(0.05F);
    EXPECT_TRUE(isNear(groundOf(1), composed(bare, faint)));
    EXPECT_EQ(groundOf(0), bare);
    QTest::mouseMove(view.viewport(), layoutOf(0).title.center());
    EXPECT_EQ(groundOf(1), bare);
}

TEST_F(RowListViewTest, theFocusIsVisibleAfterAKeyAndNotAfterAClick)
{
    show();
    view.setCurrentRow(1);
    view.clearFocus();
    const QImage without = pictureOf(view);
    view.setFocus(Qt::TabFocusReason);
    const QImage withFocus = pictureOf(view);
    EXPECT_NE(withFocus, without);
    click(layoutOf(1).title.center());
    EXPECT_NE(pictureOf(view), withFocus);
}

} // namespace keelbright::testing

#include "Keelbright/widgets/rows/RowListView.h"

#include "Keelbright/widgets/rows/RowLayout.h"
#include "Keelbright/widgets/theme/Theme.h"
#include "tests/support/Accessible.h"
#include "tests/support/Printing.h"
#include "tests/widgets/rows/RowListFixture.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

TEST_F(RowListViewTest, itsModelIsSound)
{
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.tick(1);
    model.setTitles({u"#Today"_s, u"Letters"_s});
    EXPECT_EQ(model.rowCount(), 2);
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
    ASSERT_EQ(menu->actions().size(), 3);
    EXPECT_EQ(menu->actions().at(0)->text(), u"Reveal in Finder"_s);
    EXPECT_TRUE(menu->actions().at(1)->isSeparator()) << "what takes something away stands apart";
    menu->actions().at(2)->trigger();
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
    EXPECT_EQ(menu->actions().last()->text(), u"Rename…"_s);
    menu->actions().last()->trigger();
    EXPECT_EQ(pressed, (Presses{{1, RowActionId::open}}));
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

} // namespace keelbright::testing

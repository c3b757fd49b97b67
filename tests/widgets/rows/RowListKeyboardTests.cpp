#include "Keelbright/widgets/rows/RowListView.h"

#include "Keelbright/widgets/Button.h"
#include "tests/support/Accessible.h"
#include "tests/support/Printing.h"
#include "tests/widgets/rows/RowListFixture.h"

#include <QApplication>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <functional>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

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

TEST_F(RowListViewTest, tabSkipsAListWithoutRows)
{
    EXPECT_EQ(view.focusPolicy(), Qt::StrongFocus);
    model.setTitles({});
    EXPECT_EQ(view.focusPolicy(), Qt::NoFocus);
    model.setTitles({u"Letters"_s});
    EXPECT_EQ(view.focusPolicy(), Qt::StrongFocus);
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

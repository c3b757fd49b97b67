#include "Keelbright/screens/storage/treemap/TreemapView.h"

#include "tests/screens/storage/treemap/TreemapViewFixture.h"
#include "tests/support/Accessible.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTest>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

TEST_F(TreemapViewTests, theArrowsGoFromCellToCell)
{
    view.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(view.currentCell(), 0);
    QTest::keyClick(&view, Qt::Key_Right);
    const int second = view.currentCell();
    EXPECT_NE(second, 0);
    EXPECT_GE(view.cells().at(second).rect.left(), view.cells().at(0).rect.right() - 0.5);
    QTest::keyClick(&view, Qt::Key_Left);
    EXPECT_EQ(view.currentCell(), 0);
    QTest::keyClick(&view, Qt::Key_Up);
    EXPECT_EQ(view.currentCell(), 0);
    QTest::keyClick(&view, Qt::Key_End);
    EXPECT_EQ(view.currentCell(), 3);
    QTest::keyClick(&view, Qt::Key_Home);
    EXPECT_EQ(view.currentCell(), 0);
}

TEST_F(TreemapViewTests, anArrowAndItsOppositeLeadBack)
{
    // The largest at the left, and a column of many at its right.
    setSizes({9'000, 1'000, 990, 980, 970, 960, 950, 940});
    view.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&view, Qt::Key_Right);
    QTest::keyClick(&view, Qt::Key_Right);
    const int there = view.currentCell();
    QTest::keyClick(&view, Qt::Key_Left);
    QTest::keyClick(&view, Qt::Key_Left);
    EXPECT_EQ(view.currentCell(), 0);
    QTest::keyClick(&view, Qt::Key_Right);
    QTest::keyClick(&view, Qt::Key_Right);
    EXPECT_EQ(view.currentCell(), there);
}

TEST_F(TreemapViewTests, enterAndSpaceDrillIntoTheCurrentFolder)
{
    view.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&view, Qt::Key_Return);
    QTest::keyClick(&view, Qt::Key_Space);
    EXPECT_EQ(namesIn(drills), (QStringList{u"0"_s, u"0"_s}));
    view.setCurrentCell(1);
    QTest::keyClick(&view, Qt::Key_Return);
    EXPECT_EQ(drills.count(), 2);
}

TEST_F(TreemapViewTests, deleteAsksForTheTrash)
{
    view.setFocus(Qt::TabFocusReason);
    view.setCurrentCell(1);
    QTest::keyClick(&view, Qt::Key_Delete);
    ASSERT_EQ(actions.count(), 1);
    EXPECT_EQ(namesIn(actions), QStringList{u"1"_s});
    EXPECT_EQ(actions.first().at(1).value<RowActionId>(), RowActionId::trash);
}

TEST_F(TreemapViewTests, theMenuKeyOpensTheMenuOfTheCurrentCell)
{
    view.setCurrentCell(1);
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(&view, &event);
    auto* menu = view.findChild<QMenu*>();
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->actions().size(), 3) << "two entries and a line between them";
    menu->close();
}

TEST_F(TreemapViewTests, isOneStopForTab)
{
    QWidget before(&window);
    QWidget after(&window);
    for (QWidget* neighbour : {&before, &after}) {
        neighbour->setFocusPolicy(Qt::StrongFocus);
        neighbour->show();
    }
    QWidget::setTabOrder(&before, &view);
    QWidget::setTabOrder(&view, &after);
    before.setFocus();
    QTest::keyClick(&before, Qt::Key_Tab);
    EXPECT_TRUE(view.hasFocus());
    QTest::keyClick(&view, Qt::Key_Tab);
    EXPECT_TRUE(after.hasFocus());
}

TEST_F(TreemapViewTests, theFocusIsVisibleWhenItCameByTheKeyboard)
{
    const QImage without = pictureOf(view);
    view.setFocus(Qt::TabFocusReason);
    const QImage with = pictureOf(view);
    EXPECT_NE(with, without);
    QTest::keyClick(&view, Qt::Key_Right);
    EXPECT_NE(pictureOf(view), with);
    view.clearFocus();
    view.setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(pictureOf(view), without);
}

TEST_F(TreemapViewTests, toAScreenReaderItIsAListOfNamedCells)
{
    EXPECT_EQ(accessible()->role(), QAccessible::List);
    EXPECT_EQ(accessible()->text(QAccessible::Name), u"Treemap"_s);
    ASSERT_EQ(accessible()->childCount(), 4);
    QStringList names;
    for (int i = 0; i < 4; ++i) {
        QAccessibleInterface* cell = accessible()->child(i);
        ASSERT_NE(cell, nullptr);
        names.append(cell->text(QAccessible::Name));
        EXPECT_TRUE(cell->isValid());
        EXPECT_EQ(cell->role(), QAccessible::ListItem);
        EXPECT_EQ(cell->parent(), accessible());
        EXPECT_EQ(accessible()->indexOfChild(cell), i);
        EXPECT_EQ(accessible()->child(i), cell);
        const QPoint middle = view.mapToGlobal(center(i));
        EXPECT_TRUE(cell->rect().contains(middle));
        EXPECT_EQ(accessible()->childAt(middle.x(), middle.y()), cell);
    }
    EXPECT_EQ(names, (QStringList{u"0, 4 MB"_s, u"1, 3 MB"_s, u"2, 2 MB"_s, u"3, 1 MB"_s}));
    EXPECT_EQ(accessible()->child(4), nullptr);
    EXPECT_EQ(accessible()->child(-1), nullptr);
}

TEST_F(TreemapViewTests, aScreenReaderFollowsTheFocus)
{
    EXPECT_EQ(accessible()->focusChild(), nullptr);
    view.setFocus(Qt::TabFocusReason);
    view.setCurrentCell(2);
    EXPECT_EQ(accessible()->focusChild(), accessible()->child(2));
    EXPECT_TRUE(accessible()->child(2)->state().focused);
    EXPECT_TRUE(accessible()->child(2)->state().selected);
    EXPECT_FALSE(accessible()->child(1)->state().focused);
    EXPECT_TRUE(accessible()->child(1)->state().focusable);
    view.clearFocus();
    EXPECT_FALSE(accessible()->child(2)->state().focused);
}

TEST_F(TreemapViewTests, aScreenReaderPressesAFolder)
{
    QAccessibleActionInterface* folder = accessible()->child(2)->actionInterface();
    ASSERT_NE(folder, nullptr);
    EXPECT_EQ(folder->actionNames(), (QStringList{QAccessibleActionInterface::pressAction(),
                                                  QAccessibleActionInterface::setFocusAction()}));
    folder->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(namesIn(drills), QStringList{u"2"_s});
    QAccessibleActionInterface* file = accessible()->child(1)->actionInterface();
    EXPECT_EQ(file->actionNames(), QStringList{QAccessibleActionInterface::setFocusAction()});
    file->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(drills.count(), 1);
    file->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_TRUE(view.hasFocus());
    EXPECT_EQ(view.currentCell(), 1);
}

TEST_F(TreemapViewTests, aCellThatIsGoneIsInvalidToAScreenReader)
{
    QAccessibleInterface* old = accessible()->child(3);
    setSizes({7, 5});
    EXPECT_FALSE(old->isValid());
    EXPECT_EQ(old->text(QAccessible::Name), QString());
    EXPECT_EQ(old->rect(), QRect());
    EXPECT_TRUE(old->state().invalid);
    EXPECT_TRUE(old->actionInterface()->actionNames().isEmpty());
    EXPECT_EQ(accessible()->indexOfChild(old), -1);
    EXPECT_EQ(accessible()->childCount(), 2);
    EXPECT_EQ(accessible()->child(1)->text(QAccessible::Name), u"1, 5 bytes"_s);
}

} // namespace keelbright::testing

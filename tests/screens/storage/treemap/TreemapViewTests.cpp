#include "Keelbright/screens/storage/treemap/TreemapView.h"

#include "tests/screens/storage/treemap/TreemapFixture.h"
#include "tests/support/Accessible.h"
#include "tests/support/ThemeGuard.h"
#include "tests/support/WorkTimer.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

/// A map that can be taken to a screen with other pixels.
class MapOnAnyScreen : public TreemapView
{
public:
    int ratio = 1;

protected:
    [[nodiscard]] int metric(PaintDeviceMetric asked) const override
    {
        if (asked == PdmDevicePixelRatio)
            return ratio;
        if (asked == PdmDevicePixelRatioScaled)
            return static_cast<int>(ratio * devicePixelRatioFScale());
        return TreemapView::metric(asked);
    }
};

/// A map of four cells on screen: "0" and "2" are folders, "1" and "3" are files.
class TreemapViewTests : public ::testing::Test
{
protected:
    TreemapViewTests()
    {
        window.resize(800, 500);
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(&view);
        setSizes({4'000'000, 3'000'000, 2'000'000, 1'000'000});
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        view.clearFocus();
        paint();
    }

    ~TreemapViewTests() override { view.setParent(nullptr); }

    TreemapViewTests(const TreemapViewTests&) = delete;
    TreemapViewTests& operator=(const TreemapViewTests&) = delete;

    void setSizes(const QList<qint64>& sizes)
    {
        const QList<FolderSizeNode> nodes = treemapNodes(sizes);
        view.setNodes(nodes, bytesOf(nodes));
    }

    void paint() { (void)view.grab(); }

    void resizeWindow(const QSize& size)
    {
        window.resize(size);
        constexpr int patience = 60'000;
        ASSERT_TRUE(QTest::qWaitFor(
            [&] { return window.rect().contains(view.geometry()) && view.width() > size.width() / 2; },
            patience));
    }

    [[nodiscard]] QPoint center(int cell) { return view.cells().at(cell).rect.center().toPoint(); }

    void hover(const QPoint& position)
    {
        QMouseEvent move(QEvent::MouseMove, position, view.mapToGlobal(position), Qt::NoButton, Qt::NoButton,
                         Qt::NoModifier);
        QApplication::sendEvent(&view, &move);
    }

    [[nodiscard]] QString toolTipAt(const QPoint& position)
    {
        QHelpEvent help(QEvent::ToolTip, position, view.mapToGlobal(position));
        QApplication::sendEvent(&view, &help);
        return QToolTip::text();
    }

    /// The names of the entries that were drilled into.
    [[nodiscard]] static QStringList namesIn(const QSignalSpy& spy)
    {
        QStringList names;
        for (const QList<QVariant>& arguments : spy)
            names.append(arguments.first().value<FolderSizeNode>().name);
        return names;
    }

    [[nodiscard]] QAccessibleInterface* accessible() { return QAccessible::queryAccessibleInterface(&view); }

    ThemeGuard theme;
    QWidget window;
    TreemapView view;
    QSignalSpy drills{&view, &TreemapView::drilledIn};
    QSignalSpy actions{&view, &TreemapView::actionPressed};
};

} // namespace

TEST_F(TreemapViewTests, isAsHighAsTheMapAndAsWideAsItsPlace)
{
    EXPECT_EQ(view.height(), 420);
    EXPECT_EQ(view.width(), window.contentsRect().width() - window.layout()->contentsMargins().left() -
                                window.layout()->contentsMargins().right());
    const QRectF last = view.cells().last().rect;
    EXPECT_NEAR(last.right(), view.width(), 0.001);
    EXPECT_NEAR(last.bottom(), 420, 0.001);
}

TEST_F(TreemapViewTests, hoverFocusAndClickDoNotDrawTheMapAgain)
{
    ASSERT_EQ(view.drawingCount(), 1);
    const QImage before = pictureOf(view);
    hover(center(1));
    EXPECT_EQ(view.hoveredCell(), 1);
    EXPECT_NE(pictureOf(view), before);
    hover(center(2));
    view.setFocus(Qt::TabFocusReason);
    paint();
    QTest::keyClick(&view, Qt::Key_Right);
    QTest::mouseClick(&view, Qt::LeftButton, {}, center(0));
    paint();
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&view, &leave);
    paint();
    EXPECT_EQ(view.hoveredCell(), -1);
    EXPECT_EQ(view.drawingCount(), 1);
}

TEST_F(TreemapViewTests, isDrawnAgainForOtherNodesAnotherSizeAndAnotherScheme)
{
    setSizes({5, 4, 3});
    paint();
    EXPECT_EQ(view.drawingCount(), 2);
    resizeWindow({600, 500});
    paint();
    EXPECT_EQ(view.drawingCount(), 3);
    Theme::instance().setScheme(ColorScheme::dark);
    paint();
    EXPECT_EQ(view.drawingCount(), 4);
    paint();
    EXPECT_EQ(view.drawingCount(), 4);
}

TEST_F(TreemapViewTests, isDrawnAgainForAnotherDevicePixelRatio)
{
    MapOnAnyScreen map;
    map.resize(300, 420);
    const QList<FolderSizeNode> nodes = treemapNodes({2, 1});
    map.setNodes(nodes, bytesOf(nodes));
    QImage ground(map.size(), QImage::Format_ARGB32_Premultiplied);
    map.render(&ground);
    map.render(&ground);
    EXPECT_EQ(map.drawingCount(), 1);
    map.ratio = 2;
    map.render(&ground);
    map.render(&ground);
    EXPECT_EQ(map.drawingCount(), 2);
}

TEST_F(TreemapViewTests, aClickDrillsIntoAFolderAndDoesNothingForAFile)
{
    QTest::mouseClick(&view, Qt::LeftButton, {}, center(1));
    EXPECT_EQ(drills.count(), 0);
    QTest::mouseClick(&view, Qt::LeftButton, {}, center(2));
    EXPECT_EQ(namesIn(drills), QStringList{u"2"_s});
    EXPECT_EQ(view.currentCell(), 2);
}

TEST_F(TreemapViewTests, aPressThatEndsOnAnotherCellDoesNothing)
{
    QTest::mousePress(&view, Qt::LeftButton, {}, center(0));
    QTest::mouseRelease(&view, Qt::LeftButton, {}, center(2));
    EXPECT_EQ(drills.count(), 0);
}

TEST_F(TreemapViewTests, theToolTipIsNameAndSize)
{
    EXPECT_EQ(toolTipAt(center(0)), u"0 \x2014 4 MB"_s);
    EXPECT_EQ(toolTipAt(center(3)), u"3 \x2014 1 MB"_s);
}

TEST_F(TreemapViewTests, thePointerIsAHandOverFolders)
{
    hover(center(0));
    EXPECT_EQ(view.cursor().shape(), Qt::PointingHandCursor);
    hover(center(1));
    EXPECT_EQ(view.cursor().shape(), Qt::ArrowCursor);
}

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

TEST_F(TreemapViewTests, theMenuHoldsWhatCanBeDoneWithTheCell)
{
    QContextMenuEvent event(QContextMenuEvent::Mouse, center(2), view.mapToGlobal(center(2)));
    QApplication::sendEvent(&view, &event);
    auto* menu = view.findChild<QMenu*>();
    ASSERT_NE(menu, nullptr);
    QStringList entries;
    for (const QAction* action : menu->actions())
        entries.append(action->text());
    EXPECT_EQ(entries, (QStringList{u"Add to Backup Sources"_s, u"Organise this folder"_s,
                                    u"Reveal in Finder"_s, u"Move to Trash"_s}));
    menu->actions().at(2)->trigger();
    EXPECT_EQ(namesIn(actions), QStringList{u"2"_s});
    EXPECT_EQ(actions.first().at(1).value<RowActionId>(), RowActionId::reveal);
    EXPECT_EQ(drills.count(), 0);
    menu->close();
}

TEST_F(TreemapViewTests, theMenuKeyOpensTheMenuOfTheCurrentCell)
{
    view.setCurrentCell(1);
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(&view, &event);
    auto* menu = view.findChild<QMenu*>();
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->actions().size(), 2);
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

TEST_F(TreemapViewTests, anEmptyFolderHasNoCellsAndIsNoStop)
{
    setSizes({});
    EXPECT_TRUE(view.cells().isEmpty());
    EXPECT_EQ(view.currentCell(), -1);
    EXPECT_EQ(view.focusPolicy(), Qt::NoFocus);
    paint();
    hover({100, 100});
    EXPECT_EQ(view.hoveredCell(), -1);
    QTest::mouseClick(&view, Qt::LeftButton, {}, {100, 100});
    for (const int key : {Qt::Key_Return, Qt::Key_Delete, Qt::Key_Right, Qt::Key_End})
        QTest::keyClick(&view, static_cast<Qt::Key>(key));
    EXPECT_EQ(drills.count() + actions.count(), 0);
    EXPECT_EQ(accessible()->childCount(), 0);
    setSizes({0, 0});
    EXPECT_TRUE(view.cells().isEmpty());
    EXPECT_EQ(view.focusPolicy(), Qt::NoFocus);
    setSizes({1});
    EXPECT_EQ(view.focusPolicy(), Qt::StrongFocus);
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

TEST_F(TreemapViewTests, aNameWithMarkupAndControlCharactersIsShownAsPlainText)
{
    FolderSizeNode node{.id = QUuid::createUuid(), .name = u"<b>a\x202Ez\n"_s, .url = {}, .totalBytes = 5};
    view.setNodes({node}, 5);
    EXPECT_EQ(view.textOf(0), u"<b>az\x240A, 5 bytes"_s);
    EXPECT_EQ(toolTipAt(center(0)), u"<p>&lt;b&gt;az\x240A \x2014 5 bytes</p>"_s);
}

TEST_F(TreemapViewTests, tenThousandCellsAreDrawnOnceAndThenOnlyShown)
{
    QList<qint64> sizes;
    for (qint64 i = 0; i < 10'000; ++i)
        sizes.append(1'000'000 + i * 7919 % 9973);
    resizeWindow({1'100, 500});
    QImage ground(view.size(), QImage::Format_ARGB32_Premultiplied);
    setSizes(sizes);
    WorkTimer timer;
    view.render(&ground);
    const qint64 first = timer.milliseconds();
    const int drawn = view.drawingCount();
    timer.restart();
    view.render(&ground);
    const qint64 second = timer.milliseconds();
    EXPECT_EQ(view.cells().size(), 10'000);
    EXPECT_EQ(view.drawingCount(), drawn);
    RecordProperty("firstDrawingMilliseconds", static_cast<int>(first));
    RecordProperty("nextDrawingMilliseconds", static_cast<int>(second));
    // A multiple of what an unoptimised build needs: this holds against a return to drawing each time.
    EXPECT_LT(second, 100);
}

} // namespace keelbright::testing

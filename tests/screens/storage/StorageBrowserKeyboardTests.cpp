#include "Keelbright/screens/storage/treemap/TreemapView.h"
#include "tests/screens/storage/StorageBrowserViewFixture.h"

#include <QApplication>
#include <QTest>

namespace keelbright::testing {

using namespace Qt::StringLiterals;
using ViewMode = StorageBrowserModel::ViewMode;

using StorageBrowserKeyboardTests = StorageBrowserViewFixture;

TEST_F(StorageBrowserKeyboardTests, theKeyboardWalksDownAndBackWithoutLosingItsPlace)
{
    StorageBrowserView view(context());
    browse(view, documents());
    list(view)->setFocus(Qt::TabFocusReason);
    list(view)->setCurrentRow(0);
    QTest::keyClick(list(view), Qt::Key_Return);
    waitForLevel(view.model());
    turnFrame();
    EXPECT_TRUE(list(view)->hasFocus());
    QTest::keyClick(list(view), Qt::Key_Left, Qt::AltModifier);
    turnFrame();
    EXPECT_EQ(walked(view.model()), QStringList{u"Documents"_s});
    EXPECT_EQ(list(view)->currentRow(), 0);
    EXPECT_TRUE(list(view)->hasFocus());
}

TEST_F(StorageBrowserKeyboardTests, backspaceGoesBackAndNeverAsksForTheTrash)
{
    StorageBrowserView view(context());
    browse(view, documents());
    drillIn(view, u"Work"_s);
    list(view)->setFocus();
    list(view)->setCurrentRow(1);
    QTest::keyClick(list(view), Qt::Key_Backspace);
    turnFrame();
    EXPECT_EQ(walked(view.model()), QStringList{u"Documents"_s});
    list(view)->setCurrentRow(1);
    QTest::keyClick(list(view), Qt::Key_Backspace);
    EXPECT_EQ(walked(view.model()), QStringList{u"Documents"_s});
    EXPECT_TRUE(alerts.requests().isEmpty());
}

TEST_F(StorageBrowserKeyboardTests, theRefreshKeysMeasureTheLevelAgain)
{
    for (const auto& [key, modifier] :
         {std::pair(Qt::Key_F5, Qt::NoModifier), std::pair(Qt::Key_R, Qt::ControlModifier)}) {
        StorageBrowserView view(context());
        browse(view, documents());
        write("c.txt", key == Qt::Key_F5 ? 8'000 : 9'000);
        QTest::keyClick(&view, key, modifier);
        EXPECT_TRUE(view.model().isScanning());
        waitForLevel(view.model());
        turnFrame();
        EXPECT_EQ(rows(list(view)).first(), key == Qt::Key_F5 ? u"c.txt 8 KB"_s : u"c.txt 9 KB"_s);
    }
}

TEST_F(StorageBrowserKeyboardTests, theRefreshKeysLookForTheLargestFilesAgain)
{
    StorageBrowserView view(context());
    browse(view, documents());
    choose(view, ViewMode::largest);
    QTest::keyClick(&view, Qt::Key_F5);
    EXPECT_FALSE(view.model().isScanning());
    EXPECT_TRUE(view.model().isLoadingLargest());
    waitForLargest(view.model());
}

TEST_F(StorageBrowserKeyboardTests, everyControlHasANameAndIsReachedByTab)
{
    StorageBrowserView view(context());
    show(view);
    expectEveryControlIsNamedAndReachedByTab(view);
    navigate(view.model(), documents());
    StorageBrowserFixture::drillIn(view.model(), u"Work"_s);
    turnFrame();
    for (const ViewMode mode : StorageBrowserModel::allViewModes()) {
        choose(view, mode);
        // A row has its buttons once it is current.
        for (auto* rows : view.findChildren<RowListView*>())
            rows->setCurrentRow(0);
        expectEveryControlIsNamedAndReachedByTab(view);
    }
}

TEST_F(StorageBrowserKeyboardTests, tabGoesFromTheTopToTheBottom)
{
    StorageBrowserView view(context());
    browse(view, documents());
    drillIn(view, u"Work"_s);
    view.model().setViewMode(ViewMode::treemap);
    turnFrame();
    turnUntil([&] { return !button(view, u"Desktop"_s)->isEnabled(); });
    QStringList order;
    view.findChild<TreemapView*>()->setFocus();
    for (int i = 0; i < 10; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        order.append(QApplication::focusWidget()->accessibleName());
    }
    EXPECT_EQ(order, (QStringList{u"Treemap"_s, u"Organise"_s, u"Choose Folder"_s, u"Home"_s, u"Documents"_s,
                                  u"Pictures"_s, u"Back"_s, u"Documents"_s, u"Treemap"_s, u"Treemap"_s}));
}

} // namespace keelbright::testing

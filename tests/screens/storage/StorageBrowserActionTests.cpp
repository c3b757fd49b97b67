#include "Keelbright/screens/storage/LargestFilesPanel.h"
#include "Keelbright/screens/storage/treemap/TreemapView.h"
#include "Keelbright/state/NotificationCenter.h"
#include "tests/screens/shared/DroppedItems.h"
#include "tests/screens/shared/ListDriver.h"
#include "tests/screens/storage/StorageBrowserViewFixture.h"
#include "tests/support/SpokenTexts.h"

#include <QMenu>
#include <QTest>

namespace keelbright::testing {

using namespace Qt::StringLiterals;
using ViewMode = StorageBrowserModel::ViewMode;

using StorageBrowserActionTests = StorageBrowserViewFixture;

TEST_F(StorageBrowserActionTests, theActionsOfARowDoWhatTheySay)
{
    StorageBrowserView view(context());
    browse(view, documents());
    EXPECT_TRUE(ListDriver(*list(view)).press(0, RowActionId::reveal));
    EXPECT_EQ(workspace.revealed, QStringList{documents().appending(u"Work"_s).path()});
    EXPECT_TRUE(ListDriver(*list(view)).press(0, RowActionId::addToBackup));
    ASSERT_EQ(state->customSources().size(), 1);
    EXPECT_EQ(state->customSources().first().url, documents().appending(u"Work"_s));
    EXPECT_FALSE(ListDriver(*list(view)).press(1, RowActionId::addToBackup));
    EXPECT_FALSE(ListDriver(*list(view)).press(1, RowActionId::organise));
}

TEST_F(StorageBrowserActionTests, aScreenReaderSaysThatAFolderIsAmongTheSources)
{
    StorageBrowserView view(context());
    browse(view, documents());
    const SpokenTexts spoken;
    EXPECT_TRUE(ListDriver(*list(view)).press(0, RowActionId::addToBackup));
    EXPECT_EQ(spoken.last(), u"Work was added to the backup sources"_s);
    EXPECT_TRUE(ListDriver(*list(view)).press(0, RowActionId::addToBackup));
    EXPECT_EQ(spoken.last(), u"Work is among the backup sources already"_s);
    EXPECT_EQ(state->customSources().size(), 1);
}

TEST_F(StorageBrowserActionTests, aFolderThatIsDroppedIsBrowsed)
{
    StorageBrowserView view(context());
    show(view);
    EXPECT_TRUE(drop(view, {pictures()}));
    waitForLevel(view.model());
    EXPECT_EQ(view.model().currentURL(), pictures());
}

TEST_F(StorageBrowserActionTests, enterAndADoubleClickOpenALargestFile)
{
    StorageBrowserView view(context());
    browse(view, documents());
    choose(view, ViewMode::largest);
    RowListView* largest = view.findChild<LargestFilesPanel*>()->list();
    largest->setFocus();
    largest->setCurrentRow(0);
    QTest::keyClick(largest, Qt::Key_Return);
    ASSERT_EQ(workspace.opened.size(), 1);
    const QPoint place = largest->visualRect(largest->model()->index(1, 0)).center();
    QTest::mouseClick(largest->viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(workspace.opened.size(), 1) << "one click chooses";
    QTest::mouseDClick(largest->viewport(), Qt::LeftButton, {}, place);
    ASSERT_EQ(workspace.opened.size(), 2);
    EXPECT_NE(workspace.opened.first(), workspace.opened.last());
    EXPECT_TRUE(workspace.revealed.isEmpty());
}

TEST_F(StorageBrowserActionTests, theMenuOfARowHoldsItsActions)
{
    StorageBrowserView view(context());
    browse(view, documents());
    const ListDriver entries(view, u"Entries"_s);
    const QMenu* ofFolder = entries.openMenu(0);
    ASSERT_NE(ofFolder, nullptr);
    EXPECT_EQ(ListDriver::textsIn(*ofFolder),
              (QStringList{u"Add to Backup Sources"_s, u"Organise this folder"_s, u"Reveal in Finder"_s,
                           u"Move to Trash"_s}));
    ofFolder->actions().last()->trigger();
    ASSERT_EQ(alerts.requests().size(), 1);
    EXPECT_EQ(alerts.requests().first().title, u"Move \"Work\" to Trash?"_s);
    delete ofFolder;
    const QMenu* ofFile = entries.openMenu(1);
    ASSERT_NE(ofFile, nullptr);
    EXPECT_EQ(ListDriver::textsIn(*ofFile), (QStringList{u"Reveal in Finder"_s, u"Move to Trash"_s}));
}

TEST_F(StorageBrowserActionTests, deleteInTheListsAsksForTheTrash)
{
    StorageBrowserView view(context());
    browse(view, documents());
    list(view)->setFocus();
    list(view)->setCurrentRow(1);
    QTest::keyClick(list(view), Qt::Key_Delete);
    ASSERT_EQ(alerts.requests().size(), 1);
    EXPECT_EQ(alerts.requests().last().title, u"Move \"c.txt\" to Trash?"_s);
    alerts.dismiss();
    choose(view, ViewMode::largest);
    RowListView* largest = view.findChild<LargestFilesPanel*>()->list();
    largest->setFocus();
    largest->setCurrentRow(0);
    QTest::keyClick(largest, Qt::Key_Delete);
    ASSERT_EQ(alerts.requests().size(), 2);
    EXPECT_EQ(alerts.requests().last().title, u"Move \"b.zip\" to Trash?"_s);
    EXPECT_TRUE(exists(documents().appending(u"Work/Old/b.zip"_s)));
}

TEST_F(StorageBrowserActionTests, organisingHandsTheFolderToTheOrganizer)
{
    StorageBrowserView view(context());
    browse(view, documents());
    QStringList posted;
    const auto listener = QObject::connect(&NotificationCenter::defaultCenter(), &NotificationCenter::posted,
                                           state.get(), [&](const QString& name, const QVariant& object) {
                                               EXPECT_EQ(name, u"com.keelbright.organizeFolder"_s);
                                               EXPECT_EQ(state->selectedScreen(), Screen::organizer);
                                               posted.append(object.value<FileURL>().path());
                                           });
    button(view, u"Organise"_s)->click();
    EXPECT_TRUE(ListDriver(*list(view)).press(0, RowActionId::organise));
    QObject::disconnect(listener);
    EXPECT_EQ(posted, (QStringList{documents().path(), documents().appending(u"Work"_s).path()}));
}

TEST_F(StorageBrowserActionTests, trashAsksFirst)
{
    StorageBrowserView view(context());
    browse(view, documents());
    EXPECT_TRUE(ListDriver(*list(view)).press(1, RowActionId::trash));
    ASSERT_EQ(alerts.requests().size(), 1);
    const AlertRequest& request = alerts.requests().first();
    EXPECT_EQ(request.title, u"Move \"c.txt\" to Trash?"_s);
    EXPECT_EQ(request.message, u"This cannot be undone from here. You can recover it from the Trash."_s);
    EXPECT_EQ(request.action, u"Move to Trash"_s);
    EXPECT_EQ(request.cancel, u"Cancel"_s);
    EXPECT_TRUE(request.isDestructive);
    EXPECT_EQ(view.model().pendingDelete()->name, u"c.txt"_s);
    EXPECT_TRUE(exists(documents().appending(u"c.txt"_s)));

    alerts.dismiss();
    EXPECT_FALSE(view.model().pendingDelete().has_value());
    EXPECT_TRUE(exists(documents().appending(u"c.txt"_s)));

    EXPECT_TRUE(ListDriver(*list(view)).press(1, RowActionId::trash));
    alerts.confirm();
    EXPECT_FALSE(view.model().pendingDelete().has_value());
    EXPECT_FALSE(exists(documents().appending(u"c.txt"_s)));
    waitForLevel(view.model());
    turnFrame();
    EXPECT_EQ(rows(list(view)), (QStringList{u"Work 7 KB"_s, u"d.JPG 1 KB"_s}));
    EXPECT_EQ(textsIn(view).at(1), u"8 KB in Documents"_s);
}

TEST_F(StorageBrowserActionTests, afterTrashingTwoLevelsDownTheUpperLevelShowsTheOldSize)
{
    StorageBrowserView view(context());
    browse(view, documents());
    drillIn(view, u"Work"_s);
    EXPECT_TRUE(ListDriver(*list(view)).press(rowOf(list(view), u"Old"_s), RowActionId::trash));
    alerts.confirm();
    waitForLevel(view.model());
    turnFrame();
    EXPECT_EQ(rows(list(view)), QStringList{u"a.pdf 3 KB"_s});
    button(view, u"Back"_s)->click();
    turnFrame();
    EXPECT_EQ(rows(list(view)), (QStringList{u"Work 7 KB"_s, u"c.txt 2 KB"_s, u"d.JPG 1 KB"_s}));
}

TEST_F(StorageBrowserActionTests, deleteInTheTreemapAsksForTheTrash)
{
    StorageBrowserView view(context());
    browse(view, documents());
    choose(view, ViewMode::treemap);
    auto* map = view.findChild<TreemapView*>();
    map->setFocus(Qt::TabFocusReason);
    QTest::keyClick(map, Qt::Key_Delete);
    ASSERT_EQ(alerts.requests().size(), 1);
    EXPECT_EQ(alerts.requests().first().title, u"Move \"Work\" to Trash?"_s);
    alerts.confirm();
    waitForLevel(view.model());
    turnFrame();
    EXPECT_EQ(map->cells().size(), 2);
    EXPECT_TRUE(map->hasFocus());
}

TEST_F(StorageBrowserActionTests, aTrashedFileStaysAmongTheLargest)
{
    StorageBrowserView view(context());
    browse(view, documents());
    choose(view, ViewMode::largest);
    const auto* panel = view.findChild<LargestFilesPanel*>();
    EXPECT_TRUE(ListDriver(*panel->list()).press(0, RowActionId::reveal));
    EXPECT_EQ(workspace.revealed, QStringList{documents().appending(u"Work/Old/b.zip"_s).path()});
    EXPECT_TRUE(ListDriver(*panel->list()).press(0, RowActionId::trash));
    EXPECT_FALSE(view.model().pendingDelete()->isDirectory);
    alerts.confirm();
    EXPECT_FALSE(exists(documents().appending(u"Work/Old/b.zip"_s)));
    waitForLevel(view.model());
    turnFrame();
    EXPECT_EQ(rows(panel->list()).first(), u"b.zip 4 KB"_s);
}

} // namespace keelbright::testing

#include "Keelbright/screens/RestoreBrowserView.h"

#include "Keelbright/screens/recovery/SnapshotRows.h"
#include "Keelbright/widgets/EmptyStateView.h"
#include "Keelbright/widgets/Label.h"
#include "Keelbright/widgets/rows/RowListView.h"
#include "KeelbrightCore/platform/text/UtcZone.h"
#include "tests/screens/shared/ListDriver.h"
#include "tests/screens/shared/ScreenTestCase.h"
#include "tests/support/WorkTimer.h"

#include <QAbstractItemModelTester>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTest>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

class RestoreBrowserViewTests : public ScreenTestCase
{
protected:
    [[nodiscard]] FileURL device() const { return drive().appending(u"Keelbright/Mira"_s); }

    void addFolder(const QByteArray& path) const { mac.makeFolder("Volumes/Anchor/Keelbright/Mira/" + path); }

    void pick(RestoreBrowserView& view, const FileURL& folder)
    {
        chooser.willChoose({folder});
        button(view, u"Open Backup Folder"_s)->click();
    }

    [[nodiscard]] static QStringList titlesOf(const RestoreBrowserView& view)
    {
        QStringList titles;
        const auto* rows = view.findChild<SnapshotRows*>();
        for (int row = 0; row < rows->rowCount(); ++row)
            titles.append(rows->rowAt(row).title);
        return titles;
    }

    /// The texts below the header of the screen.
    [[nodiscard]] static QStringList textsBelowHeader(const QWidget& view) { return textsIn(view).mid(2); }
};

const QStringList nothingFound{u"No Snapshots Found"_s,
                               u"This folder doesn't appear to contain Keel Bright snapshots."_s};

} // namespace

TEST_F(RestoreBrowserViewTests, asksForAFolderAtFirst)
{
    RestoreBrowserView view(*state, workspace);
    show(view);
    EXPECT_EQ(textsIn(view),
              (QStringList{u"Restore Browser"_s,
                           u"Browse snapshots from a Keel Bright backup to find your personal files."_s,
                           u"No Backup Folder Opened"_s,
                           u"Click \"Open Backup Folder\" and navigate to your Keelbright/DeviceName "
                           "folder on your backup drive."_s}));
    EXPECT_EQ(shownSymbols(view), QStringList{u"externaldrive.badge.timemachine"_s});
    EXPECT_EQ(button(view, u"Open Backup Folder"_s)->symbol(), u"folder.badge.gear"_s);
    expectEveryControlIsNamedAndReachedByTab(view);
}

TEST_F(RestoreBrowserViewTests, showsTheMirrorAndEachSnapshot)
{
    addFolder("Latest");
    addFolder("Snapshots/2024-05-01-0930");
    addFolder("Snapshots/2024-05-02-1830");
    RestoreBrowserView view(*state, workspace);
    show(view);
    pick(view, device());
    EXPECT_EQ(textsBelowHeader(view), (QStringList{u"Latest Backup"_s, u"Latest/"_s, u"Snapshots (2)"_s}));
    EXPECT_EQ(shownSymbols(view), QStringList{u"clock.badge.checkmark"_s});
    EXPECT_EQ(view.accessibleName(), u"Snapshots (2)"_s);
    const auto* rows = view.findChild<SnapshotRows*>();
    ASSERT_EQ(rows->rowCount(), 2);
    const ListRow row = rows->rowAt(0);
    EXPECT_EQ(row.symbol, u"clock.arrow.circlepath"_s);
    EXPECT_EQ(row.title, u"May 2, 2024, 6:30\u202FPM"_s);
    EXPECT_EQ(row.actions.size(), 1);
    EXPECT_EQ(row.actions.first().name, u"Open"_s);
    expectEveryControlIsNamedAndReachedByTab(view);
}

TEST_F(RestoreBrowserViewTests, theChooserStartsAtTheDestination)
{
    RestoreBrowserView view(*state, workspace);
    show(view);
    chooser.willBeDismissed();
    button(view, u"Open Backup Folder"_s)->click();
    EXPECT_EQ(chooser.requests().last().folder, std::nullopt);
    chooseDrive();
    chooser.willBeDismissed();
    button(view, u"Open Backup Folder"_s)->click();
    EXPECT_EQ(chooser.requests().last().folder, drive().appending(u"Keelbright"_s));
}

TEST_F(RestoreBrowserViewTests, theMirrorAndTheSnapshotsAreAligned)
{
    addFolder("Latest");
    addFolder("Snapshots/2024-05-01-0930");
    RestoreBrowserView view(*state, workspace);
    show(view);
    pick(view, device());
    turnFrame();
    const auto* list = view.findChild<RowListView*>();
    const QRect place = list->visualRect(list->model()->index(0, 0));
    const RowLayout row =
        layOutRow(view.findChild<SnapshotRows*>()->rowAt(0), place.adjusted(0, 0, 0, -1), list->padding());
    const auto inView = [&](const QRect& part) {
        return QRect(list->viewport()->mapTo(&view, part.topLeft()), part.size());
    };
    const auto* open = button(view, u"Open in Finder"_s);
    EXPECT_EQ(inView(row.actions.first()).right(), open->mapTo(&view, open->rect().topRight()).x());
    const Label* title = nullptr;
    for (const auto* label : view.findChildren<Label*>()) {
        if (label->text() == u"Latest/"_s)
            title = label;
    }
    ASSERT_NE(title, nullptr);
    EXPECT_EQ(inView(row.title).left(), title->mapTo(&view, QPoint()).x());
}

TEST_F(RestoreBrowserViewTests, opensTheMirror)
{
    addFolder("Latest");
    RestoreBrowserView view(*state, workspace);
    pick(view, device());
    button(view, u"Open in Finder"_s)->click();
    EXPECT_EQ(workspace.opened, QStringList{device().appending(u"Latest"_s).path()});
}

TEST_F(RestoreBrowserViewTests, opensASnapshot)
{
    addFolder("Snapshots/2024-05-01-0930");
    addFolder("Snapshots/2024-05-02-0930");
    RestoreBrowserView view(*state, workspace);
    show(view);
    pick(view, device());
    ASSERT_TRUE(ListDriver(*view.findChild<RowListView*>()).press(1, RowActionId::open));
    EXPECT_EQ(workspace.opened, QStringList{device().appending(u"Snapshots/2024-05-01-0930"_s).path()});
}

TEST_F(RestoreBrowserViewTests, aMirrorWithoutSnapshotsIsShownAboveTheEmptyState)
{
    addFolder("Latest");
    RestoreBrowserView view(*state, workspace);
    show(view);
    pick(view, device());
    EXPECT_EQ(textsBelowHeader(view), (QStringList{u"Latest Backup"_s, u"Latest/"_s} + nothingFound));
    EXPECT_EQ(shownSymbols(view), (QStringList{u"clock.badge.checkmark"_s, u"clock.arrow.circlepath"_s}));
    EXPECT_EQ(view.accessibleName(), u"No Snapshots Found"_s);
}

TEST_F(RestoreBrowserViewTests, aFolderOfAnotherKindHasNoSnapshots)
{
    RestoreBrowserView view(*state, workspace);
    show(view);
    pick(view, mac.home());
    EXPECT_EQ(textsBelowHeader(view), nothingFound);
}

TEST_F(RestoreBrowserViewTests, aSecondFolderReplacesAllThatTheFirstShowed)
{
    addFolder("Latest");
    addFolder("Snapshots/2024-05-01-0930");
    const FileURL other = mac.makeFolder("Volumes/Other");
    mac.makeFolder("Volumes/Other/Snapshots/2022-02-02-0202");
    RestoreBrowserView view(*state, workspace);
    show(view);
    pick(view, device());
    pick(view, other);
    EXPECT_EQ(titlesOf(view), QStringList{u"Feb 2, 2022, 2:02\u202FAM"_s});
    EXPECT_EQ(textsBelowHeader(view), QStringList{u"Snapshots (1)"_s});
    pick(view, mac.home());
    EXPECT_EQ(textsBelowHeader(view), nothingFound);
}

TEST_F(RestoreBrowserViewTests, theMenusOfTheRowsOpenThem)
{
    addFolder("Latest");
    addFolder("Snapshots/2024-05-01-0930");
    RestoreBrowserView view(*state, workspace);
    show(view);
    pick(view, device());
    turnFrame();
    QWidget* row = button(view, u"Open in Finder"_s)->parentWidget();
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5), row->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(row, &event);
    const QMenu* ofLatest = row->findChild<QMenu*>();
    ASSERT_NE(ofLatest, nullptr);
    EXPECT_EQ(ListDriver::textsIn(*ofLatest), QStringList{u"Open in Finder"_s});
    ofLatest->actions().first()->trigger();
    const QMenu* ofSnapshot = ListDriver(view, u"Snapshots"_s).openMenu(0);
    ASSERT_NE(ofSnapshot, nullptr);
    EXPECT_EQ(ListDriver::textsIn(*ofSnapshot), QStringList{u"Open"_s});
    ofSnapshot->actions().first()->trigger();
    EXPECT_EQ(workspace.opened, (QStringList{device().appending(u"Latest"_s).path(),
                                             device().appending(u"Snapshots/2024-05-01-0930"_s).path()}));
}

TEST_F(RestoreBrowserViewTests, f5AndControlRListTheFolderAgain)
{
    RestoreBrowserView view(*state, workspace);
    show(view);
    QTest::keyClick(&view, Qt::Key_F5);
    EXPECT_TRUE(textsIn(view).contains(u"No Backup Folder Opened"_s));
    addFolder("Latest");
    pick(view, device());
    addFolder("Snapshots/2024-05-01-0930");
    QTest::keyClick(&view, Qt::Key_F5);
    EXPECT_EQ(titlesOf(view), QStringList{u"May 1, 2024, 9:30\u202FAM"_s});
    addFolder("Snapshots/2024-05-02-0930");
    QTest::keyClick(&view, Qt::Key_R, Qt::ControlModifier);
    EXPECT_EQ(titlesOf(view), (QStringList{u"May 2, 2024, 9:30\u202FAM"_s, u"May 1, 2024, 9:30\u202FAM"_s}));
}

TEST_F(RestoreBrowserViewTests, aNewVisitStartsWithoutTheFolder)
{
    addFolder("Latest");
    {
        RestoreBrowserView view(*state, workspace);
        pick(view, device());
    }
    const RestoreBrowserView again(*state, workspace);
    EXPECT_TRUE(textsIn(again).contains(u"No Backup Folder Opened"_s));
}

TEST_F(RestoreBrowserViewTests, aChooserThatOutlivesTheScreenIsHarmless)
{
    chooser.willStayOpen();
    {
        RestoreBrowserView view(*state, workspace);
        button(view, u"Open Backup Folder"_s)->click();
    }
    chooser.confirm({device()});
    EXPECT_EQ(workspace.opened, QStringList());
}

TEST_F(RestoreBrowserViewTests, theRowsPassTheModelTester)
{
    SnapshotRows rows;
    const QAbstractItemModelTester tester(&rows, QAbstractItemModelTester::FailureReportingMode::Fatal);
    const BackupSnapshot snapshot{QUuid::createUuid(), QDateTime(QDate(2024, 5, 1), QTime(7, 30), utcZone),
                                  FileURL()};
    rows.setSnapshots({snapshot, snapshot});
    EXPECT_EQ(rows.rowCount(), 2);
    EXPECT_EQ(rows.accessibleText(0), u"May 1, 2024, 9:30\u202FAM"_s);
    rows.setSnapshots({});
    EXPECT_EQ(rows.rowCount(), 0);
}

TEST_F(RestoreBrowserViewTests, tenYearsOfDailySnapshotsOpenWithoutAStall)
{
    const QDate first(2014, 1, 1);
    for (int i = 0; i < 3'650; ++i)
        addFolder("Snapshots/" + first.addDays(i).toString(u"yyyy-MM-dd"_s).toLatin1() + "-0930");
    RestoreBrowserView view(*state, workspace);
    show(view);
    const WorkTimer timer;
    pick(view, device());
    const qint64 milliseconds = timer.milliseconds();
    RecordProperty("milliseconds", static_cast<int>(milliseconds));
    EXPECT_LT(milliseconds, 1'000);
    EXPECT_EQ(view.findChild<SnapshotRows*>()->rowCount(), 3'650);
}

} // namespace keelbright::testing

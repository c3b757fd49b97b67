#include "Keelbright/screens/StorageBrowserView.h"

#include "Keelbright/screens/shell/ScreenFactory.h"
#include "Keelbright/screens/storage/BreadcrumbBar.h"
#include "Keelbright/screens/storage/BreakdownBar.h"
#include "Keelbright/screens/storage/LargestFilesPanel.h"
#include "Keelbright/screens/storage/StorageNodeRow.h"
#include "Keelbright/screens/storage/treemap/TreemapView.h"
#include "Keelbright/state/NotificationCenter.h"
#include "Keelbright/widgets/MenuButton.h"
#include "Keelbright/widgets/SegmentedControl.h"
#include "Keelbright/widgets/rows/RowListView.h"
#include "tests/screens/shared/ListDriver.h"
#include "tests/screens/storage/StorageBrowserFixture.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QMenu>
#include <QRadioButton>
#include <QTest>
#include <QThread>

namespace keelbright::testing {

using namespace Qt::StringLiterals;
using ViewMode = StorageBrowserModel::ViewMode;

namespace {

/// Records the paths that the main thread asks the file system about.
class MainThreadQuestions : public HeldFileManager
{
public:
    using HeldFileManager::HeldFileManager;

    ~MainThreadQuestions() override { finish(); }

    MainThreadQuestions(const MainThreadQuestions&) = delete;
    MainThreadQuestions& operator=(const MainThreadQuestions&) = delete;

    [[nodiscard]] const QStringList& questions() const { return m_questions; }

    [[nodiscard]] FileExistence fileExists(const FileURL& url) const override
    {
        record(url);
        return HeldFileManager::fileExists(url);
    }

    [[nodiscard]] std::optional<qint64> fileSize(const FileURL& url) const override
    {
        record(url);
        return HeldFileManager::fileSize(url);
    }

    [[nodiscard]] std::expected<QList<DirectoryEntry>, FileError>
    contentsOfDirectory(const FileURL& url, DirectoryEnumerator::Options options) const override
    {
        record(url);
        return HeldFileManager::contentsOfDirectory(url, options);
    }

    [[nodiscard]] std::expected<std::unique_ptr<DirectoryEnumerator>, FileError>
    enumerator(const FileURL& url, DirectoryEnumerator::Options options) const override
    {
        record(url);
        return HeldFileManager::enumerator(url, options);
    }

private:
    void record(const FileURL& url) const
    {
        if (QThread::currentThread() == QCoreApplication::instance()->thread())
            m_questions.append(url.path());
    }

    mutable QStringList m_questions; ///< written by the main thread alone
};

class StorageBrowserViewTests : public StorageBrowserFixture
{
protected:
    /// Shows the screen with this folder on display.
    void browse(StorageBrowserView& view, const FileURL& folder)
    {
        show(view);
        navigate(view.model(), folder);
        turnFrame();
    }

    static void drillIn(StorageBrowserView& view, const QString& name)
    {
        StorageBrowserFixture::drillIn(view.model(), name);
        turnFrame();
    }

    static void choose(StorageBrowserView& view, ViewMode mode)
    {
        const auto index = StorageBrowserModel::allViewModes().indexOf(mode);
        Q_EMIT view.findChild<SegmentedControl*>()->chosen(static_cast<int>(index));
        waitForLargest(view.model());
        turnFrame();
    }

    [[nodiscard]] static RowListView* list(const StorageBrowserView& view)
    {
        for (auto* candidate : view.findChildren<RowListView*>()) {
            if (candidate->accessibleName() == u"Entries"_s)
                return candidate;
        }
        return nullptr;
    }

    /// "title number" of each row of the list.
    [[nodiscard]] static QStringList rows(const RowListView* list)
    {
        QStringList lines;
        for (int row = 0; row < list->rowModel()->rowCount(); ++row) {
            const ListRow shown = list->rowModel()->rowAt(row);
            lines.append(shown.title + u' ' + shown.value);
        }
        return lines;
    }

    [[nodiscard]] static QStringList shownButtons(const StorageBrowserView& view)
    {
        QStringList captions;
        for (const Button* button : view.findChildren<Button*>()) {
            if (button->isVisibleTo(&view))
                captions.append(button->caption());
        }
        return captions;
    }

    static int rowOf(const RowListView* list, const QString& title)
    {
        for (int row = 0; row < list->rowModel()->rowCount(); ++row) {
            if (list->rowModel()->rowAt(row).title == title)
                return row;
        }
        return -1;
    }
};

} // namespace

TEST_F(StorageBrowserViewTests, isTheScreenOfItsName)
{
    const std::unique_ptr<QWidget> screen(makeScreen(Screen::storageBrowser, context(), nullptr));
    EXPECT_NE(qobject_cast<StorageBrowserView*>(screen.get()), nullptr);
}

TEST_F(StorageBrowserViewTests, startsWithThePrompt)
{
    StorageBrowserView view(context());
    show(view);
    EXPECT_EQ(
        textsIn(view),
        (QStringList{u"Storage Browser"_s, u"Navigate any folder to see what's taking up space."_s,
                     u"Choose a Folder to Explore"_s,
                     u"Use the shortcuts above or \"Choose Folder\" to browse any location on your Mac."_s}));
    EXPECT_EQ(shownSymbols(view), QStringList{u"folder.badge.magnifyingglass"_s});
    EXPECT_EQ(shownButtons(view), (QStringList{u"Choose Folder"_s, u"Home"_s, u"Documents"_s, u"Desktop"_s,
                                               u"Downloads"_s, u"Pictures"_s, u"Choose Folder"_s}));
    EXPECT_FALSE(view.findChild<SegmentedControl*>()->isVisible());
}

TEST_F(StorageBrowserViewTests, theShortcutsHaveTheirIcons)
{
    StorageBrowserView view(context());
    EXPECT_EQ(button(view, u"Home"_s)->symbol(), u"house.fill"_s);
    EXPECT_EQ(button(view, u"Documents"_s)->symbol(), u"doc.fill"_s);
    EXPECT_EQ(button(view, u"Desktop"_s)->symbol(), u"menubar.rectangle"_s);
    EXPECT_EQ(button(view, u"Downloads"_s)->symbol(), u"arrow.down.circle.fill"_s);
    EXPECT_EQ(button(view, u"Pictures"_s)->symbol(), u"photo.fill"_s);
    EXPECT_EQ(button(view, u"Choose Folder"_s)->symbol(), u"folder.badge.plus"_s);
}

TEST_F(StorageBrowserViewTests, aShortcutToAFolderThatDoesNotExistIsDisabled)
{
    StorageBrowserView view(context());
    show(view);
    turnUntil([&] { return !button(view, u"Desktop"_s)->isEnabled(); });
    EXPECT_TRUE(button(view, u"Home"_s)->isEnabled());
    EXPECT_TRUE(button(view, u"Documents"_s)->isEnabled());
    EXPECT_FALSE(button(view, u"Downloads"_s)->isEnabled());
    EXPECT_TRUE(button(view, u"Pictures"_s)->isEnabled());
}

TEST_F(StorageBrowserViewTests, eachAppearanceLooksForTheFoldersOfTheShortcuts)
{
    StorageBrowserView view(context());
    show(view);
    turnUntil([&] { return !button(view, u"Desktop"_s)->isEnabled(); });
    view.hide();
    mac.makeFolder("Users/mira/Desktop");
    view.show();
    turnUntil([&] { return button(view, u"Desktop"_s)->isEnabled(); });
}

TEST_F(StorageBrowserViewTests, theRefreshKeyLooksForTheFoldersOfTheShortcuts)
{
    StorageBrowserView view(context());
    show(view);
    turnUntil([&] { return !button(view, u"Desktop"_s)->isEnabled(); });
    mac.makeFolder("Users/mira/Desktop");
    QTest::keyClick(&view, Qt::Key_F5);
    turnUntil([&] { return button(view, u"Desktop"_s)->isEnabled(); });
}

TEST_F(StorageBrowserViewTests, aTrashedFolderIsNoShortcutAnyMore)
{
    StorageBrowserView view(context());
    browse(view, mac.home());
    EXPECT_TRUE(ListDriver(*list(view)).press(rowOf(list(view), u"Pictures"_s), RowActionId::trash));
    alerts.confirm();
    turnUntil([&] { return !button(view, u"Pictures"_s)->isEnabled(); });
    waitForLevel(view.model());
}

TEST_F(StorageBrowserViewTests, noRedrawAsksTheFileSystemForAnythingOnTheMainThread)
{
    MainThreadQuestions files(mac.root());
    const FileManagerGuard guard(files);
    StorageBrowserView view(context());
    browse(view, documents());
    drillIn(view, u"Work"_s);
    for (const ViewMode mode : StorageBrowserModel::allViewModes())
        choose(view, mode);
    view.model().setSortOrder(StorageBrowserModel::SortOrder::name);
    turnFrame();
    view.hide();
    view.show();
    turnUntil([&] { return !button(view, u"Desktop"_s)->isEnabled(); });
    EXPECT_EQ(files.questions(), QStringList());
}

TEST_F(StorageBrowserViewTests, aShortcutMeasuresItsFolderAndShowsIt)
{
    HeldWalks held(mac.root());
    const FileManagerGuard guard(held);
    StorageBrowserView view(context());
    show(view);
    held.holdNextLookAt(documents());
    button(view, u"Documents"_s)->click();
    ASSERT_TRUE(held.waitUntilHeld());
    turnFrame();
    EXPECT_EQ(textsIn(view).last(), u"Calculating folder sizes…"_s);
    EXPECT_TRUE(button(view, u"Home"_s)->isEnabled());
    held.letGo();
    waitForLevel(view.model());
    turnFrame();
    EXPECT_EQ(textsIn(view).at(1), u"10 KB in Documents"_s);
    EXPECT_EQ(rows(list(view)), (QStringList{u"Work 7 KB"_s, u"c.txt 2 KB"_s, u"d.JPG 1 KB"_s}));
}

TEST_F(StorageBrowserViewTests, eachShortcutLeadsToItsFolder)
{
    for (const QByteArray name : {"Desktop", "Downloads"})
        mac.makeFolder("Users/mira/" + name);
    StorageBrowserView view(context());
    show(view);
    const FileURL home = mac.home();
    const QList<std::pair<QString, FileURL>> shortcuts{{u"Home"_s, home},
                                                       {u"Documents"_s, home.appending(u"Documents"_s)},
                                                       {u"Desktop"_s, home.appending(u"Desktop"_s)},
                                                       {u"Downloads"_s, home.appending(u"Downloads"_s)},
                                                       {u"Pictures"_s, home.appending(u"Pictures"_s)}};
    for (const auto& [label, folder] : shortcuts) {
        button(view, label)->click();
        waitForLevel(view.model());
        ASSERT_EQ(view.model().stack().size(), 1);
        EXPECT_EQ(view.model().currentURL(), folder);
    }
}

TEST_F(StorageBrowserViewTests, choosingTheSameShortcutAgainMeasuresAnew)
{
    StorageBrowserView view(context());
    browse(view, documents());
    drillIn(view, u"Work"_s);
    write("e.mov", 20'000);
    button(view, u"Documents"_s)->click();
    waitForLevel(view.model());
    turnFrame();
    EXPECT_EQ(view.model().stack().size(), 1);
    EXPECT_EQ(rows(list(view)).first(), u"e.mov 20 KB"_s);
}

TEST_F(StorageBrowserViewTests, bothButtonsChooseAFolder)
{
    StorageBrowserView view(context());
    show(view);
    int pressed = 0;
    for (Button* each : view.findChildren<Button*>()) {
        if (each->caption() != u"Choose Folder"_s)
            continue;
        chooser.willChoose({pressed == 0 ? documents() : pictures()});
        each->click();
        waitForLevel(view.model());
        ++pressed;
    }
    EXPECT_EQ(pressed, 2);
    EXPECT_EQ(view.model().currentURL(), pictures());
}

TEST_F(StorageBrowserViewTests, aLevelShowsTheWayTheKindsAndTheEntries)
{
    StorageBrowserView view(context());
    browse(view, documents());
    drillIn(view, u"Work"_s);
    EXPECT_EQ(view.findChild<BreadcrumbBar*>()->crumbs(), (QStringList{u"Documents"_s, u"Work"_s}));
    EXPECT_EQ(textsIn(*view.findChild<BreakdownBar*>()),
              (QStringList{u"Folders"_s, u"4 KB"_s, u"Documents"_s, u"3 KB"_s}));
    EXPECT_EQ(rows(list(view)), (QStringList{u"Old 4 KB"_s, u"a.pdf 3 KB"_s}));
    EXPECT_TRUE(list(view)->isVisible());
    EXPECT_FALSE(view.findChild<TreemapView*>()->isVisible());
}

TEST_F(StorageBrowserViewTests, theHeaderOffersViewSortAndOrganise)
{
    StorageBrowserView view(context());
    browse(view, documents());
    auto* mode = view.findChild<SegmentedControl*>();
    EXPECT_TRUE(mode->isVisible());
    EXPECT_EQ(mode->accessibleName(), u"View"_s);
    EXPECT_EQ(mode->width(), 260);
    EXPECT_EQ(button(view, u"Sort: Size"_s)->symbol(), u"arrow.up.arrow.down"_s);
    EXPECT_EQ(button(view, u"Organise"_s)->symbol(), u"folder.badge.gearshape"_s);
    EXPECT_EQ(button(view, u"Organise"_s)->toolTip(), u"Open this folder in Smart Organizer"_s);
    choose(view, ViewMode::treemap);
    EXPECT_FALSE(view.findChild<MenuButton*>()->isVisible());
    choose(view, ViewMode::list);
    EXPECT_TRUE(view.findChild<MenuButton*>()->isVisible());
}

TEST_F(StorageBrowserViewTests, theMenuSortsTheList)
{
    StorageBrowserView view(context());
    browse(view, documents());
    const auto* sort = view.findChild<MenuButton*>();
    const QList<QAction*> orders = sort->choiceMenu()->actions();
    ASSERT_EQ(orders.size(), 2);
    EXPECT_EQ(orders.at(0)->text(), u"Size"_s);
    EXPECT_EQ(orders.at(1)->text(), u"Name"_s);
    EXPECT_TRUE(orders.at(0)->isChecked());
    orders.at(1)->trigger();
    turnFrame();
    EXPECT_EQ(sort->caption(), u"Sort: Name"_s);
    EXPECT_TRUE(orders.at(1)->isChecked());
    EXPECT_EQ(rows(list(view)), (QStringList{u"c.txt 2 KB"_s, u"d.JPG 1 KB"_s, u"Work 7 KB"_s}));
    // The order outlives a new walk.
    navigate(view.model(), documents().appending(u"Work"_s));
    turnFrame();
    EXPECT_EQ(rows(list(view)), (QStringList{u"a.pdf 3 KB"_s, u"Old 4 KB"_s}));
}

TEST_F(StorageBrowserViewTests, aFolderOpensAndAFileDoesNot)
{
    StorageBrowserView view(context());
    browse(view, documents());
    Q_EMIT list(view)->opened(1);
    EXPECT_FALSE(view.model().isScanning());
    Q_EMIT list(view)->opened(0);
    EXPECT_TRUE(view.model().isScanning());
    waitForLevel(view.model());
    EXPECT_EQ(walked(view.model()), (QStringList{u"Documents"_s, u"Work"_s}));
}

TEST_F(StorageBrowserViewTests, aClickOnARowLeadsIntoAFolderAndNowhereForAFile)
{
    StorageBrowserView view(context());
    browse(view, documents());
    const ListDriver entries(view, u"Entries"_s);
    entries.clickTitle(1);
    EXPECT_FALSE(view.model().isScanning());
    entries.clickTitle(0);
    EXPECT_TRUE(view.model().isScanning());
    waitForLevel(view.model());
    turnFrame();
    EXPECT_EQ(walked(view.model()), (QStringList{u"Documents"_s, u"Work"_s}));
    // Its buttons do not open it as well.
    entries.clickAction(0, 2);
    EXPECT_EQ(workspace.revealed, QStringList{documents().appending(u"Work/Old"_s).path()});
    EXPECT_FALSE(view.model().isScanning());
}

TEST_F(StorageBrowserViewTests, aClickOnACrumbCutsTheWayThere)
{
    StorageBrowserView view(context());
    browse(view, documents());
    drillIn(view, u"Work"_s);
    drillIn(view, u"Old"_s);
    for (auto* crumb : view.findChild<BreadcrumbBar*>()->findChildren<Button*>()) {
        if (crumb->isVisible() && crumb->caption() == u"Work"_s)
            QTest::mouseClick(crumb, Qt::LeftButton);
    }
    turnFrame();
    EXPECT_EQ(walked(view.model()), (QStringList{u"Documents"_s, u"Work"_s}));
    EXPECT_FALSE(view.model().isScanning());
}

TEST_F(StorageBrowserViewTests, aClickOnASegmentChoosesTheViewAndOnTheLargestFilesLoadsThem)
{
    StorageBrowserView view(context());
    browse(view, documents());
    const auto segments = view.findChild<SegmentedControl*>()->findChildren<QRadioButton*>();
    ASSERT_EQ(segments.size(), 3);
    QTest::mouseClick(segments.at(1), Qt::LeftButton);
    turnFrame();
    EXPECT_TRUE(view.findChild<TreemapView*>()->isVisible());
    for (int chosen = 0; chosen < 2; ++chosen) {
        QTest::mouseClick(segments.at(2), Qt::LeftButton);
        EXPECT_TRUE(view.model().isLoadingLargest());
        waitForLargest(view.model());
    }
    turnFrame();
    EXPECT_TRUE(view.findChild<LargestFilesPanel*>()->isVisible());
    QTest::mouseClick(segments.at(0), Qt::LeftButton);
    turnFrame();
    EXPECT_TRUE(list(view)->isVisible());
    EXPECT_EQ(segments.at(0)->text(), u"List"_s);
    EXPECT_EQ(segments.at(1)->text(), u"Treemap"_s);
    EXPECT_EQ(segments.at(2)->text(), u"Largest Files"_s);
}

TEST_F(StorageBrowserViewTests, theKeyboardWalksDownAndBackWithoutLosingItsPlace)
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

TEST_F(StorageBrowserViewTests, backspaceGoesBackAndNeverAsksForTheTrash)
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

TEST_F(StorageBrowserViewTests, backLeadsToTheLevelBeforeAndACrumbToItsOwn)
{
    StorageBrowserView view(context());
    browse(view, documents());
    EXPECT_FALSE(button(view, u"Back"_s)->isEnabled());
    drillIn(view, u"Work"_s);
    drillIn(view, u"Old"_s);
    button(view, u"Back"_s)->click();
    turnFrame();
    EXPECT_EQ(walked(view.model()), (QStringList{u"Documents"_s, u"Work"_s}));
    EXPECT_EQ(list(view)->currentRow(), rowOf(list(view), u"Old"_s));
    drillIn(view, u"Old"_s);
    Q_EMIT view.findChild<BreadcrumbBar*>()->crumbPressed(0);
    turnFrame();
    EXPECT_EQ(walked(view.model()), QStringList{u"Documents"_s});
    EXPECT_EQ(list(view)->currentRow(), rowOf(list(view), u"Work"_s));
    EXPECT_FALSE(button(view, u"Back"_s)->isEnabled());
}

TEST_F(StorageBrowserViewTests, theActionsOfARowDoWhatTheySay)
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

TEST_F(StorageBrowserViewTests, theMenuOfARowHoldsItsActions)
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

TEST_F(StorageBrowserViewTests, deleteInTheListsAsksForTheTrash)
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

TEST_F(StorageBrowserViewTests, organisingHandsTheFolderToTheOrganizer)
{
    StorageBrowserView view(context());
    browse(view, documents());
    QStringList told;
    const auto listener = QObject::connect(&NotificationCenter::defaultCenter(), &NotificationCenter::posted,
                                           state.get(), [&](const QString& name, const QVariant& object) {
                                               EXPECT_EQ(name, u"com.keelbright.organizeFolder"_s);
                                               EXPECT_EQ(state->selectedScreen(), Screen::organizer);
                                               told.append(object.value<FileURL>().path());
                                           });
    button(view, u"Organise"_s)->click();
    EXPECT_TRUE(ListDriver(*list(view)).press(0, RowActionId::organise));
    QObject::disconnect(listener);
    EXPECT_EQ(told, (QStringList{documents().path(), documents().appending(u"Work"_s).path()}));
}

TEST_F(StorageBrowserViewTests, trashAsksFirst)
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

TEST_F(StorageBrowserViewTests, afterTrashingTwoLevelsDownTheUpperLevelShowsTheOldSize)
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

TEST_F(StorageBrowserViewTests, aSingleFileIsRed)
{
    StorageBrowserView view(context());
    browse(view, documents().appending(u"Work/Old"_s));
    const ListRow row = list(view)->rowModel()->rowAt(0);
    EXPECT_EQ(row.bar, 1.0);
    EXPECT_EQ(row.symbolColor, Role::red);
    EXPECT_EQ(row.barColor, Role::red);
}

TEST_F(StorageBrowserViewTests, anEmptyFolderHasNoRowsNoKindsAndNoMessage)
{
    StorageBrowserView view(context());
    browse(view, pictures());
    EXPECT_EQ(list(view)->rowModel()->rowCount(), 0);
    EXPECT_FALSE(view.findChild<BreakdownBar*>()->isVisible());
    EXPECT_EQ(textsIn(view), (QStringList{u"Storage Browser"_s, u"Zero KB in Pictures"_s, u"Pictures"_s}));
    choose(view, ViewMode::treemap);
    EXPECT_TRUE(view.findChild<TreemapView*>()->cells().isEmpty());
}

TEST_F(StorageBrowserViewTests, theTreemapShowsTheLevelAndDrillsIn)
{
    StorageBrowserView view(context());
    browse(view, documents());
    choose(view, ViewMode::treemap);
    auto* map = view.findChild<TreemapView*>();
    ASSERT_TRUE(map->isVisible());
    EXPECT_EQ(map->height(), 420);
    ASSERT_EQ(map->cells().size(), 3);
    QTest::mouseClick(map, Qt::LeftButton, {}, map->cells().at(1).rect.center().toPoint());
    EXPECT_FALSE(view.model().isScanning());
    QTest::mouseClick(map, Qt::LeftButton, {}, map->cells().at(0).rect.center().toPoint());
    EXPECT_TRUE(view.model().isScanning());
    waitForLevel(view.model());
    turnFrame();
    EXPECT_EQ(view.model().viewMode(), ViewMode::treemap);
    EXPECT_EQ(walked(view.model()), (QStringList{u"Documents"_s, u"Work"_s}));
    EXPECT_EQ(map->cells().size(), 2);
}

TEST_F(StorageBrowserViewTests, deleteInTheTreemapAsksForTheTrash)
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

TEST_F(StorageBrowserViewTests, switchingToTheLargestFilesLoadsThemEachTime)
{
    StorageBrowserView view(context());
    browse(view, documents());
    choose(view, ViewMode::largest);
    const auto* panel = view.findChild<LargestFilesPanel*>();
    EXPECT_EQ(textsIn(*panel), QStringList{u"Top 4 largest files in Documents"_s});
    EXPECT_EQ(rows(panel->list()),
              (QStringList{u"b.zip 4 KB"_s, u"a.pdf 3 KB"_s, u"c.txt 2 KB"_s, u"d.JPG 1 KB"_s}));
    choose(view, ViewMode::list);
    write("e.mov", 9'000);
    choose(view, ViewMode::largest);
    EXPECT_EQ(textsIn(*panel), QStringList{u"Top 5 largest files in Documents"_s});
}

TEST_F(StorageBrowserViewTests, aFolderWithoutFilesHasNoLargestOnes)
{
    StorageBrowserView view(context());
    browse(view, pictures());
    choose(view, ViewMode::largest);
    EXPECT_EQ(textsIn(*view.findChild<LargestFilesPanel*>()), QStringList{u"No files found."_s});
}

TEST_F(StorageBrowserViewTests, goingBackKeepsTheLargestFilesUntilTheyAreRefreshed)
{
    StorageBrowserView view(context());
    browse(view, documents());
    drillIn(view, u"Work"_s);
    choose(view, ViewMode::largest);
    const auto* panel = view.findChild<LargestFilesPanel*>();
    button(view, u"Back"_s)->click();
    turnFrame();
    EXPECT_EQ(rows(panel->list()), (QStringList{u"b.zip 4 KB"_s, u"a.pdf 3 KB"_s}));
    button(view, u"Refresh"_s)->click();
    waitForLargest(view.model());
    turnFrame();
    EXPECT_EQ(panel->list()->rowModel()->rowCount(), 4);
}

TEST_F(StorageBrowserViewTests, aTrashedFileStaysAmongTheLargest)
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

TEST_F(StorageBrowserViewTests, theRefreshKeysMeasureTheLevelAgain)
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

TEST_F(StorageBrowserViewTests, theRefreshKeysLookForTheLargestFilesAgain)
{
    StorageBrowserView view(context());
    browse(view, documents());
    choose(view, ViewMode::largest);
    QTest::keyClick(&view, Qt::Key_F5);
    EXPECT_FALSE(view.model().isScanning());
    EXPECT_TRUE(view.model().isLoadingLargest());
    waitForLargest(view.model());
}

TEST_F(StorageBrowserViewTests, leavingInTheMiddleOfAMeasurementIsSafe)
{
    HeldWalks held(mac.root());
    const FileManagerGuard guard(held);
    auto view = std::make_unique<StorageBrowserView>(context());
    show(*view);
    held.holdNextLookAt(documents());
    button(*view, u"Documents"_s)->click();
    ASSERT_TRUE(held.waitUntilHeld());
    view.reset();
    held.letGo();
    waitForBackgroundWork();
    settle();
}

TEST_F(StorageBrowserViewTests, leavingInTheMiddleOfASearchIsSafe)
{
    HeldWalks held(mac.root());
    const FileManagerGuard guard(held);
    auto view = std::make_unique<StorageBrowserView>(context());
    browse(*view, documents());
    held.holdNextLookAt(documents());
    Q_EMIT view->findChild<SegmentedControl*>()->chosen(2);
    ASSERT_TRUE(held.waitUntilHeld());
    turnFrame();
    EXPECT_EQ(textsIn(*view->findChild<LargestFilesPanel*>()), QStringList{u"Scanning for large files…"_s});
    view.reset();
    held.letGo();
    waitForBackgroundWork();
    settle();
}

TEST_F(StorageBrowserViewTests, everyControlHasANameAndIsReachedByTab)
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

TEST_F(StorageBrowserViewTests, nothingIsCutInANarrowWindow)
{
    const QString name = u"A folder with a name that goes on for longer than any window is wide "_s;
    write((name + u"one/"_s + name + u"two/"_s + name + u"three/file.txt"_s).toUtf8(), 100'000);
    for (const QString& shortcut : {u"Desktop"_s, u"Downloads"_s})
        mac.makeFolder("Users/mira/" + shortcut.toUtf8());
    StorageBrowserView view(context());
    show(view);
    view.resize(640, 560);
    navigate(view.model(), documents());
    for (const QString& level : {u"one"_s, u"two"_s, u"three"_s})
        StorageBrowserFixture::drillIn(view.model(), name + level);
    turnFrame();
    EXPECT_EQ(view.width(), 640);
    EXPECT_LE(view.minimumSizeHint().width(), 640);
    EXPECT_LE(view.minimumSizeHint().height(), 560);
    for (const ViewMode mode : StorageBrowserModel::allViewModes()) {
        choose(view, mode);
        for (const Button* each : view.findChildren<Button*>()) {
            if (!each->isVisible() || each->kind() == Button::Kind::link)
                continue;
            EXPECT_GE(each->width(), each->sizeHint().width()) << each->caption().toStdString();
        }
    }
    choose(view, ViewMode::list);
    EXPECT_GE(list(view)->height(), 49);
}

TEST_F(StorageBrowserViewTests, tabGoesFromTheTopToTheBottom)
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

TEST_F(StorageBrowserViewTests, theWholeLegendIsSeenInANarrowWindow)
{
    for (const QByteArray name : {"a.mov", "b.zip", "c.mp3", "d.cpp", "e.iso"})
        write(name, 123'456);
    StorageBrowserView view(context());
    show(view);
    view.resize(640, 560);
    navigate(view.model(), documents());
    turnFrame();
    const auto* bar = view.findChild<BreakdownBar*>();
    for (const QLabel* label : bar->findChildren<QLabel*>()) {
        const QRect place(label->mapTo(bar, QPoint()), label->size());
        EXPECT_TRUE(bar->rect().contains(place)) << label->text().toStdString();
    }
    EXPECT_EQ(textsIn(*bar).size(), 12);
}

TEST_F(StorageBrowserViewTests, theModelOfTheListKeepsItsPromises)
{
    StorageBrowserView view(context());
    const QAbstractItemModelTester tester(list(view)->rowModel(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    browse(view, documents());
    drillIn(view, u"Work"_s);
    view.model().setSortOrder(StorageBrowserModel::SortOrder::name);
    turnFrame();
    EXPECT_EQ(list(view)->rowModel()->rowCount(), 2);
}

} // namespace keelbright::testing

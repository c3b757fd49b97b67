#include "Keelbright/screens/shell/UndoCommand.h"

#include "Keelbright/screens/JunkCleanerView.h"
#include "Keelbright/screens/OrganizerView.h"
#include "Keelbright/screens/StorageBrowserView.h"
#include "Keelbright/screens/shell/MainWindow.h"
#include "Keelbright/screens/storage/StorageBrowserModel.h"
#include "Keelbright/screens/undo/UndoWindow.h"
#include "tests/screens/shared/ScreenTestCase.h"
#include "tests/support/HeldFileManager.h"
#include "tests/support/MadeUpMac.h"
#include "tests/support/SpokenTexts.h"

#include <QAction>
#include <QLineEdit>
#include <QMenuBar>
#include <QTest>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

/// The entry of the menu, in the real window, after what the screens have moved.
class UndoCommandTests : public ScreenTestCase
{
protected:
    UndoCommandTests()
    {
        state->setSelectedScreen(std::nullopt);
        state->setIsOnboardingCompleted(true);
        show(window);
    }

    ~UndoCommandTests() override { held.finish(); }

    UndoCommandTests(const UndoCommandTests&) = delete;
    UndoCommandTests& operator=(const UndoCommandTests&) = delete;

    [[nodiscard]] QAction* entry() const
    {
        for (const QAction* menu : window.menuBar()->actions()) {
            if (QString(menu->text()).remove(u'&') != u"Edit"_s)
                continue;
            for (QAction* action : menu->menu()->actions()) {
                if (action->text().startsWith(u"Undo"_s))
                    return action;
            }
        }
        ADD_FAILURE() << "no entry";
        return nullptr;
    }

    void pressUndo() { QTest::keyClick(&window, Qt::Key_Z, Qt::ControlModifier); }

    void waitForEnd()
    {
        turnUntil([this] { return !state->undo().isUndoing(); });
    }

    [[nodiscard]] bool exists(const QByteArray& path) const
    {
        return held.fileExists(mac.home().appendingNative(path)).exists;
    }

    void organizeDownloads()
    {
        mac.writeFile("Users/mira/Downloads/a.png", "a");
        mac.writeFile("Users/mira/Downloads/b.pdf", "bb");
        state->setSelectedScreen(Screen::organizer);
        auto* model = window.findChild<OrganizerVM*>();
        model->scan(OrganizerVM::QuickTarget::downloads);
        turnUntil([&] { return !model->isScanning(); });
        model->execute();
        ASSERT_TRUE(exists("Downloads/Images/a.png"));
    }

    [[nodiscard]] TrashedItem trash(const QByteArray& name)
    {
        return held.trashItem(mac.writeFile("Users/mira/" + name, name)).value();
    }

    [[nodiscard]] UndoWindow* undoWindow() const { return window.findChild<UndoWindow*>(); }

    HeldFileManager held{mac.root()};
    FileManagerGuard heldGuard{held};
    MainWindow window{context()};
};

} // namespace

TEST_F(UndoCommandTests, withNothingToUndoTheEntryIsDisabled)
{
    EXPECT_EQ(entry()->text(), u"Undo"_s);
    EXPECT_FALSE(entry()->isEnabled());
    EXPECT_EQ(entry()->shortcut(), QKeySequence(u"Ctrl+Z"_s));
}

TEST_F(UndoCommandTests, undoesARunOfTheOrganizerAndScansAgain)
{
    organizeDownloads();
    turnFrame();
    EXPECT_TRUE(textsIn(window).contains(u"Already organised!"_s));
    EXPECT_EQ(entry()->text(), u"Undo Organise"_s);
    EXPECT_TRUE(entry()->isEnabled());
    const SpokenTexts spoken;
    pressUndo();
    waitForEnd();
    EXPECT_TRUE(exists("Downloads/a.png"));
    EXPECT_TRUE(exists("Downloads/b.pdf"));
    EXPECT_FALSE(exists("Downloads/Images"));
    EXPECT_FALSE(exists("Downloads/Documents"));
    EXPECT_TRUE(spoken.all().contains(u"2 items are back where they were."_s));
    EXPECT_EQ(entry()->text(), u"Undo"_s);
    EXPECT_FALSE(entry()->isEnabled());
    turnUntil([this] { return textsIn(window).contains(u"2 files selected"_s); });
    turnUntil([this] { return undoWindow() == nullptr || !undoWindow()->isVisible(); });
    EXPECT_EQ(activityStore.load().size(), 1) << "the log records the run alone";
}

TEST_F(UndoCommandTests, undoesACleanAndScansAgain)
{
    mac.writeFile("Users/mira/Library/Logs/one/file", "1");
    state->setSelectedScreen(Screen::junkCleaner);
    auto* model = window.findChild<JunkCleanerVM*>();
    turnUntil([&] { return !model->categories().isEmpty(); });
    model->selectAll();
    model->clean();
    EXPECT_FALSE(exists("Library/Logs/one"));
    EXPECT_EQ(entry()->text(), u"Undo Move to Trash"_s);
    pressUndo();
    waitForEnd();
    EXPECT_TRUE(exists("Library/Logs/one/file"));
    turnUntil([&] { return !model->isScanning() && !model->categories().isEmpty(); });
    EXPECT_EQ(model->categories().first().items.first().name(), u"one"_s);
}

TEST_F(UndoCommandTests, undoesAMoveOfTheStorageBrowserAndMeasuresAgain)
{
    mac.writeFile("Users/mira/Movies/film.mov", "1234567890");
    mac.writeFile("Users/mira/Movies/other.mov", "1");
    state->setSelectedScreen(Screen::storageBrowser);
    StorageBrowserModel& model = window.findChild<StorageBrowserView*>()->model();
    model.navigate(mac.home().appending(u"Movies"_s));
    turnUntil([&] { return model.currentNodes().size() == 2; });
    model.trash(model.currentNodes().first());
    turnUntil([&] { return model.currentNodes().size() == 1; });
    EXPECT_EQ(entry()->text(), u"Undo Move to Trash"_s);
    pressUndo();
    turnUntil([&] { return model.currentNodes().size() == 2; });
    EXPECT_TRUE(exists("Movies/film.mov"));
}

TEST_F(UndoCommandTests, undoesARemovalAndListsTheApplicationAgain)
{
    MadeUpMac(mac.root(), mac.clock()()).addApplications();
    state->setSelectedScreen(Screen::appManager);
    state->scanApps();
    turnUntil([this] { return !state->scannedApps().isEmpty(); });
    const AppInfo removed = state->scannedApps().first();
    const qsizetype count = state->scannedApps().size();
    TrashedItems trashed;
    trashed.items.append(held.trashItem(removed.url).value());
    trashed.isRemoval = true;
    state->removeScannedApp(removed.id);
    state->undo().remember(trashed);
    pressUndo();
    waitForEnd();
    EXPECT_TRUE(held.fileExists(removed.url).exists);
    turnUntil([&] { return !state->isAppScanning() && state->scannedApps().size() == count; });
}

TEST_F(UndoCommandTests, whatCantGoBackIsShown)
{
    TrashedItems trashed;
    trashed.items = {trash("a"), trash("b")};
    mac.writeFile("Users/mira/b", "new");
    state->undo().remember(trashed);
    pressUndo();
    waitForEnd();
    ASSERT_NE(undoWindow(), nullptr);
    EXPECT_TRUE(undoWindow()->isVisible());
    EXPECT_TRUE(undoWindow()->isModal());
    EXPECT_EQ(undoWindow()->windowTitle(), u"Undo Move to Trash"_s);
    EXPECT_TRUE(textsIn(*undoWindow()).contains(u"1 item could not be put back."_s));
    EXPECT_TRUE(textsIn(*undoWindow()).contains(u"1 item is back where it was."_s));
    QTest::keyClick(undoWindow(), Qt::Key_Escape);
    settle();
    EXPECT_EQ(undoWindow(), nullptr);
}

TEST_F(UndoCommandTests, anUndoThatTakesItsTimeIsShownAndGoesWithItsEnd)
{
    TrashedItems trashed;
    trashed.items = {trash("a"), trash("b")};
    held.holdNextLookAt(trashed.items.first().origin);
    state->undo().remember(trashed);
    pressUndo();
    ASSERT_TRUE(held.waitUntilHeld());
    EXPECT_FALSE(entry()->isEnabled());
    EXPECT_EQ(entry()->text(), u"Undo Move to Trash"_s);
    turnUntil([this] { return undoWindow() != nullptr && undoWindow()->isVisible(); });
    turnUntil([this] { return textsIn(*undoWindow()).contains(u"1 of 2"_s); });
    held.letGo();
    waitForEnd();
    turnUntil([this] { return undoWindow() == nullptr || !undoWindow()->isVisible(); });
    EXPECT_TRUE(exists("a"));
}

TEST_F(UndoCommandTests, anUndoThatWasCancelledSaysSoAndCanGoOn)
{
    TrashedItems trashed;
    trashed.items = {trash("a"), trash("b"), trash("c")};
    held.holdNextLookAt(trashed.items.at(1).origin);
    state->undo().remember(trashed);
    pressUndo();
    ASSERT_TRUE(held.waitUntilHeld());
    turnUntil([this] { return undoWindow() != nullptr && undoWindow()->isVisible(); });
    QTest::mouseClick(button(*undoWindow(), u"Cancel"_s), Qt::LeftButton);
    held.letGo();
    waitForEnd();
    ASSERT_NE(undoWindow(), nullptr);
    EXPECT_TRUE(textsIn(*undoWindow()).contains(u"The undo was cancelled."_s));
    EXPECT_TRUE(entry()->isEnabled());
    QTest::keyClick(undoWindow(), Qt::Key_Escape);
    settle();
    entry()->trigger();
    waitForEnd();
    EXPECT_TRUE(exists("a"));
    EXPECT_FALSE(entry()->isEnabled());
}

TEST_F(UndoCommandTests, aTextFieldUndoesItsOwnText)
{
    MadeUpMac(mac.root(), mac.clock()()).addApplications();
    state->setSelectedScreen(Screen::appManager);
    state->scanApps();
    turnUntil([this] { return !state->scannedApps().isEmpty(); });
    turnFrame();
    TrashedItems trashed;
    trashed.items = {trash("a")};
    state->undo().remember(trashed);
    auto* field = window.findChild<QLineEdit*>();
    ASSERT_NE(field, nullptr);
    field->setFocus();
    QTest::keyClicks(field, u"ink"_s);
    EXPECT_EQ(field->text(), u"ink"_s);
    QTest::keyClick(field, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(field->text(), QString());
    EXPECT_TRUE(entry()->isEnabled()) << "the moves are not undone";
    // Also where the field has nothing to undo.
    QTest::keyClick(field, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(entry()->isEnabled());
    EXPECT_FALSE(exists("a"));
}

} // namespace keelbright::testing

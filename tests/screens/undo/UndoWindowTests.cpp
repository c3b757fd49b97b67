#include "Keelbright/screens/undo/UndoWindow.h"

#include "Keelbright/state/UndoStore.h"
#include "Keelbright/widgets/Progress.h"
#include "Keelbright/widgets/rows/RowListView.h"
#include "tests/screens/shared/ScreenTestCase.h"
#include "tests/support/HeldFileManager.h"
#include "tests/support/SpokenTexts.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QSignalSpy>
#include <QTest>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

class UndoWindowTests : public ScreenTestCase
{
protected:
    ~UndoWindowTests() override { held.finish(); }

    UndoWindowTests() = default;
    UndoWindowTests(const UndoWindowTests&) = delete;
    UndoWindowTests& operator=(const UndoWindowTests&) = delete;

    /// Shows the window in the middle of an undo: two of three items have been tried.
    void openInTheMiddle()
    {
        TrashedItems trashed;
        for (const char* name : {"a", "b", "c"})
            trashed.items.append(
                held.trashItem(mac.writeFile(QByteArray("Users/mira/") + name, name)).value());
        held.holdNextLookAt(trashed.items.first().origin);
        store.remember(trashed);
        store.undo();
        ASSERT_TRUE(held.waitUntilHeld());
        open();
    }

    void open()
    {
        window = std::make_unique<UndoWindow>(store);
        show(*window);
    }

    [[nodiscard]] static UndoResult resultWithFailures(qsizetype count)
    {
        UndoResult result;
        result.restored = 3;
        for (qsizetype i = 0; i < count; ++i)
            result.failures.append({FileURL::fromPath(u"/home/mira/%1.txt"_s.arg(i)), u"It is gone."_s});
        return result;
    }

    [[nodiscard]] RowListView* list() const { return window->findChild<RowListView*>(); }

    HeldFileManager held{mac.root()};
    FileManagerGuard heldGuard{held};
    UndoStore store;
    std::unique_ptr<UndoWindow> window;
};

} // namespace

TEST_F(UndoWindowTests, showsHowFarTheUndoIs)
{
    openInTheMiddle();
    EXPECT_EQ(window->windowTitle(), u"Undo Move to Trash"_s);
    EXPECT_TRUE(textsIn(*window).contains(u"Putting everything back…"_s));
    turnUntil([this] { return textsIn(*window).contains(u"2 of 3"_s); });
    EXPECT_DOUBLE_EQ(window->findChild<BarProgress*>()->fraction(), 2.0 / 3.0);
    EXPECT_TRUE(accessibleNames(*window).contains(u"Undo progress"_s));
    expectEveryControlIsNamedAndReachedByTab(*window);
}

TEST_F(UndoWindowTests, saysAtOnceThatItIsCancelling)
{
    openInTheMiddle();
    QTest::mouseClick(button(*window, u"Cancel"_s), Qt::LeftButton);
    turnFrame();
    EXPECT_TRUE(store.isCancelling());
    EXPECT_TRUE(textsIn(*window).contains(u"Cancelling..."_s));
    EXPECT_FALSE(button(*window, u"Cancel"_s)->isEnabled());
}

TEST_F(UndoWindowTests, escapeCancelsFirstAndThenLeavesAnUndoThatHangs)
{
    openInTheMiddle();
    QTest::keyClick(window.get(), Qt::Key_Escape);
    EXPECT_TRUE(store.isCancelling());
    EXPECT_TRUE(window->isVisible());
    QTest::keyClick(window.get(), Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
    EXPECT_TRUE(store.isUndoing());
}

TEST_F(UndoWindowTests, whatCouldNotBePutBackIsListedWithItsReasonAndCanBeCopied)
{
    open();
    const SpokenTexts spoken;
    window->showResult(resultWithFailures(2));
    turnFrame();
    EXPECT_EQ(spoken.all(), QStringList{u"2 items could not be put back."_s});
    EXPECT_TRUE(textsIn(*window).contains(u"2 items could not be put back."_s));
    EXPECT_TRUE(textsIn(*window).contains(u"3 items are back where they were."_s));
    EXPECT_TRUE(shownSymbols(*window).contains(u"exclamationmark.triangle.fill"_s));
    ASSERT_NE(list(), nullptr);
    EXPECT_EQ(list()->accessibleName(), u"Not put back"_s);
    ASSERT_EQ(list()->rowModel()->rowCount(), 2);
    EXPECT_EQ(list()->rowModel()->accessibleText(1), u"/home/mira/1.txt, It is gone."_s);
    EXPECT_EQ(list()->rowModel()->rowAt(1).detailElide, Qt::ElideMiddle);
    expectEveryControlIsNamedAndReachedByTab(*window);
    QTest::mouseClick(button(*window, u"Copy the list"_s), Qt::LeftButton);
    EXPECT_EQ(QGuiApplication::clipboard()->text(),
              u"/home/mira/0.txt\tIt is gone.\n/home/mira/1.txt\tIt is gone.\n"_s);
}

TEST_F(UndoWindowTests, theResultIsClosedByItsButtonOrEscape)
{
    open();
    window->showResult(resultWithFailures(1));
    turnFrame();
    QTest::mouseClick(button(*window, u"Close"_s), Qt::LeftButton);
    EXPECT_FALSE(window->isVisible());
    open();
    window->showResult(resultWithFailures(1));
    turnFrame();
    QTest::keyClick(window.get(), Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(UndoWindowTests, aCancelledUndoWithoutFailuresHasNoList)
{
    open();
    UndoResult result;
    result.restored = 1;
    OrganizedFiles rest;
    rest.moves.resize(2);
    result.remaining = rest;
    window->showResult(result);
    turnFrame();
    EXPECT_EQ(list(), nullptr);
    EXPECT_TRUE(textsIn(*window).contains(u"The undo was cancelled."_s));
    EXPECT_TRUE(textsIn(*window).contains(u"2 items were not tried; undo once more to go on."_s));
    EXPECT_EQ(buttonIn(*window, u"Copy the list"_s), nullptr);
}

TEST_F(UndoWindowTests, aHundredThousandFailuresAreShown)
{
    open();
    window->showResult(resultWithFailures(100'000));
    turnFrame();
    EXPECT_TRUE(textsIn(*window).contains(u"100,000 items could not be put back."_s));
    ASSERT_NE(list(), nullptr);
    list()->setCurrentRow(99'999);
    list()->scrollToBottom();
    turnFrame();
    EXPECT_GT(list()->visualRect(list()->model()->index(99'999, 0)).height(), 0);
}

} // namespace keelbright::testing

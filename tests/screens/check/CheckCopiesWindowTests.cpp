#include "Keelbright/screens/check/CheckCopiesWindow.h"

#include "Keelbright/widgets/Progress.h"
#include "Keelbright/widgets/rows/RowListView.h"
#include "KeelbrightCore/check/ChecksumSpool.h"
#include "tests/screens/shared/ScreenTestCase.h"
#include "tests/support/FakeCopyCheck.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPointer>
#include <QTest>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

class CheckCopiesWindowTests : public ScreenTestCase
{
protected:
    CheckCopiesWindowTests()
    {
        AppServices given = services();
        given.startCopyCheck = checks.starter();
        (void)standardOutputOf([&] { state = std::make_unique<AppState>(given); });
    }

    void open()
    {
        window = std::make_unique<CheckCopiesWindow>(context());
        show(*window);
    }

    void press(const QString& name)
    {
        QTest::mouseClick(button(*window, name), Qt::LeftButton);
        turnFrame();
    }

    void start()
    {
        chooseDrive();
        open();
        press(u"Start Check"_s);
        ASSERT_EQ(checks.jobs.size(), 1);
    }

    void end(const CheckReport& report)
    {
        checks.end(report);
        turnUntil([this] { return !state->isCheckingCopies(); });
        turnFrame();
    }

    FakeCopyCheck checks;
    std::unique_ptr<CheckCopiesWindow> window;
};

} // namespace

TEST_F(CheckCopiesWindowTests, saysWhatItWillDo)
{
    chooseDrive();
    open();
    EXPECT_TRUE(textsIn(*window).contains(
        u"Reads every copy back from Anchor and compares it with its original. Nothing is changed."_s));
    EXPECT_TRUE(button(*window, u"Start Check"_s)->isEnabled());
    expectEveryControlIsNamedAndReachedByTab(*window);
}

TEST_F(CheckCopiesWindowTests, withoutADriveOnlyAListCanBeUsed)
{
    open();
    EXPECT_FALSE(button(*window, u"Start Check"_s)->isEnabled());
    EXPECT_TRUE(button(*window, u"Use a List of Checksums…"_s)->isEnabled());
    EXPECT_TRUE(textsIn(*window).contains(u"Choose a backup destination in Settings first."_s));
    chooseDrive();
    turnFrame();
    EXPECT_TRUE(button(*window, u"Start Check"_s)->isEnabled());
    EXPECT_FALSE(textsIn(*window).contains(u"Choose a backup destination in Settings first."_s));
}

TEST_F(CheckCopiesWindowTests, waitsForTheEndOfABackup)
{
    chooseDrive();
    open();
    state->engine().setIsRunning(true);
    turnFrame();
    EXPECT_FALSE(button(*window, u"Start Check"_s)->isEnabled());
    EXPECT_FALSE(button(*window, u"Use a List of Checksums…"_s)->isEnabled());
    EXPECT_TRUE(
        textsIn(*window).contains(u"A backup is running. The copies can be checked when it has ended."_s));
    state->engine().setIsRunning(false);
    turnFrame();
    EXPECT_TRUE(button(*window, u"Start Check"_s)->isEnabled());
}

TEST_F(CheckCopiesWindowTests, showsHowFarACheckIs)
{
    start();
    EXPECT_TRUE(textsIn(*window).contains(u"Counting the copies…"_s));
    CheckProgress& progress = checks.progress();
    progress.setTotal(1'200, 4'000);
    progress.setPhase(CheckProgress::Phase::reading);
    progress.beginFile("IMG_1.jpg");
    progress.addBytes(1'000);
    progress.endFile();
    progress.addFault();
    turnUntil([this] { return textsIn(*window).contains(u"IMG_1.jpg"_s); });
    EXPECT_TRUE(accessibleNames(*window).contains(u"Checked 1 of 1,200"_s));
    EXPECT_TRUE(accessibleNames(*window).contains(u"Faults 1"_s));
    EXPECT_EQ(window->findChild<RingProgress*>()->centerText(), u"25%"_s);
    expectEveryControlIsNamedAndReachedByTab(*window);
    progress.setPhase(CheckProgress::Phase::lookingForNew);
    turnUntil(
        [this] { return textsIn(*window).contains(u"Looking for files that are not backed up yet…"_s); });
    end(sampleCheck(1));
}

TEST_F(CheckCopiesWindowTests, saysAtOnceThatItIsCancelling)
{
    start();
    press(u"Cancel Check"_s);
    EXPECT_TRUE(checks.cancellation().isCancelled());
    EXPECT_TRUE(textsIn(*window).contains(u"Cancelling..."_s));
    EXPECT_FALSE(button(*window, u"Cancel Check"_s)->isEnabled());
    CheckReport report = sampleCheck(1);
    report.end = CheckReport::End::cancelled;
    report.copies = 2;
    end(report);
    EXPECT_TRUE(textsIn(*window).contains(
        u"The check of Anchor was cancelled after 1 of 2 copies. No fault was found until then."_s));
}

TEST_F(CheckCopiesWindowTests, escapeCancelsFirstAndClosesThen)
{
    start();
    QTest::keyClick(window.get(), Qt::Key_Escape);
    EXPECT_TRUE(checks.cancellation().isCancelled());
    EXPECT_FALSE(checks.cancellation().isQuitting());
    EXPECT_TRUE(window->isVisible());
    end(sampleCheck(1));
    QTest::keyClick(window.get(), Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(CheckCopiesWindowTests, aDriveThatHangsDoesNotKeepTheWindowOpen)
{
    start();
    press(u"Close"_s);
    EXPECT_TRUE(checks.cancellation().isCancelled());
    EXPECT_TRUE(textsIn(*window).contains(u"Cancelling..."_s));
    press(u"Close"_s);
    EXPECT_FALSE(window->isVisible());
    window.reset();
    EXPECT_TRUE(checks.cancellation().isQuitting());
    EXPECT_FALSE(state->isCheckingCopies());
}

TEST_F(CheckCopiesWindowTests, aSoundDriveHasItsSentenceItsNumbersAndNoList)
{
    start();
    CheckReport report = sampleCheck(41'230);
    report.add(CopyVerdict::notBackedUp, 7);
    end(report);
    EXPECT_TRUE(textsIn(*window).contains(
        u"All 41,230 copies on Anchor are readable and equal to their originals."_s));
    const QStringList names = accessibleNames(*window);
    for (const QString& cell : {u"Equal 41,230"_s, u"Different 0"_s, u"Unreadable 0"_s, u"Changed Since 0"_s,
                                u"Only on the Drive 0"_s, u"Not Backed Up Yet 7"_s})
        EXPECT_TRUE(names.contains(cell)) << cell.toStdString();
    EXPECT_EQ(window->findChild<RowListView*>(), nullptr);
    EXPECT_TRUE(shownSymbols(*window).contains(u"checkmark.seal.fill"_s));
    press(u"Check Again…"_s);
    EXPECT_TRUE(button(*window, u"Start Check"_s)->isEnabled());
}

TEST_F(CheckCopiesWindowTests, aCheckThatComparedNothingHasNoGreenMark)
{
    start();
    CheckReport report = sampleCheck(2);
    report.add(CopyVerdict::same, -2);
    report.add(CopyVerdict::onlyOnDrive, 2);
    end(report);
    EXPECT_FALSE(shownSymbols(*window).contains(u"checkmark.seal.fill"_s));
}

TEST_F(CheckCopiesWindowTests, aListThatLacksCopiesGivesNoGreenMark)
{
    start();
    CheckReport report = sampleCheck(2);
    report.isAgainstList = true;
    report.add(CopyVerdict::onlyOnDrive, 1);
    end(report);
    EXPECT_FALSE(shownSymbols(*window).contains(u"checkmark.seal.fill"_s));
}

TEST_F(CheckCopiesWindowTests, faultsCanBeShownAndCopied)
{
    start();
    CheckReport report = sampleCheck(10);
    addDamaged(report, u"Pictures/a.jpg"_s);
    end(report);
    auto* list = window->findChild<RowListView*>();
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->accessibleName(), u"Findings"_s);
    EXPECT_TRUE(shownSymbols(*window).contains(u"xmark.octagon.fill"_s));
    Q_EMIT list->actionPressed(0, RowActionId::reveal);
    EXPECT_EQ(workspace.revealed, QStringList({report.personalFiles.path() + u"/Pictures/a.jpg"_s}));
    press(u"Copy the list"_s);
    EXPECT_EQ(
        QGuiApplication::clipboard()->text(),
        report.personalFiles.path() +
            u"/Pictures/a.jpg\tIt differs from its original, which has not changed since the backup.\n"_s);
    expectEveryControlIsNamedAndReachedByTab(*window);
}

TEST_F(CheckCopiesWindowTests, aHundredThousandFaultsAreShown)
{
    start();
    CheckReport report = sampleCheck(100'000);
    for (int i = 0; i < 100'000; ++i)
        addUnreadable(report, u"IMG_%1.jpg"_s.arg(i));
    end(report);
    EXPECT_TRUE(
        textsIn(*window).contains(u"100,000 of 100,000 copies on Anchor are damaged or can't be read."_s));
    auto* list = window->findChild<RowListView*>();
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->model()->rowCount(), 100'000);
    list->setCurrentRow(99'999);
    list->scrollToBottom();
    turnFrame();
    EXPECT_GT(list->visualRect(list->model()->index(99'999, 0)).height(), 0);
}

TEST_F(CheckCopiesWindowTests, checksumsAreSavedFromTheResult)
{
    start();
    CheckReport report = sampleCheck(1);
    report.checksums = ChecksumSpool::create();
    report.checksums->add({QByteArray(32, 'x'), "a"});
    end(report);
    files.willChoose(mac.root().appending(u"list.sha256"_s));
    press(u"Save Checksums…"_s);
    turnUntil([this] { return textsIn(*window).contains(u"The checksums are saved as list.sha256."_s); });
}

TEST_F(CheckCopiesWindowTests, withoutChecksumsThereIsNothingToSave)
{
    start();
    end(sampleCheck(1));
    EXPECT_EQ(buttonIn(*window, u"Save Checksums…"_s), nullptr);
}

TEST_F(CheckCopiesWindowTests, closingGivesTheCheckUp)
{
    start();
    window.reset();
    EXPECT_TRUE(checks.cancellation().isQuitting());
    EXPECT_FALSE(state->isCheckingCopies());
    checks.end(sampleCheck(1));
}

} // namespace keelbright::testing

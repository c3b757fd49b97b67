#include "Keelbright/screens/PreflightSummaryView.h"

#include "Keelbright/widgets/Card.h"
#include "Keelbright/widgets/NumberLabel.h"
#include "Keelbright/widgets/Progress.h"
#include "tests/screens/shared/ScreenTestCase.h"

#include <QScrollArea>
#include <QScrollBar>
#include <QSemaphore>
#include <QTest>

#include <atomic>
#include <optional>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

/// The test's machine with a given free space on the drive, which can also keep the checks waiting.
class DriveFileManager : public SandboxFileManager
{
public:
    using SandboxFileManager::SandboxFileManager;

    [[nodiscard]] std::expected<FileSystemCapacity, FileError>
    fileSystemCapacity(const FileURL&) const override
    {
        if (isSlow) {
            asked.release();
            answer.acquire();
        }
        return FileSystemCapacity{.totalBytes = freeBytes, .freeBytes = freeBytes};
    }

    [[nodiscard]] std::expected<std::unique_ptr<DirectoryEnumerator>, FileError>
    enumerator(const FileURL& url, DirectoryEnumerator::Options options) const override
    {
        ++walks;
        return SandboxFileManager::enumerator(url, options);
    }

    std::optional<qint64> freeBytes = 50'000'000'000;
    std::atomic<bool> isSlow = false;
    mutable QSemaphore asked;
    mutable QSemaphore answer;
    mutable std::atomic<int> walks = 0; ///< that were begun
};

class PreflightSummaryViewTests : public ScreenTestCase
{
protected:
    ~PreflightSummaryViewTests() override
    {
        // Checks that are still running use the machine of the test.
        waitForBackgroundWork();
    }

    AppState& makeReadyState()
    {
        mac.makeFolder("Users/mira/Desktop");
        mac.makeFolder("Users/mira/Pictures");
        mac.writeFile("Users/mira/Documents/a.txt", QByteArray(1'500, 'a'));
        mac.writeFile("Users/mira/Documents/b.txt", QByteArray(500, 'b'));
        AppState& app = makeState();
        app.setSelectedDestination(driveDestination());
        return app;
    }

    static void showResult(PreflightSummaryView& view)
    {
        show(view);
        turnUntil([&] { return textsIn(view).contains(u"Backup Estimate"_s); });
    }

    [[nodiscard]] static Role freeSpaceColor(const PreflightSummaryView& view)
    {
        return view.findChildren<NumberLabel*>().last()->colorRole();
    }

    DriveFileManager files{mac.root()};
    FileManagerGuard guard{files};
};

} // namespace

TEST_F(PreflightSummaryViewTests, showsThatItAnalysesUntilTheResultIsThere)
{
    files.isSlow = true;
    PreflightSummaryView view(makeReadyState());
    show(view);
    EXPECT_EQ(textsIn(view), (QStringList{u"Preflight Check"_s, u"Analyzing selected folders..."_s}));
    EXPECT_TRUE(shownSymbols(view).contains(u"checkmark.shield.fill"_s));
    EXPECT_TRUE(view.findChild<Spinner*>()->isVisible());
    for (const auto* action : view.findChildren<Button*>())
        EXPECT_FALSE(action->isVisible());
    files.answer.release();
    turnUntil([&] { return textsIn(view).contains(u"Backup Estimate"_s); });
    EXPECT_FALSE(textsIn(view).contains(u"Analyzing selected folders..."_s));
    EXPECT_FALSE(view.findChild<Spinner*>()->isVisible());
    EXPECT_TRUE(accessibleNames(view).contains(u"Backup Estimate"_s));
}

TEST_F(PreflightSummaryViewTests, showsTheEstimateAndEnablesTheStart)
{
    AppState& app = makeReadyState();
    PreflightSummaryView view(app);
    showResult(view);
    EXPECT_EQ(textsIn(view),
              (QStringList{u"Preflight Check"_s, u"Backup Estimate"_s, u"Estimated Files:"_s, u"2"_s,
                           u"Estimated Size:"_s, u"2 KB"_s, u"Destination Free Space:"_s, u"50 GB"_s}));
    const QStringList names = accessibleNames(view);
    EXPECT_TRUE(names.contains(u"Estimated Files: 2"_s));
    EXPECT_TRUE(names.contains(u"Estimated Size: 2 KB"_s));
    EXPECT_TRUE(names.contains(u"Destination Free Space: 50 GB"_s));
    EXPECT_EQ(freeSpaceColor(view), Role::primaryText);
    EXPECT_TRUE(button(view, u"Confirm & Start"_s)->isEnabled());
}

TEST_F(PreflightSummaryViewTests, cancelReturnsToTheDashboard)
{
    AppState& app = makeReadyState();
    app.setSelectedScreen(Screen::preflight);
    PreflightSummaryView view(app);
    showResult(view);
    button(view, u"Cancel"_s)->click();
    EXPECT_EQ(app.selectedScreen(), Screen::dashboard);
    EXPECT_FALSE(app.engine().isRunning());
}

TEST_F(PreflightSummaryViewTests, confirmStartsTheRunAndThenShowsItsProgress)
{
    AppState& app = makeReadyState();
    PreflightSummaryView view(app);
    showResult(view);
    bool wasRunning = false;
    QObject::connect(&app, &AppState::selectedScreenChanged, &view,
                     [&] { wasRunning = app.engine().isRunning(); });
    button(view, u"Confirm & Start"_s)->click();
    EXPECT_TRUE(wasRunning);
    EXPECT_EQ(app.selectedScreen(), Screen::backupProgress);
    turnUntil([&] { return !app.engine().isRunning(); });
    EXPECT_EQ(app.engine().lastReport()->filesCopied, 2);
}

TEST_F(PreflightSummaryViewTests, unknownFreeSpaceReadsUnknownAndBlocksNothing)
{
    for (const std::optional<qint64> unknown : {std::optional<qint64>(0), std::optional<qint64>()}) {
        files.freeBytes = unknown;
        PreflightSummaryView view(makeReadyState());
        showResult(view);
        EXPECT_TRUE(textsIn(view).contains(u"Unknown"_s));
        EXPECT_EQ(freeSpaceColor(view), Role::primaryText);
        EXPECT_TRUE(button(view, u"Confirm & Start"_s)->isEnabled());
    }
}

TEST_F(PreflightSummaryViewTests, theColourOfUnknownFreeSpaceStillFollowsTheErrors)
{
    AppState& app = makeState();
    PreflightSummaryView view(app);
    showResult(view);
    EXPECT_TRUE(textsIn(view).contains(u"Unknown"_s));
    EXPECT_EQ(freeSpaceColor(view), Role::redText);
}

TEST_F(PreflightSummaryViewTests, errorsKeepTheStartDisabled)
{
    AppState& app = makeState();
    PreflightSummaryView view(app);
    showResult(view);
    EXPECT_EQ(textsIn(view).mid(8), (QStringList{u"Errors"_s, u"No destination selected."_s}));
    EXPECT_TRUE(shownSymbols(view).contains(u"xmark.octagon.fill"_s));
    EXPECT_FALSE(shownSymbols(view).contains(u"exclamationmark.triangle.fill"_s));
    Button* confirm = button(view, u"Confirm & Start"_s);
    EXPECT_FALSE(confirm->isEnabled());
    confirm->click();
    EXPECT_FALSE(app.engine().isRunning());
    EXPECT_TRUE(button(view, u"Cancel"_s)->isEnabled());
}

TEST_F(PreflightSummaryViewTests, tooLittleSpaceIsAnErrorInRed)
{
    files.freeBytes = 900'000'000;
    PreflightSummaryView view(makeReadyState());
    showResult(view);
    EXPECT_TRUE(textsIn(view).contains(u"900 MB"_s));
    EXPECT_TRUE(textsIn(view).contains(u"Not enough space. Required: ~1 GB, Available: 900 MB."_s));
    EXPECT_EQ(freeSpaceColor(view), Role::redText);
}

TEST_F(PreflightSummaryViewTests, warningsAloneLeaveTheStartEnabled)
{
    AppState& app = makeReadyState();
    app.addCustomSource(mac.root().appending(u"Users/mira/Gone"_s));
    PreflightSummaryView view(app);
    showResult(view);
    EXPECT_EQ(textsIn(view).mid(8), (QStringList{u"Warnings"_s, u"Source folder missing: Gone"_s}));
    EXPECT_TRUE(shownSymbols(view).contains(u"exclamationmark.triangle.fill"_s));
    EXPECT_TRUE(button(view, u"Confirm & Start"_s)->isEnabled());
}

TEST_F(PreflightSummaryViewTests, manyWarningsScrollAndTheButtonsStayVisible)
{
    AppState& app = makeReadyState();
    for (int i = 0; i < 200; ++i)
        app.addCustomSource(mac.root().appending(u"Users/mira/Gone %1"_s.arg(i)));
    PreflightSummaryView view(app);
    showResult(view);
    turnFrame();
    EXPECT_EQ(textsIn(view).filter(u"Source folder missing"_s).size(), 200);
    EXPECT_GT(view.findChild<QScrollArea*>()->verticalScrollBar()->maximum(), 1'000);
    const Button* confirm = button(view, u"Confirm & Start"_s);
    EXPECT_TRUE(view.rect().contains(QRect(confirm->mapTo(&view, QPoint()), confirm->size())));
}

TEST_F(PreflightSummaryViewTests, comingBackRunsTheChecksAgain)
{
    AppState& app = makeReadyState();
    PreflightSummaryView view(app);
    showResult(view);
    view.hide();
    mac.writeFile("Users/mira/Documents/c.txt", "c");
    files.isSlow = true;
    view.show();
    EXPECT_EQ(textsIn(view), (QStringList{u"Preflight Check"_s, u"Analyzing selected folders..."_s}));
    files.answer.release();
    turnUntil([&] { return textsIn(view).contains(u"Backup Estimate"_s); });
    EXPECT_TRUE(textsIn(view).contains(u"3"_s));
}

TEST_F(PreflightSummaryViewTests, aDriveThatGoesWhileTheResultIsReadDisablesTheStart)
{
    AppState& app = makeReadyState();
    PreflightSummaryView view(app);
    showResult(view);
    ASSERT_TRUE(button(view, u"Confirm & Start"_s)->isEnabled());
    app.setIsDestinationAway(true);
    const QString error = u"Destination folder does not exist or is not a directory."_s;
    turnUntil([&] { return textsIn(view).contains(error); });
    EXPECT_FALSE(button(view, u"Confirm & Start"_s)->isEnabled());
    app.setIsDestinationAway(false);
    turnUntil([&] { return textsIn(view).contains(u"Backup Estimate"_s) && !textsIn(view).contains(error); });
    EXPECT_TRUE(button(view, u"Confirm & Start"_s)->isEnabled());
}

TEST_F(PreflightSummaryViewTests, leavingTheScreenEndsItsCheck)
{
    files.isSlow = true;
    PreflightSummaryView view(makeReadyState());
    show(view);
    files.asked.acquire();
    view.hide();
    files.answer.release();
    waitForBackgroundWork();
    turnFrame();
    EXPECT_EQ(files.walks, 0);
    EXPECT_FALSE(textsIn(view).contains(u"Backup Estimate"_s)) << "the result of half a check is shown";
}

TEST_F(PreflightSummaryViewTests, comingBackStartsANewCheckThatWaitsForNoOther)
{
    files.isSlow = true;
    PreflightSummaryView view(makeReadyState());
    constexpr int visits = 50;
    for (int visit = 0; visit < visits; ++visit) {
        show(view);
        files.asked.acquire();
        view.hide();
    }
    files.isSlow = false;
    showResult(view);
    const int walks = files.walks;
    EXPECT_GT(walks, 0);
    files.answer.release(visits);
    waitForBackgroundWork();
    EXPECT_EQ(files.walks, walks) << "a check that was left has gone on";
}

TEST_F(PreflightSummaryViewTests, escapeReturnsToTheDashboardAlsoWhileItAnalyses)
{
    files.isSlow = true;
    AppState& app = makeReadyState();
    app.setSelectedScreen(Screen::preflight);
    PreflightSummaryView view(app);
    show(view);
    QTest::keyClick(&view, Qt::Key_Escape);
    EXPECT_EQ(app.selectedScreen(), Screen::dashboard);
    files.answer.release();
}

TEST_F(PreflightSummaryViewTests, aResultThatComesAfterTheScreenWasLeftIsDropped)
{
    files.isSlow = true;
    AppState& app = makeReadyState();
    auto view = std::make_unique<PreflightSummaryView>(app);
    show(*view);
    view.reset();
    files.answer.release();
    waitForBackgroundWork();
    turnFrame();
    EXPECT_FALSE(app.engine().isRunning());
}

TEST_F(PreflightSummaryViewTests, labelsAndValuesStayTogetherInAWideWindowAndTheButtonBelowThem)
{
    PreflightSummaryView view(makeReadyState());
    showResult(view);
    const auto* card = qobject_cast<Card*>(view.findChild<NumberLabel*>()->parentWidget()->parentWidget());
    ASSERT_NE(card, nullptr);
    for (const int width : {620, 940, 1360}) {
        view.resize(width, 700);
        turnFrame();
        const Button* confirm = button(view, u"Confirm & Start"_s);
        EXPECT_LE(card->width(), 680);
        EXPECT_EQ(confirm->mapTo(&view, confirm->rect().topRight()).x(),
                  card->mapTo(&view, card->rect().topRight()).x())
            << width;
    }
}

TEST_F(PreflightSummaryViewTests, everyControlHasANameAndIsReachedByTab)
{
    PreflightSummaryView view(makeReadyState());
    showResult(view);
    expectEveryControlIsNamedAndReachedByTab(view);
}

} // namespace keelbright::testing

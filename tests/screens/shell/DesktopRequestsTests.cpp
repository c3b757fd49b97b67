#include "Keelbright/screens/shell/DesktopRequests.h"

#include "Keelbright/screens/shell/MainWindow.h"
#include "tests/screens/shared/ScreenFixture.h"

#include <QTest>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

class DesktopRequestsTest : public testing::ScreenFixture
{
protected:
    [[nodiscard]] QStringList alertTitles() const
    {
        QStringList titles;
        for (const RiskAlert& alert : state->alerts())
            titles.append(alert.title);
        return titles;
    }

    MainWindow window{context()};
    DesktopRequests requests{*state, window};
};

} // namespace

TEST_F(DesktopRequestsTest, bringTheWindowToTheFront)
{
    state->setIsOnboardingCompleted(true);
    window.show();
    window.showMinimized();
    requests.activate(std::nullopt);
    EXPECT_FALSE(window.isMinimized());
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_EQ(state->selectedScreen(), Screen::dashboard);
}

TEST_F(DesktopRequestsTest, openTheStorageBrowser)
{
    state->setIsOnboardingCompleted(true);
    requests.activate(WindowAction::storageBrowser);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(state->selectedScreen(), Screen::storageBrowser);
}

TEST_F(DesktopRequestsTest, leadToTheCheckBeforeABackup)
{
    chooseDrive();
    state->setIsOnboardingCompleted(true);
    state->setSelectedScreen(Screen::activityLog);
    requests.activate(WindowAction::backUpNow);
    EXPECT_EQ(state->selectedScreen(), Screen::preflight);
    EXPECT_FALSE(state->engine().isRunning()) << "the user confirms first";
}

TEST_F(DesktopRequestsTest, showOnTheDashboardWhyABackupCanNotStart)
{
    state->setIsOnboardingCompleted(true);
    state->setSelectedScreen(Screen::activityLog);
    requests.activate(WindowAction::backUpNow);
    EXPECT_EQ(state->selectedScreen(), Screen::dashboard);
    EXPECT_EQ(alertTitles(), QStringList{u"No Destination Selected"_s});
}

TEST_F(DesktopRequestsTest, showTheBackupThatRunsAlready)
{
    chooseDrive();
    state->setIsOnboardingCompleted(true);
    state->engine().setIsRunning(true);
    requests.activate(WindowAction::backUpNow);
    EXPECT_EQ(state->selectedScreen(), Screen::backupProgress);
    state->engine().setIsRunning(false);
}

TEST_F(DesktopRequestsTest, waitUntilTheOnboardingIsPassedAndTheLastOneCounts)
{
    requests.activate(WindowAction::backUpNow);
    requests.activate(WindowAction::storageBrowser);
    requests.activate(std::nullopt);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(state->selectedScreen(), Screen::dashboard);
    state->setIsOnboardingCompleted(true);
    EXPECT_EQ(state->selectedScreen(), Screen::storageBrowser);
    EXPECT_EQ(alertTitles(), QStringList());
}

TEST_F(DesktopRequestsTest, areDoneOnce)
{
    requests.activate(WindowAction::storageBrowser);
    state->setIsOnboardingCompleted(true);
    state->setSelectedScreen(Screen::dashboard);
    state->setIsOnboardingCompleted(true);
    EXPECT_EQ(state->selectedScreen(), Screen::dashboard);
}

} // namespace keelbright

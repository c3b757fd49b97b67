#include "Keelbright/screens/shell/MainWindow.h"

#include "Keelbright/screens/OnboardingView.h"
#include "Keelbright/screens/SettingsView.h"
#include "Keelbright/screens/check/CheckCopiesWindow.h"
#include "Keelbright/screens/shell/DetailView.h"
#include "Keelbright/screens/shell/MainView.h"
#include "Keelbright/screens/shell/SettingsWindow.h"
#include "Keelbright/screens/shell/SidebarView.h"
#include "tests/screens/shared/ScreenFixture.h"

#include <QAction>
#include <QMenuBar>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

class MainWindowTest : public testing::ScreenFixture
{
protected:
    [[nodiscard]] QAction* action(const QString& text) const
    {
        for (auto* candidate : window.findChildren<QAction*>()) {
            if (QString(candidate->text()).remove(u'&') == text)
                return candidate;
        }
        return nullptr;
    }

    [[nodiscard]] SidebarView* sidebar() const { return window.findChild<SidebarView*>(); }

    MainWindow window{context()};
};

} // namespace

TEST_F(MainWindowTest, hasItsSizes)
{
    EXPECT_EQ(window.minimumSize(), QSize(860, 620));
    EXPECT_EQ(MainWindow::startingSize, QSize(1180, 760));
    EXPECT_EQ(window.windowTitle(), u"Keel Bright"_s);
}

TEST_F(MainWindowTest, showsTheOnboardingFirstAndTheScreensOnceItIsPassed)
{
    EXPECT_NE(qobject_cast<OnboardingView*>(window.centralWidget()), nullptr);
    EXPECT_FALSE(action(u"Hide Sidebar"_s)->isEnabled());
    const QPointer<QWidget> onboarding = window.centralWidget();
    state->setIsOnboardingCompleted(true);
    EXPECT_NE(qobject_cast<MainView*>(window.centralWidget()), nullptr);
    EXPECT_EQ(state->selectedScreen(), Screen::dashboard);
    settle();
    EXPECT_TRUE(onboarding.isNull());
}

TEST_F(MainWindowTest, everyLaunchShowsTheOnboarding)
{
    state->setIsOnboardingCompleted(true);
    std::unique_ptr<AppState> next;
    (void)testing::standardOutputOf([&] { next = std::make_unique<AppState>(services()); });
    const MainWindow again({*next, alerts, workspace, files});
    EXPECT_NE(qobject_cast<OnboardingView*>(again.centralWidget()), nullptr);
}

TEST_F(MainWindowTest, preflightAndProgressShowInTheDetailAreaWithoutASelectedRow)
{
    state->setIsOnboardingCompleted(true);
    const auto* detail = window.findChild<DetailView*>();
    for (const Screen screen : {Screen::preflight, Screen::backupProgress}) {
        state->setSelectedScreen(screen);
        EXPECT_NE(detail->currentView(), nullptr);
        EXPECT_EQ(detail->accessibleName(), rawValue(screen));
    }
}

TEST_F(MainWindowTest, f9HidesAndShowsTheSidebar)
{
    state->setIsOnboardingCompleted(true);
    QAction* toggle = action(u"Hide Sidebar"_s);
    ASSERT_NE(toggle, nullptr);
    EXPECT_EQ(toggle->shortcut(), QKeySequence(Qt::Key_F9));
    EXPECT_TRUE(toggle->isEnabled());
    toggle->trigger();
    EXPECT_TRUE(sidebar()->isHidden());
    EXPECT_EQ(toggle->text(), u"Show Sidebar"_s);
    toggle->trigger();
    EXPECT_FALSE(sidebar()->isHidden());
    EXPECT_EQ(toggle->text(), u"Hide Sidebar"_s);
}

TEST_F(MainWindowTest, theViewMenuLeadsToARunningBackup)
{
    QAction* show = action(u"Show Backup Progress"_s);
    ASSERT_NE(show, nullptr);
    state->engine().setIsRunning(true);
    EXPECT_FALSE(show->isEnabled()) << "the onboarding is not passed";
    state->setIsOnboardingCompleted(true);
    EXPECT_TRUE(show->isEnabled());
    show->trigger();
    EXPECT_EQ(state->selectedScreen(), Screen::backupProgress);
    state->engine().setIsRunning(false);
    EXPECT_FALSE(show->isEnabled());
}

TEST_F(MainWindowTest, theSidebarStartsAtItsIdealWidth)
{
    window.resize(1180, 760);
    window.show();
    state->setIsOnboardingCompleted(true);
    settle();
    window.grab();
    EXPECT_EQ(sidebar()->width(), 240);
}

TEST_F(MainWindowTest, settingsOpenOnceInAWindowOfTheirOwn)
{
    QAction* open = action(u"Settings…"_s);
    ASSERT_NE(open, nullptr);
    EXPECT_EQ(open->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Comma));
    EXPECT_EQ(window.findChild<SettingsWindow*>(), nullptr);
    open->trigger();
    const QPointer<SettingsWindow> settings = window.findChild<SettingsWindow*>();
    ASSERT_FALSE(settings.isNull());
    EXPECT_EQ(settings->size(), QSize(450, 300));
    EXPECT_EQ(settings->windowTitle(), u"Settings"_s);
    open->trigger();
    EXPECT_EQ(window.findChild<SettingsWindow*>(), settings);
    QTest::keyClick(settings, Qt::Key_Escape);
    settle();
    EXPECT_TRUE(settings.isNull());
    EXPECT_EQ(window.findChild<SettingsWindow*>(), nullptr);
}

TEST_F(MainWindowTest, theCheckOfCopiesOpensOnceInAWindowOfItsOwn)
{
    QAction* open = action(u"Check Copies…"_s);
    ASSERT_NE(open, nullptr);
    EXPECT_EQ(open->shortcut(), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C));
    EXPECT_EQ(window.findChild<CheckCopiesWindow*>(), nullptr);
    open->trigger();
    const QPointer<CheckCopiesWindow> check = window.findChild<CheckCopiesWindow*>();
    ASSERT_FALSE(check.isNull());
    EXPECT_EQ(check->size(), QSize(860, 720));
    EXPECT_EQ(check->minimumSize(), QSize(760, 620));
    EXPECT_EQ(check->windowTitle(), u"Check Copies"_s);
    open->trigger();
    EXPECT_EQ(window.findChild<CheckCopiesWindow*>(), check);
    QTest::keyClick(check, Qt::Key_Escape);
    settle();
    EXPECT_TRUE(check.isNull());
}

TEST_F(MainWindowTest, settingsWindowAndScreenShowTheSameState)
{
    state->setIsOnboardingCompleted(true);
    state->setSelectedScreen(Screen::settings);
    window.showSettings();
    chooseDrive();
    settle();
    const auto views = window.findChildren<SettingsView*>();
    ASSERT_EQ(views.size(), 2);
    for (const SettingsView* view : views)
        EXPECT_EQ(textsIn(*view).count(u"Anchor"_s), 1);
}

TEST_F(MainWindowTest, closesAtOnceWhileNoBackupRuns)
{
    const QSignalSpy closed(&window, &MainWindow::closed);
    window.show();
    EXPECT_TRUE(window.close());
    EXPECT_EQ(closed.count(), 1);
    EXPECT_TRUE(alerts.requests().isEmpty());
}

TEST_F(MainWindowTest, asksBeforeItClosesDuringABackup)
{
    const QSignalSpy closed(&window, &MainWindow::closed);
    window.show();
    state->engine().setIsRunning(true);
    EXPECT_FALSE(window.close());
    EXPECT_TRUE(window.isVisible());
    ASSERT_EQ(alerts.requests().size(), 1);
    const AlertRequest question = alerts.requests().first();
    EXPECT_EQ(question.title, u"Stop the backup?"_s);
    EXPECT_EQ(question.action, u"Stop"_s);
    EXPECT_EQ(question.cancel, u"Keep going"_s);
    EXPECT_TRUE(question.isDestructive);
    EXPECT_EQ(closed.count(), 0);
    EXPECT_FALSE(state->engine().isCancelled());
}

TEST_F(MainWindowTest, stopCancelsTheBackupAndClosesWithoutAskingAgain)
{
    const QSignalSpy closed(&window, &MainWindow::closed);
    window.show();
    state->engine().setIsRunning(true);
    window.close();
    alerts.confirm();
    EXPECT_TRUE(state->engine().isCancelled());
    EXPECT_EQ(closed.count(), 1);
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(alerts.requests().size(), 1);
}

TEST_F(MainWindowTest, whenTheSessionEndsItClosesWithoutAsking)
{
    const QSignalSpy closed(&window, &MainWindow::closed);
    window.show();
    state->engine().setIsRunning(true);
    window.closeWithoutAsking();
    EXPECT_FALSE(state->engine().isCancelled()) << "the session may go on after all";
    EXPECT_TRUE(window.close());
    EXPECT_EQ(closed.count(), 1);
    EXPECT_TRUE(alerts.requests().isEmpty());
}

TEST_F(MainWindowTest, ofALaterBackupItAsksAgain)
{
    window.show();
    state->engine().setIsRunning(true);
    window.closeWithoutAsking();
    state->engine().setIsRunning(false);
    state->engine().setIsRunning(true);
    EXPECT_FALSE(window.close());
    EXPECT_EQ(alerts.requests().size(), 1);
}

TEST_F(MainWindowTest, comesToTheFrontAlsoFromItsIcon)
{
    window.show();
    window.showMinimized();
    window.bringToFront();
    EXPECT_TRUE(window.isVisible());
    EXPECT_FALSE(window.isMinimized());
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
}

TEST_F(MainWindowTest, everyMenuEntryHasAShortcut)
{
    QStringList texts;
    for (const QAction* menu : window.menuBar()->actions())
        texts.append(QString(menu->text()).remove(u'&'));
    EXPECT_EQ(texts, QStringList({u"File"_s, u"Edit"_s, u"View"_s, u"Window"_s, u"Help"_s}));
    for (const QString& text : {u"Check Copies…"_s, u"Full Scan"_s, u"Export…"_s, u"Settings…"_s, u"Quit"_s,
                                u"Undo"_s, u"Cut"_s, u"Copy"_s, u"Paste"_s, u"Select All"_s, u"Find"_s,
                                u"Re-scan"_s, u"Hide Sidebar"_s, u"Minimize"_s, u"Close"_s})
        EXPECT_FALSE(action(text)->shortcut().isEmpty()) << text.toStdString();
}

} // namespace keelbright

#include "Keelbright/screens/shell/WindowMenus.h"

#include "Keelbright/screens/shell/MainWindow.h"
#include "KeelbrightCore/platform/system/ProgramVersion.h"
#include "tests/screens/shared/ScreenTestCase.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QTest>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

class WindowMenusTests : public ScreenTestCase
{
protected:
    void pass() { state->setIsOnboardingCompleted(true); }

    [[nodiscard]] QMenu* menu(const QString& title)
    {
        for (const QAction* action : window.menuBar()->actions()) {
            if (QString(action->text()).remove(u'&') == title)
                return action->menu();
        }
        return nullptr;
    }

    [[nodiscard]] QAction* entry(const QString& title, const QString& text)
    {
        for (QAction* action : menu(title)->actions()) {
            if (QString(action->text()).remove(u'&') == text)
                return action;
        }
        ADD_FAILURE() << "no entry " << text.toStdString();
        return nullptr;
    }

    MainWindow window{context()};
};

} // namespace

TEST_F(WindowMenusTests, eachScreenOfTheSidebarHasAnEntry)
{
    pass();
    const QStringList screens{u"Dashboard"_s,       u"Protected Items"_s,  u"App Manager"_s,
                              u"Junk Cleaner"_s,    u"Storage Browser"_s,  u"Smart Organizer"_s,
                              u"Scan Results"_s,    u"Activity Log"_s,     u"Backup Report"_s,
                              u"Restore Browser"_s, u"New Mac Recovery"_s, u"Settings"_s};
    for (qsizetype i = 0; i < screens.size(); ++i) {
        QAction* action = entry(u"View"_s, screens.at(i));
        const QKeySequence keys = i < 9 ? QKeySequence(u"Ctrl+%1"_s.arg(i + 1)) : QKeySequence();
        EXPECT_EQ(action->shortcut(), keys) << screens.at(i).toStdString();
        action->trigger();
        EXPECT_EQ(rawValue(*state->selectedScreen()), screens.at(i));
    }
}

TEST_F(WindowMenusTests, aDigitOpensItsScreen)
{
    pass();
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(&window, Qt::Key_4, Qt::ControlModifier);
    EXPECT_EQ(state->selectedScreen(), Screen::junkCleaner);
}

TEST_F(WindowMenusTests, nothingLeadsAwayFromTheOnboarding)
{
    for (const QString& screen : {u"Dashboard"_s, u"Settings"_s})
        EXPECT_FALSE(entry(u"View"_s, screen)->isEnabled());
    EXPECT_FALSE(entry(u"File"_s, u"Backup Now"_s)->isEnabled());
    pass();
    EXPECT_TRUE(entry(u"View"_s, u"Dashboard"_s)->isEnabled());
    EXPECT_TRUE(entry(u"File"_s, u"Backup Now"_s)->isEnabled());
}

TEST_F(WindowMenusTests, aBackupStartsFromAnyScreen)
{
    pass();
    QAction* backup = entry(u"File"_s, u"Backup Now"_s);
    EXPECT_EQ(backup->shortcut(), QKeySequence(u"Ctrl+B"_s));
    state->setSelectedScreen(Screen::activityLog);
    backup->trigger();
    EXPECT_EQ(state->selectedScreen(), Screen::dashboard) << "where the alert is";
    EXPECT_EQ(state->alerts().size(), 1);
    chooseDrive();
    backup->trigger();
    EXPECT_EQ(state->selectedScreen(), Screen::preflight);
    state->engine().setIsRunning(true);
    EXPECT_FALSE(backup->isEnabled());
    state->engine().setIsRunning(false);
    EXPECT_TRUE(backup->isEnabled());
}

TEST_F(WindowMenusTests, aFullScanStartsFromAnyScreen)
{
    QAction* scan = entry(u"File"_s, u"Full Scan"_s);
    EXPECT_EQ(scan->shortcut(), QKeySequence(u"Ctrl+Shift+F"_s));
    EXPECT_FALSE(scan->isEnabled());
    pass();
    state->setSelectedScreen(Screen::activityLog);
    scan = entry(u"File"_s, u"Full Scan"_s);
    EXPECT_TRUE(scan->isEnabled());
    scan->trigger();
    EXPECT_EQ(state->selectedScreen(), Screen::scanResults);
    show(window);
    turnUntil([this] { return !textsIn(window).filter(u"Last scanned"_s).isEmpty(); });
    turnUntil([this] { return entry(u"File"_s, u"Full Scan"_s)->isEnabled(); });
}

TEST_F(WindowMenusTests, anEntryIsEnabledOnTheScreensWhereItDoesSomething)
{
    const auto enabledOn = [this](const QString& menuTitle, const QString& text) {
        QStringList screens;
        for (const Screen screen : allScreens()) {
            state->setSelectedScreen(screen);
            settle();
            turnUntil([this] { return !state->isAppScanning(); }); // the Dashboard has started it
            if (entry(menuTitle, text)->isEnabled())
                screens.append(rawValue(screen));
        }
        return screens;
    };
    pass();
    EXPECT_EQ(enabledOn(u"File"_s, u"Export…"_s), QStringList{u"Activity Log"_s});
    EXPECT_EQ(enabledOn(u"View"_s, u"Re-scan"_s),
              (QStringList{u"App Manager"_s, u"Junk Cleaner"_s, u"Storage Browser"_s, u"Smart Organizer"_s,
                           u"Scan Results"_s, u"Restore Browser"_s}));
    EXPECT_EQ(enabledOn(u"Edit"_s, u"Find"_s), QStringList()) << "no application is listed yet";
}

TEST_F(WindowMenusTests, findLeadsToTheSearchOfTheApplications)
{
    pass();
    state->setScannedApps({AppInfo({.name = u"Sketchbook"_s})});
    state->setSelectedScreen(Screen::appManager);
    show(window);
    turnUntil([this] { return entry(u"Edit"_s, u"Find"_s)->isEnabled(); });
    EXPECT_EQ(entry(u"Edit"_s, u"Find"_s)->shortcut(), QKeySequence(u"Ctrl+F"_s));
    QTest::keyClick(&window, Qt::Key_F, Qt::ControlModifier);
    auto* field = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_NE(field, nullptr) << "its keys are those of one action alone";
    EXPECT_EQ(field->accessibleName(), u"Search apps"_s);
    state->setSelectedScreen(Screen::dashboard);
    EXPECT_FALSE(entry(u"Edit"_s, u"Find"_s)->isEnabled());
}

TEST_F(WindowMenusTests, exportDoesWhatTheButtonDoes)
{
    pass();
    state->setSelectedScreen(Screen::activityLog);
    show(window);
    files.willBeDismissed();
    QTest::keyClick(&window, Qt::Key_E, Qt::ControlModifier);
    EXPECT_EQ(files.saveRequests.size(), 1);
    files.willBeDismissed();
    entry(u"File"_s, u"Export…"_s)->trigger();
    EXPECT_EQ(files.saveRequests.size(), 2);
    state->setSelectedScreen(Screen::dashboard);
    settle();
    QTest::keyClick(&window, Qt::Key_E, Qt::ControlModifier);
    EXPECT_EQ(files.saveRequests.size(), 2);
}

TEST_F(WindowMenusTests, anEntryStaysInItsPlace)
{
    const auto texts = [this] {
        QStringList found;
        for (const QAction* action : menu(u"File"_s)->actions())
            found.append(QString(action->text()).remove(u'&'));
        return found;
    };
    const QStringList expected{u"Backup Now"_s, u"Check Copies…"_s, u"Full Scan"_s, u"Export…"_s,
                               QString(),       u"Settings…"_s,     QString(),      u"Quit"_s};
    EXPECT_EQ(texts(), expected);
    pass();
    for (const Screen screen : {Screen::activityLog, Screen::scanResults, Screen::dashboard}) {
        state->setSelectedScreen(screen);
        EXPECT_EQ(texts(), expected);
    }
}

TEST_F(WindowMenusTests, aboutShowsVersionAndLicences)
{
    QAction* about = entry(u"Help"_s, u"About Keel Bright"_s);
    EXPECT_EQ(about->menuRole(), QAction::AboutRole);
    about->trigger();
    auto* box = window.findChild<QMessageBox*>();
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->text(), u"Keel Bright "_s + programVersion());
    for (const QString& name :
         {u"GNU General Public License"_s, u"Material Design Icons"_s, u"Qt"_s, u"ICU"_s})
        EXPECT_TRUE(box->informativeText().contains(name)) << name.toStdString();
    box->close();
}

} // namespace keelbright::testing

#pragma once

#include "Keelbright/screens/shell/MainWindow.h"
#include "Keelbright/state/AppState.h"
#include "KeelbrightCore/platform/system/UserDefaults.h"
#include "KeelbrightCore/platform/text/UtcZone.h"
#include "KeelbrightCore/records/ActivityStore.h"
#include "KeelbrightCore/records/BackupConfigStore.h"
#include "tests/support/FakeAlertPresenter.h"
#include "tests/support/FakeCopyCheck.h"
#include "tests/support/FakeFileChooser.h"
#include "tests/support/FakeFolderChooser.h"
#include "tests/support/FakeWorkspace.h"
#include "tests/support/HeldFileManager.h"
#include "tests/support/LinuxEnvironment.h"
#include "tests/support/MadeUpLinux.h"
#include "tests/support/MadeUpMac.h"
#include "tests/support/TestMac.h"
#include "tests/support/ThemeGuard.h"

#include <functional>

namespace keelbright::testing {

/// A machine whose background work can be held, with disks of fixed sizes, so that the pictures are the
/// same on every computer.
class StageFileManager : public HeldFileManager
{
public:
    using HeldFileManager::HeldFileManager;

    /// Lets held work finish, because it still uses this file manager.
    ~StageFileManager() override { finish(); }

    StageFileManager(const StageFileManager&) = delete;
    StageFileManager& operator=(const StageFileManager&) = delete;

    [[nodiscard]] std::expected<FileSystemCapacity, FileError>
    fileSystemCapacity(const FileURL& url) const override;

    qint64 totalBytes = 500'000'000'000;
    qint64 freeBytes = 141'300'000'000;
};

/// A machine on which it is ten in the morning of the real day: backups take their time from the
/// computer, and the screens should show them as of today.
class StageMac : public TestMac
{
public:
    StageMac() { setNow({QDateTime::currentDateTimeUtc().date(), QTime(9, 5, 7), utcZone}); }
};

/// The real window on the machine of a user called Mira, brought into a state by her actions: scans
/// run on real files, backups copy them. Motion is reduced.
class Stage
{
public:
    Stage();
    ~Stage();
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    /// Makes the machine a desktop with GNOME, before the program is started: its home is `<root>/home/mira`,
    /// and what is in it is up to the state.
    [[nodiscard]] MadeUpLinux becomeLinux(MadeUpLinux::Language language = MadeUpLinux::Language::english);

    /// Starts the program on the machine's present files, and passes the onboarding.
    void start();
    /// Starts the program and stays at the onboarding.
    void startWithOnboarding();
    /// Shows the screen, after `start` if the program has not been started.
    void goTo(Screen screen);

    [[nodiscard]] AppState& state() { return *m_state; }

    /// The main window, or while that is open, the one that checks copies or shows an undo.
    [[nodiscard]] QWidget& window();
    /// The usual and the smallest size of that window.
    [[nodiscard]] QList<QSize> sizes();

    /// Opens the window that checks copies, after `start` if the program has not been started.
    void openCheck();

    /// Undoes the last moves with the entry of the menu, and waits for the window that shows it.
    void undo();

    /// The view beside the sidebar, the onboarding while that is shown, or the whole window that checks
    /// copies or shows an undo.
    [[nodiscard]] QWidget& screen();

    /// Presses the button of this accessible name on the screen.
    void press(const QString& name);
    /// Chooses the row with this title in the first list on the screen that has it.
    void choose(const QString& title);
    /// Picks the choice with this text in the first menu on the screen that has it.
    void pick(const QString& choice);
    /// Writes into the field of this accessible name.
    void write(const QString& name, const QString& text);
    /// The texts of all labels on the screen.
    [[nodiscard]] QStringList texts();
    /// Turns the event loop until the condition holds; fails after 30 seconds.
    void waitUntil(const std::function<bool()>& condition);
    /// Waits until all background work has ended and is drawn.
    void settle();
    /// Lets a redraw happen.
    static void turnFrames();

    /// As on a desktop that is set to high contrast.
    static void raiseContrast();

    /// Chooses the backup drive as the destination.
    void chooseDrive();
    /// Runs a backup of the chosen folders to the chosen destination.
    void backUp();

    StageMac mac;
    std::chrono::milliseconds steadyNow{0}; ///< what remaining times are measured with
    StageFileManager files{mac.root()};
    FileManagerGuard guard{files};
    MadeUpMac mira{mac.root(), mac.clock()()};
    BackupConfigStore configStore{files.applicationSupportDirectory()};
    ActivityStore activityStore{files.applicationSupportDirectory()};
    UserDefaults userDefaults;
    FakeFolderChooser folderChooser;
    FakeAlertPresenter alerts;
    FakeWorkspace workspace;
    FakeFileChooser fileChooser;
    FakeCopyCheck copyCheck; ///< no check reads a drive here
    ThemeGuard theme{ColorScheme::light, true};

private:
    LinuxEnvironment m_linuxEnvironment; ///< restored only when the program is gone
    std::unique_ptr<AppState> m_state;
    std::unique_ptr<MainWindow> m_window;
};

} // namespace keelbright::testing

#pragma once

#include "Keelbright/screens/shell/MainWindow.h"
#include "Keelbright/state/AppState.h"
#include "KeelbrightCore/platform/system/UserDefaults.h"
#include "KeelbrightCore/records/ActivityStore.h"
#include "KeelbrightCore/records/BackupConfigStore.h"
#include "tests/support/FakeAlertPresenter.h"
#include "tests/support/FakeFileChooser.h"
#include "tests/support/FakeFolderChooser.h"
#include "tests/support/FakeWorkspace.h"
#include "tests/support/HeldFileManager.h"
#include "tests/support/MadeUpMac.h"
#include "tests/support/TestMac.h"
#include "tests/support/ThemeGuard.h"

#include <functional>

namespace keelbright::testing {

/// A machine whose background work can be held, with disks of sizes that look the same on every
/// computer.
class StageFileManager : public HeldFileManager
{
public:
    using HeldFileManager::HeldFileManager;

    /// A look that is held comes back through here.
    ~StageFileManager() override { finish(); }

    StageFileManager(const StageFileManager&) = delete;
    StageFileManager& operator=(const StageFileManager&) = delete;

    [[nodiscard]] std::expected<FileSystemCapacity, FileError>
    fileSystemCapacity(const FileURL& url) const override;

    qint64 totalBytes = 500'000'000'000;
    qint64 freeBytes = 141'300'000'000;
};

/// A machine on which it is ten in the morning of the day on which the stage plays: backups take their
/// time from the computer, and the screens are to show them as of today.
class StageMac : public TestMac
{
public:
    StageMac() { setNow({QDateTime::currentDateTimeUtc().date(), QTime(9, 5, 7), Qt::UTC}); }
};

/// The real window on the machine of one Mira, brought into a state by what she would do: scans run
/// on real files, backups copy them. Nothing moves by itself.
class Stage
{
public:
    Stage();
    ~Stage();
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    /// Starts the program; what the machine holds before is what it finds. Passes the onboarding.
    void start();
    /// Leaves the onboarding on screen.
    void startWithOnboarding();
    /// `start`, where that has not been, and goes to the screen.
    void goTo(Screen screen);

    [[nodiscard]] AppState& state() { return *m_state; }

    [[nodiscard]] MainWindow& window() { return *m_window; }

    /// What stands beside the sidebar; the onboarding where that is on screen.
    [[nodiscard]] QWidget& screen();

    /// Presses the button of this accessible name on the screen.
    void press(const QString& name);
    /// Chooses the row with this title in the first list on the screen that has it.
    void choose(const QString& title);
    /// Picks the choice with these words in the first menu on the screen that has it.
    void pick(const QString& choice);
    /// Writes into the field of this accessible name.
    void write(const QString& name, const QString& words);
    /// The words of every label on the screen.
    [[nodiscard]] QStringList texts();
    /// Turns the event loop until the condition holds; a failure after 30 seconds.
    void waitUntil(const std::function<bool()>& condition);
    /// Lets everything that is at work end, and be drawn.
    void settle();
    /// Lets a redraw happen.
    static void turnFrames();

    /// Chooses the backup drive as the destination.
    void chooseDrive();
    /// Runs a backup of the chosen folders to the chosen destination.
    void backUp();

    StageMac mac;
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
    ThemeGuard theme{ColorScheme::light, true};

private:
    std::unique_ptr<AppState> m_state;
    std::unique_ptr<MainWindow> m_window;
};

} // namespace keelbright::testing

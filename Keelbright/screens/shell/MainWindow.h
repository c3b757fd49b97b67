#pragma once

#include "Keelbright/screens/shared/ScreenContext.h"

#include <QMainWindow>
#include <QPointer>

class QAction;
class QMenu;

namespace keelbright {

class CheckCopiesWindow;
class CommandEntries;
class MainView;
class SettingsWindow;

/// The one main window: the onboarding until it is passed, then the sidebar and the screens.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    static constexpr QSize minimumWindowSize{860, 620};
    static constexpr QSize startingSize{1180, 760};

    /// The members of the context must outlive the window.
    explicit MainWindow(const ScreenContext& context, QWidget* parent = nullptr);

    /// Opens the settings window, or brings it to the front.
    void showSettings();

    /// Opens the window that checks the copies, or brings it to the front.
    void showCheck();

    /// Shows the window above others, also if it was minimized.
    void bringToFront();

    /// From now on closing does not ask about the backup that is running, as the session ends and takes no
    /// answer; the backup stops then. A later one is asked about again.
    void closeWithoutAsking();

Q_SIGNALS:
    /// The window has closed, and the program can end.
    void closed();

protected:
    /// Asks the user first while a backup runs.
    void closeEvent(QCloseEvent* event) override;

private:
    void makeMenus();
    void fillFileMenu(QMenu& menu);
    void fillViewMenu(QMenu& menu);
    void startFullScan();
    void followScreen();
    void showOnboardingOrMain();
    void askToStop();
    void toggleSidebar();
    void updateSidebarAction();
    void updateProgressAction();

    ScreenContext m_context;
    QPointer<MainView> m_main;
    QPointer<SettingsWindow> m_settings;
    QPointer<CheckCopiesWindow> m_check;
    CommandEntries* m_commands;
    QAction* m_fullScanAction = nullptr;
    QAction* m_sidebarAction = nullptr;
    QAction* m_progressAction = nullptr;
    bool m_mayClose = false;
};

} // namespace keelbright

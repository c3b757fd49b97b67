#pragma once

#include "Keelbright/screens/shell/WindowAction.h"

#include <QObject>

namespace keelbright {

class AppState;
class MainWindow;

/// Does what the desktop asks of the program from outside its window: by another start, an entry of the
/// desktop's menu or the session bus. Main thread.
class DesktopRequests : public QObject
{
    Q_OBJECT

public:
    /// Both outlive it.
    DesktopRequests(AppState& state, MainWindow& window);

    /// Brings the window to the front and does the action, if any. While the onboarding shows, the action
    /// that was asked for last waits until it is passed.
    void activate(std::optional<WindowAction> action);

private:
    void perform(WindowAction action);
    void backUpNow();
    void performWaiting();

    AppState& m_state;
    MainWindow& m_window;
    std::optional<WindowAction> m_waiting;
};

} // namespace keelbright

#include "Keelbright/screens/shell/DesktopRequests.h"

#include "Keelbright/screens/shell/MainWindow.h"
#include "Keelbright/state/AppState.h"
#include "KeelbrightCore/platform/system/Logging.h"

#include <utility>

namespace keelbright {

DesktopRequests::DesktopRequests(AppState& state, MainWindow& window)
    : m_state(state)
    , m_window(window)
{
    connect(&state, &AppState::isOnboardingCompletedChanged, this, &DesktopRequests::performWaiting);
}

void DesktopRequests::activate(std::optional<WindowAction> action)
{
    m_window.bringToFront();
    if (!action)
        return;
    qCDebug(screensLog).noquote() << "asked for:" << nameOf(*action);
    if (m_state.isOnboardingCompleted())
        perform(*action);
    else
        m_waiting = action;
}

void DesktopRequests::performWaiting()
{
    if (!m_state.isOnboardingCompleted())
        return;
    if (const std::optional<WindowAction> action = std::exchange(m_waiting, std::nullopt))
        perform(*action);
}

void DesktopRequests::perform(WindowAction action)
{
    switch (action) {
    case WindowAction::backUpNow:
        backUpNow();
        return;
    case WindowAction::storageBrowser:
        m_state.setSelectedScreen(Screen::storageBrowser);
        return;
    }
    Q_UNREACHABLE();
}

void DesktopRequests::backUpNow()
{
    if (m_state.engine().isRunning()) {
        m_state.setSelectedScreen(Screen::backupProgress);
        return;
    }
    m_state.startBackup();
    if (!m_state.alerts().isEmpty())
        m_state.setSelectedScreen(Screen::dashboard); // where the reason is shown
}

} // namespace keelbright

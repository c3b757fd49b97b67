#include "Keelbright/state/BackupInTaskBar.h"

#include "Keelbright/state/AppState.h"
#include "Keelbright/state/TaskBar.h"

namespace keelbright {

BackupInTaskBar::BackupInTaskBar(AppState& state, TaskBar& taskBar)
    : m_state(state)
    , m_taskBar(taskBar)
{
    // Not the engine's own signal, which comes three times for each file.
    connect(&state, &AppState::changed, this, &BackupInTaskBar::followEngine);
    followEngine();
}

BackupInTaskBar::~BackupInTaskBar()
{
    hide();
}

void BackupInTaskBar::followEngine()
{
    if (!m_state.engine().isRunning()) {
        hide();
        return;
    }
    constexpr int whole = 100;
    const int percent = static_cast<int>(m_state.engine().progress().fractionCompleted() * whole);
    if (percent == m_percent)
        return;
    m_percent = percent;
    m_taskBar.showProgress(static_cast<double>(percent) / whole);
}

void BackupInTaskBar::hide()
{
    if (!m_percent)
        return;
    m_percent.reset();
    m_taskBar.hideProgress();
}

} // namespace keelbright

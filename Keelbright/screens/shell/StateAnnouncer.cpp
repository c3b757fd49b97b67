#include "Keelbright/screens/shell/StateAnnouncer.h"

#include "Keelbright/screens/BackupProgressView.h"
#include "Keelbright/state/AppState.h"
#include "Keelbright/widgets/Announcement.h"
#include "Keelbright/widgets/DisplayText.h"

#include <utility>

namespace keelbright {

namespace {

QSet<QUuid> idsOf(const QList<RiskAlert>& alerts)
{
    QSet<QUuid> ids;
    for (const RiskAlert& alert : alerts)
        ids.insert(alert.id);
    return ids;
}

} // namespace

StateAnnouncer::StateAnnouncer(const AppState& state, QWidget& window)
    : QObject(&window)
    , m_state(state)
    , m_window(window)
    , m_knownAlerts(idsOf(state.alerts()))
    , m_wasRunning(state.engine().isRunning())
{
    const BackupEngine& engine = state.engine();
    connect(&engine, &BackupEngine::isRunningChanged, this, &StateAnnouncer::announceRun);
    connect(&engine, &BackupEngine::isCancelledChanged, this, &StateAnnouncer::announceCancel);
    connect(&engine, &BackupEngine::progressChanged, &m_progressFrames, &FrameThrottle::request);
    connect(&m_progressFrames, &FrameThrottle::frame, this, &StateAnnouncer::announceQuarter);
    connect(&state, &AppState::alertsChanged, this, &StateAnnouncer::announceAlerts);
    connect(&state, &AppState::isDestinationAwayChanged, this, &StateAnnouncer::announceDrive);
}

void StateAnnouncer::announceRun()
{
    const bool isRunning = m_state.engine().isRunning();
    if (isRunning == m_wasRunning)
        return;
    m_wasRunning = isRunning;
    m_quarter = 0;
    say(m_window,
        isRunning ? tr("Backup running") : displayText(BackupProgressView::outcome(m_state.engine())));
}

void StateAnnouncer::announceCancel()
{
    if (m_state.engine().isRunning() && m_state.engine().isCancelled())
        say(m_window, tr("Cancelling..."));
}

void StateAnnouncer::announceQuarter()
{
    const BackupEngine& engine = m_state.engine();
    const int quarter = static_cast<int>(engine.progress().fractionCompleted() * 4);
    // The end is announced when the run has ended.
    if (!engine.isRunning() || engine.isCancelled() || quarter <= m_quarter || quarter > 3)
        return;
    m_quarter = quarter;
    say(m_window, tr("Backup %1% complete").arg(quarter * 25));
}

void StateAnnouncer::announceAlerts()
{
    for (const RiskAlert& alert : m_state.alerts()) {
        if (!m_knownAlerts.contains(alert.id))
            say(m_window, displayText(tr("%1. %2").arg(alert.title, alert.message)));
    }
    m_knownAlerts = idsOf(m_state.alerts());
}

void StateAnnouncer::announceDrive()
{
    const auto& destination = m_state.selectedDestination();
    const std::optional<FileURL> before = std::exchange(m_awayDestination, std::nullopt);
    if (!destination)
        return;
    const QString name = displayText(destination->displayName());
    if (m_state.isDestinationAway()) {
        m_awayDestination = destination->url;
        say(m_window, tr("%1 is not connected").arg(name));
    } else if (before == destination->url) { // and not another one, which may be away as well
        say(m_window, tr("%1 is connected again").arg(name));
    }
}

} // namespace keelbright

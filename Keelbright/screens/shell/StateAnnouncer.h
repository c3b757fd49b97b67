#pragma once

#include "Keelbright/widgets/FrameThrottle.h"
#include "KeelbrightCore/platform/files/FileURL.h"

#include <QObject>
#include <QSet>
#include <QUuid>
#include <optional>

class QWidget;

namespace keelbright {

class AppState;

/// Has a screen reader say how a backup goes, which alerts are raised, and that the destination's drive goes
/// or comes back, whatever screen is shown. Of a run it says the start, each quarter, the cancel and the end.
class StateAnnouncer : public QObject
{
    Q_OBJECT

public:
    /// Both must outlive the announcer.
    StateAnnouncer(const AppState& state, QWidget& window);

private:
    void announceRun();
    void announceCancel();
    void announceQuarter();
    void announceAlerts();
    void announceDrive();

    const AppState& m_state;
    QWidget& m_window;
    FrameThrottle m_progressFrames;
    QSet<QUuid> m_knownAlerts;
    bool m_wasRunning = false;
    int m_quarter = 0; ///< of the present run, the last that was reached
    std::optional<FileURL> m_awayDestination;
};

} // namespace keelbright

#pragma once

#include "Keelbright/widgets/FrameThrottle.h"

#include <QObject>
#include <QSet>
#include <QUuid>

class QWidget;

namespace keelbright {

class AppState;

/// Has a screen reader say how a backup goes and which alerts are raised, whatever screen is shown: the
/// start, each quarter, the cancel and the end of a run.
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

    const AppState& m_state;
    QWidget& m_window;
    FrameThrottle m_progressFrames;
    QSet<QUuid> m_knownAlerts;
    bool m_wasRunning = false;
    int m_quarter = 0; ///< of the present run, the last that was reached
};

} // namespace keelbright

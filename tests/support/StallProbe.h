#pragma once

#include "tests/support/UndisturbedTimer.h"
#include "tests/support/WorkTimer.h"

#include <QTimer>

namespace keelbright::testing {

/// The longest time that the main thread did not come back to its events, other programs' turns left
/// out.
class StallProbe
{
public:
    StallProbe()
    {
        m_timer.setTimerType(Qt::PreciseTimer);
        m_timer.setInterval(interval);
        QObject::connect(&m_timer, &QTimer::timeout, [this] { note(); });
        m_timer.start();
    }

    [[nodiscard]] double longestSeconds() const { return static_cast<double>(m_longest) / 1e9; }

    /// The longest time on the processor in between, whatever other programs did.
    [[nodiscard]] double longestWorkSeconds() const { return static_cast<double>(m_longestWork) / 1e9; }

private:
    static constexpr int interval = 1;

    void note()
    {
        m_longest = qMax(m_longest, m_sinceTurn.nanoseconds() - interval * 1'000'000);
        m_sinceTurn.restart();
        m_longestWork = qMax(m_longestWork, m_workOfTurn.restart());
    }

    QTimer m_timer;
    UndisturbedTimer m_sinceTurn;
    qint64 m_longest = 0;
    WorkTimer m_workOfTurn;
    qint64 m_longestWork = 0;
};

} // namespace keelbright::testing

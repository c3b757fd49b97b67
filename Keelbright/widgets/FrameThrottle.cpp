#include "Keelbright/widgets/FrameThrottle.h"

#include <algorithm>

namespace keelbright {

FrameThrottle::FrameThrottle(QObject* parent)
    : QObject(parent)
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, [this] {
        m_sinceFrame.start();
        Q_EMIT frame();
    });
}

void FrameThrottle::request()
{
    if (m_timer.isActive())
        return;
    const qint64 since = m_sinceFrame.isValid() ? m_sinceFrame.elapsed() : frameMilliseconds;
    m_timer.start(static_cast<int>(std::max<qint64>(0, frameMilliseconds - since)));
}

} // namespace keelbright

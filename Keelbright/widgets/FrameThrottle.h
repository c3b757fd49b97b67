#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

namespace keelbright {

/// Turns any number of announcements into at most one redraw a frame (16 ms). The first comes
/// with the next turn of the event loop, and the last announcement is never lost.
class FrameThrottle : public QObject
{
    Q_OBJECT

public:
    static constexpr int frameMilliseconds = 16;

    explicit FrameThrottle(QObject* parent = nullptr);

public Q_SLOTS:
    /// Connect what announces.
    void request();

Q_SIGNALS:
    /// Redraw now.
    void frame();

private:
    QTimer m_timer;
    QElapsedTimer m_sinceFrame;
};

} // namespace keelbright

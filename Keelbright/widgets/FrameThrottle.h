#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

namespace keelbright {

/// Turns any number of requests into at most one redraw per frame (16 ms). The first redraw comes with
/// the next turn of the event loop, and a redraw always follows the last request.
class FrameThrottle : public QObject
{
    Q_OBJECT

public:
    static constexpr int frameMilliseconds = 16;

    explicit FrameThrottle(QObject* parent = nullptr);

public Q_SLOTS:
    /// Asks for a redraw. To be connected to the signals of what is shown.
    void request();

Q_SIGNALS:
    /// It is time to redraw.
    void frame();

private:
    QTimer m_timer;
    QElapsedTimer m_sinceFrame;
};

} // namespace keelbright

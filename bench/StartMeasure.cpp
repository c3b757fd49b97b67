#include "Keelbright/screens/shell/Application.h"
#include "bench/Memory.h"
#include "bench/WindowMeasures.h"

#include <QApplication>
#include <QEvent>
#include <QTimer>

#include <cstdio>
#include <ctime>
#include <optional>

namespace keelbright::bench {

namespace {

/// Waits until the first window is painted, prints the time and ends the program.
class FirstPaint : public QObject
{
public:
    explicit FirstPaint(qint64 since, QObject* parent)
        : QObject(parent)
        , m_since(since)
    {}

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && !m_hasPainted) {
            m_hasPainted = true;
            // The whole window is painted in the same turn of the event loop.
            QTimer::singleShot(0, this, [this] {
                print();
                QCoreApplication::quit();
            });
        }
        return false;
    }

private:
    void print() const
    {
        timespec now = {};
        ::clock_gettime(CLOCK_MONOTONIC, &now);
        const qint64 nanoseconds = now.tv_sec * 1'000'000'000LL + now.tv_nsec - m_since;
        std::printf("wall %.6f\n", static_cast<double>(nanoseconds) / 1e9);
        std::printf("resident %lld\n", static_cast<long long>(residentMemory()));
    }

    qint64 m_since;
    bool m_hasPainted = false;
};

std::optional<qint64> startedAt;

void watchFirstPaint()
{
    if (startedAt)
        qApp->installEventFilter(new FirstPaint(*startedAt, qApp));
}
Q_COREAPP_STARTUP_FUNCTION(watchFirstPaint)

} // namespace

int measureStart(qint64 since, char** argv)
{
    startedAt = since;
    argv[1] = nullptr; // the program refuses arguments that it does not know
    return runApplication(1, argv);
}

} // namespace keelbright::bench

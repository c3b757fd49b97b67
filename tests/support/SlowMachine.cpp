// Linked into every test program: a machine that is slower than any real one, always at the same
// places, so that a test that expects something before it can be there fails each time and not once
// a month. The variable KEELBRIGHT_SLOW_MACHINE turns it on, with any of these in milliseconds:
//
//   KEELBRIGHT_SLOW_MACHINE=frames=100,tasks=200,turns=400
//
// frames  Timers that end once, such as the one of the next redraw, end so much later.
// tasks   Background tasks begin so much later.
// turns   The main thread sleeps so long before each timer's event: animations have no middle.

#include <QCoreApplication>
#include <QEvent>
#include <QRunnable>
#include <QThread>
#include <QThreadPool>
#include <QTimer>
#include <QVariant>
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <memory>

namespace {

struct Delays
{
    unsigned long frames = 0;
    unsigned long tasks = 0;
    unsigned long turns = 0;
};

Delays delaysWanted()
{
    Delays delays;
    for (const QByteArray& part : qgetenv("KEELBRIGHT_SLOW_MACHINE").split(',')) {
        const qsizetype sign = part.indexOf('=');
        const QByteArray kind = part.left(sign);
        const unsigned long milliseconds = part.sliced(sign + 1).toULong();
        if (kind == "frames")
            delays.frames = milliseconds;
        else if (kind == "tasks")
            delays.tasks = milliseconds;
        else if (kind == "turns")
            delays.turns = milliseconds;
        else if (!part.isEmpty())
            qFatal("KEELBRIGHT_SLOW_MACHINE knows no %s", part.constData());
    }
    return delays;
}

const Delays& delays()
{
    static const Delays wanted = delaysWanted();
    return wanted;
}

/// Sees every event of the main thread before its receiver does.
class SlowEvents : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        if (event->type() != QEvent::Timer)
            return false;
        if (delays().turns > 0)
            QThread::msleep(delays().turns);
        auto* timer = qobject_cast<QTimer*>(receiver);
        return timer != nullptr && timer->isSingleShot() && delays().frames > 0 && isPutOff(*timer);
    }

private:
    /// The first end of a timer is put off, and the second one counts.
    static bool isPutOff(QTimer& timer)
    {
        static constexpr const char* mark = "keelbright.putOff";
        const bool wasPutOff = timer.property(mark).toBool();
        timer.setProperty(mark, wasPutOff ? QVariant() : QVariant(true));
        if (!wasPutOff)
            timer.start(static_cast<int>(delays().frames));
        return !wasPutOff;
    }
};

void slowTheEvents()
{
    if (delays().frames > 0 || delays().turns > 0)
        QCoreApplication::instance()->installEventFilter(new SlowEvents(QCoreApplication::instance()));
}

[[maybe_unused]] const bool areEventsSlowed = [] {
    qAddPreRoutine(slowTheEvents);
    return true;
}();

class LateTask : public QRunnable
{
public:
    explicit LateTask(QRunnable* task)
        : m_task(task)
        , m_owned(task->autoDelete() ? task : nullptr)
    {}

    void run() override
    {
        QThread::msleep(delays().tasks);
        m_task->run();
    }

private:
    QRunnable* m_task;
    std::unique_ptr<QRunnable> m_owned;
};

} // namespace

// A definition in the program comes before the one in the library.
void QThreadPool::start(QRunnable* runnable, int priority)
{
    using Start = void (*)(QThreadPool*, QRunnable*, int);
    static const auto start =
        reinterpret_cast<Start>(::dlsym(RTLD_NEXT, "_ZN11QThreadPool5startEP9QRunnablei"));
    if (start == nullptr) {
        std::fputs("Qt has no QThreadPool::start here\n", stderr);
        std::abort();
    }
    start(this, delays().tasks > 0 ? new LateTask(runnable) : runnable, priority);
}

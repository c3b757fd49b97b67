#include "KeelbrightCore/platform/system/MainThread.h"

#include <QCoreApplication>
#include <QEvent>
#include <QSemaphore>
#include <QThread>
#include <chrono>
#include <tuple>
#include <utility>

#ifdef __linux__
#include <sched.h>
#endif

namespace keelbright {

namespace {

using SteadyClock = std::chrono::steady_clock;

/// How long each side looks out for the other before it sleeps: the task for its answer, the main
/// thread for the next change. A small file is copied within that time, and to be woken for each
/// would cost more than the copy.
constexpr auto lookout = std::chrono::microseconds(60);

/// How long the main thread stays with a stream of changes before it sees to its events: well
/// under a frame.
constexpr auto longestStay = std::chrono::milliseconds(2);

/// Lets the other thread of a processor's core run between two looks. The processor itself is not
/// given away: beside other busy programs the scheduler puts back whoever does that, by milliseconds
/// each time.
void rest()
{
#if defined(__x86_64__) || defined(__i386__)
    __builtin_ia32_pause();
#elif defined(__aarch64__)
    __asm__ volatile("yield");
#endif
}

/// One of the two threads, as the other sees it.
class Side
{
public:
    /// This thread is at work here now.
    void note() { m_processor.store(currentProcessor(), std::memory_order_relaxed); }

    /// Whether this thread, at work here, finds it come true within the time of a lookout. No more than
    /// one look where the other thread was last seen on the same processor: it can't go on before this
    /// one sleeps.
    template <typename Condition> bool seesWithin(const Side& other, Condition condition)
    {
        if (condition())
            return true;
        constexpr int looksATime = 16;
        const auto until = SteadyClock::now() + lookout;
        do {
            note();
            if (m_processor == other.m_processor && m_processor != unknown)
                break;
            for (int look = 0; look < looksATime; ++look) {
                if (condition())
                    return true;
                rest();
            }
        } while (SteadyClock::now() < until);
        return condition();
    }

private:
    static constexpr int unknown = -1;

    static int currentProcessor()
    {
#ifdef __linux__
        return ::sched_getcpu();
#else
        return unknown;
#endif
    }

    std::atomic<int> m_processor = unknown;
};

const QEvent::Type changeEvent = static_cast<QEvent::Type>(QEvent::registerEventType());

} // namespace

/// Lives on the main thread; its one event stands for the one change that may be on its way.
class MainThreadHop::Receiver : public QObject
{
public:
    enum class State : int { idle, posted, closed };

    bool event(QEvent* event) override
    {
        if (event->type() != changeEvent)
            return QObject::event(event);
        const auto leaveAt = SteadyClock::now() + longestStay;
        // Already while a change is made: the task answers it faster than we could say so after.
        m_isLookingOut = true;
        do {
            makeChange();
        } while (SteadyClock::now() < leaveAt && hasNextChange());
        m_isLookingOut = false;
        // In this order: a task that still saw the lookout has posted before this last look.
        if (isPending())
            QCoreApplication::postEvent(this, new QEvent(changeEvent));
        return true;
    }

    void finish(State reached)
    {
        State expected = State::posted;
        // A close that came from within the change stays.
        if (reached == State::closed)
            m_state = State::closed;
        else if (!m_state.compare_exchange_strong(expected, reached))
            return;
        if (m_isTaskAsleep.exchange(false))
            m_wakeUp.release();
    }

    /// Of the task: sleeps until nothing is on its way.
    void awaitAnswer()
    {
        if (m_task.seesWithin(m_main, [this] { return !isPending(); }))
            return;
        m_isTaskAsleep = true;
        // Answered in between, and nobody has seen us asleep: nobody will wake us either.
        if (!isPending() && m_isTaskAsleep.exchange(false))
            return;
        m_wakeUp.acquire();
    }

    /// Of the task: puts a change on its way, while none is.
    void post(UniqueFunction<void()> change)
    {
        if (isClosed())
            return;
        m_change = std::move(change);
        m_task.note();
        auto expected = State::idle;
        if (m_state.compare_exchange_strong(expected, State::posted) && !m_isLookingOut)
            QCoreApplication::postEvent(this, new QEvent(changeEvent));
    }

    [[nodiscard]] bool isPending() const { return m_state == State::posted; }

    [[nodiscard]] bool isClosed() const { return m_state == State::closed; }

private:
    void makeChange()
    {
        if (!isPending())
            return;
        m_main.note();
        // The last owner of what the change carries goes before the task goes on.
        std::exchange(m_change, nullptr)();
        finish(State::idle);
    }

    [[nodiscard]] bool hasNextChange()
    {
        std::ignore = m_main.seesWithin(m_task, [this] { return m_state != State::idle; });
        return isPending();
    }

    std::atomic<State> m_state = State::idle;
    std::atomic<bool> m_isLookingOut = false; ///< the next change needs no event
    UniqueFunction<void()> m_change;
    Side m_main;
    Side m_task;
    std::atomic<bool> m_isTaskAsleep = false;
    QSemaphore m_wakeUp;
};

MainThreadHop::MainThreadHop()
    : m_receiver(std::make_unique<Receiver>())
{}

MainThreadHop::~MainThreadHop()
{
    close();
    // Held by the main thread and by the task; where the task goes last, its thread may not
    // destroy an object of the main thread.
    if (m_receiver->thread() != QThread::currentThread())
        m_receiver.release()->deleteLater();
}

void MainThreadHop::post(UniqueFunction<void()> change)
{
    m_receiver->post(std::move(change));
}

bool MainThreadHop::wait()
{
    m_receiver->awaitAnswer();
    return !m_receiver->isClosed();
}

bool MainThreadHop::isPending() const
{
    return m_receiver->isPending();
}

bool MainThreadHop::hop(UniqueFunction<void()> change)
{
    post(std::move(change));
    return wait();
}

void MainThreadHop::close()
{
    m_receiver->finish(Receiver::State::closed);
}

} // namespace keelbright

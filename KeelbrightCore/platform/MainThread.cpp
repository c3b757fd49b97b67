#include "KeelbrightCore/platform/MainThread.h"

#include <QCoreApplication>
#include <QEvent>
#include <QThread>
#include <chrono>
#include <thread>
#include <utility>

namespace keelbright {

namespace {

using SteadyClock = std::chrono::steady_clock;

/// How long a waiting task looks again and again before it sleeps. To be woken costs more than
/// the main thread mostly takes to answer.
constexpr int looksBeforeSleep = 200;

/// How long the main thread looks out for the next change before it goes back to its events. A
/// small file is copied within that time, and to wake the main thread for each would cost more
/// than the copy.
constexpr auto lookout = std::chrono::microseconds(60);

/// How long the main thread stays with a stream of changes before it sees to its events: well
/// under a frame.
constexpr auto longestStay = std::chrono::milliseconds(2);

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
        if (m_state == State::posted)
            QCoreApplication::postEvent(this, new QEvent(changeEvent));
        return true;
    }

    void finish(State state)
    {
        State expected = State::posted;
        // A close that came from within the change stays.
        if (state == State::closed)
            m_state = State::closed;
        else if (!m_state.compare_exchange_strong(expected, state))
            return;
        m_state.notify_all();
    }

    std::atomic<State> m_state = State::idle;
    std::atomic<bool> m_isLookingOut = false; ///< the next change needs no event
    std::move_only_function<void()> m_change;

private:
    void makeChange()
    {
        if (m_state != State::posted)
            return;
        // The last owner of what the change carries goes before the task goes on.
        std::exchange(m_change, nullptr)();
        finish(State::idle);
    }

    /// Looks out for another change.
    [[nodiscard]] bool hasNextChange() const
    {
        const auto until = SteadyClock::now() + lookout;
        // Yielding costs nothing on a free machine, and on a busy one lets the task go on.
        while (m_state == State::idle && SteadyClock::now() < until)
            std::this_thread::yield();
        return m_state == State::posted;
    }
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

void MainThreadHop::post(std::move_only_function<void()> change)
{
    if (m_receiver->m_state == Receiver::State::closed)
        return;
    m_receiver->m_change = std::move(change);
    auto expected = Receiver::State::idle;
    if (m_receiver->m_state.compare_exchange_strong(expected, Receiver::State::posted) &&
        !m_receiver->m_isLookingOut)
        QCoreApplication::postEvent(m_receiver.get(), new QEvent(changeEvent));
}

bool MainThreadHop::wait()
{
    for (int look = 0; look < looksBeforeSleep; ++look) {
        if (m_receiver->m_state != Receiver::State::posted)
            break;
        std::this_thread::yield();
    }
    m_receiver->m_state.wait(Receiver::State::posted);
    return m_receiver->m_state != Receiver::State::closed;
}

bool MainThreadHop::isPending() const
{
    return m_receiver->m_state == Receiver::State::posted;
}

bool MainThreadHop::hop(std::move_only_function<void()> change)
{
    post(std::move(change));
    return wait();
}

void MainThreadHop::close()
{
    m_receiver->finish(Receiver::State::closed);
}

} // namespace keelbright

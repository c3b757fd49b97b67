#include "KeelbrightCore/platform/MainThread.h"

#include <QCoreApplication>
#include <QEvent>
#include <QThread>
#include <utility>

namespace keelbright {

namespace {

/// How long a waiting task looks again and again before it sleeps. To be woken costs more than
/// the main thread mostly takes to answer.
constexpr int looksBeforeSleep = 4000;

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
        if (m_state == State::posted) {
            // The last owner of what the change carries goes before the task goes on.
            std::exchange(m_change, nullptr)();
            finish(State::idle);
        }
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
    std::move_only_function<void()> m_change;
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
    if (m_receiver->m_state.compare_exchange_strong(expected, Receiver::State::posted))
        QCoreApplication::postEvent(m_receiver.get(), new QEvent(changeEvent));
}

bool MainThreadHop::wait()
{
    for (int look = 0; look < looksBeforeSleep; ++look) {
        if (m_receiver->m_state != Receiver::State::posted)
            break;
    }
    m_receiver->m_state.wait(Receiver::State::posted);
    return m_receiver->m_state != Receiver::State::closed;
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

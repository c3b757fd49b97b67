#include "KeelbrightCore/apps/ScanWork.h"

#include "KeelbrightCore/platform/system/TaskPools.h"
#include "KeelbrightCore/platform/system/WaitForMemory.h"

#include <QMutex>
#include <QThread>
#include <QThreadPool>
#include <deque>
#include <utility>

namespace keelbright::AppScanner {

namespace {

using Step = UniqueFunction<void()>;

Step takeFirst(std::deque<Step>& steps)
{
    Step first = std::move(steps.front());
    steps.pop_front();
    return first;
}

/// The steps that wait for a thread, and how many threads are at work.
class Steps
{
public:
    void add(Step step)
    {
        {
            const QMutexLocker locker(&m_mutex);
            m_waiting.push_back(std::move(step));
            if (m_threads == m_maximumThreads)
                return;
            ++m_threads;
        }
        // While every thread is taken, scans wait behind whatever else the user waits for.
        constexpr int priority = -1;
        waitingForMemory([this] { TaskPools::userInitiated().start([this] { work(); }, priority); });
    }

private:
    void work()
    {
        while (Step step = next())
            step();
    }

    /// Empty, and the thread is counted as gone, where there is none.
    Step next()
    {
        const QMutexLocker locker(&m_mutex);
        if (!m_waiting.empty())
            return takeFirst(m_waiting);
        --m_threads;
        return nullptr;
    }

    const int m_maximumThreads = qMax(2, QThread::idealThreadCount());
    QMutex m_mutex; ///< for all below
    std::deque<Step> m_waiting;
    int m_threads = 0;
};

/// The helper programs that run, and the starts that wait for one of them to end.
class Helpers
{
public:
    void whenOneMayStart(Step start)
    {
        constexpr int maximumRunning = 32;
        {
            const QMutexLocker locker(&m_mutex);
            if (m_running == maximumRunning) {
                m_waiting.push_back(std::move(start));
                return;
            }
            ++m_running;
        }
        start();
    }

    void oneHasEnded()
    {
        Step start;
        {
            const QMutexLocker locker(&m_mutex);
            if (m_waiting.empty())
                --m_running;
            else
                start = takeFirst(m_waiting);
        }
        if (start)
            start();
    }

private:
    QMutex m_mutex; ///< for all below
    std::deque<Step> m_waiting;
    int m_running = 0;
};

// Never destroyed: what a thread is at when the program quits still uses them.
Steps& steps()
{
    static auto* const instance = new Steps;
    return *instance;
}

Helpers& helpers()
{
    static auto* const instance = new Helpers;
    return *instance;
}

} // namespace

void startStep(UniqueFunction<void()> step)
{
    steps().add(std::move(step));
}

void whenHelperMayStart(UniqueFunction<void()> start)
{
    helpers().whenOneMayStart(std::move(start));
}

void helperHasEnded()
{
    helpers().oneHasEnded();
}

} // namespace keelbright::AppScanner

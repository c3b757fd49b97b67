#include "KeelbrightCore/platform/system/TaskPools.h"

#include "KeelbrightCore/platform/system/Logging.h"
#include "KeelbrightCore/platform/system/OpenFileLimit.h"
#include "KeelbrightCore/platform/system/ThreadPriority.h"

#include <QRunnable>
#include <QSemaphore>
#include <QThread>
#include <QThreadPool>
#include <algorithm>
#include <atomic>
#include <limits>
#include <memory>
#include <new>

namespace keelbright {

namespace {

/// How many tasks may hang with their drives before others have to wait for a thread. Each thread keeps a
/// file open, and the program ends where it can't.
int spareThreads()
{
    constexpr rlim_t maximum = 32;
    return static_cast<int>(std::min(maximum, OpenFileLimit::current() / 8));
}

using SetPriority = void (*)(int niceOfProgram);

/// Starts all threads of the pool now and keeps them. A thread that the pool started later would
/// inherit the priority of whoever handed in the task, and a low one can never be raised again.
void startThreads(QThreadPool& pool, int count, SetPriority setPriority)
{
    struct Start
    {
        explicit Start(int count)
            : missing(count)
        {}

        std::atomic<int> missing;
        QSemaphore complete;
    };

    pool.setMaxThreadCount(count);
    pool.setExpiryTimeout(-1);
    const auto start = std::make_shared<Start>(count);
    const int nice = ThreadPriority::niceOfThisThread();
    for (int i = 0; i < count; ++i) {
        pool.start([start, count, nice, setPriority] {
            setPriority(nice);
            if (--start->missing == 0)
                start->complete.release(count);
            // Where the system refuses a thread, the others don't wait for it for ever.
            constexpr int longestWait = 1'000;
            [[maybe_unused]] const bool all = start->complete.tryAcquire(1, longestWait);
        });
    }
}

/// Work that gets a thread of its own.
class Apart final : public QRunnable
{
public:
    Apart(UniqueFunction<void()> work, int nice, SetPriority setPriority)
        : m_work(std::move(work))
        , m_nice(nice)
        , m_setPriority(setPriority)
    {}

    void run() override
    {
        m_setPriority(m_nice);
        try {
            m_work();
        } catch (const std::bad_alloc&) {
            qCDebug(platformLog) << "not enough memory for a task in the background";
        }
    }

private:
    UniqueFunction<void()> m_work;
    int m_nice;
    SetPriority m_setPriority;
};

struct Pools
{
    QThreadPool userInitiated;
    QThreadPool utility;
    // A thread each for whatever is handed in; those that have ended serve the next work for a while.
    QThreadPool userInitiatedApart;
    QThreadPool utilityApart;
    const int niceOfProgram = ThreadPriority::niceOfThisThread();
    std::atomic<int> withoutThread = 0;

    Pools()
    {
        const int processors = qMax(2, QThread::idealThreadCount());
        startThreads(userInitiated, spareThreads() + processors, ThreadPriority::becomeUserInitiated);
        startThreads(utility, processors, ThreadPriority::becomeUtility);
        userInitiatedApart.setMaxThreadCount(std::numeric_limits<int>::max());
        utilityApart.setMaxThreadCount(std::numeric_limits<int>::max());
    }

    [[nodiscard]] bool isAtWork() const
    {
        return withoutThread > 0 || userInitiated.activeThreadCount() > 0 ||
               utility.activeThreadCount() > 0 || userInitiatedApart.activeThreadCount() > 0 ||
               utilityApart.activeThreadCount() > 0;
    }
};

/// Both at once, so that the first call comes from a thread of normal priority. Never destroyed:
/// a pool's destructor waits for its tasks, and quitting must not wait for a walk.
Pools& pools()
{
    static auto* const instance = new Pools;
    return *instance;
}

} // namespace

QThreadPool& TaskPools::userInitiated()
{
    return pools().userInitiated;
}

QThreadPool& TaskPools::utility()
{
    return pools().utility;
}

void TaskPools::startApart(Priority priority, UniqueFunction<void()> work)
{
    Pools& all = pools();
    const bool isUtility = priority == Priority::utility;
    QThreadPool& pool = isUtility ? all.utilityApart : all.userInitiatedApart;
    pool.start(new Apart(std::move(work), all.niceOfProgram,
                         isUtility ? ThreadPriority::becomeUtility : ThreadPriority::becomeUserInitiated));
}

TaskPools::WorkWithoutThread::WorkWithoutThread()
{
    ++pools().withoutThread;
}

TaskPools::WorkWithoutThread::~WorkWithoutThread()
{
    --pools().withoutThread;
}

bool TaskPools::isAtWork()
{
    // A piece of work starts the next one before it ends. One that is started where the first look has
    // already been is found by the second.
    return pools().isAtWork() || pools().isAtWork();
}

} // namespace keelbright

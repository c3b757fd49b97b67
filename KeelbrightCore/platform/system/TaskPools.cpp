#include "KeelbrightCore/platform/system/TaskPools.h"

#include <QSemaphore>
#include <QThread>
#include <QThreadPool>
#include <atomic>
#include <memory>

#ifdef __APPLE__
#include <pthread.h>
#else
#include <sys/resource.h>
#include <unistd.h>
#endif

namespace keelbright {

namespace {

/// The application scan keeps up to this many helper programs going, each with a thread that
/// sleeps until its helper has ended.
constexpr int helpersAtOnce = 32;

void becomeUserInitiated()
{
#ifdef __APPLE__
    ::pthread_set_qos_class_self_np(QOS_CLASS_USER_INITIATED, 0);
#endif
}

void becomeUtility()
{
#ifdef __APPLE__
    ::pthread_set_qos_class_self_np(QOS_CLASS_UTILITY, 0);
#else
    // Linux keeps a nice value for every thread, and takes the I/O priority from it. The priority
    // that Qt would set has no effect under the usual scheduler.
    constexpr int backgroundNice = 10;
    const auto thread = static_cast<id_t>(::gettid());
    const int inherited = ::getpriority(PRIO_PROCESS, thread);
    ::setpriority(PRIO_PROCESS, thread, inherited + backgroundNice);
#endif
}

/// Starts all threads of the pool now and keeps them. A thread that the pool started later would
/// inherit the priority of whoever handed in the task, and a low one can never be raised again.
void startThreads(QThreadPool& pool, int count, void (*setPriority)())
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
    for (int i = 0; i < count; ++i) {
        pool.start([start, count, setPriority] {
            setPriority();
            if (--start->missing == 0)
                start->complete.release(count);
            // Where the system refuses a thread, the others don't wait for it for ever.
            constexpr int longestWait = 1'000;
            [[maybe_unused]] const bool all = start->complete.tryAcquire(1, longestWait);
        });
    }
}

struct Pools
{
    QThreadPool userInitiated;
    QThreadPool utility;

    Pools()
    {
        const int processors = qMax(2, QThread::idealThreadCount());
        startThreads(userInitiated, helpersAtOnce + processors, becomeUserInitiated);
        startThreads(utility, processors, becomeUtility);
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

} // namespace keelbright

#include "tests/faults/FreeThreads.h"

#include "KeelbrightCore/platform/system/TaskPools.h"

#include <QMutex>
#include <QSemaphore>
#include <QThreadPool>
#include <unistd.h>

namespace keelbright::testing {

namespace {

struct Sleep
{
    QSemaphore arrived;
    QSemaphore awake;
    QSemaphore freed;
    QMutex mutex; ///< of what follows
    QList<pid_t> freeThreads;
};

} // namespace

QList<pid_t> leaveThreads(int count)
{
    static auto* const sleep = new Sleep; // never destroyed, because the sleeping threads use it
    QThreadPool& pool = TaskPools::userInitiated();
    const int all = pool.maxThreadCount();
    // Each task gets a thread of its own, because none ends before all of them have started.
    for (int i = 0; i < all; ++i) {
        pool.start([] {
            sleep->arrived.release();
            sleep->awake.acquire();
            {
                const QMutexLocker locker(&sleep->mutex);
                sleep->freeThreads.append(::gettid());
            }
            sleep->freed.release();
        });
    }
    sleep->arrived.acquire(all);
    sleep->awake.release(count);
    sleep->freed.acquire(count);
    const QMutexLocker locker(&sleep->mutex);
    return sleep->freeThreads;
}

} // namespace keelbright::testing

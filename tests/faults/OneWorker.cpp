#include "tests/faults/OneWorker.h"

#include "KeelbrightCore/platform/system/TaskPools.h"

#include <QSemaphore>
#include <QThreadPool>
#include <atomic>
#include <unistd.h>

namespace keelbright::testing {

namespace {

struct Sleep
{
    QSemaphore arrived;
    QSemaphore awake;
    QSemaphore freed;
    std::atomic<pid_t> freeThread = 0;
};

} // namespace

pid_t leaveOneWorker()
{
    static auto* const sleep = new Sleep; // never destroyed, because the sleeping threads use it
    QThreadPool& pool = TaskPools::userInitiated();
    const int count = pool.maxThreadCount();
    // Each task gets a thread of its own, because none ends before all of them have started.
    for (int i = 0; i < count; ++i) {
        pool.start([] {
            sleep->arrived.release();
            sleep->awake.acquire();
            sleep->freeThread = ::gettid();
            sleep->freed.release();
        });
    }
    sleep->arrived.acquire(count);
    sleep->awake.release();
    sleep->freed.acquire();
    return sleep->freeThread;
}

} // namespace keelbright::testing

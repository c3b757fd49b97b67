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
    QSemaphore left;
    std::atomic<pid_t> whoLeft = 0;
};

} // namespace

pid_t leaveOneWorker()
{
    static auto* const sleep = new Sleep; // the sleepers outlive everything
    QThreadPool& pool = TaskPools::userInitiated();
    const int count = pool.maxThreadCount();
    // One task a thread, because none ends before the last one has come.
    for (int i = 0; i < count; ++i) {
        pool.start([] {
            sleep->arrived.release();
            sleep->awake.acquire();
            sleep->whoLeft = ::gettid();
            sleep->left.release();
        });
    }
    sleep->arrived.acquire(count);
    sleep->awake.release();
    sleep->left.acquire();
    return sleep->whoLeft;
}

} // namespace keelbright::testing

#include "KeelbrightCore/platform/system/TaskPools.h"

#include <QSemaphore>
#include <QThreadPool>
#include <future>
#include <gtest/gtest.h>
#include <memory>
#include <mutex>
#include <set>
#include <sys/resource.h>
#include <unistd.h>

namespace keelbright {

namespace {

int niceOfThisThread()
{
    return ::getpriority(PRIO_PROCESS, static_cast<id_t>(::gettid()));
}

/// What one task in every thread of a pool finds, all of them at work at the same time.
struct Census
{
    std::set<int> niceValues;
    std::set<pid_t> threads;
};

struct Meeting
{
    std::mutex mutex;
    Census found;
    QSemaphore arrived;
    QSemaphore go;
    QSemaphore left;
};

Census census(QThreadPool& pool)
{
    const int count = pool.maxThreadCount();
    const auto meeting = std::make_shared<Meeting>();
    for (int i = 0; i < count; ++i) {
        pool.start([meeting] {
            {
                const std::lock_guard lock(meeting->mutex);
                meeting->found.niceValues.insert(niceOfThisThread());
                meeting->found.threads.insert(::gettid());
            }
            meeting->arrived.release();
            meeting->go.acquire();
            meeting->left.release();
        });
    }
    EXPECT_TRUE(meeting->arrived.tryAcquire(count, 20'000)) << "not every thread of the pool came to work";
    meeting->go.release(count);
    EXPECT_TRUE(meeting->left.tryAcquire(count, 20'000));
    const std::lock_guard lock(meeting->mutex);
    return meeting->found;
}

} // namespace

TEST(TaskPoolsTests, userInitiatedTasksRunAtThePriorityOfTheProgram)
{
    const Census found = census(TaskPools::userInitiated());
    EXPECT_EQ(found.niceValues, std::set{niceOfThisThread()});
}

TEST(TaskPoolsTests, everyUtilityThreadRunsAtALowerPriorityOfTheSystem)
{
    const Census found = census(TaskPools::utility());
    EXPECT_EQ(found.niceValues, std::set{niceOfThisThread() + 10});
}

TEST(TaskPoolsTests, theMainThreadKeepsItsPriority)
{
    const int before = niceOfThisThread();
    [[maybe_unused]] const Census utility = census(TaskPools::utility());
    EXPECT_EQ(niceOfThisThread(), before);
    EXPECT_LT(niceOfThisThread(), 10) << "the tests themselves must run at normal priority";
}

TEST(TaskPoolsTests, aUserInitiatedTaskHandedInByAUtilityTaskKeepsTheHighPriority)
{
    const auto handedIn = std::make_shared<std::promise<Census>>();
    auto found = handedIn->get_future();
    TaskPools::utility().start([handedIn] { handedIn->set_value(census(TaskPools::userInitiated())); });
    EXPECT_EQ(found.get().niceValues, std::set{niceOfThisThread()});
}

TEST(TaskPoolsTests, aUtilityTaskHandedInByAUserInitiatedTaskKeepsTheLowPriority)
{
    const auto handedIn = std::make_shared<std::promise<Census>>();
    auto found = handedIn->get_future();
    TaskPools::userInitiated().start([handedIn] { handedIn->set_value(census(TaskPools::utility())); });
    EXPECT_EQ(found.get().niceValues, std::set{niceOfThisThread() + 10});
}

TEST(TaskPoolsTests, thirtyTwoTasksThatWaitForHelpersLeaveRoomForOthers)
{
    EXPECT_GT(TaskPools::userInitiated().maxThreadCount(), 32);
    EXPECT_GE(TaskPools::utility().maxThreadCount(), 2);
}

TEST(TaskPoolsTests, thePoolsShareNoThread)
{
    const Census high = census(TaskPools::userInitiated());
    const Census low = census(TaskPools::utility());
    for (const pid_t thread : low.threads)
        EXPECT_FALSE(high.threads.contains(thread));
    EXPECT_EQ(high.threads.size(), static_cast<size_t>(TaskPools::userInitiated().maxThreadCount()));
    EXPECT_EQ(low.threads.size(), static_cast<size_t>(TaskPools::utility().maxThreadCount()));
}

TEST(TaskPoolsTests, threadsStayForTheNextTask)
{
    const Census first = census(TaskPools::utility());
    const Census second = census(TaskPools::utility());
    EXPECT_EQ(first.threads, second.threads);
}

} // namespace keelbright

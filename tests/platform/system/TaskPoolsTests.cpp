#include "KeelbrightCore/platform/system/TaskPools.h"

#include <QDeadlineTimer>
#include <QSemaphore>
#include <QString>
#include <QThread>
#include <QThreadPool>
#include <functional>
#include <future>
#include <gtest/gtest.h>
#include <memory>
#include <mutex>
#include <set>
#include <sys/resource.h>
#include <unistd.h>

namespace keelbright {

namespace {

using TaskPools::Priority;

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

int niceOfWorkApart(Priority priority)
{
    std::promise<int> nice;
    auto found = nice.get_future();
    TaskPools::startApart(priority,
                          [nice = std::move(nice)]() mutable { nice.set_value(niceOfThisThread()); });
    return found.get();
}

void waitUntil(const std::function<bool()>& condition)
{
    const QDeadlineTimer deadline(20'000);
    while (!condition()) {
        ASSERT_FALSE(deadline.hasExpired());
        QThread::msleep(1);
    }
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

TEST(TaskPoolsTests, tasksOnADriveThatHangsLeaveRoomForOthers)
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

TEST(TaskPoolsTests, workApartHasThePriorityThatItIsStartedWith)
{
    EXPECT_EQ(niceOfWorkApart(Priority::userInitiated), niceOfThisThread());
    EXPECT_EQ(niceOfWorkApart(Priority::utility), niceOfThisThread() + 10);
    const auto ofUtilityTask = std::make_shared<std::promise<int>>();
    auto found = ofUtilityTask->get_future();
    TaskPools::utility().start(
        [ofUtilityTask] { ofUtilityTask->set_value(niceOfWorkApart(Priority::utility)); });
    EXPECT_EQ(found.get(), niceOfThisThread() + 10) << "lowered twice";
}

TEST(TaskPoolsTests, anyAmountOfWorkApartThatHangsHoldsNobodyElse)
{
    constexpr int hanging = 100;
    for (const Priority priority : {Priority::utility, Priority::userInitiated}) {
        const auto meeting = std::make_shared<Meeting>();
        for (int i = 0; i < hanging; ++i) {
            TaskPools::startApart(priority, [meeting] {
                meeting->arrived.release();
                meeting->go.acquire();
                meeting->left.release();
            });
        }
        EXPECT_TRUE(meeting->arrived.tryAcquire(hanging, 20'000));
        EXPECT_EQ(niceOfWorkApart(Priority::userInitiated), niceOfThisThread());
        EXPECT_EQ(census(TaskPools::utility()).niceValues.size(), 1U);
        EXPECT_EQ(census(TaskPools::userInitiated()).niceValues.size(), 1U);
        meeting->go.release(hanging);
        EXPECT_TRUE(meeting->left.tryAcquire(hanging, 20'000));
    }
}

TEST(TaskPoolsTests, theResultOfWorkApartComesAsAFuture)
{
    QFuture<QString> future =
        TaskPools::runApart(Priority::userInitiated,
                            [text = std::make_unique<QString>(QStringLiteral("done"))] { return *text; });
    waitUntil([&] { return future.isFinished(); });
    ASSERT_EQ(future.resultCount(), 1);
    EXPECT_EQ(future.resultAt(0), QStringLiteral("done"));
}

TEST(TaskPoolsTests, somethingIsAtWorkUntilAllOfItHasEnded)
{
    waitUntil([] { return !TaskPools::isAtWork(); });
    {
        const TaskPools::WorkWithoutThread waiting;
        EXPECT_TRUE(TaskPools::isAtWork());
    }
    EXPECT_FALSE(TaskPools::isAtWork());
    for (const Priority priority : {Priority::utility, Priority::userInitiated}) {
        const auto go = std::make_shared<QSemaphore>();
        TaskPools::startApart(priority, [go] { go->acquire(); });
        EXPECT_TRUE(TaskPools::isAtWork());
        go->release();
        waitUntil([] { return !TaskPools::isAtWork(); });
    }
}

} // namespace keelbright

#include "KeelbrightCore/backup/BackupTask.h"

#include "KeelbrightCore/backup/BackupEngine.h"

#include <QCoreApplication>
#include <QThread>
#include <gtest/gtest.h>
#include <new>
#include <sys/resource.h>
#include <thread>
#include <vector>

namespace keelbright {
namespace {

/// How often the system has taken the processor from this thread although it could have gone on.
long involuntarySwitches()
{
    rusage usage = {};
    ::getrusage(RUSAGE_THREAD, &usage);
    return usage.ru_nivcsw;
}

class BackupTaskTest : public ::testing::Test
{
protected:
    /// Does the part of the run on a thread of its own while the event loop turns.
    template <typename Part> static void run(Part part)
    {
        std::atomic<bool> hasEnded = false;
        std::thread thread([&] {
            part();
            hasEnded = true;
        });
        while (!hasEnded)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        thread.join();
    }

    int argc = 1;
    char name[5] = "test";
    char* argv[1] = {name};
    QCoreApplication application{argc, argv};
    BackupEngine engine;
    std::shared_ptr<BackupTask> task = BackupTask::create(engine);
};

TEST_F(BackupTaskTest, changesItsEngineOnTheMainThreadBeforeTheRunGoesOn)
{
    QThread* const mainThread = QThread::currentThread();
    int made = 0;
    bool isInOrder = true;
    run([&] {
        for (int i = 0; i < 1000; ++i) {
            task->hop([&](BackupEngine& changed) {
                isInOrder = isInOrder && QThread::currentThread() == mainThread && made == i;
                changed.incrementSkipped();
                ++made;
            });
            isInOrder = isInOrder && made == i + 1;
        }
    });
    EXPECT_TRUE(isInOrder);
    EXPECT_EQ(engine.progress().filesSkipped, 1000);
}

TEST_F(BackupTaskTest, makesAChangeAgainThatFoundNoMemory)
{
    int attempts = 0;
    run([&] {
        task->hop([&attempts](BackupEngine& changed) {
            if (++attempts < 3)
                throw std::bad_alloc();
            changed.incrementSkipped();
        });
    });
    EXPECT_EQ(attempts, 3);
    EXPECT_EQ(engine.progress().filesSkipped, 1);
}

TEST_F(BackupTaskTest, givesUpAChangeThatFindsNoMemoryWhenTheProgramQuits)
{
    int attempts = 0;
    run([&] {
        task->hop([&](BackupEngine&) {
            if (++attempts == 3)
                task->quit();
            throw std::bad_alloc();
        });
    });
    EXPECT_EQ(attempts, 3);
}

TEST_F(BackupTaskTest, letsTheRunWorkWhileAChangeIsPending)
{
    bool wasPending = false;
    // The event loop does not turn meanwhile, and posting does not wait for it.
    std::thread([&] {
        task->post([](BackupEngine& changed) { changed.incrementSkipped(); });
        wasPending = task->isPending();
    }).join();
    EXPECT_TRUE(wasPending);
    EXPECT_EQ(engine.progress().filesSkipped, 0);
    run([this] { task->wait(); });
    EXPECT_FALSE(task->isPending());
    EXPECT_EQ(engine.progress().filesSkipped, 1);
}

/// Counts the events that a task gets.
class EventCounter : public QObject
{
public:
    int count = 0;

protected:
    bool eventFilter(QObject*, QEvent*) override
    {
        ++count;
        return false;
    }
};

TEST_F(BackupTaskTest, goesBackToItsEventsAfterAChangeThatNoOtherFollowsSoon)
{
    constexpr int changes = 300;
    EventCounter events;
    task->installEventFilter(&events);
    run([this] {
        for (int i = 0; i < changes; ++i) {
            task->post([](BackupEngine& changed) { changed.incrementSkipped(); },
                       BackupTask::NextChange::later);
            task->wait();
        }
    });
    EXPECT_EQ(engine.progress().filesSkipped, changes);
    EXPECT_EQ(events.count, changes);
}

TEST_F(BackupTaskTest, doesNotYieldItsProcessorsBesideBusyPrograms)
{
    constexpr int hops = 300;
    std::atomic<bool> isOver = false;
    std::vector<std::jthread> busy;
    for (int i = 0; i < 2 * QThread::idealThreadCount(); ++i) {
        busy.emplace_back([&] {
            while (!isOver) {
            }
        });
    }
    long switches = 0;
    run([&] {
        const long before = involuntarySwitches();
        for (int i = 0; i < hops; ++i)
            task->hop([](BackupEngine& changed) { changed.incrementSkipped(); });
        switches = involuntarySwitches() - before;
    });
    isOver = true;
    EXPECT_EQ(engine.progress().filesSkipped, hops);
    // To sleep until it is woken does not count. Some switches are there because the others' turn came.
    EXPECT_LT(switches, hops / 2);
}

TEST_F(BackupTaskTest, doesNotWaitWhereNothingIsPending)
{
    task->wait();
    EXPECT_FALSE(task->isPending());
}

TEST_F(BackupTaskTest, stillChangesItsEngineAfterTheUserHasCancelled)
{
    task->cancel();
    EXPECT_TRUE(task->cancellation().isCancelled());
    EXPECT_FALSE(task->cancellation().isQuitting());
    run([this] { task->hop([](BackupEngine& changed) { changed.incrementSkipped(); }); });
    EXPECT_EQ(engine.progress().filesSkipped, 1);
}

TEST_F(BackupTaskTest, releasesAWaitingRunAndDropsItsChangeWhenTheProgramQuits)
{
    std::atomic<bool> hasPosted = false;
    std::thread thread([&] {
        task->post([](BackupEngine& changed) { changed.incrementSkipped(); });
        hasPosted = true;
        task->wait();
    });
    while (!hasPosted)
        std::this_thread::yield();
    task->quit();
    thread.join();
    EXPECT_TRUE(task->cancellation().isQuitting());
    EXPECT_FALSE(task->isPending());
    task->hop([](BackupEngine& changed) { changed.incrementSkipped(); }); // and so it stays
    QCoreApplication::processEvents();
    EXPECT_EQ(engine.progress().filesSkipped, 0);
}

TEST_F(BackupTaskTest, makesTheLastChangeOnce)
{
    run([this] { task->hopLast([](BackupEngine& changed) { changed.incrementSkipped(); }); });
    EXPECT_EQ(engine.progress().filesSkipped, 1);
    task->makeLastChange();
    EXPECT_EQ(engine.progress().filesSkipped, 1);
}

TEST_F(BackupTaskTest, makesTheLastChangeAgainThatFoundNoMemory)
{
    int attempts = 0;
    run([&] {
        task->hopLast([&attempts](BackupEngine& changed) {
            if (++attempts < 3)
                throw std::bad_alloc();
            changed.incrementSkipped();
        });
    });
    EXPECT_EQ(attempts, 3);
    EXPECT_EQ(engine.progress().filesSkipped, 1);
}

TEST_F(BackupTaskTest, keepsTheLastChangeOfARunThatEndsWhileTheProgramQuits)
{
    task->quit();
    run([this] {
        task->hopLast([](BackupEngine& changed) { changed.incrementSkipped(); });
        task->markEnded();
    });
    EXPECT_EQ(engine.progress().filesSkipped, 0);
    ASSERT_TRUE(task->waitForEnd(0));
    task->makeLastChange();
    task->makeLastChange();
    EXPECT_EQ(engine.progress().filesSkipped, 1);
}

TEST_F(BackupTaskTest, keepsTheLastChangeThatIsPendingWhenTheProgramQuits)
{
    std::thread thread([&] {
        task->hopLast([](BackupEngine& changed) { changed.incrementSkipped(); });
        task->markEnded();
    });
    while (!task->isPending())
        std::this_thread::yield();
    task->quit();
    thread.join();
    task->makeLastChange();
    QCoreApplication::processEvents();
    EXPECT_EQ(engine.progress().filesSkipped, 1);
}

TEST_F(BackupTaskTest, canQuitFromWithinTheLastChange)
{
    int made = 0;
    run([&] {
        task->hopLast([&](BackupEngine&) {
            ++made;
            task->quit();
            task->makeLastChange();
        });
    });
    EXPECT_EQ(made, 1);
}

TEST_F(BackupTaskTest, canQuitFromWithinAChange)
{
    run([this] {
        task->hop([this](BackupEngine&) { task->quit(); });
        task->hop([](BackupEngine& changed) { changed.incrementSkipped(); });
    });
    EXPECT_EQ(engine.progress().filesSkipped, 0);
}

TEST_F(BackupTaskTest, knowsWhetherTheRunHasEnded)
{
    EXPECT_FALSE(task->waitForEnd(0));
    run([this] { task->markEnded(); });
    EXPECT_TRUE(task->waitForEnd(10'000));
    EXPECT_TRUE(task->waitForEnd(0)) << "as often as it is asked";
}

TEST_F(BackupTaskTest, isDestroyedOnTheMainThreadWhereTheRunLetsGoLast)
{
    QThread* destroyedOn = nullptr;
    QObject::connect(task.get(), &QObject::destroyed, [&] { destroyedOn = QThread::currentThread(); });
    run([task = std::move(task)]() mutable { task.reset(); });
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(destroyedOn, QThread::currentThread());
}

} // namespace
} // namespace keelbright

#include "KeelbrightCore/platform/system/MainThread.h"

#include <QCoreApplication>
#include <QThread>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <thread>
#include <tuple>
#include <vector>

namespace keelbright {
namespace {

/// How often this thread has lost its processor although it could have gone on.
long timesProcessorWasGivenAway()
{
    rusage usage = {};
    ::getrusage(RUSAGE_THREAD, &usage);
    return usage.ru_nivcsw;
}

class MainThreadHopTest : public ::testing::Test
{
protected:
    /// Turns the main thread's event loop until the task has ended.
    void turnUntilEnded(std::thread& task, const std::atomic<bool>& ended)
    {
        while (!ended)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        task.join();
    }

    int argc = 1;
    char name[5] = "test";
    char* argv[1] = {name};
    QCoreApplication application{argc, argv};
};

TEST_F(MainThreadHopTest, makesEachChangeOnTheMainThreadBeforeTheTaskGoesOn)
{
    MainThreadHop hop;
    QThread* const mainThread = QThread::currentThread();
    std::atomic<bool> ended = false;
    int made = 0;
    bool inOrder = true;
    std::thread task([&] {
        for (int i = 0; i < 1000; ++i) {
            const bool delivered = hop.hop([&] {
                inOrder = inOrder && QThread::currentThread() == mainThread && made == i;
                ++made;
            });
            inOrder = inOrder && delivered && made == i + 1;
        }
        ended = true;
    });
    turnUntilEnded(task, ended);
    EXPECT_TRUE(inOrder);
    EXPECT_EQ(made, 1000);
}

TEST_F(MainThreadHopTest, letsTheTaskWorkWhileAChangeIsOnItsWay)
{
    MainThreadHop hop;
    std::atomic<bool> ended = false;
    int made = 0;
    std::thread task([&] {
        hop.post([&] { ++made; });
        // Nothing is made before the main thread turns, and posting has not waited for it.
        ended = hop.wait() && made == 1;
    });
    turnUntilEnded(task, ended);
    EXPECT_EQ(made, 1);
}

TEST_F(MainThreadHopTest, keepsItsProcessorsBesideBusyPrograms)
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
    MainThreadHop hop;
    std::atomic<bool> ended = false;
    long timesGivenAway = 0;
    int made = 0;
    std::thread task([&] {
        const long before = timesProcessorWasGivenAway();
        for (int i = 0; i < hops; ++i)
            std::ignore = hop.hop([&] { ++made; });
        timesGivenAway = timesProcessorWasGivenAway() - before;
        ended = true;
    });
    turnUntilEnded(task, ended);
    isOver = true;
    EXPECT_EQ(made, hops);
    // To sleep until it is woken is not to give it away. Some are for others' turns that have come.
    EXPECT_LT(timesGivenAway, hops / 2);
}

TEST_F(MainThreadHopTest, doesNotWaitWhereNothingIsOnItsWay)
{
    MainThreadHop hop;
    EXPECT_TRUE(hop.wait());
}

TEST_F(MainThreadHopTest, releasesAWaitingTaskWhenItIsClosedAndDropsTheChange)
{
    MainThreadHop hop;
    bool wasMade = false;
    std::atomic<bool> posted = false;
    bool wasDelivered = true;
    std::thread task([&] {
        hop.post([&] { wasMade = true; });
        posted = true;
        wasDelivered = hop.wait();
    });
    while (!posted)
        std::this_thread::yield();
    hop.close();
    task.join();
    QCoreApplication::processEvents();
    EXPECT_FALSE(wasDelivered);
    EXPECT_FALSE(wasMade);
    EXPECT_FALSE(hop.hop([&] { wasMade = true; })) << "and so it stays";
    QCoreApplication::processEvents();
    EXPECT_FALSE(wasMade);
}

TEST_F(MainThreadHopTest, canBeClosedFromWithinAChange)
{
    MainThreadHop hop;
    std::atomic<bool> ended = false;
    bool wasDelivered = true;
    std::thread task([&] {
        wasDelivered = hop.hop([&] { hop.close(); });
        ended = true;
    });
    turnUntilEnded(task, ended);
    EXPECT_FALSE(wasDelivered);
}

} // namespace
} // namespace keelbright

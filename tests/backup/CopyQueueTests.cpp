#include "KeelbrightCore/backup/CopyQueue.h"

#include "tests/backup/FakeCopyDestination.h"

#include <QSemaphore>
#include <fstream>
#include <gmock/gmock.h>
#include <thread>
#include <unistd.h>

namespace keelbright {
namespace {

using testing::CopyRecord;
using ::testing::ElementsAre;
using testing::FakeCopyWorker;
using ::testing::IsEmpty;
using testing::RecordedCopy;

using Prepared = CopyQueue::Result;
using std::chrono::milliseconds;

constexpr milliseconds longEnough(20'000);

class CopyQueueTest : public ::testing::Test
{
protected:
    ~CopyQueueTest() override { queue.close(); }

    void addCopies(int count)
    {
        for (int number = 0; number < count; ++number)
            queue.add({.plan = PlannedCopy{nullptr, nullptr, "f" + QByteArray::number(number),
                                           EntryType::regularFile},
                       .name = {},
                       .change = {},
                       .folder = nullptr});
    }

    [[nodiscard]] FakeCopyWorker worker(qint64 size = 1)
    {
        return FakeCopyWorker([this, size](const QByteArray& item, const Cancellation&) -> Prepared {
            record.append("prepared " + item);
            return std::make_unique<RecordedCopy>(item, record, size);
        });
    }

    [[nodiscard]] CopyQueue::Item takeFirst() { return std::move(queue.take(1).front()); }

    /// Until its workers have started, the queue asks for the run and does not wait.
    void waitUntilReady(qsizetype count)
    {
        while (queue.waitForReady(count, longEnough).ready < count)
            std::this_thread::sleep_for(milliseconds(1)); // they need the queue's lock to start
    }

    /// Says with `begun` that it prepares an item, and hangs in it until `end` is released.
    [[nodiscard]] FakeCopyWorker workerThatHangs()
    {
        return FakeCopyWorker([this](const QByteArray& item, const Cancellation&) -> Prepared {
            begun.release();
            end.acquire();
            return std::make_unique<RecordedCopy>(item, record, 1);
        });
    }

    /// Lets a thread work with that worker while the test lasts.
    [[nodiscard]] std::jthread workOn(FakeCopyWorker& own)
    {
        return std::jthread([&] { queue.work(own); });
    }

    CopyRecord record;
    QSemaphore begun;
    QSemaphore end;
    CopyQueue queue;
    Cancellation cancellation;
};

constexpr int many = static_cast<int>(CopyQueue::worthWaking);

TEST_F(CopyQueueTest, asksTheRunForAFewItems)
{
    addCopies(2);
    EXPECT_EQ(queue.size(), 2);
    const auto before = queue.waitForReady(2, longEnough);
    EXPECT_EQ(before.ready, 0);
    EXPECT_TRUE(before.needsTheRun);
    FakeCopyWorker own = worker();
    queue.prepareOne(own, cancellation);
    EXPECT_EQ(queue.waitForReady(1, longEnough).ready, 1);
    EXPECT_TRUE(takeFirst().result.value() != nullptr);
    EXPECT_EQ(queue.size(), 1);
}

TEST_F(CopyQueueTest, holdsAnItemWithoutACopyReadyFromTheStart)
{
    queue.add({.plan = std::nullopt, .name = {}, .change = [](BackupEngine&) {}, .folder = nullptr});
    EXPECT_EQ(queue.waitForReady(1, longEnough).ready, 1);
    EXPECT_TRUE(takeFirst().change);
}

TEST_F(CopyQueueTest, countsWhatIsReadyUpToTheFirstThatIsNot)
{
    addCopies(1);
    queue.add({.plan = std::nullopt, .name = {}, .change = [](BackupEngine&) {}, .folder = nullptr});
    EXPECT_EQ(queue.waitForReady(2, milliseconds(1)).ready, 0);
    FakeCopyWorker own = worker();
    queue.prepareOne(own, cancellation);
    EXPECT_EQ(queue.waitForReady(2, longEnough).ready, 2);
}

TEST_F(CopyQueueTest, letsItsWorkersPrepareManyItems)
{
    FakeCopyWorker one = worker();
    FakeCopyWorker two = worker();
    addCopies(10 * many); // first: for the last few of items that come singly no worker would wake
    queue.setWorkers(2);
    const std::jthread first = workOn(one);
    const std::jthread second = workOn(two);
    waitUntilReady(10 * many);
    for (int number = 0; number < 10 * many; ++number)
        EXPECT_TRUE(takeFirst().result.value() != nullptr);
    queue.close();
}

TEST_F(CopyQueueTest, preparesNoMoreThanSomeMegabytesAhead)
{
    FakeCopyWorker own = worker(10'000'000);
    addCopies(2 * many);
    const std::jthread thread = workOn(own);
    waitUntilReady(4);
    EXPECT_TRUE(queue.waitForReady(5, longEnough).needsTheRun) << "the worker stops";
    EXPECT_THAT(record.names("prepared"), ElementsAre("f0", "f1", "f2", "f3"));
    for (int number = 0; number < 4; ++number)
        EXPECT_TRUE(takeFirst().result.value() != nullptr);
    waitUntilReady(4);
    queue.close();
}

TEST_F(CopyQueueTest, dropsWhatIsPreparedWhenItStartsAgainSlowly)
{
    FakeCopyWorker own = worker();
    addCopies(2 * many);
    for (int number = 0; number < 3; ++number)
        queue.prepareOne(own, cancellation);
    queue.startAgainSlowly({});
    EXPECT_THAT(record.names("dropped"), ElementsAre("f0", "f1", "f2"));
    EXPECT_EQ(queue.waitForReady(1, milliseconds(1)).ready, 0);
    const std::jthread thread = workOn(own);
    EXPECT_TRUE(queue.waitForReady(1, longEnough).needsTheRun) << "one at a time";
    queue.prepareOne(own, cancellation);
    EXPECT_EQ(queue.waitForReady(1, longEnough).ready, 1);
    EXPECT_TRUE(takeFirst().result.value() != nullptr);
    for (int published = 0; published < 10; ++published)
        queue.notePublished();
    waitUntilReady(many);
    queue.close();
}

TEST_F(CopyQueueTest, preparesOnceMoreWhatComesBack)
{
    FakeCopyWorker own = worker();
    addCopies(3);
    for (int number = 0; number < 2; ++number)
        queue.prepareOne(own, cancellation);
    queue.startAgainSlowly(queue.take(2));
    EXPECT_THAT(record.names("dropped"), ElementsAre("f0", "f1"));
    EXPECT_EQ(queue.size(), 3);
    queue.prepareOne(own, cancellation);
    EXPECT_EQ(takeFirst().plan.value().name, "f0");
}

TEST_F(CopyQueueTest, destroysWhatIsDisposedOfWhereThereIsNoWorker)
{
    FakeCopyWorker own = worker();
    addCopies(2);
    for (int number = 0; number < 2; ++number)
        queue.prepareOne(own, cancellation);
    queue.dispose(queue.take(2));
    EXPECT_THAT(record.names("dropped"), ElementsAre("f0", "f1"));
}

TEST_F(CopyQueueTest, letsAWorkerDestroyWhatIsDisposedOf)
{
    FakeCopyWorker own = worker();
    addCopies(many);
    const std::jthread thread = workOn(own);
    waitUntilReady(many);
    queue.dispose(queue.take(2));
    while (std::ssize(record.names("dropped")) < 2) {
        addCopies(many); // enough to wake the worker
        std::this_thread::sleep_for(milliseconds(1));
    }
    EXPECT_THAT(record.names("dropped"), ElementsAre("f0", "f1"));
    queue.close();
}

TEST_F(CopyQueueTest, givesUpWhatIsUnderWayWhenItIsClosed)
{
    FakeCopyWorker patient([&](const QByteArray& item, const Cancellation& given) -> Prepared {
        begun.release();
        while (!given.isQuitting())
            std::this_thread::yield();
        return std::make_unique<RecordedCopy>(item, record, 1);
    });
    const std::jthread thread = workOn(patient);
    addCopies(many);
    begun.acquire();
    queue.close();
    EXPECT_THAT(record.lines(), ElementsAre("dropped f0"));
    EXPECT_EQ(queue.size(), 0);
}

/// In bytes; 0 where the system does not report it.
qint64 addressSpace()
{
    std::ifstream statistics("/proc/self/statm");
    qint64 pages = 0;
    statistics >> pages;
    return pages * ::sysconf(_SC_PAGESIZE);
}

TEST_F(CopyQueueTest, takesNoMoreMemoryForDisposedItemsThanTheyNeed)
{
    if (addressSpace() == 0)
        GTEST_SKIP() << "this system does not report the memory of a program";
    FakeCopyWorker hanging = workerThatHangs();
    const std::jthread thread = workOn(hanging);
    addCopies(many);
    begun.acquire();
    const qint64 before = addressSpace();
    for (int times = 0; times < 30; ++times) {
        std::vector<CopyQueue::Item> items;
        items.emplace_back();
        queue.dispose(std::move(items));
    }
    EXPECT_LT(addressSpace() - before, 100'000'000);
    end.release(many);
    queue.close();
}

TEST_F(CopyQueueTest, doesNotWaitForAWorkerThatHangs)
{
    FakeCopyWorker hanging = workerThatHangs();
    {
        const std::jthread thread = workOn(hanging);
        addCopies(many);
        begun.acquire();
        queue.close();
        EXPECT_THAT(record.lines(), IsEmpty());
        end.release();
    }
    EXPECT_THAT(record.lines(), ElementsAre("dropped f0"));
}

} // namespace
} // namespace keelbright

// Shows that the thread sanitizer still sees races in our own code, with Qt's order told to it
// (QtOrder.cpp) and the suppressions in force:
//     planted-race pool|future|hop racy|ordered
// Each way from one thread to another that the program uses is gone once with an access that the way
// puts in an order, and once with one that it does not. Time is never what decides: the sanitizer
// tells accesses without an order, however far apart they are.

#include "KeelbrightCore/backup/BackupEngine.h"
#include "KeelbrightCore/backup/BackupTask.h"
#include "KeelbrightCore/platform/system/TaskPools.h"

#include <QCoreApplication>
#include <QFuture>
#include <QPromise>
#include <QThreadPool>
#include <atomic>
#include <cstdio>
#include <cstring>
#include <thread>

namespace keelbright {
namespace {

/// Tells another thread to go on without putting anything in an order.
class Wink
{
public:
    void give() { m_isGiven.store(true, std::memory_order_relaxed); }

    void await() const
    {
        while (!m_isGiven.load(std::memory_order_relaxed))
            std::this_thread::yield();
    }

private:
    std::atomic<bool> m_isGiven = false;
};

/// What both threads write; volatile, or it would not be written at all, as nobody reads it.
volatile int value = 0;

/// Handing a task to a pool orders what was done before, and nothing that is done after.
void writeAroundTask(bool isOrdered)
{
    Wink isWritten;
    if (isOrdered)
        value = 1;
    TaskPools::userInitiated().start([&isWritten] {
        value = 2;
        isWritten.give();
    });
    isWritten.await();
    if (!isOrdered)
        value = 1;
}

/// A future that is finished orders what its task did before it said so.
void writeAroundFuture(bool isOrdered)
{
    Wink isWritten;
    QPromise<void> promise;
    QFuture<void> future = promise.future();
    TaskPools::userInitiated().start([&, isOrdered] {
        promise.start();
        if (isOrdered)
            value = 2;
        promise.finish();
        if (!isOrdered)
            value = 2;
        isWritten.give();
    });
    future.waitForFinished();
    isWritten.await();
    value = 1;
}

/// A change on its way to the main thread orders what its task did before it was posted.
void writeAroundHop(bool isOrdered)
{
    Wink isWritten;
    BackupEngine engine;
    const auto task = BackupTask::create(engine);
    TaskPools::userInitiated().start([&, isOrdered] {
        if (isOrdered)
            value = 2;
        task->post([&isWritten](BackupEngine&) {
            isWritten.await();
            value = 1;
            QCoreApplication::quit();
        });
        if (!isOrdered)
            value = 2;
        isWritten.give();
    });
    QCoreApplication::exec();
}

int run(int argumentCount, char** arguments)
{
    QCoreApplication application(argumentCount, arguments);
    if (argumentCount != 3)
        return 2;
    const bool isOrdered = std::strcmp(arguments[2], "ordered") == 0;
    if (std::strcmp(arguments[1], "pool") == 0)
        writeAroundTask(isOrdered);
    else if (std::strcmp(arguments[1], "future") == 0)
        writeAroundFuture(isOrdered);
    else
        writeAroundHop(isOrdered);
    std::printf("Both have written.\n");
    return 0;
}

} // namespace
} // namespace keelbright

int main(int argumentCount, char** arguments)
{
    return keelbright::run(argumentCount, arguments);
}

// Shows that the thread sanitizer still finds races in our own code, although QtOrder.cpp declares the
// order that Qt makes and suppressions are in force:
//     planted-race pool|future|hop racy|ordered
// Each way from one thread to another that the program uses is tried with two accesses that it orders
// and with two that it does not. Timing does not matter: the sanitizer reports accesses without an
// order, however far apart they are.

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

/// Lets another thread continue without ordering the accesses of the two.
class UnorderedSignal
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

/// Written by both threads. Volatile, because the compiler would drop writes that are never read.
volatile int value = 0;

/// A pool orders a task after what was done before the task was started, but not after later work.
void writeAroundTask(bool isOrdered)
{
    UnorderedSignal isWritten;
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

/// A finished future orders what its task did before finish().
void writeAroundFuture(bool isOrdered)
{
    UnorderedSignal isWritten;
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

/// A change that is posted to the main thread orders what its task did before post().
void writeAroundHop(bool isOrdered)
{
    UnorderedSignal isWritten;
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

#pragma once

#include "KeelbrightCore/platform/system/UniqueFunction.h"

#include <QFuture>
#include <QPromise>
#include <type_traits>
#include <utility>

class QThreadPool;

namespace keelbright {

/// The background threads, by what waits for them. Any thread may ask; the first to do so starts
/// the threads of both pools and must run at normal priority. The pools live until the process
/// ends: returning from `main` does not wait for a task that is still at work. Never call
/// `waitForDone`: it ends the threads, and new ones get the priority of the thread that needs them.
namespace TaskPools {

/// Who waits for a piece of work. On macOS a class of quality of service, on Linux a nice value.
enum class Priority {
    userInitiated, ///< the user
    utility,       ///< nobody in particular: it takes what the others leave of processors and drives
};

/// For what the user waits on: backup runs and what they share out. Has more threads than there are
/// processors, because a task on a drive that hangs keeps its thread; work that keeps a processor
/// busy is to be shared out by `QThread::idealThreadCount`.
[[nodiscard]] QThreadPool& userInitiated();
/// For small work in the background; its threads run at a lower priority that the system honours.
[[nodiscard]] QThreadPool& utility();

/// Starts work that no other work ever waits for: it gets a thread of its own, whatever is at work
/// already. Where memory runs out for it, it breaks off, and the program goes on. Call it from a thread of
/// that priority or a higher one; the priority can't be raised.
void startApart(Priority priority, UniqueFunction<void()> work);

/// Runs a walk through folders, or another work that may hang with a drive, on a thread of its own:
/// one that hangs keeps no other work waiting. The future finishes on that thread, as cancelled where memory
/// ran out for the work. It can't be cancelled from outside; the work asks a `Cancellation` instead.
template <typename Work>
[[nodiscard]] QFuture<std::invoke_result_t<Work&>> runApart(Priority priority, Work work)
{
    QPromise<std::invoke_result_t<Work&>> promise;
    promise.start();
    auto future = promise.future();
    startApart(priority, [promise = std::move(promise), work = std::move(work)]() mutable {
        promise.addResult(work());
        promise.finish();
    });
    return future;
}

/// Work that goes on while it has no thread, such as a wait for helper programs, for as long as the
/// object lives.
class WorkWithoutThread
{
public:
    WorkWithoutThread();
    ~WorkWithoutThread();
    WorkWithoutThread(const WorkWithoutThread&) = delete;
    WorkWithoutThread& operator=(const WorkWithoutThread&) = delete;
};

/// Whether any work of all the above has not ended yet. Results on their way to the main thread don't
/// count.
[[nodiscard]] bool isAtWork();

} // namespace TaskPools
} // namespace keelbright

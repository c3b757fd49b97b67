#pragma once

#include "KeelbrightCore/platform/system/Cancellation.h"
#include "KeelbrightCore/platform/system/SpinWait.h"
#include "KeelbrightCore/platform/system/UniqueFunction.h"

#include <QObject>
#include <QSemaphore>
#include <atomic>
#include <chrono>
#include <memory>

namespace keelbright {

class BackupEngine;

/// The background task of one run: the engine stops the run through it, and the run changes the engine
/// through it. Changes are made on the main thread, one at a time.
///
/// Ownership: the engine and the run each hold it, and either may go first. An engine that goes calls
/// `quit` before; no change touches it afterwards.
/// Threads: `create`, `cancel`, `quit`, `waitForEnd` and `makeLastChange` belong to the main thread,
/// `cancellation` to any, all others to the one thread of the run.
class BackupTask : public QObject
{
public:
    /// Where memory runs out it throws; it is made again later then, and so must not have changed anything.
    using Change = UniqueFunction<void(BackupEngine&)>;

    [[nodiscard]] static std::shared_ptr<BackupTask> create(BackupEngine& engine);
    ~BackupTask() override = default;
    Q_DISABLE_COPY_MOVE(BackupTask)

    /// What every layer of the run asks before it begins something.
    [[nodiscard]] const Cancellation& cancellation() const { return m_cancellation; }

    /// When the run posts the change after this one.
    enum class NextChange {
        soon, ///< the main thread waits for it a moment
        later ///< the main thread goes back to its events, and sleeps where there are none
    };

    /// Hands a change over to the main thread and returns at once; `wait` must have been called for the
    /// one before. Once the program quits, changes are dropped.
    void post(Change change, NextChange next = NextChange::soon);
    /// Waits until the posted change has been made, or until the program quits. Returns at once where
    /// none was posted.
    void wait();

    /// Whether the run had been cancelled when the last change had been made: nothing is to follow that
    /// change then. To be called after `wait`.
    [[nodiscard]] bool wasCancelledAtLastChange() const { return m_wasCancelledAtLastChange; }

    /// Whether a posted change has still to be made.
    [[nodiscard]] bool isPending() const { return m_isPending && !m_cancellation.isQuitting(); }

    /// `post` and `wait`.
    void hop(Change change);
    /// The same for the change that ends the run. It is not dropped where the program quits: `makeLastChange`
    /// makes it then.
    void hopLast(Change change);

    /// The last call of the run.
    void markEnded() { m_ended.release(); }

    /// Asks the run to stop before its next item; it still writes its manifest and its report.
    void cancel() { m_cancellation.cancel(); }

    /// Stops the run as soon as possible and drops the change that is under way. May be called from
    /// within a change.
    void quit();
    /// Whether the run ends within `milliseconds`.
    [[nodiscard]] bool waitForEnd(int milliseconds);
    /// Makes the change that ends the run, unless it is made or there is none. Only after the run has ended.
    void makeLastChange();

protected:
    bool event(QEvent* event) override;

private:
    explicit BackupTask(BackupEngine& engine);
    static void destroy(BackupTask* task);

    void offer(NextChange next);
    void waitForMainThread();
    /// Whether the main thread is to wait for the next one.
    [[nodiscard]] bool makeChange();
    /// Whether there was enough memory for it.
    [[nodiscard]] bool tryChange();
    [[nodiscard]] bool hasNextChange(std::chrono::steady_clock::time_point leaveAt);

    [[nodiscard]] bool hasNews() const { return m_isPending || m_cancellation.isQuitting(); }

    /// False where there is no memory for that.
    [[nodiscard]] bool callMainThread();
    void sleepUntilNews(std::chrono::milliseconds longest);
    void wakeRun();

    BackupEngine& m_engine;
    Cancellation m_cancellation;
    Change m_change;
    Change m_lastChange;                   ///< of the main thread once it is posted or the run has ended
    NextChange m_next = NextChange::later; ///< after `m_change`
    bool m_isMade = true;                  ///< the change before; to be read only when none is pending
    std::atomic<bool> m_isPending = false;
    std::atomic<bool> m_wasCancelledAtLastChange = false;
    std::atomic<bool> m_isMainThreadCalled = false; ///< it is about to look for changes, or is looking
    std::atomic<bool> m_isMainThreadAsleep = false; ///< it waits for `m_mainThreadWakeUp`
    std::atomic<bool> m_isRunAsleep = false;
    SpinWait m_mainThread;
    SpinWait m_runThread;
    QSemaphore m_mainThreadWakeUp;
    QSemaphore m_runWakeUp;
    QSemaphore m_ended;
};

} // namespace keelbright

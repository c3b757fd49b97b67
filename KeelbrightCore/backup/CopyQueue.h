#pragma once

#include "KeelbrightCore/backup/BackupTask.h"
#include "KeelbrightCore/platform/files/CopyDestination.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

namespace keelbright {

/// The items of a source between the walk and their names, in the order of the walk. The run adds and
/// takes them; meanwhile the workers prepare their copies, and the run itself does where no worker is
/// awake.
///
/// Shared by the run and its workers: a worker that hangs keeps the queue and the item that it works on,
/// and delays only what comes after that item.
class CopyQueue
{
public:
    using Result = std::expected<std::unique_ptr<PreparedCopy>, FileError>;

    /// A copy to be prepared and published, or a folder to be completed, or else the change that reports an
    /// item without a copy.
    struct Item
    {
        std::optional<PlannedCopy> plan;
        QString name; ///< for error lines
        BackupTask::Change change;
        std::unique_ptr<FilledFolder> folder;
        Result result = nullptr; ///< of the preparation
    };

    struct Progress
    {
        qsizetype ready = 0; ///< items at the front
        bool needsTheRun = false;
    };

    /// A worker is woken when this many items wait: to wake one takes longer than to copy a few.
    static constexpr qsizetype worthWaking = 32;

    /// An item without a plan has nothing to be prepared. A lack of memory is the error of the item.
    [[nodiscard]] static Result prepare(const Item& item, CopyWorker& worker,
                                        const Cancellation& cancellation);

    CopyQueue();

    // For the thread of the run.

    /// Takes the item and gives the number of items in the queue. Where memory runs out it throws, and the
    /// item stays the caller's.
    qsizetype add(Item&& item);
    [[nodiscard]] qsizetype size() const;
    /// Waits until the first `count` items are ready, until the run has to prepare an item itself because
    /// no worker is awake, or until the time has passed.
    [[nodiscard]] Progress waitForReady(qsizetype count, std::chrono::milliseconds longest);
    /// Prepares the first item that is not ready. To be called where `Progress` asks for it.
    void prepareOne(CopyWorker& worker, const Cancellation& cancellation);
    /// Whether the first item is a copy whose preparation has begun.
    [[nodiscard]] bool isFirstUnderWay() const;
    /// Takes the first `count` items out, all of which have to be ready. Where memory runs out it throws and
    /// has taken nothing.
    [[nodiscard]] std::vector<Item> take(qsizetype count);
    /// Takes items that have been completed and are to be destroyed: to close what an old copy was replaced
    /// by frees the old copy's room, which may take longer than all else. The workers do it where there are
    /// any.
    void dispose(std::vector<Item> items);
    /// Destroys at once what no worker has destroyed yet.
    void finishDisposal();
    /// How many workers may prepare at the same time.
    void setWorkers(int count);
    /// Puts `taken` back at the front and drops what has been prepared, so that its open files and its room
    /// on the drive are free; waits for the workers before, though never long for one that hangs. From now
    /// on only the first item may be prepared, and twice as many with each copy that `notePublished` reports.
    /// Where memory runs out it throws; it has dropped nothing then, and `taken` stays the caller's.
    void startAgainSlowly(std::vector<Item>&& taken);
    void notePublished();
    /// Lets the workers go and gives up what they have under way; never waits long for one that hangs. Drops
    /// what is left, and gives folders up if it is asked to.
    enum class Folders { giveUp, leave };
    void close(Folders folders = Folders::leave);
    /// Drops a ready item.
    static void drop(Item& item, Folders folders);

    // For a thread of its own.

    /// Prepares items until the queue is closed.
    void work(CopyWorker& worker);

private:
    enum class State { waiting, inWork, ready };

    struct Entry
    {
        Item item; ///< belongs to whoever works on it, then to the run
        State state = State::waiting;
        qint64 bytes = 0; ///< in the prepared copy
    };

    using Lock = std::unique_lock<std::mutex>;

    // All of them need the lock.
    [[nodiscard]] qsizetype claimable() const;
    [[nodiscard]] bool isWorthWaking() const;
    [[nodiscard]] bool needsTheRun() const;
    void prepareNext(Lock& lock, CopyWorker& worker, const Cancellation& cancellation);
    void noteReady();
    void wakeTheRun();
    void destroyDisposed(Lock& lock);
    void waitForWorkers(Lock& lock, std::chrono::milliseconds longest);
    void wakeWorkers();

    mutable std::mutex m_mutex; ///< for all that follows
    std::condition_variable m_workToDo;
    std::condition_variable m_workDone;
    std::deque<std::shared_ptr<Entry>> m_entries;
    std::deque<std::shared_ptr<Entry>> m_dropped; ///< made beforehand, so that `close` needs no memory
    std::vector<Item> m_disposed;
    qsizetype m_readyCount = 0; ///< at the front, without a gap
    qsizetype m_nextClaim = 0;  ///< no item before it is waiting
    qsizetype m_limit;          ///< only items before it may be prepared
    qsizetype m_awaited = 0;    ///< so many ready items are worth waking the run for
    bool m_awaitsWorkers = false;
    qint64 m_preparedBytes = 0;
    int m_workersAllowed = 1;
    int m_workersAwake = 0;
    int m_workersAsleep = 0;
    int m_inWork = 0; ///< items
    bool m_isClosed = false;
    Cancellation m_givenUp;
};

} // namespace keelbright

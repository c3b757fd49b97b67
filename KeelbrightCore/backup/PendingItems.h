#pragma once

#include "KeelbrightCore/backup/BackupTask.h"
#include "KeelbrightCore/backup/BatchPace.h"
#include "KeelbrightCore/backup/CopyQueue.h"
#include "KeelbrightCore/platform/files/CopyDestination.h"

#include <chrono>
#include <memory>
#include <vector>

namespace keelbright {

/// The items of a source that have been planned or skipped but not yet completed. To complete an item
/// means to publish its copy, if there is one, and to post the change that reports it to the engine.
/// Items are completed in the order in which they are added, each after the change of the one before
/// has been made, and none once the run is cancelled, except the one whose copy was under way then.
///
/// Their copies are prepared by several threads, and completed a batch at a time, in one burst: between
/// two bursts the main thread sleeps, and the next batch is being prepared. A few items, and all items
/// where the drive allows only one prepared copy, are prepared and completed one at a time.
///
/// Memory that runs out for an item is the error of that item, which is reported as soon as there is the
/// little memory for its line.
///
/// All calls belong to the thread of the run, which must not post changes itself between `add` and the
/// end of `completeAll`.
class PendingItems
{
public:
    /// Both outlive this object. A folder of `destination` has been entered.
    PendingItems(BackupTask& task, CopyDestination& destination);
    /// Drops what has not been completed; folders still get their permissions and times, and those go that
    /// the run has created for dropped copies only. Never waits long for a copy that hangs.
    ~PendingItems();
    PendingItems(const PendingItems&) = delete;
    PendingItems& operator=(const PendingItems&) = delete;

    /// Adds a copy to be published under that name.
    void addCopy(PlannedCopy plan, const QString& name);
    /// Adds a folder of the mirror whose copies have all been added.
    void addFolder(std::unique_ptr<FilledFolder> folder);
    /// Adds the change that reports an item which needs no copy or has none.
    void addChange(BackupTask::Change change);

    /// Completes all items and waits until the last change has been made.
    void completeAll();

    /// The change that reports an item which could not be copied.
    [[nodiscard]] static BackupTask::Change skippedItem(const QString& name, const FileError& error);

private:
    using Clock = std::chrono::steady_clock;
    using NextChange = BackupTask::NextChange;
    using Items = std::vector<CopyQueue::Item>;

    void add(CopyQueue::Item item);
    void completeSome();
    [[nodiscard]] CopyQueue::Progress waitForBurst(qsizetype wanted);
    void completeBurst(qsizetype count);
    void publish(CopyQueue::Item& item);
    void complete(CopyQueue::Item& item, NextChange next);
    void flush(Items& items);
    void completeAlone(CopyQueue::Item item, Items rest);
    void startWorkers();
    [[nodiscard]] bool isDue() const;

    [[nodiscard]] bool isCancelled() const { return m_task.cancellation().isCancelled(); }

    [[nodiscard]] bool isStopped();
    [[nodiscard]] bool mayCompleteFirst();
    [[nodiscard]] CopyQueue::Folders foldersAtTheEnd() const;

    BackupTask& m_task;
    CopyDestination& m_destination;
    std::unique_ptr<CopyWorker> m_worker; ///< of the run itself
    std::shared_ptr<CopyQueue> m_queue;
    qsizetype m_maximum; ///< items in the queue
    BatchPace m_pace;
    bool m_hasWorkers = false;
    Clock::time_point m_lastBurst;
};

} // namespace keelbright

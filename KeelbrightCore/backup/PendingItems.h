#pragma once

#include "KeelbrightCore/backup/BackupTask.h"
#include "KeelbrightCore/platform/files/CopyDestination.h"

#include <deque>
#include <memory>

namespace keelbright {

/// The items of a run that have been prepared or skipped but not yet completed. To complete an item
/// means to publish its copy, if there is one, and to post the change that reports it to the engine.
/// Items are completed in the order in which they are added, each after the change of the one before
/// has been made, and none once the run is cancelled.
///
/// So the run can prepare items while the main thread is busy. All calls belong to the thread of the
/// run, which must not post changes itself between `add` and the end of `completeAll`.
class PendingItems
{
public:
    /// A copy to be published under that name, or else the change that reports the item.
    struct Item
    {
        std::unique_ptr<PreparedCopy> copy;
        QString name;
        BackupTask::Change change;
    };

    /// `task` outlives this object. Up to `maximum` items may wait; each `Item::copy` keeps its files
    /// open.
    PendingItems(BackupTask& task, qsizetype maximum);

    /// Completes what can be completed without waiting for the main thread, and waits only where too
    /// much is pending.
    void add(Item item);

    /// Completes all items and waits until the last change has been made.
    void completeAll();

    /// The change that reports an item which could not be copied.
    [[nodiscard]] static BackupTask::Change skippedItem(const QString& name, const FileError& error);

private:
    [[nodiscard]] bool hasRoom() const;
    void completeWaiting();
    void completeFirst();

    BackupTask& m_task;
    qsizetype m_maximum;
    std::deque<Item> m_items;
    qint64 m_bytes = 0; ///< in the copies of the items
};

} // namespace keelbright

#pragma once

#include "KeelbrightCore/backup/BackupTask.h"
#include "KeelbrightCore/platform/files/CopyDestination.h"

#include <deque>
#include <memory>

namespace keelbright {

/// The items of a run that have been worked on but not yet been completed. An item is completed by
/// giving its copy its name and posting the change that reports it to the engine. This happens in the
/// order in which items are added, and only after the change of the item before has been made; once the
/// run is cancelled, no further item is completed.
///
/// So items can be prepared while the main thread is still busy with a change. Belongs to the thread of
/// the run, which must not post changes of its own before `completeAll` has returned.
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

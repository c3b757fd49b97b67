#pragma once

#include "KeelbrightCore/backup/BackupEngine.h"
#include "KeelbrightCore/platform/files/CopyDestination.h"
#include "KeelbrightCore/platform/system/UniqueFunction.h"

#include <deque>
#include <memory>

namespace keelbright {

class BackupTask;

/// Settles what has become of items, strictly in the order in which they are added: gives a
/// prepared copy its name and tells the engine. The change that tells of one item has been made
/// before the next one is settled.
///
/// While a change is on its way to the main thread, which may just be painting, further items
/// can be added without waiting. Belongs to the thread of the run, which must not speak to the
/// engine itself as long as there is something to settle.
class PendingItems
{
public:
    using Change = UniqueFunction<void(BackupEngine&)>;

    /// A copy to be published under that name, or else the change that tells what became of an
    /// item.
    struct Outcome
    {
        std::unique_ptr<PreparedCopy> copy;
        QString name;
        Change change;
    };

    /// `task` outlives the pending items. Up to `most` items may wait, of which `Outcome::copy` keeps
    /// its files open.
    PendingItems(BackupTask& task, qsizetype most);

    /// Settles what can be settled without waiting, and waits only while too much is ahead. False
    /// where nothing more is to be done: the user has cancelled, or the engine has gone.
    [[nodiscard]] bool add(Outcome outcome);

    /// Waits until everything added is settled; false as with `add`.
    [[nodiscard]] bool completeAll();

    /// The change for an item that could not be copied.
    [[nodiscard]] static Change failure(const QString& name, const FileError& error);

private:
    [[nodiscard]] bool completeFirst();
    [[nodiscard]] bool hasRoom() const;

    BackupTask& m_task;
    qsizetype m_most;
    std::deque<Outcome> m_ahead;
    qint64 m_bytesAhead = 0;
};

} // namespace keelbright

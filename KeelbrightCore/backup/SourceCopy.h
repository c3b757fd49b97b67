#pragma once

#include "KeelbrightCore/backup/PendingItems.h"
#include "KeelbrightCore/platform/files/CopyDestination.h"
#include "KeelbrightCore/platform/files/DirectoryEnumerator.h"

#include <QList>

namespace keelbright {

/// The copy loop over one source: plans the copy of each item and hands it to the pending items, which
/// prepare, publish and report them in order. Memory that runs out is the error of an item. Belongs to the
/// thread of the run.
class SourceCopy
{
public:
    /// `root` is the source's folder in the mirror, for error lines; `relativeRoot` is the same folder
    /// relative to the destination's anchor. All references outlive the copy.
    SourceCopy(DirectoryEnumerator& items, CopyDestination& destination, FileURL root,
               QByteArray relativeRoot, BackupTask& task);
    ~SourceCopy();
    SourceCopy(const SourceCopy&) = delete;
    SourceCopy& operator=(const SourceCopy&) = delete;

    /// Returns when all items have been copied and reported, or the run has been cancelled.
    void run();

private:
    [[nodiscard]] bool goToNext();
    template <typename Change> void addChange(const Change& change);
    void addSkipped(const QString& name, const FileError& error);
    void copyCurrent();
    void reportUnreadableFolders();
    [[nodiscard]] std::expected<void, FileError> enterFolder();
    [[nodiscard]] std::expected<PlannedCopy, FileError> planCurrent();

    DirectoryEnumerator& m_items;
    CopyDestination& m_destination;
    FileURL m_root;
    QByteArray m_relativeRoot;
    BackupTask& m_task;
    PendingItems m_pending;
    QByteArray m_enteredFolder; ///< below the source; valid while `m_hasEntered` is true
    bool m_hasEntered = false;
    QList<FileError> m_folderErrors; ///< of unreadable folders, not yet reported
};

} // namespace keelbright

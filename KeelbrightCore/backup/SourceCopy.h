#pragma once

#include "KeelbrightCore/backup/BackupSource.h"
#include "KeelbrightCore/backup/PendingItems.h"
#include "KeelbrightCore/platform/files/CopyDestination.h"
#include "KeelbrightCore/platform/files/DirectoryEnumerator.h"

#include <QList>

namespace keelbright {

class BackupTask;

/// The copy loop over one source: prepares item after item and leaves it to the pending items to name
/// and tell them. So the order of counts and error lines is the order of items, and who cancels on
/// one item never finds the next one copied.
class SourceCopy
{
public:
    /// `root` is the source's folder in the mirror, for texts; `relativeRoot` the same below the
    /// destination's anchor. All references outlive the copy.
    SourceCopy(DirectoryEnumerator& items, CopyDestination& destination, FileURL root,
               QByteArray relativeRoot, BackupTask& task);

    /// Copies until the end, a cancellation or the end of the program.
    void run();

private:
    [[nodiscard]] bool copyCurrent();
    [[nodiscard]] bool tellOfFolders();
    [[nodiscard]] std::expected<void, FileError> enterFolder();
    [[nodiscard]] std::expected<std::unique_ptr<PreparedCopy>, FileError> prepareCurrent();
    [[nodiscard]] bool tell(PendingItems::Change change);

    DirectoryEnumerator& m_items;
    CopyDestination& m_destination;
    FileURL m_root;
    QByteArray m_relativeRoot;
    BackupTask& m_task;
    PendingItems m_pending;
    QByteArray m_enteredFolder; ///< below the source; valid where `m_hasEntered` is true
    bool m_hasEntered = false;
    QList<FileError> m_folderErrors; ///< of folders that could not be listed, not yet told
};

} // namespace keelbright

#pragma once

#include "KeelbrightCore/backup/BackupSource.h"
#include "KeelbrightCore/platform/CopyDestination.h"
#include "KeelbrightCore/platform/DirectoryEnumerator.h"

#include <QList>
#include <functional>

namespace keelbright {

class BackupEngine;
class RunLink;

/// The copy loop over one source. While the change that tells of one item is on its way to the
/// main thread the next item is prepared; it gets its name only when that change has been made
/// and nobody has cancelled. So the order of counts and error lines is the order of items, and
/// who cancels on one item never finds the next one copied.
class SourceCopy
{
public:
    /// `root` is the source's folder in the mirror, for texts; `relativeRoot` the same below the
    /// destination's anchor. All references outlive the copy.
    SourceCopy(DirectoryEnumerator& items, CopyDestination& destination, FileURL root,
               QByteArray relativeRoot, RunLink& engine);

    /// Copies until the end, a cancellation or the end of the program.
    void run();

private:
    using Change = std::move_only_function<void(BackupEngine&)>;

    [[nodiscard]] bool copyCurrent();
    [[nodiscard]] bool tellOfFolders();
    [[nodiscard]] std::expected<void, FileError> enterFolder();
    /// Waits for the change before; false where nothing more is to be done.
    [[nodiscard]] bool mayGoOn();
    [[nodiscard]] bool tell(Change change);
    [[nodiscard]] bool tellFailure(const QString& name, const FileError& error);

    DirectoryEnumerator& m_items;
    CopyDestination& m_destination;
    FileURL m_root;
    QByteArray m_relativeRoot;
    RunLink& m_engine;
    QByteArray m_enteredFolder; ///< below the source; valid where `m_hasEntered` is true
    bool m_hasEntered = false;
    QList<FileError> m_folderErrors; ///< of folders that could not be listed, not yet told
};

} // namespace keelbright

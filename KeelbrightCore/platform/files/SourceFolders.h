#pragma once

#include "KeelbrightCore/platform/files/FileDescriptor.h"

#include <QByteArray>

namespace keelbright {

class DirectoryEnumerator;

/// The folders of a source around the current entry of a walk, one after the other from the outermost that
/// is asked for to the one that holds the entry. Opens one folder at a time. Internal to the platform
/// folder.
class SourceFolders
{
public:
    /// Stands at the folder `up` levels above the one that holds the entry. `items` outlives this object
    /// and must not go on meanwhile.
    SourceFolders(const DirectoryEnumerator& items, qsizetype up);

    /// The open folder; -1 where it can't be reached.
    [[nodiscard]] int descriptor() const;

    /// Goes to the folder of that name, which is the next one on the way to the entry.
    void goDown(const QByteArray& name);

private:
    const DirectoryEnumerator& m_items;
    qsizetype m_up;
    FileDescriptor m_folder; ///< where `m_up` is above 0
};

} // namespace keelbright

#pragma once

#include "KeelbrightCore/platform/files/FileDescriptor.h"
#include "KeelbrightCore/platform/files/FileURL.h"

namespace keelbright {

/// A lock on a folder, which one process at a time can hold. The system frees it when the process ends,
/// however it ends, so that nothing of a crashed process stands in the way. It takes no room on the
/// drive and needs no right to write, except on network drives that lock nothing but files: there a file
/// "lock" is made in the folder.
class FolderLock
{
public:
    enum class Outcome {
        taken,         ///< held until this object goes
        heldElsewhere, ///< by another object, in this process or in another one
        unavailable,   ///< there is no such folder, or the drive knows no locks
    };

    explicit FolderLock(FileURL folder);

    /// Takes the lock if it is free; never waits.
    [[nodiscard]] Outcome tryToTake();

private:
    FileURL m_folder;
    FileDescriptor m_descriptor; ///< of the folder or of the file in it, while the lock is held
};

} // namespace keelbright

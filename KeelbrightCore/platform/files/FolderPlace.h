#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

namespace keelbright {

/// Where a folder lies at one moment.
struct FolderPlace
{
    bool isFolder = false; ///< it exists, and is a folder
    FileURL mountPoint;    ///< of the drive that it lies on; "/" where that is unknown
    /// It lies where the system's table of drives ("/etc/fstab") mounts one that is not there now, or it is
    /// an empty folder in which a desktop has mounted one ("/media/USER/NAME"), so that what is written would
    /// go to the drive below.
    bool isWithoutItsDrive = false;

    friend bool operator==(const FolderPlace&, const FolderPlace&) = default;
};

/// Asks the present file manager. Blocks, as long as the drive takes to answer; any thread.
[[nodiscard]] FolderPlace placeOf(const FileURL& folder);

/// Whether the drive that the folder belongs on is away, so that the folder, if there is one, is what the
/// drive has left behind. `lastSeenAt` is where the drive was mounted when it was last seen; "/" where it
/// never was.
[[nodiscard]] bool lacksItsDrive(const FolderPlace& place, const FileURL& lastSeenAt);

} // namespace keelbright

#pragma once

#include "KeelbrightCore/platform/files/FileDescriptor.h"
#include "KeelbrightCore/platform/files/FileError.h"

#include <expected>
#include <functional>
#include <sys/types.h>

namespace keelbright {

/// Whether the name of a copy is likely to be taken already. A guess: both ways end the same,
/// only the calls differ.
enum class NameIs { free, taken };

/// A folder of a copy destination, kept open by the copies that wait for their names in it while
/// the destination has gone on to another one. Internal to the platform folder.
struct TargetFolder
{
    FileDescriptor folder;
    /// Fails where the destination has left its place.
    std::function<std::expected<void, FileError>()> checkPlace;
    /// Makes the folder anew, because it was removed meanwhile.
    std::function<std::expected<FileDescriptor, FileError>()> makeAnew;
    NameIs likelyName = NameIs::free;
    /// Permissions that new files in it do not get right at creation.
    mode_t withheldPermissions = 0777;
};

} // namespace keelbright

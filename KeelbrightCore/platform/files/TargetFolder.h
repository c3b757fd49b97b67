#pragma once

#include "KeelbrightCore/platform/files/CopyAnchor.h"
#include "KeelbrightCore/platform/files/FileDescriptor.h"

#include <QByteArray>
#include <memory>
#include <sys/types.h>

namespace keelbright {

/// Whether the name of a copy is likely to be taken already. A guess: both ways end the same,
/// only the calls differ.
enum class NameIs { free, taken };

/// A folder of a copy destination, kept open by the copies that wait for their names in it while
/// the destination has gone on to another one. Internal to the platform folder.
struct TargetFolder
{
    std::shared_ptr<CopyAnchor> anchor;
    QByteArray path; ///< below the anchor
    FileDescriptor folder;
    NameIs likelyName = NameIs::free;
    mode_t umask = 0777; ///< permissions that new files in it do not get at creation
    bool flushesBeforeReplacing = true;
};

} // namespace keelbright

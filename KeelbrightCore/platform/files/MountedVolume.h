#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QString>

namespace keelbright {

/// A drive, or a part of one, that people know by a name.
struct MountedVolume
{
    FileURL point; ///< where it is mounted
    QString label; ///< its own name; that of the folder where it has none

    friend bool operator==(const MountedVolume&, const MountedVolume&) = default;
};

} // namespace keelbright

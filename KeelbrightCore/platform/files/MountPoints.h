#pragma once

#include "KeelbrightCore/platform/files/PlaceOnVolume.h"

#include <QList>
#include <optional>

namespace keelbright {

/// Where file systems are mounted, without links in the paths; empty where the system does not report
/// it. Internal to the platform folder.
[[nodiscard]] QList<FileURL> mountPoints();

/// Nothing where the system does not report it. Internal to the platform folder.
[[nodiscard]] std::optional<PlaceOnVolume> placeOnVolume(const FileURL& url);

/// A place as the system's tables of mounts write it: blanks, line breaks and backslashes as a backslash and
/// three octal digits. Internal to the platform folder.
[[nodiscard]] QByteArray unescapedMountPoint(const QByteArray& text);

} // namespace keelbright

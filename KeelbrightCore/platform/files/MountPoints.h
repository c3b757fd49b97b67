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

} // namespace keelbright

#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QList>

namespace keelbright {

/// Where file systems are mounted, without links in the paths; empty where the system does not report
/// it. Internal to the platform folder.
[[nodiscard]] QList<FileURL> mountPoints();

} // namespace keelbright

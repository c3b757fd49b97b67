#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

namespace keelbright::bench {

// Each does one work of the logic, prints what it took and gives the code to exit with.

[[nodiscard]] int measureScan(const FileURL& tree);
[[nodiscard]] int measureJunk(const FileURL& home);
/// The applications of a machine, of which there have to be `count`, each known to the metadata tool.
[[nodiscard]] int measureApps(const FileURL& machine, int count);

} // namespace keelbright::bench

#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"
#include "bench/Stopwatch.h"

namespace keelbright::bench {

// Each runs one service of the logic, prints the measured values and gives the exit code.

[[nodiscard]] int measureScan(const FileURL& tree, Caches caches);
[[nodiscard]] int measureJunk(const FileURL& home, Caches caches);
/// The scan for junk, not only its estimate, of a machine that is a Linux desktop.
[[nodiscard]] int measureLinuxJunk(const FileURL& machine, Caches caches);
/// Checks the copies of a tree on a drive against it, from whatever the system remembers of them.
[[nodiscard]] int measureCheck(const FileURL& tree, const FileURL& drive);
/// Scans the applications of a machine. It must have `count` of them, all known to the metadata tool.
[[nodiscard]] int measureApps(const FileURL& machine, int count);

} // namespace keelbright::bench

#pragma once

#include "Keelbright/state/Screen.h"
#include "KeelbrightCore/platform/files/FileURL.h"

namespace keelbright::bench {

// Each opens the real window, prints what it measured and gives the code to exit with.

/// A backup with the window watching, and the longest time that it did not answer.
[[nodiscard]] int measureBackup(const FileURL& tree, const FileURL& drive);
/// Goes through every screen twice and starts what can be started there. Prints the longest stall
/// at each and the memory after each round.
[[nodiscard]] int measureVisits(const FileURL& machine);
/// Shows one screen, prints "at rest" when its scans have ended, and stays until the process is ended.
[[nodiscard]] int rest(const FileURL& machine, Screen screen);

/// Runs the whole program until its first window is painted, and prints the seconds since then,
/// which is in nanoseconds of the monotonic clock.
[[nodiscard]] int measureStart(qint64 since, int argc, char** argv);

} // namespace keelbright::bench

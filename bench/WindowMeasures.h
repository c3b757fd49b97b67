#pragma once

#include "Keelbright/state/Screen.h"
#include "KeelbrightCore/platform/files/FileURL.h"

namespace keelbright::bench {

// Each opens the real window, prints the measured values and gives the exit code.

/// Runs a backup while its screen is shown, and measures the longest time in which the window did not
/// answer.
[[nodiscard]] int measureBackup(const FileURL& tree, const FileURL& drive);
/// Visits every screen twice and starts what can be started there. Prints the longest stall of each
/// screen and the memory after each round.
[[nodiscard]] int measureVisits(const FileURL& machine);
/// Shows one screen, prints "at rest" when its scans have ended, and runs until the process is ended.
[[nodiscard]] int rest(const FileURL& machine, Screen screen);

/// Runs the whole program until its first window is painted, and prints the seconds that have passed
/// since `since`, in nanoseconds of the monotonic clock.
[[nodiscard]] int measureStart(qint64 since, char** argv);

} // namespace keelbright::bench

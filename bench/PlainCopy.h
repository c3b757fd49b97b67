#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

namespace keelbright::bench {

/// Copies a tree of small files with the calls that no whole copy can do without, one file after the
/// other in one thread, and flushes the drive: what a backup is judged by. A file that is there is
/// replaced by a rename. Prints the measured values and gives the exit code. Linux only.
[[nodiscard]] int measurePlainCopy(const FileURL& tree, const FileURL& folder);

} // namespace keelbright::bench

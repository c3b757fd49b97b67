#pragma once

namespace keelbright {

/// Lets a write that goes past the limit of a file's size (`ulimit -f`) fail with EFBIG, like any other
/// failing write, for the rest of the process; by default it ends the process.
void reportFileSizeLimitAsError();

} // namespace keelbright

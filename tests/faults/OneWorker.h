#pragma once

#include <sys/types.h>

namespace keelbright::testing {

/// Puts all threads of the user-initiated pool except one to sleep forever, so that a backup has to run
/// on that one and its system calls can be watched. Gives the kernel's id of that thread.
[[nodiscard]] pid_t leaveOneWorker();

} // namespace keelbright::testing

#pragma once

#include <sys/types.h>

namespace keelbright::testing {

/// Puts all threads of the user-initiated pool to sleep for good, but one: so it is known
/// beforehand on which thread a backup runs, and the system calls of that one can be watched
/// alone. Gives its number with the kernel.
[[nodiscard]] pid_t leaveOneWorker();

} // namespace keelbright::testing

#pragma once

#include <QList>
#include <sys/types.h>

namespace keelbright::testing {

/// Puts all threads of the user-initiated pool except so many to sleep forever, so that a backup runs on
/// these and their system calls can be watched: with one, all of it on that one. Gives the kernel's ids of
/// these threads.
[[nodiscard]] QList<pid_t> leaveThreads(int count);

} // namespace keelbright::testing

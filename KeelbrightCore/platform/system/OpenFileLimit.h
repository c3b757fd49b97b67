#pragma once

#include <sys/resource.h>
#include <sys/types.h>

namespace keelbright::OpenFileLimit {

/// How many files the program may keep open at a time, RLIM_INFINITY where the system does not say. Any
/// thread.
[[nodiscard]] rlim_t current();

/// Lets the program keep more files open than the system's default of 256 or 1,024, for the many copies
/// that a backup prepares at a time: up to 4,096, where the system allows it. Never lowers the limit. To
/// be called once, as the program starts.
///
/// Processes that are forked later get the limit of before.
void raise();

/// Gives a child that was started without a fork the limit of before, where the system allows it: some
/// programs close or look at every descriptor that they could have. It starts with the raised one.
void lowerFor(pid_t child);

} // namespace keelbright::OpenFileLimit

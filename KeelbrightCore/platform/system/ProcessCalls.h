#pragma once

#include "KeelbrightCore/platform/files/FileDescriptor.h"

#include <array>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/types.h>

namespace keelbright {

/// System calls around processes that differ between operating systems, with one meaning for all. Internal
/// to the platform folder.
namespace ProcessCalls {

/// The two ends of a pipe, closed in helper programs; 0, or an `errno` value.
[[nodiscard]] int makePipe(std::array<int, 2>& ends);
/// Lets a helper program start without the open files of this one but its standard streams. `flags` are those
/// of its attributes.
void closeOtherFiles(posix_spawn_file_actions_t& actions, short& flags);
/// A descriptor that becomes readable when the process ends; none where the system has no such thing.
[[nodiscard]] FileDescriptor watchForEnd(pid_t process);
/// Sets how many files a child may open, where the system allows that from outside.
void limitOpenFiles(pid_t child, rlim_t count);

} // namespace ProcessCalls
} // namespace keelbright

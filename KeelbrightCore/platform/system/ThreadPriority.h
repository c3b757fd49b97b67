#pragma once

namespace keelbright {

/// How threads share processors and drives. Internal to the platform folder.
namespace ThreadPriority {

/// What a thread passes on to those that it starts: a nice value on Linux, which a new thread has by itself,
/// a class of quality of service on macOS, which it has to take.
[[nodiscard]] unsigned int inherited();
/// Gives the calling thread what the one that started it has passed on.
void inherit(unsigned int inherited);

/// The nice value of the calling thread; 0 where threads have none of their own.
[[nodiscard]] int niceOfThisThread();
/// The calling thread works for the user from now on.
void becomeUserInitiated(int niceOfProgram);
/// It takes what others leave from now on.
void becomeUtility(int niceOfProgram);

} // namespace ThreadPriority
} // namespace keelbright

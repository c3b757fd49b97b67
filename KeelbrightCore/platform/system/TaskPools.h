#pragma once

class QThreadPool;

namespace keelbright {

/// The background threads, by what waits for them. Any thread may ask; the first to do so starts
/// the threads of both pools and must run at normal priority. The pools live until the process
/// ends: returning from `main` does not wait for a task that is still at work. Never call
/// `waitForDone`: it ends the threads, and new ones get the priority of the thread that needs them.
namespace TaskPools {

/// For what the user waits on: backup runs, checks, scans that a screen shows. Has more threads
/// than there are processors, for tasks that sleep while a helper program runs; work that keeps a
/// processor busy is to be shared out by `QThread::idealThreadCount`.
[[nodiscard]] QThreadPool& userInitiated();
/// For work in the background; its threads run at a lower priority that the system honours.
[[nodiscard]] QThreadPool& utility();

} // namespace TaskPools
} // namespace keelbright

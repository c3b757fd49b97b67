#pragma once

class QThreadPool;

namespace keelbright {

/// The background threads, by what waits for them.
namespace TaskPools {

/// For what the user waits on: backup runs, checks, scans that a screen shows.
[[nodiscard]] QThreadPool& userInitiated();
/// For work in the background; its threads run at a lower priority that the system honours.
[[nodiscard]] QThreadPool& utility();

} // namespace TaskPools
} // namespace keelbright

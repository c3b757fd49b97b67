#pragma once

#include "KeelbrightCore/health/HealthScore.h"
#include "KeelbrightCore/platform/system/Clock.h"

#include <QFuture>
#include <optional>

namespace keelbright::HealthScoreService {

/// Grades the machine by the age of the last backup (absent: there is none), the use of the disk
/// that holds the home folder, and a quick estimate of the junk in caches, logs and Xcode's
/// folders.
///
/// Never fails: what can't be read is a number of 0. Returns at once, from any thread. One walk on
/// a thread of its own, at the utility priority, that holds nothing of its caller and asks the clock
/// once, after measuring; the future finishes there. An object of the main thread that may be destroyed
/// meanwhile listens with a `QFutureWatcher`.
[[nodiscard]] QFuture<HealthScore> compute(const std::optional<QDateTime>& lastBackupTime,
                                           Clock clock = systemClock);

} // namespace keelbright::HealthScoreService

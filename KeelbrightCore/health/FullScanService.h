#pragma once

#include "KeelbrightCore/apps/AppInfo.h"
#include "KeelbrightCore/health/FullScanReport.h"

#include <QFuture>

namespace keelbright::FullScanService {

/// Checks junk, health score, applications and backup, and ranks what was found.
///
/// An empty `cachedApps` makes the scan list the applications itself, its slowest step. Never
/// fails; returns at once, from any thread. The sources work one after another on their own
/// pools, no thread waits for another, and nothing of the caller is held; the future finishes on
/// one of those threads. An object of the main thread that may be destroyed meanwhile listens
/// with a `QFutureWatcher`.
[[nodiscard]] QFuture<FullScanReport> scan(const std::optional<QDateTime>& lastBackupTime,
                                           const QList<AppInfo>& cachedApps,
                                           const Clock& clock = systemClock);

} // namespace keelbright::FullScanService

#pragma once

#include "KeelbrightCore/apps/AppInfo.h"

#include <QFuture>
#include <QList>

namespace keelbright::AppScanner {

/// Lists the installed applications, on a Mac the bundles and elsewhere what `LinuxApps` lists, sorted by
/// `sortPriority`, then by last use, the longest ago (or never) first. Never fails; returns at once, from
/// any thread. Where memory runs out, what needed it is left out, and the scan ends all the same.
///
/// Runs on the user-initiated pool and holds nothing of its caller. At most 32 applications are in
/// work, and at most 32 processes of the metadata tool run for all scans together; there is no
/// time-out. No thread is held while a tool runs, and all scans together take no more threads than
/// there are processors, so that a scan that never ends holds other scans and nothing else.
/// Cancelling the future ends a Mac's scan before its next application; elsewhere the list is read to its
/// end. The future finishes on a thread of the pool: an object of the main thread that may be destroyed
/// meanwhile listens with a `QFutureWatcher`.
[[nodiscard]] QFuture<QList<AppInfo>> scan(Clock clock = systemClock);

} // namespace keelbright::AppScanner

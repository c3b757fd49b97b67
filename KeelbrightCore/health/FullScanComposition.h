#pragma once

#include "KeelbrightCore/apps/AppInfo.h"
#include "KeelbrightCore/health/FullScanReport.h"
#include "KeelbrightCore/health/JunkCategory.h"

// How the report of a full scan comes from the results of its sources. Internal to the full scan
// service; on its own so that every threshold can be tested exactly.

namespace keelbright::FullScanComposition {

/// The results of the sources.
struct Sources
{
    QList<JunkCategory> categories; ///< the largest first
    HealthScore score;
    QList<AppInfo> apps;
    std::optional<QDateTime> lastBackupTime;
};

/// The findings in the order of the report.
[[nodiscard]] QList<ScanFinding> findings(const Sources& sources, const QDateTime& now);
/// The whole report, finished at `now`.
[[nodiscard]] FullScanReport report(const Sources& sources, const QDateTime& now);

} // namespace keelbright::FullScanComposition

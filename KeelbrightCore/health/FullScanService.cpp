#include "KeelbrightCore/health/FullScanService.h"

#include "KeelbrightCore/apps/AppScanner.h"
#include "KeelbrightCore/health/FullScanComposition.h"
#include "KeelbrightCore/health/HealthScoreService.h"
#include "KeelbrightCore/health/JunkScanner.h"
#include "KeelbrightCore/platform/system/ReadyFuture.h"

namespace keelbright::FullScanService {

namespace {

QFuture<QList<AppInfo>> installedApps(const QList<AppInfo>& cachedApps, const Clock& clock)
{
    if (cachedApps.isEmpty())
        return AppScanner::scan(clock);
    return readyFuture(cachedApps);
}

} // namespace

QFuture<FullScanReport> scan(const std::optional<QDateTime>& lastBackupTime, const QList<AppInfo>& cachedApps,
                             const Clock& clock)
{
    const auto withScore = [=](const QList<JunkCategory>& categories, const HealthScore& score) {
        return installedApps(cachedApps, clock).then([=](const QList<AppInfo>& apps) {
            return FullScanComposition::report({categories, score, apps, lastBackupTime}, clock());
        });
    };
    const auto withJunk = [=](const QList<JunkCategory>& categories) {
        return HealthScoreService::compute(lastBackupTime, clock)
            .then([=](const HealthScore& score) { return withScore(categories, score); })
            .unwrap();
    };
    return JunkScanner::scan().then(withJunk).unwrap();
}

} // namespace keelbright::FullScanService

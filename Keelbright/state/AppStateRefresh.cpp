// How the state refreshes what it knows of the machine: only when the user asks for it, never by a timer.

#include "Keelbright/state/AppState.h"
#include "Keelbright/state/Delivery.h"
#include "KeelbrightCore/apps/AppScanner.h"
#include "KeelbrightCore/health/HealthScoreService.h"
#include "KeelbrightCore/platform/system/Logging.h"

namespace keelbright {

void AppState::refreshHealthScore()
{
    deliver(HealthScoreService::compute(m_lastBackupTime, m_services.clock), this,
            [this](const HealthScore& score) { setHealthScore(score); });
}

void AppState::refreshAppsIfNeeded()
{
    if (m_scannedApps.isEmpty())
        scanApps();
}

void AppState::scanApps()
{
    if (m_isAppScanning)
        return;
    deliver(AppScanner::scan(m_services.clock), this, [this](const QList<AppInfo>& apps) {
        setScannedApps(apps);
        setIsAppScanning(false);
    });
    setIsAppScanning(true); // only now: where memory runs out, no scan is under way
}

void AppState::setHealthScore(const HealthScore& score)
{
    qCDebug(stateLog) << "health score:" << score.points;
    m_healthScore = score;
    Q_EMIT healthScoreChanged();
    Q_EMIT changed();
}

void AppState::removeScannedApp(const QUuid& id)
{
    QList<AppInfo> remaining = m_scannedApps;
    remaining.removeIf([&id](const AppInfo& app) { return app.id == id; });
    setScannedApps(remaining);
}

void AppState::setScannedApps(const QList<AppInfo>& apps)
{
    qCDebug(stateLog) << "applications:" << apps.size();
    m_scannedApps = apps;
    Q_EMIT scannedAppsChanged();
    Q_EMIT changed();
}

void AppState::setIsAppScanning(bool isScanning)
{
    m_isAppScanning = isScanning;
    Q_EMIT isAppScanningChanged();
    Q_EMIT changed();
}

} // namespace keelbright

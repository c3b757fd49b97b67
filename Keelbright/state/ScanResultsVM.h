#pragma once

#include "KeelbrightCore/apps/AppInfo.h"
#include "KeelbrightCore/health/FullScanReport.h"

#include <QObject>

namespace keelbright {

/// What the scan results screen shows: the report of its last full scan. Main thread only; lives
/// as long as its screen, and nothing of it is stored.
class ScanResultsVM : public QObject
{
    Q_OBJECT

public:
    explicit ScanResultsVM(Clock clock = systemClock, QObject* parent = nullptr);

    /// Kept while the next scan runs.
    [[nodiscard]] const std::optional<FullScanReport>& report() const { return m_report; }

    [[nodiscard]] bool isScanning() const { return m_isScanning; }

    /// Runs a full scan in the background. With no applications given it lists them itself, which
    /// takes longer.
    void runScan(const std::optional<QDateTime>& lastBackupTime, const QList<AppInfo>& cachedApps);

Q_SIGNALS:
    /// A property was set.
    void changed();

private:
    void setReport(const FullScanReport& report);
    void setIsScanning(bool isScanning);

    Clock m_clock;
    std::optional<FullScanReport> m_report;
    bool m_isScanning = false;
};

} // namespace keelbright

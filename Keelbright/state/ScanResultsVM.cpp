#include "Keelbright/state/ScanResultsVM.h"

#include "Keelbright/state/Delivery.h"
#include "KeelbrightCore/health/FullScanService.h"

namespace keelbright {

ScanResultsVM::ScanResultsVM(Clock clock, QObject* parent)
    : QObject(parent)
    , m_clock(std::move(clock))
{}

void ScanResultsVM::runScan(const std::optional<QDateTime>& lastBackupTime, const QList<AppInfo>& cachedApps)
{
    setIsScanning(true);
    deliver(FullScanService::scan(lastBackupTime, cachedApps, m_clock), this,
            [this](const FullScanReport& report) {
                setReport(report);
                setIsScanning(false);
            });
}

void ScanResultsVM::setReport(const FullScanReport& report)
{
    m_report = report;
    Q_EMIT changed();
}

void ScanResultsVM::setIsScanning(bool isScanning)
{
    m_isScanning = isScanning;
    Q_EMIT changed();
}

} // namespace keelbright

#pragma once

#include "KeelbrightCore/health/HealthScore.h"
#include "KeelbrightCore/health/ScanFinding.h"

#include <QDateTime>
#include <QList>
#include <optional>

namespace keelbright {

/// The outcome of a full scan.
struct FullScanReport
{
    QDateTime scannedAt;                    ///< UTC; when the scan was finished
    QList<ScanFinding> findings;            ///< highest severity first, then largest first
    qint64 totalReclaimableBytes = 0;       ///< of all junk, also of what has no finding
    std::optional<HealthScore> healthScore; ///< of the same scan; a finished scan always has one

    [[nodiscard]] QString formattedReclaimable() const;

    friend bool operator==(const FullScanReport&, const FullScanReport&) = default;
};

} // namespace keelbright

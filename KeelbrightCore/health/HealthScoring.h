#pragma once

#include "KeelbrightCore/health/HealthScore.h"

#include <QDateTime>
#include <optional>

// How a health score comes from what was measured. Internal to the health score service; on its own so
// that every threshold can be tested exactly.

namespace keelbright::HealthScoring {

/// What is measured of the machine.
struct Measurements
{
    qint64 diskTotalBytes = 0; ///< 0 when unknown
    qint64 diskFreeBytes = 0;  ///< 0 when unknown
    qint64 junkBytes = 0;
    std::optional<QDateTime> lastBackup = std::nullopt;
};

[[nodiscard]] int backupScore(const std::optional<QDateTime>& lastBackup, const QDateTime& now);
/// A disk of unknown size (a total of 0 or less) scores in the middle, not 0.
[[nodiscard]] int diskScore(qint64 usedBytes, qint64 totalBytes);
[[nodiscard]] int junkScore(qint64 junkBytes);
[[nodiscard]] HealthScore::Grade gradeFor(int points);
/// Backup, junk and disk in a sentence each; the latter two where they are worth one. The grade
/// has its own headline and plays no part here.
[[nodiscard]] QString detailText(HealthScore::Grade grade, qint64 junkBytes,
                                 const std::optional<QDateTime>& lastBackup, qint64 diskUsedBytes,
                                 qint64 diskTotalBytes, const QDateTime& now);
/// All of the above put together.
[[nodiscard]] HealthScore score(const Measurements& measured, const QDateTime& now);

} // namespace keelbright::HealthScoring

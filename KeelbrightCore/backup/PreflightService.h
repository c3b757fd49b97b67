#pragma once

#include "KeelbrightCore/backup/BackupDestination.h"
#include "KeelbrightCore/backup/BackupSource.h"
#include "KeelbrightCore/platform/system/Cancellation.h"

#include <QList>
#include <QStringList>
#include <optional>

namespace keelbright {

/// What the checks before a backup found.
struct PreflightResult
{
    qint64 estimatedFileCount = 0;
    qint64 estimatedBytes = 0;
    qint64 destinationFreeSpace = 0; ///< bytes; 0 when unknown
    QStringList errors;              ///< blocking, in order of detection
    QStringList warnings;            ///< not blocking, in order of detection

    [[nodiscard]] bool canProceed() const { return errors.isEmpty(); }

    friend bool operator==(const PreflightResult&, const PreflightResult&) = default;
};

namespace PreflightService {

/// What is known of the destination's drive beforehand.
enum class Drive {
    unknown, ///< only the folder itself is looked at
    away,    ///< what exists under the folder's path is its empty mount point, and no destination
};

/// Runs the checks. Changes nothing on disk, never fails; blocks while it scans, so off the main
/// thread. Ends at the next entry, with an incomplete result, once it is given up (`quit`).
[[nodiscard]] PreflightResult run(const QList<BackupSource>& sources,
                                  const std::optional<BackupDestination>& destination,
                                  const Cancellation& cancellation = Cancellation(),
                                  Drive drive = Drive::unknown);

} // namespace PreflightService
} // namespace keelbright

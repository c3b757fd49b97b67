#pragma once

#include "KeelbrightCore/backup/BackupDestination.h"
#include "KeelbrightCore/backup/BackupSource.h"

#include <QDateTime>
#include <QList>
#include <QStringList>

namespace keelbright {

/// The order for one run.
struct BackupJob
{
    QUuid id;
    QList<BackupSource> sources;
    BackupDestination destination;
    QDateTime startedAt; ///< UTC; when the user confirmed
    /// Where the destination's drive was last seen mounted; "/" where that is unknown. The run does not start
    /// while the drive is away.
    FileURL driveSeenAt = {};

    /// The path of every source in order, of the disabled ones too.
    [[nodiscard]] QStringList sourcePaths() const;
};

} // namespace keelbright

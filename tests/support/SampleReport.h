#pragma once

#include "KeelbrightCore/backup/BackupReport.h"
#include "KeelbrightCore/platform/text/UtcZone.h"

namespace keelbright::testing {

/// The report of a run of 42 seconds without errors, dates in whole seconds.
[[nodiscard]] inline BackupReport sampleReport()
{
    return {
        .id = QUuid(QStringLiteral("{0a4ba8c1-57b2-4e0f-9c43-5e5f2a9d6b10}")),
        .jobId = QUuid(QStringLiteral("{7d1f0c52-8a3e-4f7b-b1d9-3c2e1f0a9b84}")),
        .startedAt = QDateTime(QDate(2026, 3, 1), QTime(9, 5, 0), utcZone),
        .completedAt = QDateTime(QDate(2026, 3, 1), QTime(9, 5, 42), utcZone),
        .sourcePaths = {QStringLiteral("/Users/mira/Desktop"), QStringLiteral("/Users/mira/Documents")},
        .destinationPath = QStringLiteral("/Volumes/Anchor"),
        .personalFilesPath = QStringLiteral("/Volumes/Anchor/Keelbright/Mira/Latest/Personal Files"),
        .filesCopied = 1234,
        .filesSkipped = 5,
        .bytesCopied = 2'500'000,
        .errors = {},
        .manifestPath = QStringLiteral("/Volumes/Anchor/Keelbright/Mira/Latest/recovery-manifest.json"),
    };
}

} // namespace keelbright::testing

#pragma once

#include "KeelbrightCore/records/AppConfiguration.h"
#include "tests/support/SampleReport.h"

namespace keelbright::testing {

/// Settings with every field, one of them with a name that is not UTF-8.
inline AppConfiguration sampleConfiguration()
{
    return {
        .selectedDestination =
            BackupDestination{QUuid::createUuid(), FileURL::fromPath(QStringLiteral("/Volumes/Anchor"))},
        .customSources = {{QUuid::createUuid(), FileURL::fromPath(QStringLiteral("/Users/mira/Code")), true},
                          {QUuid::createUuid(), FileURL::fromNativePath("/Users/mira/caf\xe9"), false}},
        .enabledRecommendedFolders = {QStringLiteral("Desktop"), QStringLiteral("Photos Library")},
        .lastReport = sampleReport(),
        .lastBackupTime = sampleReport().completedAt,
    };
}

} // namespace keelbright::testing

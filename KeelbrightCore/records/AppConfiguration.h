#pragma once

#include "KeelbrightCore/backup/BackupDestination.h"
#include "KeelbrightCore/backup/BackupReport.h"
#include "KeelbrightCore/backup/BackupSource.h"

#include <QList>
#include <QStringList>
#include <optional>

namespace keelbright {

/// The whole content of `config.json`.
struct AppConfiguration
{
    /// The key of `lastReport` in `toJson`.
    static constexpr QLatin1StringView lastReportKey{"lastReport"};

    std::optional<BackupDestination> selectedDestination;
    QList<BackupSource> customSources;
    QStringList enabledRecommendedFolders; ///< names of the enabled recommended folders
    std::optional<BackupReport> lastReport;
    std::optional<QDateTime> lastBackupTime; ///< UTC

    [[nodiscard]] QJsonObject toJson() const;
    [[nodiscard]] static Decoded<AppConfiguration> fromJson(const JsonDecoder& json);
    friend bool operator==(const AppConfiguration&, const AppConfiguration&) = default;
};

} // namespace keelbright

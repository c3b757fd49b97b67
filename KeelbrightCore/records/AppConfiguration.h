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
    std::optional<BackupDestination> selectedDestination;
    QList<BackupSource> customSources;
    QStringList enabledRecommendedFolders; ///< names of the enabled recommended folders
    std::optional<BackupReport> lastReport;
    std::optional<QDateTime> lastBackupTime; ///< UTC

    [[nodiscard]] QJsonObject toJson() const;
    /// `toJson` as indented text in UTF-8, for which an unchanged report is not written anew.
    [[nodiscard]] QByteArray toJsonText() const;
    [[nodiscard]] static Decoded<AppConfiguration> fromJson(const JsonDecoder& json);
    friend bool operator==(const AppConfiguration&, const AppConfiguration&) = default;
};

} // namespace keelbright

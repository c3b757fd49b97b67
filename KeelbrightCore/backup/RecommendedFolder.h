#pragma once

#include "KeelbrightCore/backup/BackupSource.h"

#include <QList>
#include <optional>

namespace keelbright {

/// A suggested folder, which lies below the user's home unless the user has put it elsewhere.
struct RecommendedFolder
{
    QUuid id;
    QString name; ///< the label on screen and the identity in `config.json`
    QString relativePath;
    QString description;
    QString icon;
    bool isEnabled = false;
    std::optional<FileURL> place = {}; ///< where it lies if not at its path below the home

    [[nodiscard]] FileURL url() const;
    /// Asks the file system at each call.
    [[nodiscard]] bool exists() const;
    /// With a new id, and always enabled.
    [[nodiscard]] BackupSource asBackupSource() const;

    friend bool operator==(const RecommendedFolder&, const RecommendedFolder&) = default;
};

} // namespace keelbright

#pragma once

#include "KeelbrightCore/backup/BackupSource.h"

#include <QList>

namespace keelbright {

/// A suggested folder below the user's home.
struct RecommendedFolder
{
    QUuid id;
    QString name; ///< the label on screen and the identity in `config.json`
    QString relativePath;
    QString description;
    QString icon;
    bool isEnabled = false;

    [[nodiscard]] FileURL url() const;
    /// Asks the file system at each call.
    [[nodiscard]] bool exists() const;
    /// With a new id, and always enabled.
    [[nodiscard]] BackupSource asBackupSource() const;

    friend bool operator==(const RecommendedFolder&, const RecommendedFolder&) = default;
};

} // namespace keelbright

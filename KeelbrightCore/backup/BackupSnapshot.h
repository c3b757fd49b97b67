#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QDateTime>
#include <QUuid>

namespace keelbright {

/// One restorable backup found on a destination.
struct BackupSnapshot
{
    QUuid id;
    QDateTime date; ///< UTC
    FileURL folderURL;

    /// The date in the user's locale: medium date, short time.
    [[nodiscard]] QString label() const;
};

} // namespace keelbright

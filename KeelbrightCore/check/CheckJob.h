#pragma once

#include "KeelbrightCore/backup/BackupSource.h"

#include <QList>
#include <optional>

namespace keelbright {

/// What is to be checked, and what it is compared with.
struct CheckJob
{
    /// What a backup would copy now; copies are compared with the files below the enabled ones.
    QList<BackupSource> sources;
    /// Where the copies lie; not needed for a list that lies beside the folder of its copies.
    std::optional<FileURL> destination;
    /// A list of checksums that stands in for the originals; `sources` is not looked at then.
    std::optional<FileURL> checksumList;
};

} // namespace keelbright

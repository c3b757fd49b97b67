#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QUuid>

namespace keelbright {

/// One folder, or rarely a file, that can be thrown away as a whole.
struct JunkItem
{
    QUuid id = QUuid::createUuid(); ///< not stable across scans
    FileURL url;                    ///< what would be moved to the Trash as one thing
    qint64 sizeBytes = 0;           ///< of the files below it; above 0 in what a scan gives
    QString inUseBy = {};           ///< the program that uses it at the time of the scan, for people

    /// The last path component.
    [[nodiscard]] QString name() const;
    [[nodiscard]] QString formattedSize() const;

    friend bool operator==(const JunkItem&, const JunkItem&) = default;
};

} // namespace keelbright

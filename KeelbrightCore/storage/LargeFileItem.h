#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QString>
#include <QUuid>

namespace keelbright {

/// One of the largest files of a folder.
struct LargeFileItem
{
    QUuid id; ///< new with each scan
    FileURL url;
    qint64 sizeBytes = 0; ///< greater than 0

    [[nodiscard]] QString name() const { return url.lastPathComponent(); }

    /// The path extension in lower case; empty where there is none.
    [[nodiscard]] QString ext() const { return url.pathExtension().toLower(); }

    [[nodiscard]] QString formattedSize() const;

    friend bool operator==(const LargeFileItem&, const LargeFileItem&) = default;
};

} // namespace keelbright

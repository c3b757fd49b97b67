#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QString>
#include <QUuid>

namespace keelbright {

/// One entry of a folder with the size of all that it holds.
struct FolderSizeNode
{
    QUuid id; ///< new with each scan
    QString name;
    FileURL url;
    qint64 totalBytes = 0; ///< the file's size, or the sum over the folder
    bool isDirectory = false;

    [[nodiscard]] QString formattedSize() const;
    /// The entry's share of that many bytes, at most 1; 0 where they are not above 0.
    [[nodiscard]] double fraction(qint64 ofTotal) const;

    friend bool operator==(const FolderSizeNode&, const FolderSizeNode&) = default;
};

} // namespace keelbright

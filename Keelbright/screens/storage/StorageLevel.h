#pragma once

#include "Keelbright/screens/storage/StorageFileTypes.h"
#include "KeelbrightCore/storage/FolderSizeNode.h"

#include <QList>

namespace keelbright {

/// One level of a walk through the storage browser: a folder with its measured entries.
struct StorageLevel
{
    FileURL url;
    QList<FolderSizeNode> nodes; ///< largest first

    // Worked out together with the nodes, off the main thread: there may be 100,000 of them.
    QList<qsizetype> nameOrder; ///< the nodes' indices by name
    qint64 totalBytes = 0;
    QList<FileTypeShare> breakdown;
};

/// Measures the folder, on threads of the user-initiated pool. Blocks; any thread.
[[nodiscard]] StorageLevel measureLevel(const FileURL& url);

/// The indices of the nodes sorted by name with the default locale's case-insensitive comparison. The
/// sort is stable. Any thread.
[[nodiscard]] QList<qsizetype> orderByName(const QList<FolderSizeNode>& nodes);

} // namespace keelbright

#pragma once

#include "Keelbright/screens/storage/StorageFileTypes.h"
#include "KeelbrightCore/storage/FolderSizeNode.h"

#include <QList>

namespace keelbright {

/// A folder on the walk through the storage browser, with its entries as they were measured.
struct StorageLevel
{
    FileURL url;
    QList<FolderSizeNode> nodes; ///< largest first

    // What the screen shows of the nodes; kept with them, since there may be a hundred thousand.
    QList<qsizetype> nameOrder; ///< the nodes' indices by name
    qint64 totalBytes = 0;
    QList<FileTypeShare> breakdown;
};

/// Measures the folder, on threads of the user-initiated pool. Blocks; any thread.
[[nodiscard]] StorageLevel measureLevel(const FileURL& url);

/// The indices of the nodes by name, as people of the default locale sort, letter case aside;
/// equal names stay in their order. Any thread.
[[nodiscard]] QList<qsizetype> orderByName(const QList<FolderSizeNode>& nodes);

} // namespace keelbright

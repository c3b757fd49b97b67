#pragma once

#include "KeelbrightCore/storage/FolderSizeNode.h"

#include <QList>
#include <QRectF>
#include <QSizeF>

namespace keelbright {

/// One rectangle of a treemap: an entry, where it goes, and which colour it takes.
struct TreemapCell
{
    FolderSizeNode node;
    QRectF rect;        ///< in points, the origin at the top left, y downwards
    int colorIndex = 0; ///< differs from that of every cell that shares an edge; has no upper limit

    friend bool operator==(const TreemapCell&, const TreemapCell&) = default;
};

/// Rectangles whose areas follow the sizes of a folder's entries: a space is cut at half of the bytes
/// across its longer side, and each part again. A pure computation; any thread.
struct TreemapLayout
{
    QList<FolderSizeNode> nodes; ///< in any order
    qint64 totalBytes = 0;       ///< the sum over `nodes`
    QSizeF size;                 ///< the space to fill, in points

    /// The cells in the order of the tiling, which is the order to draw them in. Entries of size 0
    /// have no cell, nor have entries whose cell would be at most one point wide or high.
    [[nodiscard]] QList<TreemapCell> layout() const;
};

} // namespace keelbright

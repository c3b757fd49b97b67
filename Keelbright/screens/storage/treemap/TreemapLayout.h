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
    int colorIndex = 0; ///< differs from that of every cell it shares an edge with; may pass any palette

    friend bool operator==(const TreemapCell&, const TreemapCell&) = default;
};

/// Rectangles whose areas follow the sizes of a folder's entries: cut again and again at half of the
/// bytes, across the longer side. A value without input or output; any thread.
struct TreemapLayout
{
    QList<FolderSizeNode> nodes; ///< in any order
    qint64 totalBytes = 0;       ///< the sum over `nodes`
    QSizeF size;                 ///< the space to fill, in points

    /// The cells in the order of the tiling, which is the order to draw them in. Entries of size 0
    /// have none, and those whose space would be no wider or no higher than one point neither.
    [[nodiscard]] QList<TreemapCell> layout() const;
};

} // namespace keelbright

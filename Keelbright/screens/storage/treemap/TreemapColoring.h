#pragma once

#include <QList>
#include <QRectF>

namespace keelbright {

/// Gives each rectangle, in order, the smallest colour index from 0 upwards that no earlier
/// neighbour has. Neighbours share more than two points of edge; touching at a corner is not enough.
/// Internal to the treemap; widths and heights must not be negative.
[[nodiscard]] QList<int> treemapColorIndices(const QList<QRectF>& rects);

} // namespace keelbright

#pragma once

#include <QList>
#include <QRectF>

namespace keelbright {

/// Gives each rectangle, in order, the smallest colour index from 0 upwards that no earlier
/// neighbour has. Neighbours share a stretch of edge of more than two points; a corner is none.
/// Internal to the treemap; sides are not negative.
[[nodiscard]] QList<int> treemapColorIndices(const QList<QRectF>& rects);

} // namespace keelbright

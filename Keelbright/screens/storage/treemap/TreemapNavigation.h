#pragma once

#include "Keelbright/screens/storage/treemap/TreemapLayout.h"

namespace keelbright {

/// The direction of an arrow key.
enum class TreemapDirection { left, right, up, down };

/// The index of the cell next to `from` in that direction; -1 at the border. If there are several, the one
/// at the height of `anchor` (at its x for up and down), so that a move and the opposite one lead back.
[[nodiscard]] int treemapNeighbour(const QList<TreemapCell>& cells, int from, TreemapDirection direction,
                                   const QPointF& anchor);

} // namespace keelbright

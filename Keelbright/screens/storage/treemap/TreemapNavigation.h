#pragma once

#include "Keelbright/screens/storage/treemap/TreemapLayout.h"

namespace keelbright {

/// The way of an arrow key.
enum class TreemapDirection { left, right, up, down };

/// The cell beside another one, as the eye sees it; -1 at the border. Of several it is the one at
/// the height (or column) of `anchor`, so that going there and back comes home.
[[nodiscard]] int treemapNeighbour(const QList<TreemapCell>& cells, int from, TreemapDirection direction,
                                   const QPointF& anchor);

} // namespace keelbright

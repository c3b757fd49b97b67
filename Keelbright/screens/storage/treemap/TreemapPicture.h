#pragma once

#include "Keelbright/screens/storage/treemap/TreemapLayout.h"

#include <QPixmap>

namespace keelbright {

/// Draws the whole map with rounded corners, transparent where there is no cell. `size` and the cells
/// are in device-independent pixels.
[[nodiscard]] QPixmap drawTreemap(const QList<TreemapCell>& cells, const QSize& size, qreal devicePixelRatio);

/// A cell's rectangle with its edges on whole pixels of the device, as it is drawn.
[[nodiscard]] QRectF onDevicePixels(const QRectF& rect, qreal devicePixelRatio);

} // namespace keelbright

#pragma once

#include <QRectF>

class QPainter;

namespace keelbright {

/// The whole device pixels within the rectangle, in the painter's coordinates. A part of a widget that is
/// repainted alone has to keep to them at a scale such as 1.25: what is painted beside them stays, because
/// the next repaint of that part leaves the pixel at its edge alone.
[[nodiscard]] QRectF wholePixels(const QPainter& painter, const QRectF& rect);

/// A line along the lower edge, within the whole pixels of the rectangle, one unit high and at least one
/// device pixel.
[[nodiscard]] QRectF lineAtBottom(const QPainter& painter, const QRectF& rect);

} // namespace keelbright

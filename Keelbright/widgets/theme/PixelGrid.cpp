#include "Keelbright/widgets/theme/PixelGrid.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace keelbright {

namespace {

/// Larger than the rounding of a multiplication, and far smaller than what can be seen.
constexpr double rounding = 1e-4;

} // namespace

QRectF wholePixels(const QPainter& painter, const QRectF& rect)
{
    const QTransform& toDevice = painter.deviceTransform();
    const QRectF device = toDevice.mapRect(rect);
    const QPointF topLeft(std::ceil(device.left() - rounding), std::ceil(device.top() - rounding));
    const QPointF bottomRight(std::floor(device.right() + rounding), std::floor(device.bottom() + rounding));
    return toDevice.inverted().mapRect(QRectF(topLeft, bottomRight));
}

QRectF lineAtBottom(const QPainter& painter, const QRectF& rect)
{
    const QRectF whole = wholePixels(painter, rect);
    const double scale = painter.deviceTransform().m22();
    const double height = std::max(1.0, std::floor(scale)) / scale;
    return {whole.left(), whole.bottom() - height, whole.width(), height};
}

} // namespace keelbright

#include "Keelbright/widgets/theme/PixelGrid.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace keelbright {

namespace {

/// Larger than the rounding of a multiplication, and far smaller than what can be seen.
constexpr double rounding = 1e-4;

QRectF wholePixelsOfDevice(const QPainter& painter, const QRectF& rect)
{
    const QRectF device = painter.deviceTransform().mapRect(rect);
    const QPointF topLeft(std::ceil(device.left() - rounding), std::ceil(device.top() - rounding));
    const QPointF bottomRight(std::floor(device.right() + rounding), std::floor(device.bottom() + rounding));
    return {topLeft, bottomRight};
}

QRectF fromDevice(const QPainter& painter, const QRectF& rect)
{
    // Far less than a pixel: the painter cuts fractions off, and must not end up just before a pixel.
    constexpr double nudge = 1e-6;
    return painter.deviceTransform().inverted().mapRect(rect.translated(nudge, nudge));
}

} // namespace

QRectF wholePixels(const QPainter& painter, const QRectF& rect)
{
    return fromDevice(painter, wholePixelsOfDevice(painter, rect));
}

QRectF lineAtBottom(const QPainter& painter, const QRectF& rect)
{
    QRectF line = wholePixelsOfDevice(painter, rect);
    line.setTop(line.bottom() - std::max(1.0, std::floor(painter.deviceTransform().m22())));
    return fromDevice(painter, line);
}

} // namespace keelbright

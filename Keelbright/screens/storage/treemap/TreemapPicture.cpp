#include "Keelbright/screens/storage/treemap/TreemapPicture.h"

#include "Keelbright/screens/storage/treemap/TreemapPalette.h"
#include "Keelbright/widgets/DisplayText.h"
#include "Keelbright/widgets/theme/Theme.h"

#include <QFontMetricsF>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <array>
#include <cmath>

namespace keelbright {

namespace {

constexpr double cornerRadius = 10;
constexpr QPointF labelInset{9, 8};

QColor white(double opacity)
{
    return QColor::fromRgbF(1, 1, 1, static_cast<float>(opacity));
}

QColor black(double opacity)
{
    return QColor::fromRgbF(0, 0, 0, static_cast<float>(opacity));
}

void paintFill(QPainter& painter, const QRectF& rect, int colorIndex)
{
    const TreemapColors& colors = treemapPalette().at(colorIndex % treemapPalette().size());
    QLinearGradient fill(rect.topLeft(), rect.bottomRight());
    fill.setColorAt(0, colors.lighter);
    fill.setColorAt(1, colors.darker);
    painter.fillRect(rect, fill);
}

/// The shine ends before the shade begins, so one gradient holds both.
void paintShineAndShade(QPainter& painter, const QRectF& rect)
{
    QLinearGradient light(rect.topLeft(), rect.bottomLeft());
    light.setColorAt(0, white(0.22));
    light.setColorAt(0.28, white(0));
    light.setColorAt(0.45, black(0));
    light.setColorAt(1, black(0.45));
    painter.fillRect(rect, light);
}

void paintBorder(QPainter& painter, const QRectF& rect, double width)
{
    const QColor color = white(0.22);
    const double inner = std::max(0.0, rect.height() - 2 * width);
    painter.fillRect(QRectF(rect.left(), rect.top(), rect.width(), std::min(width, rect.height())), color);
    if (rect.height() > width)
        painter.fillRect(QRectF(rect.left(), rect.bottom() - width, rect.width(), width), color);
    painter.fillRect(QRectF(rect.left(), rect.top() + width, std::min(width, rect.width()), inner), color);
    if (rect.width() > width)
        painter.fillRect(QRectF(rect.right() - width, rect.top() + width, width, inner), color);
}

QFont labelFont(double size, QFont::Weight weight)
{
    constexpr double bodySize = 13;
    QFont font = Theme::instance().font(FontRole::body);
    font.setPointSizeF(font.pointSizeF() * size / bodySize);
    font.setWeight(weight);
    return font;
}

/// Paints one line of text below `top`, cut to `width`; returns the height of the line.
double paintLine(QPainter& painter, const QPointF& top, double width, const QString& text, const QFont& font,
                 const QColor& color, const QColor& shadow)
{
    constexpr std::array shadowOffsets{QPointF(0, 1), QPointF(0.5, 0.5)};
    const QFontMetricsF metrics(font, painter.device());
    const QString shown = metrics.elidedText(text, Qt::ElideRight, width);
    const QPointF baseline = top + QPointF(0, metrics.ascent());
    painter.setFont(font);
    painter.setPen(shadow);
    for (const QPointF& offset : shadowOffsets)
        painter.drawText(baseline + offset, shown);
    painter.setPen(color);
    painter.drawText(baseline, shown);
    return metrics.height();
}

void paintLabels(QPainter& painter, const TreemapCell& cell)
{
    const double w = cell.rect.width();
    const double h = cell.rect.height();
    if (!(w > 52 && h > 30))
        return;
    const double width = w - 2 * labelInset.x();
    const QPointF top = cell.rect.topLeft() + labelInset;
    const double nameHeight =
        paintLine(painter, top, width, displayText(cell.node.name),
                  labelFont(std::clamp(w / 9, 9.0, 13.0), QFont::Bold), white(1), black(0.7));
    if (h > 50) {
        paintLine(painter, top + QPointF(0, nameHeight), width, cell.node.formattedSize(),
                  labelFont(std::clamp(w / 11, 8.0, 11.0), QFont::Medium), white(0.8), black(0.5));
    }
}

void roundCorners(QPainter& painter, const QSizeF& size)
{
    QPainterPath shape;
    shape.addRoundedRect(QRectF(QPointF(), size), cornerRadius, cornerRadius);
    QPainterPath corners;
    corners.addRect(QRectF(QPointF(), size));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setCompositionMode(QPainter::CompositionMode_Clear);
    painter.fillPath(corners.subtracted(shape), Qt::black);
}

} // namespace

QRectF onDevicePixels(const QRectF& rect, qreal devicePixelRatio)
{
    const auto snapped = [devicePixelRatio](double position) {
        return std::round(position * devicePixelRatio) / devicePixelRatio;
    };
    return {QPointF(snapped(rect.left()), snapped(rect.top())),
            QPointF(snapped(rect.right()), snapped(rect.bottom()))};
}

QPixmap drawTreemap(const QList<TreemapCell>& cells, const QSize& size, qreal devicePixelRatio)
{
    QImage image((QSizeF(size) * devicePixelRatio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(devicePixelRatio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    const double line = std::max(1.0, std::round(devicePixelRatio)) / devicePixelRatio;
    for (const TreemapCell& cell : cells) {
        const QRectF rect = onDevicePixels(cell.rect, devicePixelRatio);
        paintFill(painter, rect, cell.colorIndex);
        paintShineAndShade(painter, rect);
        paintBorder(painter, rect, line);
        paintLabels(painter, cell);
    }
    roundCorners(painter, size);
    painter.end();
    return QPixmap::fromImage(std::move(image));
}

} // namespace keelbright

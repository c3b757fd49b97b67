#include "Keelbright/widgets/theme/Symbol.h"

#include "Keelbright/widgets/theme/SymbolTable.h"

#include <QIconEngine>
#include <QPainter>
#include <QRawFont>
#include <algorithm>
#include <map>

// The macro that registers the resources must be outside every namespace.
static void registerSymbolFont()
{
    Q_INIT_RESOURCE(symbols);
}

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

constexpr double emSize = 240;
constexpr char16_t emptyCircle = u'\xF130';

const QRawFont& symbolFont()
{
    static const QRawFont font = [] {
        registerSymbolFont();
        return QRawFont(u":/symbols/symbols.ttf"_s, emSize, QFont::PreferNoHinting);
    }();
    return font;
}

// Pictures are composed at this size and scaled down at the end, because subtracting one path from
// another rounds to about a hundredth of a unit.
const QPointF center(emSize / 2, emSize / 2);

/// The glyph, moved to the centre of the em square, since the font has it anywhere on the line.
QPainterPath glyphPath(char16_t glyph)
{
    const QList<quint32> indexes = symbolFont().glyphIndexesForString(QString(QChar(glyph)));
    if (indexes.isEmpty())
        return {};
    const QPainterPath raw = symbolFont().pathForGlyph(indexes.first());
    return raw.translated(center - raw.boundingRect().center());
}

QPainterPath scaledTo(const QPainterPath& path, QPointF newCenter, double factor)
{
    QTransform transform;
    transform.translate(newCenter.x(), newCenter.y());
    transform.scale(factor, factor);
    transform.translate(-center.x(), -center.y());
    return transform.map(path);
}

QPainterPath circle(QPointF middle, double radius)
{
    QPainterPath path;
    path.addEllipse(middle, radius, radius);
    return path;
}

QPainterPath withBadge(const QPainterPath& base, char16_t badge)
{
    const QPointF corner = center * 1.5;
    const QPainterPath smaller = scaledTo(base, center * 0.94, 0.94);
    QPainterPath path = smaller.subtracted(circle(corner, emSize * 0.29));
    path.addPath(scaledTo(glyphPath(badge), corner, 0.56));
    return path;
}

QPainterPath inRing(const QPainterPath& base)
{
    QPainterPath path = circle(center, emSize * 0.42).subtracted(circle(center, emSize * 0.345));
    path.addPath(scaledTo(base, center, 0.56));
    return path;
}

QPainterPath struckThrough(const QPainterPath& base)
{
    const auto band = [](double offset, double width) {
        QPainterPath path;
        path.addPolygon(
            QPolygonF({QPointF(0.08 + offset, 0.10 - offset), QPointF(0.92 + offset, 0.94 - offset),
                       QPointF(0.92 + offset - width, 0.94 - offset + width),
                       QPointF(0.08 + offset - width, 0.10 - offset + width)}));
        path.closeSubpath();
        return QTransform::fromScale(emSize, emSize).map(path);
    };
    QPainterPath path = base.subtracted(band(0.09, 0.13));
    path.addPath(band(0.02, 0.06));
    return path;
}

QPainterPath inUnitSquare(const QPainterPath& path)
{
    return QTransform::fromScale(1 / emSize, 1 / emSize).map(path);
}

const SymbolEntry* find(const QString& key)
{
    for (const SymbolEntry& entry : symbolTable()) {
        if (entry.key == key)
            return &entry;
    }
    return nullptr;
}

QPainterPath build(const SymbolEntry& entry)
{
    const QPainterPath base = glyphPath(entry.glyph);
    switch (entry.form) {
    case SymbolForm::plain:
        return base;
    case SymbolForm::badge:
        return withBadge(base, entry.badge);
    case SymbolForm::ring:
        return inRing(base);
    case SymbolForm::struck:
        return struckThrough(base);
    }
    return base;
}

class SymbolIconEngine : public QIconEngine
{
public:
    SymbolIconEngine(QString key, const QColor& color)
        : m_key(std::move(key))
        , m_color(color)
    {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        QColor color = m_color;
        if (mode == QIcon::Disabled)
            color.setAlphaF(color.alphaF() * 0.4F);
        Symbol::paint(*painter, rect, m_key, color);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return picture;
    }

    [[nodiscard]] QIconEngine* clone() const override { return new SymbolIconEngine(*this); }

private:
    QString m_key;
    QColor m_color;
};

} // namespace

const QPainterPath& Symbol::path(const QString& key)
{
    static std::map<QString, QPainterPath> paths;
    const auto kept = paths.find(key);
    if (kept != paths.end())
        return kept->second;
    const SymbolEntry* entry = find(key);
    return paths.emplace(key, inUnitSquare(entry != nullptr ? build(*entry) : glyphPath(emptyCircle)))
        .first->second;
}

void Symbol::paint(QPainter& painter, const QRectF& rect, const QString& key, const QColor& color)
{
    const double side = std::min(rect.width(), rect.height());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(rect.center() - QPointF(side / 2, side / 2));
    painter.scale(side, side);
    painter.fillPath(path(key), color);
    painter.restore();
}

QIcon Symbol::icon(const QString& key, const QColor& color)
{
    return QIcon(new SymbolIconEngine(key, color));
}

} // namespace keelbright

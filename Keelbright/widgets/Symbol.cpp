#include "Keelbright/widgets/Symbol.h"

#include "Keelbright/widgets/SymbolTable.h"

#include <QIconEngine>
#include <QPainter>
#include <QRawFont>
#include <algorithm>
#include <map>

// The resources are registered by a macro that must stand outside every namespace.
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

/// The glyph in the unit square: the font's em square, with the ascent as its top.
QPainterPath glyphPath(char16_t glyph)
{
    const QList<quint32> indexes = symbolFont().glyphIndexesForString(QString(QChar(glyph)));
    if (indexes.isEmpty())
        return {};
    const QPainterPath raw = symbolFont().pathForGlyph(indexes.first());
    QTransform toUnit;
    toUnit.scale(1 / emSize, 1 / emSize);
    const QPainterPath unit = toUnit.map(raw);
    // Glyphs sit anywhere on their line; a picture is centred on what is drawn.
    const QPointF offset = QPointF(0.5, 0.5) - unit.boundingRect().center();
    return unit.translated(offset);
}

QPainterPath scaledAround(const QPainterPath& path, QPointF center, double factor)
{
    QTransform transform;
    transform.translate(center.x(), center.y());
    transform.scale(factor, factor);
    transform.translate(-0.5, -0.5);
    return transform.map(path);
}

QPainterPath circle(QPointF center, double radius)
{
    QPainterPath path;
    path.addEllipse(center, radius, radius);
    return path;
}

QPainterPath withBadge(const QPainterPath& base, char16_t badge)
{
    const QPointF corner(0.76, 0.76);
    QPainterPath cut = scaledAround(base, QPointF(0.47, 0.46), 0.94).subtracted(circle(corner, 0.29));
    cut.addPath(scaledAround(glyphPath(badge), corner, 0.52));
    return cut;
}

QPainterPath inRing(const QPainterPath& base)
{
    const QPointF center(0.5, 0.5);
    QPainterPath path = circle(center, 0.44).subtracted(circle(center, 0.37));
    path.addPath(scaledAround(base, center, 0.58));
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
        return path;
    };
    QPainterPath path = base.subtracted(band(0.09, 0.13));
    path.addPath(band(0.02, 0.06));
    return path;
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

bool Symbol::isKnown(const QString& key)
{
    return find(key) != nullptr;
}

QStringList Symbol::knownKeys()
{
    QStringList keys;
    for (const SymbolEntry& entry : symbolTable())
        keys.append(entry.key);
    return keys;
}

const QPainterPath& Symbol::path(const QString& key)
{
    static std::map<QString, QPainterPath> paths;
    const auto kept = paths.find(key);
    if (kept != paths.end())
        return kept->second;
    const SymbolEntry* entry = find(key);
    return paths.emplace(key, entry != nullptr ? build(*entry) : glyphPath(emptyCircle)).first->second;
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

QPixmap Symbol::pixmap(const QString& key, int size, const QColor& color, qreal devicePixelRatio)
{
    QPixmap picture(QSize(size, size) * devicePixelRatio);
    picture.setDevicePixelRatio(devicePixelRatio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paint(painter, QRectF(0, 0, size, size), key, color);
    return picture;
}

QIcon Symbol::icon(const QString& key, const QColor& color)
{
    return QIcon(new SymbolIconEngine(key, color));
}

} // namespace keelbright

#include "Keelbright/widgets/SymbolLabel.h"

#include "Keelbright/widgets/theme/Symbol.h"
#include "Keelbright/widgets/theme/Theme.h"

#include <QPainter>

namespace keelbright {

SymbolLabel::SymbolLabel(QString key, int size, Role color, QWidget* parent)
    : QWidget(parent)
    , m_key(std::move(key))
    , m_size(size)
    , m_color(color)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    connect(&Theme::instance(), &Theme::changed, this, qOverload<>(&QWidget::update));
}

void SymbolLabel::setKey(const QString& key)
{
    m_key = key;
    update();
}

void SymbolLabel::setColorRole(Role color)
{
    m_color = color;
    update();
}

void SymbolLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    Symbol::paint(painter, rect(), m_key, Theme::instance().color(m_color));
}

Tile::Tile(const QString& key, Role color, int side, QWidget* parent)
    : SymbolLabel(key, side * 17 / 30, color, parent)
    , m_side(side)
{}

void Tile::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor back = Theme::instance().color(colorRole());
    const double margin = (m_side - symbolSize()) / 2.0;
    Symbol::paint(painter, QRectF(rect()).marginsRemoved(QMarginsF() + margin), key(), back);
    back.setAlphaF(static_cast<float>(tileTint));
    painter.setPen(Qt::NoPen);
    painter.setBrush(back);
    const double radius = std::max<double>(Metrics::tileRadius, m_side * 0.24);
    painter.drawRoundedRect(rect(), radius, radius);
}

} // namespace keelbright

#include "Keelbright/screens/shared/Placeholder.h"

#include "Keelbright/widgets/theme/Theme.h"

#include <QFontMetrics>
#include <QPainter>
#include <algorithm>

namespace keelbright {

Placeholder::Placeholder(FontRole font, int length, QWidget* parent)
    : Placeholder(Shape::line, {length, QFontMetrics(Theme::instance().font(font)).height()},
                  QFontMetrics(Theme::instance().font(font)).capHeight(), parent)
{}

Placeholder::Placeholder(Shape shape, QSize size, int thickness, QWidget* parent)
    : QWidget(parent)
    , m_shape(shape)
    , m_size(size)
    , m_thickness(thickness)
{
    setSizePolicy(shape == Shape::ring ? QSizePolicy::Fixed : QSizePolicy::Preferred, QSizePolicy::Fixed);
    connect(&Theme::instance(), &Theme::changed, this, qOverload<>(&QWidget::update));
}

Placeholder* Placeholder::ring(int diameter, int thickness, QWidget* parent)
{
    return new Placeholder(Shape::ring, {diameter, diameter}, thickness, parent);
}

Placeholder* Placeholder::bar(int thickness, QWidget* parent)
{
    return new Placeholder(Shape::bar, {160, thickness}, thickness, parent);
}

void Placeholder::paintEvent(QPaintEvent*)
{
    const QColor grey = Theme::instance().color(Role::track);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (m_shape == Shape::ring) {
        const double half = m_thickness / 2.0;
        painter.setPen(QPen(grey, m_thickness));
        painter.drawEllipse(QRectF(rect()).adjusted(half, half, -half, -half));
        return;
    }
    const int length = m_shape == Shape::bar ? width() : std::min(width(), m_size.width());
    QRectF line(0, (height() - m_thickness) / 2.0, length, m_thickness);
    if (layoutDirection() == Qt::RightToLeft)
        line.moveRight(width());
    painter.setPen(Qt::NoPen);
    painter.setBrush(grey);
    painter.drawRoundedRect(line, m_thickness / 2.0, m_thickness / 2.0);
}

} // namespace keelbright

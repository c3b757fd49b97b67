#include "Keelbright/screens/protect/FadingTile.h"

#include "Keelbright/widgets/theme/Symbol.h"
#include "Keelbright/widgets/theme/Theme.h"

#include <QPainter>

namespace keelbright {

namespace {

constexpr int fadeTime = 200;

QColor between(const QColor& off, const QColor& on, double position)
{
    QColor front = on;
    front.setAlphaF(static_cast<float>(position));
    return composed(off, front);
}

} // namespace

FadingTile::FadingTile(const QString& key, bool isOn, QWidget* parent)
    : Tile(key, isOn ? Role::accent : Role::secondaryText, Metrics::tile, parent)
    , m_isOn(isOn)
    , m_position(isOn ? 1 : 0)
{
    m_animation.setEasingCurve(QEasingCurve::InOutCubic);
    connect(&m_animation, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
        m_position = value.toDouble();
        update();
    });
}

void FadingTile::setOn(bool isOn)
{
    if (isOn == m_isOn)
        return;
    m_isOn = isOn;
    setColorRole(isOn ? Role::accent : Role::secondaryText);
    m_animation.stop();
    const int time = Theme::instance().duration(fadeTime);
    if (time == 0 || !isVisible()) {
        m_position = isOn ? 1 : 0;
        update();
        return;
    }
    m_animation.setDuration(time);
    m_animation.setStartValue(m_position);
    m_animation.setEndValue(isOn ? 1.0 : 0.0);
    m_animation.start();
}

void FadingTile::paintEvent(QPaintEvent* event)
{
    if (m_animation.state() != QAbstractAnimation::Running) {
        Tile::paintEvent(event);
        return;
    }
    const Theme& theme = Theme::instance();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(between(theme.tint(Role::secondaryText), theme.tint(Role::accent), m_position));
    painter.drawRoundedRect(rect(), Metrics::tileRadius, Metrics::tileRadius);
    const QColor color = between(theme.color(Role::secondaryText), theme.color(Role::accent), m_position);
    const double margin = (width() - symbolSize()) / 2.0;
    Symbol::paint(painter, QRectF(rect()).adjusted(margin, margin, -margin, -margin), key(), color);
}

} // namespace keelbright

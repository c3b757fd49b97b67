#include "Keelbright/widgets/ToggleSwitch.h"

#include "Keelbright/widgets/theme/Theme.h"

#include <QKeyEvent>
#include <QPainter>

namespace keelbright {

namespace {

constexpr int slideTime = 200;

} // namespace

ToggleSwitch::ToggleSwitch(const QString& name, QWidget* parent)
    : QCheckBox(parent)
{
    setAccessibleName(name);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    m_animation.setEasingCurve(QEasingCurve::InOutCubic);
    connect(&m_animation, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
        m_position = value.toDouble();
        update();
    });
    connect(this, &QCheckBox::toggled, this, &ToggleSwitch::slide);
    connect(&Theme::instance(), &Theme::changed, this, qOverload<>(&QWidget::update));
}

void ToggleSwitch::slide(bool isOn)
{
    m_animation.stop();
    const int time = Theme::instance().duration(slideTime);
    // Nobody would see the animation of a hidden switch.
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

void ToggleSwitch::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::instance();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF groove(1, (height() - 20) / 2.0, 36, 20);
    QColor on = theme.color(Role::accentFill);
    on.setAlphaF(static_cast<float>(m_position));
    const QColor off =
        composed(composed(theme.color(Role::card), theme.color(Role::track)), theme.color(Role::track));
    painter.setPen(Qt::NoPen);
    painter.setOpacity(isEnabled() ? 1 : 0.5);
    painter.setBrush(composed(off, on));
    painter.drawRoundedRect(groove, 10, 10);
    const QPointF knob(groove.left() + 10 + 16 * m_position, groove.center().y());
    painter.setBrush(QColor(0, 0, 0, 40));
    painter.drawEllipse(knob + QPointF(0, 0.8), 8.3, 8.3);
    painter.setBrush(theme.color(Role::onFill));
    painter.drawEllipse(knob, 8, 8);
    if (hasFocus() && m_focusRing.isVisible())
        FocusRing::paint(painter, QRectF(groove).adjusted(-1, -2, 1, 2), 12);
}

void ToggleSwitch::focusInEvent(QFocusEvent* event)
{
    m_focusRing.focusIn(*event);
    QCheckBox::focusInEvent(event);
    update();
}

void ToggleSwitch::focusOutEvent(QFocusEvent* event)
{
    m_focusRing.focusOut();
    QCheckBox::focusOutEvent(event);
    update();
}

void ToggleSwitch::keyPressEvent(QKeyEvent* event)
{
    m_focusRing.keyPressed();
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && !event->isAutoRepeat()) {
        click();
        return;
    }
    QCheckBox::keyPressEvent(event);
}

} // namespace keelbright

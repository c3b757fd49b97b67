#include "Keelbright/widgets/CardButton.h"

#include "Keelbright/widgets/Card.h"
#include "Keelbright/widgets/theme/Theme.h"

#include <QKeyEvent>
#include <QLayout>
#include <QPainter>

namespace keelbright {

namespace {

/// As that of a row in a panel's list.
constexpr int highlightInset = 6;

} // namespace

CardButton::CardButton(Frame frame, QWidget* parent)
    : QAbstractButton(parent)
    , m_frame(frame)
{
    setAttribute(Qt::WA_Hover);
    setCursor(Qt::PointingHandCursor);
    // With a button's role the labels in it would be drawn in the colour of button texts.
    setBackgroundRole(QPalette::Window);
    setFocusPolicy(Qt::StrongFocus);
    if (frame == Frame::card)
        setContentsMargins(0, 0, 0, Metrics::cardShadow);
    connect(&Theme::instance(), &Theme::changed, this, qOverload<>(&QWidget::update));
}

QSize CardButton::sizeHint() const
{
    return layout() != nullptr ? layout()->totalSizeHint() : QSize();
}

QSize CardButton::minimumSizeHint() const
{
    return layout() != nullptr ? layout()->totalMinimumSize() : QSize();
}

QRect CardButton::highlight() const
{
    return rect().adjusted(highlightInset, 1, -highlightInset, -1);
}

void CardButton::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::instance();
    const bool isCard = m_frame == Frame::card;
    const bool isHovered = isEnabled() && underMouse();
    QColor ground = isCard ? theme.color(Role::card) : QColor(Qt::transparent);
    const QColor shade = theme.color(isDown() ? Role::pressed : Role::hover);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (isCard) {
        Card::paintSurface(painter, rect(), isHovered || isDown() ? composed(ground, shade) : ground);
    } else if (isHovered || isDown()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(shade);
        painter.drawRoundedRect(highlight(), Metrics::tileRadius, Metrics::tileRadius);
    }
    if (!hasFocus() || !m_focusRing.isVisible())
        return;
    const QRectF ring = isCard ? QRectF(rect()).adjusted(0, 0, 0, -Metrics::cardShadow) : QRectF(highlight());
    FocusRing::paint(painter, ring, isCard ? Metrics::cardRadius : Metrics::tileRadius);
}

void CardButton::focusInEvent(QFocusEvent* event)
{
    m_focusRing.focusIn(*event);
    QAbstractButton::focusInEvent(event);
    update();
}

void CardButton::focusOutEvent(QFocusEvent* event)
{
    m_focusRing.focusOut();
    QAbstractButton::focusOutEvent(event);
    update();
}

void CardButton::keyPressEvent(QKeyEvent* event)
{
    m_focusRing.keyPressed();
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && !event->isAutoRepeat()) {
        click();
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

} // namespace keelbright

#include "Keelbright/widgets/FocusRing.h"

#include "Keelbright/widgets/theme/Theme.h"

#include <QPainter>

namespace keelbright {

void FocusRing::focusIn(const QFocusEvent& event)
{
    switch (event.reason()) {
    case Qt::MouseFocusReason:
        m_isVisible = false;
        break;
    case Qt::ActiveWindowFocusReason:
    case Qt::PopupFocusReason:
    case Qt::MenuBarFocusReason:
        // The focus returns to the control that had it before.
        m_isVisible = m_wasVisible;
        break;
    default:
        m_isVisible = true;
    }
    m_wasVisible = m_isVisible;
}

void FocusRing::paint(QPainter& painter, const QRectF& rect, double radius, bool isOnFill)
{
    const double inset = isOnFill ? 2.75 : 1;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Theme::instance().color(isOnFill ? Role::onFill : Role::accent), isOnFill ? 1.5 : 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(rect.adjusted(inset, inset, -inset, -inset), radius - inset, radius - inset);
    painter.restore();
}

} // namespace keelbright

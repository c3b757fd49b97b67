#include "Keelbright/screens/shared/FocusKeeper.h"

#include <QApplication>

namespace keelbright {

FocusKeeper::FocusKeeper(const QWidget& screen)
    : m_screen(screen)
{}

void FocusKeeper::redraw(bool isBusy, const std::function<void()>& redraw)
{
    const bool wasBusy = std::exchange(m_isBusy, isBusy);
    if (isBusy && !wasBusy) {
        QWidget* focused = QApplication::focusWidget();
        m_left = m_screen.isAncestorOf(focused) ? focused : nullptr;
    }
    redraw();
    if (isBusy && !wasBusy)
        m_parked = QApplication::focusWidget();
    else if (wasBusy && !isBusy && m_left && QApplication::focusWidget() == m_parked)
        m_left->setFocus(Qt::OtherFocusReason);
}

} // namespace keelbright

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
        m_before = m_screen.isAncestorOf(focused) ? focused : nullptr;
    }
    redraw();
    if (isBusy && !wasBusy)
        m_meanwhile = QApplication::focusWidget();
    else if (wasBusy && !isBusy && m_before && QApplication::focusWidget() == m_meanwhile)
        m_before->setFocus(Qt::OtherFocusReason);
}

} // namespace keelbright

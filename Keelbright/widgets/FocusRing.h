#pragma once

#include <QFocusEvent>

class QPainter;
class QRectF;

namespace keelbright {

/// Whether a control shows that it has the focus: when the keyboard brought the focus or is being
/// used, not after a click. A control holds one and tells it of its events.
class FocusRing
{
public:
    void focusIn(const QFocusEvent& event);

    void focusOut() { m_isVisible = false; }

    /// A key was pressed in the control, so the user works with the keyboard.
    void keyPressed() { m_isVisible = true; }

    [[nodiscard]] bool isVisible() const { return m_isVisible; }

    /// Draws the ring just inside `rect`. On a filled control it is drawn in the colour of the
    /// words there, since the accent would not show.
    static void paint(QPainter& painter, const QRectF& rect, double radius, bool isOnFill = false);

private:
    bool m_isVisible = false;
    bool m_wasVisible = false;
};

} // namespace keelbright

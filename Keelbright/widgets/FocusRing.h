#pragma once

#include <QFocusEvent>

class QPainter;
class QRectF;

namespace keelbright {

/// Decides whether a control shows its focus: after the keyboard gave it the focus or was used in it,
/// not after a click. A control has one and passes its events on to it.
class FocusRing
{
public:
    void focusIn(const QFocusEvent& event);

    void focusOut() { m_isVisible = false; }

    /// A key was pressed in the control, so the user works with the keyboard.
    void keyPressed() { m_isVisible = true; }

    [[nodiscard]] bool isVisible() const { return m_isVisible; }

    /// Draws the ring just inside `rect`. On a filled control it has the colour of the text, because
    /// the accent colour would not be visible.
    static void paint(QPainter& painter, const QRectF& rect, double radius, bool isOnFill = false);

private:
    bool m_isVisible = false;
    bool m_wasVisible = false;
};

} // namespace keelbright

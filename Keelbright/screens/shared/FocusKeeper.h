#pragma once

#include <QPointer>
#include <QWidget>

#include <functional>

namespace keelbright {

/// Restores the keyboard focus in a screen that hides its controls while it is busy, unless the user has
/// moved the focus in the meantime.
class FocusKeeper
{
public:
    /// A member of the screen.
    explicit FocusKeeper(const QWidget& screen);

    /// Redraws, with the screen busy or not from now on.
    void redraw(bool isBusy, const std::function<void()>& redraw);

private:
    const QWidget& m_screen;
    bool m_isBusy = false;
    QPointer<QWidget> m_before;    ///< had the focus when the screen became busy
    QPointer<QWidget> m_meanwhile; ///< got it then
};

} // namespace keelbright

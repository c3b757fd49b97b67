#pragma once

#include <QPointer>
#include <QWidget>

#include <functional>

namespace keelbright {

/// Keeps the keyboard's place in a screen whose controls go away while it is busy: gives the focus
/// back to where it was, unless the user has taken it elsewhere in between.
class FocusKeeper
{
public:
    /// Part of the screen.
    explicit FocusKeeper(const QWidget& screen);

    /// Redraws, with the screen busy or not from now on.
    void redraw(bool isBusy, const std::function<void()>& redraw);

private:
    const QWidget& m_screen;
    bool m_isBusy = false;
    QPointer<QWidget> m_left;   ///< had the focus in the screen
    QPointer<QWidget> m_parked; ///< got it instead
};

} // namespace keelbright

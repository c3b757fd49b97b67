#pragma once

#include <functional>

class QWidget;

namespace keelbright {

/// Has F5, and Control and R, look anew while the screen is shown, wherever in the window the focus
/// is.
void addRescanShortcuts(QWidget& screen, const std::function<void()>& rescan);

} // namespace keelbright

#pragma once

#include <functional>

class QWidget;

namespace keelbright {

/// Offers "Re-scan" in the menu bar: F5 and Ctrl+R scan again while the screen is shown, wherever in the
/// window the focus is.
void addRescanShortcuts(QWidget& screen, const std::function<void()>& rescan);

} // namespace keelbright

#pragma once

#include <QtGlobal>

namespace keelbright {

/// What the operating system draws around a window, on the one where a program may change it. Main thread.
namespace WindowChrome {

[[nodiscard]] bool isChangeable();
/// Shows the window without a title and with its own colour up to the top; its buttons stay. `view` is what
/// Qt calls the window's number.
void hideTitleBar(quintptr view);

} // namespace WindowChrome
} // namespace keelbright

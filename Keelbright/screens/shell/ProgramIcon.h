#pragma once

#include <QIcon>

namespace keelbright {

/// The icon of the program's windows, drawn for each of its sizes from 16 to 512 pixels.
[[nodiscard]] QIcon programIcon();

} // namespace keelbright

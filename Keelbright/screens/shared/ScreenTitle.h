#pragma once

#include "Keelbright/state/Screen.h"

#include <QString>

namespace keelbright {

/// The screen's raw value in the user's language.
[[nodiscard]] QString screenTitle(Screen screen);

} // namespace keelbright

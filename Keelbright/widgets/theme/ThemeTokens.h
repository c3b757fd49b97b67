#pragma once

#include "Keelbright/widgets/theme/Roles.h"

#include <QColor>

namespace keelbright {

/// The colour of a role in a scheme. No other file holds colour values.
[[nodiscard]] QColor tokenColor(Role role, ColorScheme scheme);
/// The same for a desktop that asks for high contrast: texts as strong as the primary one, lines that
/// can't be missed.
[[nodiscard]] QColor strongTokenColor(Role role, ColorScheme scheme);

} // namespace keelbright

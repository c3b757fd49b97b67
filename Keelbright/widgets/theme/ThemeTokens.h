#pragma once

#include "Keelbright/widgets/theme/Roles.h"

#include <QColor>

namespace keelbright {

/// The colour of a role in a scheme. No other file holds colour values.
[[nodiscard]] QColor tokenColor(Role role, ColorScheme scheme);

} // namespace keelbright

#pragma once

#include "Keelbright/screens/shared/ScreenContext.h"
#include "Keelbright/state/Screen.h"

class QWidget;

namespace keelbright {

/// Makes the view of a screen, as a child of `parent`. It owns its whole area and lives while the
/// screen is selected.
[[nodiscard]] QWidget* makeScreen(Screen screen, const ScreenContext& context, QWidget* parent);
/// What stands in the detail area while no screen is selected.
[[nodiscard]] QWidget* makeWelcomeView(QWidget* parent);

} // namespace keelbright

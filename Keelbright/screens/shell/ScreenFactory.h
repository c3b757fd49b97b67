#pragma once

#include "Keelbright/screens/shared/ScreenContext.h"
#include "Keelbright/state/Screen.h"

class QWidget;

namespace keelbright {

/// Makes the view of a screen as a child of `parent`. The members of the context must outlive it.
[[nodiscard]] QWidget* makeScreen(Screen screen, const ScreenContext& context, QWidget* parent);
/// Makes the view of the detail area while no screen is selected.
[[nodiscard]] QWidget* makeWelcomeView(QWidget* parent);

} // namespace keelbright

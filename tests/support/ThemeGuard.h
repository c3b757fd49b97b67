#pragma once

#include "Keelbright/widgets/theme/Theme.h"

namespace keelbright::testing {

/// Puts the look of the program in a state, and back to light with motion when it goes.
class ThemeGuard
{
public:
    explicit ThemeGuard(ColorScheme scheme = ColorScheme::light, bool isMotionReduced = false)
    {
        Theme::instance().setScheme(scheme);
        Theme::instance().setMotionReduced(isMotionReduced);
    }

    ~ThemeGuard()
    {
        Theme::instance().setScheme(ColorScheme::light);
        Theme::instance().setContrastHigh(false);
        Theme::instance().setMotionReduced(false);
    }

    ThemeGuard(const ThemeGuard&) = delete;
    ThemeGuard& operator=(const ThemeGuard&) = delete;
};

} // namespace keelbright::testing

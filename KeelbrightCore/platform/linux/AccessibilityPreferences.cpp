#include "KeelbrightCore/platform/system/AccessibilityPreferences.h"

namespace keelbright {

std::optional<bool> AccessibilityPreferences::isMotionReduced()
{
    return std::nullopt;
}

std::optional<bool> AccessibilityPreferences::isContrastHigh()
{
    return std::nullopt;
}

} // namespace keelbright

#include "KeelbrightCore/platform/system/AccessibilityPreferences.h"

#include "KeelbrightCore/platform/mac/ObjectiveC.h"

namespace keelbright {

namespace {

bool isChosen(const char* preference)
{
    const ObjectiveC::AutoreleasePool pool;
    const id workspace = ObjectiveC::send<id>(ObjectiveC::classNamed("NSWorkspace"), "sharedWorkspace");
    return ObjectiveC::send<BOOL>(workspace, preference) != 0;
}

} // namespace

std::optional<bool> AccessibilityPreferences::isMotionReduced()
{
    return isChosen("accessibilityDisplayShouldReduceMotion");
}

std::optional<bool> AccessibilityPreferences::isContrastHigh()
{
    return isChosen("accessibilityDisplayShouldIncreaseContrast");
}

} // namespace keelbright

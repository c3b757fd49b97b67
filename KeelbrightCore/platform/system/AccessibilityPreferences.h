#pragma once

#include <optional>

namespace keelbright {

/// What the user has chosen for all programs, on a system that keeps it itself; nothing where the desktop is
/// to be asked. Main thread.
namespace AccessibilityPreferences {

[[nodiscard]] std::optional<bool> isMotionReduced();
[[nodiscard]] std::optional<bool> isContrastHigh();

} // namespace AccessibilityPreferences
} // namespace keelbright

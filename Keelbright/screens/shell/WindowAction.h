#pragma once

#include <QString>
#include <optional>

namespace keelbright {

/// What the desktop can ask of the window besides coming to the front.
enum class WindowAction {
    backUpNow,
    storageBrowser,
};

/// "back-up-now" or "storage-browser": the same in the desktop entry, as an option of the command line,
/// between two starts and on the session bus.
[[nodiscard]] QString nameOf(WindowAction action);

/// Absent for an unknown name.
[[nodiscard]] std::optional<WindowAction> windowActionNamed(const QString& name);

} // namespace keelbright

#pragma once

#include <functional>

class QAction;
class QObject;
class QWidget;

namespace keelbright {

/// What a screen can offer in the menu bar, each with keys of its own.
enum class ScreenCommand {
    fullScan,
    exportList,
    find,
    rescan,
};

/// An action with the text and the keys of the command; disabled, and without anything that it does.
[[nodiscard]] QAction* makeCommand(ScreenCommand command, QObject* parent);

/// Has the screen offer the command: its keys work wherever in the window the focus is, and the menu bar
/// shows the action. The screen owns it, and disables it while it does nothing.
QAction* offerCommand(QWidget& screen, ScreenCommand command, const std::function<void()>& perform);

/// The same for an action that a part of the screen has already.
void offerCommand(QAction& action, ScreenCommand command);

/// Null where the screen, or any of its parts, offers no such command, and without a screen.
[[nodiscard]] QAction* offeredCommand(const QWidget* screen, ScreenCommand command);

} // namespace keelbright

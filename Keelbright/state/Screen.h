#pragma once

#include <QList>
#include <QString>
#include <optional>

namespace keelbright {

/// The vocabulary of navigation (`AppState::Screen`).
enum class Screen {
    dashboard,
    protectedItems,
    preflight,
    backupProgress,
    appManager,
    junkCleaner,
    storageBrowser,
    organizer,
    scanResults,
    activityLog,
    backupReport,
    restoreBrowser,
    recovery,
    settings,
};

[[nodiscard]] const QList<Screen>& allScreens();
/// Identity and title of the screen, in English.
[[nodiscard]] QString rawValue(Screen screen);
[[nodiscard]] std::optional<Screen> screenFromRawValue(const QString& text);
/// Symbolic icon key.
[[nodiscard]] QString icon(Screen screen);

} // namespace keelbright

#pragma once

class QMenu;
class QMenuBar;
class QWidget;

namespace keelbright {

class AppState;

// Entries of the menu bar that lead to what the screens offer. The state outlives the menus. They are
// disabled until the onboarding is passed.

/// "Backup Now", which shows the Dashboard first, where an alert would be raised; disabled during a run.
void addBackupAction(QMenu& menu, AppState& state);

/// One entry for each screen of the sidebar, in its sections; the first nine have Control and a digit.
void addScreenActions(QMenu& menu, AppState& state);

/// A menu with "About Keel Bright": version, licence, and what of others is built in.
void addHelpMenu(QMenuBar& bar, QWidget& window);

} // namespace keelbright

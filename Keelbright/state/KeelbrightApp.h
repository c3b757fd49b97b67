#pragma once

#include "Keelbright/state/AppState.h"
#include "KeelbrightCore/platform/system/UserDefaults.h"

namespace keelbright {

/// The application without its window: owns the one `AppState` and what the state is handed, for
/// the life of the program. Main thread only.
class KeelbrightApp
{
public:
    /// Works on the stores of the present file manager and on the user's defaults. `folderChooser`
    /// outlives the application.
    explicit KeelbrightApp(FolderChooser& folderChooser, AppLookup lookup = appStoreLookup);

    [[nodiscard]] AppState& state() { return m_state; }

    /// Ends what is under way because the program quits. False if something does not end (a drive that
    /// hangs): the program then has to exit without waiting for its threads.
    [[nodiscard]] bool shutDown();

private:
    UserDefaults m_userDefaults;
    AppState m_state;
};

} // namespace keelbright

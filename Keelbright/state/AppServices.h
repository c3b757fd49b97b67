#pragma once

#include "KeelbrightCore/platform/Clock.h"

namespace keelbright {

class ActivityStore;
class BackupConfigStore;
class FolderChooser;
class UserDefaults;

/// What the state is handed at start. Everything outlives the state.
struct AppServices
{
    BackupConfigStore& configStore;
    ActivityStore& activityStore;
    UserDefaults& userDefaults;
    FolderChooser& folderChooser;
    Clock clock = systemClock;
};

} // namespace keelbright

#pragma once

#include "KeelbrightCore/apps/iTunesLookupService.h"
#include "KeelbrightCore/check/CopyCheck.h"
#include "KeelbrightCore/platform/system/Clock.h"

#include <functional>

namespace keelbright {

class ActivityStore;
class BackupConfigStore;
class FolderChooser;
class UserDefaults;

/// Asks the App Store for the application of that name.
using AppLookup = std::function<QFuture<std::optional<iTunesAppInfo>>(const QString& appName)>;

/// Checks the copies on a drive in the background.
using CopyCheckStart =
    std::function<QFuture<CheckReport>(const CheckJob& job, const std::shared_ptr<CheckProgress>& progress,
                                       const std::shared_ptr<const Cancellation>& cancellation)>;

/// The App Store itself.
inline QFuture<std::optional<iTunesAppInfo>> appStoreLookup(const QString& appName)
{
    return iTunesLookupService::lookup(appName);
}

/// What the state and the models of the screens are handed. Everything outlives the state.
struct AppServices
{
    BackupConfigStore& configStore;
    ActivityStore& activityStore;
    UserDefaults& userDefaults;
    FolderChooser& folderChooser;
    Clock clock = systemClock;
    AppLookup lookup = appStoreLookup;
    CopyCheckStart startCopyCheck = CopyCheck::start;
    SteadyClock steadyClock = steadyTime;
};

} // namespace keelbright

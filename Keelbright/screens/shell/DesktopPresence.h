#pragma once

#include "Keelbright/screens/shell/ApplicationService.h"
#include "Keelbright/screens/shell/DesktopRequests.h"
#include "Keelbright/screens/shell/DesktopTaskBar.h"
#include "Keelbright/state/AwakeBackup.h"
#include "Keelbright/state/BackupEndNotice.h"
#include "Keelbright/state/BackupInTaskBar.h"
#include "Keelbright/state/DestinationDrive.h"
#include "Keelbright/state/Notifier.h"
#include "Keelbright/state/SleepBlocker.h"

#include <memory>

namespace keelbright {

class SingleInstance;

/// The running program as one of the desktop's own: it can be asked for its window from outside, keeps the
/// machine awake during a backup, shows its progress in the task bar, notifies of its end, and notices drives
/// that come and go. Main thread.
class DesktopPresence
{
public:
    /// All outlive it.
    DesktopPresence(AppState& state, MainWindow& window, const SingleInstance& instance);

    [[nodiscard]] DesktopRequests& requests() { return m_requests; }

private:
    DesktopRequests m_requests;
    ApplicationService m_service;
    std::unique_ptr<SleepBlocker> m_sleepBlocker;
    AwakeBackup m_awakeBackup;
    std::unique_ptr<Notifier> m_notifier;
    BackupEndNotice m_backupEndNotice;
    DestinationDrive m_destinationDrive;
    DesktopTaskBar m_taskBar;
    BackupInTaskBar m_backupInTaskBar;
};

} // namespace keelbright

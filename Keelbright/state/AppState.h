#pragma once

#include "Keelbright/state/AppServices.h"
#include "Keelbright/state/BackupTimeLeft.h"
#include "Keelbright/state/Screen.h"
#include "Keelbright/state/UndoStore.h"
#include "KeelbrightCore/apps/AppInfo.h"
#include "KeelbrightCore/backup/BackupEngine.h"
#include "KeelbrightCore/backup/RecommendedFolder.h"
#include "KeelbrightCore/backup/RiskAlert.h"
#include "KeelbrightCore/health/HealthScore.h"

#include <QFuture>
#include <QList>
#include <QObject>
#include <memory>
#include <optional>

namespace keelbright {

class Cancellation;
struct PreflightResult;

/// The one observable object of the application. Main thread only.
class AppState : public QObject
{
    Q_OBJECT

public:
    using Screen = keelbright::Screen;

    /// Loads what was saved; the services outlive the state.
    explicit AppState(AppServices services, QObject* parent = nullptr);
    ~AppState() override;
    Q_DISABLE_COPY_MOVE(AppState)

    /// The screen in the detail area; absent shows the welcome view.
    [[nodiscard]] std::optional<Screen> selectedScreen() const { return m_selectedScreen; }

    void setSelectedScreen(std::optional<Screen> screen);

    /// Passed in this launch; stored nowhere.
    [[nodiscard]] bool isOnboardingCompleted() const { return m_isOnboardingCompleted; }

    void setIsOnboardingCompleted(bool completed);

    [[nodiscard]] BackupEngine& engine() { return m_engine; }

    [[nodiscard]] const BackupEngine& engine() const { return m_engine; }

    /// The undo of the user's last moves, whatever screen they were made on.
    [[nodiscard]] UndoStore& undo() { return m_undo; }

    // Each set of the following three saves the configuration.
    [[nodiscard]] const QList<RecommendedFolder>& recommendedFolders() const { return m_recommendedFolders; }

    void setRecommendedFolders(const QList<RecommendedFolder>& folders);
    /// Nothing for an index that is out of range.
    void setRecommendedFolderEnabled(qsizetype index, bool isEnabled);

    [[nodiscard]] const QList<BackupSource>& customSources() const { return m_customSources; }

    void setCustomSources(const QList<BackupSource>& sources);

    [[nodiscard]] const std::optional<BackupDestination>& selectedDestination() const
    {
        return m_selectedDestination;
    }

    /// The folder on the destination in which the backups of all devices lie; absent without a destination.
    /// Nothing has to be there.
    [[nodiscard]] std::optional<FileURL> backupsFolder() const;

    void setSelectedDestination(const std::optional<BackupDestination>& destination);

    /// Whether the drive of the selected destination is known not to be there. No backup starts then.
    [[nodiscard]] bool isDestinationAway() const { return m_isDestinationAway; }

    void setIsDestinationAway(bool isAway);

    /// Where the drive of the selected destination was last seen mounted; "/" where it has not been seen. A
    /// backup starts only while it is there.
    [[nodiscard]] const FileURL& destinationDriveSeenAt() const { return m_destinationDriveSeenAt; }

    void setDestinationDriveSeenAt(const FileURL& mountPoint) { m_destinationDriveSeenAt = mountPoint; }

    /// Absent before the first `refreshHealthScore` has ended; kept while a new one is computed.
    [[nodiscard]] const std::optional<HealthScore>& healthScore() const { return m_healthScore; }

    /// Once filled, kept until the program quits or the application manager changes it.
    [[nodiscard]] const QList<AppInfo>& scannedApps() const { return m_scannedApps; }

    void setScannedApps(const QList<AppInfo>& apps);
    /// Removes every application with this id from the list.
    void removeScannedApp(const QUuid& id);

    [[nodiscard]] bool isAppScanning() const { return m_isAppScanning; }

    void setIsAppScanning(bool isScanning);

    /// Report of the last finished backup, also of an earlier launch.
    [[nodiscard]] const std::optional<BackupReport>& lastReport() const { return m_lastReport; }

    /// UTC.
    [[nodiscard]] const std::optional<QDateTime>& lastBackupTime() const { return m_lastBackupTime; }

    [[nodiscard]] const QList<RiskAlert>& alerts() const { return m_alerts; }

    void setAlerts(const QList<RiskAlert>& alerts);

    /// The enabled recommended folders (each with a new id at each call), then all custom sources.
    [[nodiscard]] QList<BackupSource> allEnabledSources() const;
    /// At most the first three of `allEnabledSources`.
    [[nodiscard]] QList<BackupSource> previewSources() const;

    /// The first step of a backup: raises an alert, also while copies are being checked, or moves to the
    /// preflight screen.
    void startBackup();
    /// Runs the checks of a backup with the present choices, in the background, until they are given up.
    [[nodiscard]] QFuture<PreflightResult>
    runPreflight(const std::shared_ptr<const Cancellation>& cancellation) const;
    /// Called when the user confirms on the preflight screen: builds the job from the present choices,
    /// starts it and moves to the progress screen. False, and nothing done, without a destination or without
    /// its drive. False also while copies are being checked: then the dashboard says so. `expectedBytes` is
    /// what the checks have estimated; with 0 the run shows no remaining time.
    bool confirmBackup(qint64 expectedBytes = 0);

    /// How long the running backup still takes.
    [[nodiscard]] BackupTimeLeft& timeLeft() { return m_timeLeft; }

    [[nodiscard]] const BackupTimeLeft& timeLeft() const { return m_timeLeft; }

    /// Whether a check of the copies is under way. No backup starts then, and no check during a backup: what
    /// one of them writes the other one would find changed.
    [[nodiscard]] bool isCheckingCopies() const { return m_isCheckingCopies; }

    void setIsCheckingCopies(bool isChecking);

    /// Where the backup goes that was confirmed last in this launch.
    [[nodiscard]] const std::optional<BackupDestination>& jobDestination() const { return m_jobDestination; }

    /// Keeps the engine's report, raises or clears the alert, saves and logs; does nothing where the
    /// run could not start. Called after each end of a run, one turn of the event loop later.
    void handleEngineCompletion();

    /// Grades the machine in the background. Two calls compute twice; the result that comes last stays.
    void refreshHealthScore();
    /// Lists the applications in the background, unless they are there or under way already.
    void refreshAppsIfNeeded();
    /// Lists the applications again in the background, unless that is under way already.
    void scanApps();

    void persistState();
    /// Adds a folder unless one of `allEnabledSources` has the same location.
    void addCustomSource(const FileURL& url);
    /// Removes every custom source with the same id.
    void removeCustomSource(const BackupSource& source);
    /// Asks the user for folders and adds each of them.
    void pickCustomFolder();
    /// Asks the user where backups go.
    void pickDestination();
    /// The default selection of folders and no custom sources; all else stays.
    void resetToDefaults();

    [[nodiscard]] QDateTime now() const { return m_services.clock(); }

    /// For the models of the screens.
    [[nodiscard]] const AppServices& services() const { return m_services; }

Q_SIGNALS:
    void selectedScreenChanged();
    void isOnboardingCompletedChanged();
    void recommendedFoldersChanged();
    void customSourcesChanged();
    void selectedDestinationChanged();
    void isDestinationAwayChanged();
    void healthScoreChanged();
    void scannedAppsChanged();
    void isAppScanningChanged();
    void isCheckingCopiesChanged();
    void lastReportChanged();
    void lastBackupTimeChanged();
    void alertsChanged();
    /// Follows each of the above, and the changes that the engine has made in one turn of the event
    /// loop, once in the next turn.
    void changed();

private:
    void refuseBackup();
    void loadPersistedState();
    /// `destinationKey` holds the destination, and nothing afterwards, unless nothing could be saved.
    void migrateFromUserDefaults(const QString& destinationKey);
    void printDiagnostics() const;
    /// Enables the folders of these names and no others; saves after each.
    void enableRecommendedFolders(const QStringList& names);
    void watchEngine();
    void watchUndo();
    void queueChange();
    void setHealthScore(const HealthScore& score);
    void setLastReport(const std::optional<BackupReport>& report);
    void setLastBackupTime(const std::optional<QDateTime>& time);

    AppServices m_services;
    std::optional<Screen> m_selectedScreen = Screen::dashboard;
    bool m_isOnboardingCompleted = false;
    BackupEngine m_engine;
    BackupTimeLeft m_timeLeft;
    UndoStore m_undo;
    bool m_wasRunning = false;
    bool m_isChangeQueued = false;
    QList<RecommendedFolder> m_recommendedFolders;
    QList<BackupSource> m_customSources;
    std::optional<BackupDestination> m_selectedDestination;
    bool m_isDestinationAway = false;
    FileURL m_destinationDriveSeenAt;
    std::optional<BackupDestination> m_jobDestination;
    std::optional<HealthScore> m_healthScore;
    QList<AppInfo> m_scannedApps;
    bool m_isAppScanning = false;
    bool m_isCheckingCopies = false;
    std::optional<BackupReport> m_lastReport;
    std::optional<QDateTime> m_lastBackupTime;
    QList<RiskAlert> m_alerts;
};

} // namespace keelbright

#include "Keelbright/state/AppState.h"

#include "Keelbright/state/DefaultFolders.h"
#include "Keelbright/state/StoredTexts.h"
#include "KeelbrightCore/backup/PreflightService.h"
#include "KeelbrightCore/platform/system/Logging.h"
#include "KeelbrightCore/platform/system/TaskPools.h"
#include "KeelbrightCore/platform/system/WaitForMemory.h"
#include "KeelbrightCore/platform/text/PluralNumber.h"
#include "KeelbrightCore/records/ActivityStore.h"

#include <utility>

namespace keelbright {

using namespace Qt::StringLiterals;

AppState::AppState(AppServices services, QObject* parent)
    : QObject(parent)
    , m_services(std::move(services))
    , m_timeLeft(m_engine, m_services.steadyClock)
    , m_recommendedFolders(defaultRecommendedFolders())
{
    watchEngine();
    watchUndo();
    loadPersistedState();
}

AppState::~AppState() = default;

void AppState::watchEngine()
{
    connect(&m_engine, &BackupEngine::changed, this, &AppState::queueChange);
    connect(&m_engine, &BackupEngine::isRunningChanged, this, [this] {
        const bool hasEnded = m_wasRunning && !m_engine.isRunning();
        m_wasRunning = m_engine.isRunning();
        const auto completeLater = [this] {
            QMetaObject::invokeMethod(this, &AppState::handleEngineCompletion, Qt::QueuedConnection);
        };
        if (hasEnded)
            waitingForMemory(completeLater); // else the report would be saved and logged nowhere
    });
}

void AppState::watchUndo()
{
    connect(&m_undo, &UndoStore::ended, this, [this](const UndoResult& result) {
        if (result.isOfRemoval())
            scanApps(); // the removal has taken it off the list
    });
}

void AppState::queueChange()
{
    // Each copied file changes the engine three times.
    if (m_isChangeQueued)
        return;
    const auto announce = [this] {
        m_isChangeQueued = false;
        Q_EMIT changed();
    };
    QMetaObject::invokeMethod(this, announce, Qt::QueuedConnection);
    m_isChangeQueued = true; // only now: where memory runs out, the next change is announced
}

void AppState::setSelectedScreen(std::optional<Screen> screen)
{
    qCDebug(stateLog).noquote() << "screen:" << (screen ? rawValue(*screen) : u"none"_s);
    m_selectedScreen = screen;
    Q_EMIT selectedScreenChanged();
    Q_EMIT changed();
}

void AppState::setIsOnboardingCompleted(bool completed)
{
    m_isOnboardingCompleted = completed;
    Q_EMIT isOnboardingCompletedChanged();
    Q_EMIT changed();
}

void AppState::setRecommendedFolders(const QList<RecommendedFolder>& folders)
{
    m_recommendedFolders = folders;
    persistState();
    Q_EMIT recommendedFoldersChanged();
    Q_EMIT changed();
}

void AppState::setRecommendedFolderEnabled(qsizetype index, bool isEnabled)
{
    if (index < 0 || index >= m_recommendedFolders.size())
        return;
    m_recommendedFolders[index].isEnabled = isEnabled;
    persistState();
    Q_EMIT recommendedFoldersChanged();
    Q_EMIT changed();
}

void AppState::setCustomSources(const QList<BackupSource>& sources)
{
    m_customSources = sources;
    persistState();
    Q_EMIT customSourcesChanged();
    Q_EMIT changed();
}

void AppState::setSelectedDestination(const std::optional<BackupDestination>& destination)
{
    m_selectedDestination = destination;
    persistState();
    Q_EMIT selectedDestinationChanged();
    Q_EMIT changed();
}

void AppState::setIsDestinationAway(bool isAway)
{
    qCDebug(stateLog) << "drive of the destination:" << (isAway ? "away" : "there, as far as is known");
    m_isDestinationAway = isAway;
    Q_EMIT isDestinationAwayChanged();
    Q_EMIT changed();
}

std::optional<FileURL> AppState::backupsFolder() const
{
    if (!m_selectedDestination)
        return std::nullopt;
    return m_selectedDestination->url.appending(u"Keelbright"_s);
}

void AppState::setLastReport(const std::optional<BackupReport>& report)
{
    m_lastReport = report;
    Q_EMIT lastReportChanged();
    Q_EMIT changed();
}

void AppState::setLastBackupTime(const std::optional<QDateTime>& time)
{
    m_lastBackupTime = time;
    Q_EMIT lastBackupTimeChanged();
    Q_EMIT changed();
}

void AppState::setAlerts(const QList<RiskAlert>& alerts)
{
    m_alerts = alerts;
    Q_EMIT alertsChanged();
    Q_EMIT changed();
}

QList<BackupSource> AppState::allEnabledSources() const
{
    QList<BackupSource> sources;
    for (const RecommendedFolder& folder : m_recommendedFolders) {
        if (folder.isEnabled)
            sources.append(folder.asBackupSource());
    }
    return sources + m_customSources;
}

QList<BackupSource> AppState::previewSources() const
{
    constexpr qsizetype shown = 3;
    return allEnabledSources().mid(0, shown);
}

void AppState::startBackup()
{
    if (!m_selectedDestination) {
        setAlerts({RiskAlert(tr("No Destination Selected"),
                             tr("Go to Settings and choose a backup destination first."),
                             RiskAlert::Severity::high)});
        return;
    }
    if (allEnabledSources().isEmpty()) {
        setAlerts({RiskAlert(tr("Nothing to Back Up"), tr("Enable at least one folder in Protected Items."),
                             RiskAlert::Severity::medium)});
        return;
    }
    if (m_isCheckingCopies) {
        refuseBackup();
        return;
    }
    setAlerts({});
    setSelectedScreen(Screen::preflight);
}

void AppState::refuseBackup()
{
    setAlerts({RiskAlert(tr("Copies Are Being Checked"),
                         tr("A backup can start when the check has ended or is cancelled."),
                         RiskAlert::Severity::medium)});
}

void AppState::setIsCheckingCopies(bool isChecking)
{
    if (m_isCheckingCopies == isChecking)
        return;
    m_isCheckingCopies = isChecking;
    Q_EMIT isCheckingCopiesChanged();
    Q_EMIT changed();
}

QFuture<PreflightResult> AppState::runPreflight(const std::shared_ptr<const Cancellation>& cancellation) const
{
    const auto drive = m_isDestinationAway ? PreflightService::Drive::away : PreflightService::Drive::unknown;
    const auto check = [sources = allEnabledSources(), destination = m_selectedDestination, cancellation,
                        drive] { return PreflightService::run(sources, destination, *cancellation, drive); };
    return TaskPools::runApart(TaskPools::Priority::userInitiated, check);
}

bool AppState::confirmBackup(qint64 expectedBytes)
{
    if (!m_selectedDestination || m_isDestinationAway)
        return false;
    if (m_isCheckingCopies) {
        refuseBackup();
        setSelectedScreen(Screen::dashboard); // which shows it
        return false;
    }
    qCDebug(stateLog) << "backup confirmed";
    m_jobDestination = m_selectedDestination;
    m_timeLeft.expect(expectedBytes);
    m_engine.startBackup(
        {QUuid::createUuid(), allEnabledSources(), *m_selectedDestination, now(), m_destinationDriveSeenAt});
    setSelectedScreen(Screen::backupProgress);
    return true;
}

void AppState::handleEngineCompletion()
{
    const std::optional<BackupReport>& finished = m_engine.lastReport();
    if (!finished)
        return;
    const BackupReport report = *finished;
    qCDebug(stateLog) << "backup ended:" << report.filesCopied << "files copied," << report.errors.size()
                      << "error lines";
    setLastReport(report);
    setLastBackupTime(report.completedAt);
    const bool hasErrors = !report.errors.isEmpty();
    if (hasErrors)
        setAlerts({RiskAlert(tr("Backup completed with warnings"),
                             tr("%n file(s) were skipped. View the report for details.", nullptr,
                                pluralNumber(report.errors.size())),
                             RiskAlert::Severity::medium)});
    else
        setAlerts({});
    persistState();
    m_services.activityStore.append({
        .id = QUuid::createUuid(),
        .timestamp = now(),
        .kind = ActivityEntry::Kind::backup,
        .title =
            StoredTexts::stored(hasErrors ? StoredTexts::backupWithWarnings : StoredTexts::backupCompleted),
        .detail = StoredTexts::stored(StoredTexts::filesBackedUp,
                                      {QString::number(report.filesCopied), report.copiedSizeFormatted()}),
        .bytesAffected = report.bytesCopied,
        .itemCount = report.filesCopied,
    });
}

} // namespace keelbright

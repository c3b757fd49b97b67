#include "KeelbrightCore/backup/BackupEngine.h"

#include "KeelbrightCore/backup/BackupRunner.h"
#include "KeelbrightCore/backup/BackupTask.h"
#include "KeelbrightCore/platform/system/TaskPools.h"

#include <QThreadPool>

namespace keelbright {

namespace {

/// How long the engine's destructor waits for the run to end.
constexpr int endOfRunMilliseconds = 2000;

} // namespace

BackupEngine::BackupEngine(QObject* parent)
    : QObject(parent)
{}

BackupEngine::~BackupEngine()
{
    std::ignore = shutDown(endOfRunMilliseconds);
}

void BackupEngine::startBackup(const BackupJob& job)
{
    if (m_isRunning)
        return;
    setIsRunning(true);
    setIsCancelled(false);
    setLastError(std::nullopt);
    setProgress({});
    setLastReport(std::nullopt);

    m_currentTask = BackupTask::create(*this);
    TaskPools::userInitiated().start([job, task = m_currentTask] {
        BackupRunner::run(job, *task);
        task->markEnded();
    });
}

void BackupEngine::cancel()
{
    setIsCancelled(true);
    if (m_currentTask)
        m_currentTask->cancel();
}

void BackupEngine::incrementCopied(qint64 size, const QString& name)
{
    m_progress.filesCopied += 1;
    announceProgress();
    m_progress.bytesCopied += size;
    announceProgress();
    m_progress.currentFile = name;
    announceProgress();
}

void BackupEngine::setProgress(const BackupProgress& progress)
{
    m_progress = progress;
    announceProgress();
}

void BackupEngine::setTotalFilesEstimate(qint64 count)
{
    m_progress.totalFilesEstimate = count;
    announceProgress();
}

void BackupEngine::incrementSkipped()
{
    m_progress.filesSkipped += 1;
    announceProgress();
}

void BackupEngine::appendError(const QString& line)
{
    m_progress.errors.append(line);
    announceProgress();
}

void BackupEngine::setIsRunning(bool isRunning)
{
    m_isRunning = isRunning;
    Q_EMIT isRunningChanged();
    Q_EMIT changed();
}

void BackupEngine::setIsCancelled(bool isCancelled)
{
    m_isCancelled = isCancelled;
    Q_EMIT isCancelledChanged();
    Q_EMIT changed();
}

void BackupEngine::setLastReport(const std::optional<BackupReport>& report)
{
    m_lastReport = report;
    Q_EMIT lastReportChanged();
    Q_EMIT changed();
}

void BackupEngine::setLastError(const std::optional<QString>& error)
{
    m_lastError = error;
    Q_EMIT lastErrorChanged();
    Q_EMIT changed();
}

void BackupEngine::announceProgress()
{
    Q_EMIT progressChanged();
    Q_EMIT changed();
}

bool BackupEngine::shutDown(int milliseconds)
{
    if (!m_currentTask)
        return true;
    m_currentTask->quit();
    return m_currentTask->waitForEnd(milliseconds);
}

} // namespace keelbright

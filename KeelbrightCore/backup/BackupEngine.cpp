#include "KeelbrightCore/backup/BackupEngine.h"

#include "KeelbrightCore/backup/BackupRunner.h"
#include "KeelbrightCore/backup/BackupTask.h"
#include "KeelbrightCore/platform/system/Logging.h"
#include "KeelbrightCore/platform/system/TaskPools.h"
#include "KeelbrightCore/platform/system/WaitForMemory.h"

#include <QThreadPool>
#include <algorithm>
#include <new>

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
    if (m_currentTask) {
        m_currentTask->quit();
        std::ignore = m_currentTask->waitForEnd(endOfRunMilliseconds);
    }
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

    m_currentTask = waitingForMemory([this] { return BackupTask::create(*this); });
    const auto run = [job, task = m_currentTask] {
        BackupRunner::run(job, *task);
        task->markEnded();
    };
    waitingForMemory([&run] { TaskPools::userInitiated().start(run); });
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
    announce(&BackupEngine::progressChanged);
    m_progress.bytesCopied += size;
    announce(&BackupEngine::progressChanged);
    m_progress.currentFile = name;
    announce(&BackupEngine::progressChanged);
}

void BackupEngine::setProgress(const BackupProgress& progress)
{
    m_progress = progress;
    announce(&BackupEngine::progressChanged);
}

void BackupEngine::setTotalFilesEstimate(qint64 count)
{
    m_progress.totalFilesEstimate = count;
    announce(&BackupEngine::progressChanged);
}

void BackupEngine::incrementSkipped()
{
    m_progress.filesSkipped += 1;
    announce(&BackupEngine::progressChanged);
}

void BackupEngine::appendError(const QString& line)
{
    makeRoomForError();
    m_progress.errors.append(line);
    announce(&BackupEngine::progressChanged);
}

void BackupEngine::makeRoomForError()
{
    QStringList& errors = m_progress.errors;
    errors.detach();
    constexpr qsizetype first = 16;
    if (errors.size() == errors.capacity())
        errors.reserve(std::max(first, 2 * errors.size()));
}

void BackupEngine::setIsRunning(bool isRunning)
{
    m_isRunning = isRunning;
    announce(&BackupEngine::isRunningChanged);
}

void BackupEngine::setIsCancelled(bool isCancelled)
{
    m_isCancelled = isCancelled;
    announce(&BackupEngine::isCancelledChanged);
}

void BackupEngine::setLastReport(const std::optional<BackupReport>& report)
{
    m_lastReport = report;
    announce(&BackupEngine::lastReportChanged);
}

void BackupEngine::setLastError(const std::optional<QString>& error)
{
    m_lastError = error;
    announce(&BackupEngine::lastErrorChanged);
}

void BackupEngine::announce(void (BackupEngine::*what)())
{
    try {
        Q_EMIT(this->*what)();
        Q_EMIT changed();
    } catch (const std::bad_alloc&) {
        qCDebug(backupLog) << "not enough memory for an observer";
    }
}

bool BackupEngine::shutDown(int milliseconds)
{
    if (!m_currentTask)
        return true;
    m_currentTask->quit();
    if (!m_currentTask->waitForEnd(milliseconds))
        return false;
    m_currentTask->makeLastChange();
    return true;
}

} // namespace keelbright

#pragma once

#include "KeelbrightCore/backup/BackupJob.h"
#include "KeelbrightCore/backup/BackupProgress.h"
#include "KeelbrightCore/backup/BackupReport.h"

#include <QObject>
#include <memory>
#include <optional>

namespace keelbright {

class BackupTask;

/// The object that the screens watch during a backup: owns the running task and publishes its
/// progress. Main thread only. Destroying it ends a run before its next item.
///
/// Where memory runs out, a setter throws before it has changed anything. An observer that finds no memory
/// does not keep the next announcement from the others.
class BackupEngine : public QObject
{
    Q_OBJECT

public:
    explicit BackupEngine(QObject* parent = nullptr);
    ~BackupEngine() override;
    Q_DISABLE_COPY_MOVE(BackupEngine)

    [[nodiscard]] const BackupProgress& progress() const { return m_progress; }

    [[nodiscard]] bool isRunning() const { return m_isRunning; }

    [[nodiscard]] bool isCancelled() const { return m_isCancelled; }

    /// Report of the last finished run.
    [[nodiscard]] const std::optional<BackupReport>& lastReport() const { return m_lastReport; }

    /// Why the last run could not start.
    [[nodiscard]] const std::optional<QString>& lastError() const { return m_lastError; }

    /// Starts a run and returns at once. Does nothing while a run is under way.
    virtual void startBackup(const BackupJob& job);
    /// Asks the run to stop before its next item.
    virtual void cancel();
    /// Counts one more copied file of `size` bytes; announces each of the three fields that change.
    virtual void incrementCopied(qint64 size, const QString& name);

    void setProgress(const BackupProgress& progress);
    void setTotalFilesEstimate(qint64 count);
    void incrementSkipped();
    void appendError(const QString& line);
    /// So that the next `appendError` needs no memory.
    void makeRoomForError();
    void setIsRunning(bool isRunning);
    void setLastReport(const std::optional<BackupReport>& report);
    void setLastError(const std::optional<QString>& error);

    /// Stops the run because the program quits: no further item is copied and nothing unfinished stays
    /// on the drive. A run that has written its report already still ends as finished. False if the run has
    /// not ended within `milliseconds`, for example because the drive hangs; the program must then exit
    /// without waiting for its threads.
    [[nodiscard]] bool shutDown(int milliseconds);

Q_SIGNALS:
    // None carries a record: while an observer held a copy of it, the next change would have to copy
    // the whole list of errors.
    void progressChanged();
    void isRunningChanged();
    void isCancelledChanged();
    void lastReportChanged();
    void lastErrorChanged();
    /// Follows each of the above.
    void changed();

private:
    void setIsCancelled(bool isCancelled);
    void announce(void (BackupEngine::*what)());

    BackupProgress m_progress;
    bool m_isRunning = false;
    bool m_isCancelled = false;
    std::optional<BackupReport> m_lastReport;
    std::optional<QString> m_lastError;
    std::shared_ptr<BackupTask> m_currentTask;
};

} // namespace keelbright

#pragma once

#include "tests/support/EngineRun.h"

#include <QProcess>
#include <string>

namespace keelbright::testing {

/// What work in a process of its own came to; of work that is no backup, `hasEnded` alone.
struct RunnerOutcome
{
    bool hasEnded = false; ///< by itself, and with success
    qint64 copied = 0;
    qint64 skipped = 0;
    QStringList errors;
    QString lastError;
    QString manifestPath; ///< empty where there is no report
};

/// Work in a process of its own, which can be killed and whose system calls can be failed.
class RunnerProcess
{
public:
    /// Starts a backup of the folders from the machine to the drive of `run`; under strace with
    /// the given options where there are any.
    RunnerProcess(const EngineRun& run, const QList<FileURL>& folders, const QStringList& strace = {});
    /// Starts other work, told by the runner's arguments.
    explicit RunnerProcess(const QStringList& arguments, const QStringList& strace = {});

    /// Waits for the end; fails the test after a minute.
    [[nodiscard]] RunnerOutcome finish();
    /// Kills it after so long; it may have ended before.
    void killAfter(std::chrono::microseconds time);

    /// The options that fail the `when`-th call of a name with an error; where `path` is given,
    /// of those calls only that name that path, or work on a file open under it.
    [[nodiscard]] static QStringList failing(const QString& call, const QString& error, int when,
                                             const QString& path = {});
    /// Why no system call can be failed here; empty where one can.
    [[nodiscard]] static std::string reasonMissing();

private:
    QProcess m_process;
};

} // namespace keelbright::testing

#pragma once

#include "tests/support/EngineRun.h"

#include <QProcess>
#include <string>

namespace keelbright::testing {

/// The outcome of work in a separate process. Work that is no backup only sets `hasEnded`.
struct RunnerOutcome
{
    bool hasEnded = false; ///< by itself and with success
    qint64 copied = 0;
    qint64 skipped = 0;
    QStringList errors;
    QString lastError;
    QString manifestPath; ///< empty if there is no report
};

/// Work in a separate process, which can be killed and whose system calls can be made to fail.
class RunnerProcess
{
public:
    /// Starts a backup of the folders from the machine to the drive of `run`. With options for strace
    /// it runs under strace.
    RunnerProcess(const EngineRun& run, const QList<FileURL>& folders, const QStringList& strace = {});
    /// Starts the work that the runner's arguments name.
    explicit RunnerProcess(const QStringList& arguments, const QStringList& strace = {});

    /// Waits until the process has ended; fails the test after a minute.
    [[nodiscard]] RunnerOutcome finish();
    /// Kills the process after this time; it may have ended before.
    void killAfter(std::chrono::microseconds time);

    /// The options with which the `when`-th call with this name fails with an error. With a `path`
    /// only calls that name it or use a file opened at it are counted.
    [[nodiscard]] static QStringList failing(const QString& call, const QString& error, int when,
                                             const QString& path = {});
    /// Why system calls can't be made to fail on this machine; empty if they can.
    [[nodiscard]] static std::string reasonMissing();

private:
    QProcess m_process;
};

} // namespace keelbright::testing

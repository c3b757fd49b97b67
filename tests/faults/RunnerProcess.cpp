#include "tests/faults/RunnerProcess.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>
#include <chrono>
#include <gtest/gtest.h>
#include <thread>

namespace keelbright::testing {

namespace {

constexpr int oneMinute = 60'000;

QStringList backupOf(const EngineRun& run, const QList<FileURL>& folders)
{
    QStringList arguments{run.mac.root().path(), run.drive.path()};
    for (const FileURL& folder : folders)
        arguments += folder.path();
    return arguments;
}

} // namespace

RunnerProcess::RunnerProcess(const EngineRun& run, const QList<FileURL>& folders, const QStringList& strace)
    : RunnerProcess(backupOf(run, folders), strace)
{}

RunnerProcess::RunnerProcess(const QStringList& arguments, const QStringList& strace)
{
    QStringList command;
    if (!strace.isEmpty())
        command = QStringList{QStringLiteral("strace"), QStringLiteral("-f"), QStringLiteral("-qq"),
                              QStringLiteral("-o"), QStringLiteral("/dev/null")} +
                  strace;
    command += QStringLiteral(FAULT_RUNNER);
    command += arguments;
    // A sanitizer can't look for leaks while strace watches.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    if (!strace.isEmpty()) {
        const QString name = QStringLiteral("ASAN_OPTIONS");
        environment.insert(name, environment.value(name) + QStringLiteral(":detect_leaks=0"));
    }
    m_process.setProcessEnvironment(environment);
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(command.takeFirst(), command);
    if (!m_process.waitForStarted())
        ADD_FAILURE() << m_process.errorString().toStdString();
}

RunnerOutcome RunnerProcess::finish()
{
    if (m_process.state() != QProcess::NotRunning && !m_process.waitForFinished(oneMinute)) {
        ADD_FAILURE() << "the work does not end";
        m_process.kill();
        m_process.waitForFinished();
    }
    // A line of the configuration store may precede the outcome.
    const QByteArray output = m_process.readAllStandardOutput();
    const QJsonObject object = QJsonDocument::fromJson(output.sliced(output.lastIndexOf('\n') + 1)).object();
    QStringList errors;
    for (const QJsonValue& line : object.value(QStringLiteral("errors")).toArray())
        errors.append(line.toString());
    return {.hasEnded = m_process.exitStatus() == QProcess::NormalExit && m_process.exitCode() == 0 &&
                        !object.isEmpty(),
            .copied = object.value(QStringLiteral("copied")).toInteger(),
            .skipped = object.value(QStringLiteral("skipped")).toInteger(),
            .errors = errors,
            .lastError = object.value(QStringLiteral("lastError")).toString(),
            .manifestPath = object.value(QStringLiteral("manifestPath")).toString()};
}

void RunnerProcess::killAfter(std::chrono::microseconds time)
{
    std::this_thread::sleep_for(time);
    m_process.kill();
    m_process.waitForFinished();
}

QStringList RunnerProcess::failing(const QString& call, const QString& error, int when, const QString& path)
{
    QStringList options{QStringLiteral("-e"), QStringLiteral("trace=%1").arg(call), QStringLiteral("-e"),
                        QStringLiteral("inject=%1:%2:when=%3").arg(call, error).arg(when)};
    if (!path.isEmpty())
        options += {QStringLiteral("-P"), path};
    return options;
}

std::string RunnerProcess::reasonMissing()
{
    static const std::string reason = [] {
        if (QStandardPaths::findExecutable(QStringLiteral("strace")).isEmpty())
            return std::string("strace is not installed");
        QProcess process;
        process.start(QStringLiteral("strace"), {QStringLiteral("-qq"), QStringLiteral("-o"),
                                                 QStringLiteral("/dev/null"), QStringLiteral("true")});
        if (!process.waitForFinished(oneMinute) || process.exitCode() != 0)
            return "strace may not trace here: " + process.readAllStandardError().toStdString();
        return std::string();
    }();
    return reason;
}

} // namespace keelbright::testing

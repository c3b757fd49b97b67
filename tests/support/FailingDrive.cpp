#include "tests/support/FailingDrive.h"

#include "tests/support/Mounting.h"

#include <QDir>
#include <csignal>
#include <filesystem>
#include <gtest/gtest.h>

namespace keelbright::testing {

FailingDrive::FailingDrive(const QString& request, qint64 after, const QString& error)
{
    for (const FileURL& made : {folder(), root()})
        std::filesystem::create_directory(made.nativePath().toStdString());
    // The system's own interpreter: others lack the module.
    const QString python = QStringLiteral("/usr/bin/python3");
    m_reasonMissing = failureOf(python, {QStringLiteral("-c"), QStringLiteral("import fuse")});
    if (!m_reasonMissing.empty()) {
        m_reasonMissing = "python3-fuse is not installed";
        return;
    }
    m_process.setProcessChannelMode(QProcess::ForwardedChannels);
    m_process.start(python, {QStringLiteral(FAILING_DRIVE), folder().path(), root().path(), request,
                             QString::number(after), error});
    if (!isMountedSoon(root()))
        m_reasonMissing = "no file system of our own can be mounted here";
}

FailingDrive::~FailingDrive()
{
    if (m_reasonMissing.empty())
        unmountAtOnce(root());
    // Its program ends when nobody uses the drive any more. Whoever still does gets errors by now.
    if (m_process.state() != QProcess::NotRunning && !m_process.waitForFinished(5'000)) {
        m_process.kill();
        m_process.waitForFinished();
    }
}

void FailingDrive::failNow() const
{
    send(SIGUSR1);
}

void FailingDrive::pull()
{
    m_process.kill();
    m_process.waitForFinished();
}

void FailingDrive::hang() const
{
    send(SIGSTOP);
}

void FailingDrive::goOn() const
{
    send(SIGCONT);
}

void FailingDrive::send(int signal) const
{
    // A program that has ended has the number 0, and that calls everybody who was started with this test.
    const qint64 program = m_process.processId();
    if (program == 0 || ::kill(static_cast<pid_t>(program), signal) != 0)
        ADD_FAILURE() << "the drive's program is not there any more";
}

FileURL FailingDrive::place(const char* name) const
{
    return FileURL::fromPath(QDir(m_folder.path()).canonicalPath()).appendingNative(name);
}

} // namespace keelbright::testing

#include "tests/faults/ProgramProcess.h"

#include <QDeadlineTimer>
#include <QProcessEnvironment>
#include <csignal>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

constexpr int oneMinute = 60'000;

/// Nothing of the real user's: home, settings, desktop.
QProcessEnvironment environmentOf(const TestMac& mac)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString& name : environment.keys()) {
        if (name.startsWith(u"XDG_"))
            environment.remove(name);
    }
    environment.insert(u"HOME"_s, mac.home().path());
    environment.insert(u"XDG_RUNTIME_DIR"_s, mac.root().path());
    environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, u"unix:path=/nowhere"_s);
    environment.insert(u"DBUS_SYSTEM_BUS_ADDRESS"_s, u"unix:path=/nowhere"_s);
    environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
    environment.insert(u"QT_FORCE_STDERR_LOGGING"_s, u"1"_s);
    environment.insert(u"QT_LOGGING_RULES"_s, u"keelbright.screens=true"_s);
    return environment;
}

} // namespace

ProgramProcess::ProgramProcess(const TestMac& mac, const QStringList& launcher, const QStringList& arguments)
{
    QStringList command = launcher + QStringList{QStringLiteral(KEELBRIGHT_PROGRAM)} + arguments;
    m_process.setProcessEnvironment(environmentOf(mac));
    m_process.setProcessChannelMode(QProcess::MergedChannels);
    m_process.start(command.takeFirst(), command);
    if (!m_process.waitForStarted())
        ADD_FAILURE() << m_process.errorString().toStdString();
}

ProgramProcess::~ProgramProcess()
{
    m_process.kill();
    m_process.waitForFinished();
}

bool ProgramProcess::waitUntilLoaded()
{
    return waitForLine("-------------------------------");
}

bool ProgramProcess::waitForLine(const QByteArray& line)
{
    const QDeadlineTimer deadline(oneMinute);
    const auto isPrinted = [&] {
        m_output += m_process.readAll();
        return ("\n" + m_output).contains("\n" + line + "\n");
    };
    while (!isPrinted()) {
        if (!m_process.waitForReadyRead(static_cast<int>(deadline.remainingTime())))
            return isPrinted();
    }
    return true;
}

std::optional<int> ProgramProcess::waitForEnd()
{
    const bool hasEnded = !isRunning() || m_process.waitForFinished(oneMinute);
    m_output += m_process.readAll();
    if (!hasEnded || m_process.exitStatus() != QProcess::NormalExit)
        return std::nullopt;
    return m_process.exitCode();
}

void ProgramProcess::sendSignal(int number) const
{
    ASSERT_EQ(::kill(static_cast<pid_t>(m_process.processId()), number), 0);
}

} // namespace keelbright::testing

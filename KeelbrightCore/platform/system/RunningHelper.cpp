#include "KeelbrightCore/platform/system/RunningHelper.h"

#include "KeelbrightCore/platform/system/Logging.h"
#include "KeelbrightCore/platform/system/ProcessCalls.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <utility>

namespace keelbright {

RunningHelper::RunningHelper(QString name, pid_t process, FileDescriptor output, Subprocess::Receiver receive)
    : m_name(std::move(name))
    , m_process(process)
    , m_output(std::move(output))
    , m_endWatch(ProcessCalls::watchForEnd(process))
    , m_receive(std::move(receive))
{}

void RunningHelper::read()
{
    constexpr qsizetype piece = qsizetype{64} * 1024;
    // A helper that has closed its output may go on.
    if (!append(piece))
        m_output.reset();
}

bool RunningHelper::append(qsizetype count)
{
    QByteArray& data = m_result.standardOutput;
    const qsizetype size = data.size();
    data.resize(size + count);
    const ssize_t got =
        retrying([&] { return ::read(m_output.get(), data.data() + size, static_cast<size_t>(count)); });
    data.resize(size + std::max<qsizetype>(got, 0));
    if (data.size() > Subprocess::maximumOutputBytes)
        giveUpOutput();
    return got > 0;
}

void RunningHelper::giveUpOutput()
{
    m_result.standardOutput.truncate(Subprocess::maximumOutputBytes);
    m_result.isOutputWhole = false;
    m_output.reset();
    if (!hasEnded())
        ::kill(m_process, SIGKILL);
}

bool RunningHelper::hasEnded()
{
    if (m_hasEnded)
        return true;
    int status = 0;
    const pid_t result = retrying([&] { return ::waitpid(m_process, &status, WNOHANG); });
    if (result == 0)
        return false;
    m_hasEnded = true;
    // Where the program that started this one had the signal for ended children ignored, the system
    // keeps no status.
    if (result == m_process)
        m_status = status;
    readWhatIsThere();
    return true;
}

/// A helper that has ended may leave a process behind that keeps the pipe open and still writes to
/// it: only what is in the pipe now can be the helper's.
void RunningHelper::readWhatIsThere()
{
    int available = 0;
    if (!m_output.isOpen() || ::ioctl(m_output.get(), FIONREAD, &available) != 0)
        return;
    const qsizetype end = m_result.standardOutput.size() + available;
    while (m_output.isOpen() && m_result.standardOutput.size() < end &&
           append(end - m_result.standardOutput.size())) {
    }
}

void RunningHelper::deliver()
{
    m_result.crashed = m_status && WIFSIGNALED(*m_status);
    m_result.exitCode =
        m_status && WIFEXITED(*m_status) ? WEXITSTATUS(*m_status) : Subprocess::Result::unknownExitCode;
    qCDebug(platformLog) << "helper ended:" << m_name << "exit code" << m_result.exitCode << ","
                         << m_result.standardOutput.size() << "bytes";
    // What it left behind and still writes gets an error now instead of waiting for ever.
    m_output.reset();
    m_endWatch.reset();
    m_receive(m_result); // not moved: where memory runs out, it is delivered once more
}

} // namespace keelbright

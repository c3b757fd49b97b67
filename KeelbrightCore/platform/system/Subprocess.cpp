#include "KeelbrightCore/platform/system/Subprocess.h"

#include "KeelbrightCore/platform/system/HelperWatch.h"
#include "KeelbrightCore/platform/system/Logging.h"
#include "KeelbrightCore/platform/system/OpenFileLimit.h"
#include "KeelbrightCore/platform/system/ProcessCalls.h"
#include "KeelbrightCore/platform/system/WaitForMemory.h"

#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <unistd.h>
#include <utility>
#include <vector>

extern char** environ; // NOLINT: POSIX leaves its declaration to the program

namespace keelbright {

namespace {

/// How the helper starts: with empty input, output into the pipe, errors dropped, and no other file.
class LaunchPlan
{
public:
    explicit LaunchPlan(int output)
    {
        ::posix_spawn_file_actions_init(&m_actions);
        ::posix_spawnattr_init(&m_attributes);
        ::posix_spawn_file_actions_adddup2(&m_actions, output, STDOUT_FILENO);
        ::posix_spawn_file_actions_addopen(&m_actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        ::posix_spawn_file_actions_addopen(&m_actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
        short flags = POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF;
        ProcessCalls::closeOtherFiles(m_actions, flags);
        // A helper does not inherit which signals this program or one of its libraries blocks.
        sigset_t signalSet;
        sigemptyset(&signalSet); // a macro in some C libraries, as are the next ones
        ::posix_spawnattr_setsigmask(&m_attributes, &signalSet);
        sigfillset(&signalSet);
        sigdelset(&signalSet, SIGKILL);
        sigdelset(&signalSet, SIGSTOP);
        ::posix_spawnattr_setsigdefault(&m_attributes, &signalSet);
        ::posix_spawnattr_setflags(&m_attributes, flags);
    }

    ~LaunchPlan()
    {
        ::posix_spawn_file_actions_destroy(&m_actions);
        ::posix_spawnattr_destroy(&m_attributes);
    }

    LaunchPlan(const LaunchPlan&) = delete;
    LaunchPlan& operator=(const LaunchPlan&) = delete;

    /// Takes copies, because posix_spawn wants bytes that are not const.
    [[nodiscard]] std::expected<pid_t, int> launch(QByteArray executable, QList<QByteArray> arguments) const
    {
        std::vector<char*> vector = {executable.data()};
        for (QByteArray& argument : arguments)
            vector.push_back(argument.data());
        vector.push_back(nullptr);
        pid_t process = -1;
        const int code = ::posix_spawn(&process, executable.constData(), &m_actions, &m_attributes,
                                       vector.data(), environ);
        if (code != 0)
            return std::unexpected(code);
        return process;
    }

private:
    posix_spawn_file_actions_t m_actions = {};
    posix_spawnattr_t m_attributes = {};
};

} // namespace

std::expected<void, FileError> Subprocess::start(const FileURL& executable,
                                                 const QList<QByteArray>& arguments, Receiver receive)
{
    const auto launchFailure = [&](int code) {
        return failure(FileError::Operation::launched, executable, code);
    };
    HelperWatch& watch = HelperWatch::instance();
    if (const auto watching = watch.start(); !watching)
        return launchFailure(watching.error());
    std::expected<Pipe, int> output = Pipe::make();
    if (!output)
        return launchFailure(output.error());
    QString name = executable.path();
    const auto process = LaunchPlan(output->writeEnd.get()).launch(executable.nativePath(), arguments);
    if (!process)
        return launchFailure(process.error());
    OpenFileLimit::lowerFor(*process);
    RunningHelper helper(std::move(name), *process, std::move(output->readEnd), std::move(receive));
    qCDebug(platformLog) << "helper started:" << executable.path();
    // It runs, and nobody else would wait for its end.
    waitingForMemory([&] { watch.add(std::move(helper)); });
    return {};
}

} // namespace keelbright

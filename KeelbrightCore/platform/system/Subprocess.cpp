#include "KeelbrightCore/platform/system/Subprocess.h"

#include "KeelbrightCore/platform/files/FileDescriptor.h"
#include "KeelbrightCore/platform/system/Logging.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <optional>
#include <poll.h>
#include <spawn.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <vector>

#ifdef __linux__
#include <sys/syscall.h>
#include <unistd.h>
#endif

extern char** environ; // NOLINT: POSIX leaves its declaration to the program

namespace keelbright {

namespace {

struct Pipe
{
    FileDescriptor readEnd;
    FileDescriptor writeEnd;
};

/// Where this program runs without standard streams, a new descriptor could get their numbers and
/// would be overwritten on its way to the helper.
FileDescriptor aboveStandardStreams(FileDescriptor descriptor)
{
    if (!descriptor.isOpen() || descriptor.get() > STDERR_FILENO)
        return descriptor;
    return FileDescriptor(::fcntl(descriptor.get(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
}

std::expected<Pipe, int> makePipe()
{
    std::array<int, 2> ends = {-1, -1};
#ifdef __linux__
    if (::pipe2(ends.data(), O_CLOEXEC) != 0)
        return std::unexpected(errno);
#else
    if (::pipe(ends.data()) != 0)
        return std::unexpected(errno);
    ::fcntl(ends[0], F_SETFD, FD_CLOEXEC);
    ::fcntl(ends[1], F_SETFD, FD_CLOEXEC);
#endif
    Pipe pipe{aboveStandardStreams(FileDescriptor(ends[0])), aboveStandardStreams(FileDescriptor(ends[1]))};
    if (!pipe.readEnd.isOpen() || !pipe.writeEnd.isOpen())
        return std::unexpected(errno);
    return pipe;
}

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
#ifdef __linux__
        ::posix_spawn_file_actions_addclosefrom_np(&m_actions, STDERR_FILENO + 1);
#else
        flags |= POSIX_SPAWN_CLOEXEC_DEFAULT;
#endif
        // A helper does not inherit which signals this program or one of its libraries blocks.
        sigset_t signalSet;
        ::sigemptyset(&signalSet);
        ::posix_spawnattr_setsigmask(&m_attributes, &signalSet);
        ::sigfillset(&signalSet);
        ::sigdelset(&signalSet, SIGKILL);
        ::sigdelset(&signalSet, SIGSTOP);
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

/// A descriptor that becomes readable when the process ends; none where the system is too old.
FileDescriptor watchForEnd([[maybe_unused]] pid_t process)
{
#ifdef __linux__
    // By its number, because the C library of Debian 12 declares the function for C only.
    return FileDescriptor(static_cast<int>(::syscall(SYS_pidfd_open, process, 0)));
#else
    return {};
#endif
}

/// One running helper. Waits for this process alone, so that other children of the program keep
/// their status and the signal for ended children its handler.
class Helper
{
public:
    explicit Helper(pid_t process)
        : m_process(process)
        , m_endWatch(watchForEnd(process))
    {}

    /// Readable from the helper's end on; -1 where there is no such thing.
    [[nodiscard]] int endWatch() const { return m_endWatch.get(); }

    [[nodiscard]] bool hasEnded()
    {
        reap(WNOHANG);
        return m_status.has_value();
    }

    /// Waits for the end; gives the status of `waitpid`, or nothing where the system keeps none
    /// (the program that started this one had the signal for ended children ignored).
    [[nodiscard]] std::optional<int> waitForEnd()
    {
        reap(0);
        return m_status.value_or(std::nullopt);
    }

private:
    void reap(int options)
    {
        if (m_status)
            return;
        int status = 0;
        const pid_t result = retrying([&] { return ::waitpid(m_process, &status, options); });
        if (result == m_process)
            m_status.emplace(status);
        else if (result < 0)
            m_status.emplace(std::nullopt);
    }

    pid_t m_process;
    FileDescriptor m_endWatch;
    std::optional<std::optional<int>> m_status;
};

/// Reads up to `count` bytes; false at the end of the data.
bool readInto(QByteArray& data, int descriptor, qsizetype count)
{
    const qsizetype size = data.size();
    data.resize(size + count);
    const ssize_t got =
        retrying([&] { return ::read(descriptor, data.data() + size, static_cast<size_t>(count)); });
    data.resize(size + qMax<qsizetype>(got, 0));
    return got > 0;
}

/// A helper that has ended may leave a process behind that keeps the pipe open and still writes to
/// it: only what is in the pipe now can be the helper's.
void readWhatIsThere(QByteArray& data, int descriptor)
{
    int available = 0;
    if (::ioctl(descriptor, FIONREAD, &available) != 0)
        return;
    const qsizetype end = data.size() + available;
    while (data.size() < end && readInto(data, descriptor, end - data.size())) {
    }
}

QByteArray readUntilTheEnd(int output, Helper& helper)
{
    constexpr qsizetype piece = qsizetype{64} * 1024;
    constexpr int pauseWithoutWatch = 20; // milliseconds
    QByteArray data;
    for (;;) {
        std::array<pollfd, 2> watched = {pollfd{output, POLLIN, 0}, pollfd{helper.endWatch(), POLLIN, 0}};
        const int timeout = helper.endWatch() >= 0 ? -1 : pauseWithoutWatch;
        if (retrying([&] { return ::poll(watched.data(), watched.size(), timeout); }) < 0)
            return data;
        const bool mayHaveEnded = helper.endWatch() < 0 || watched[1].revents != 0;
        if (mayHaveEnded && helper.hasEnded()) {
            readWhatIsThere(data, output);
            return data;
        }
        if (watched[0].revents != 0 && !readInto(data, output, piece))
            return data;
    }
}

} // namespace

std::expected<Subprocess::Result, FileError> Subprocess::run(const FileURL& executable,
                                                             const QList<QByteArray>& arguments)
{
    std::expected<Pipe, int> output = makePipe();
    if (!output)
        return failure(FileError::Operation::launched, executable, output.error());
    const auto process = LaunchPlan(output->writeEnd.get()).launch(executable.nativePath(), arguments);
    if (!process)
        return failure(FileError::Operation::launched, executable, process.error());
    output->writeEnd.reset();
    Helper helper(*process);
    Result result;
    result.standardOutput = readUntilTheEnd(output->readEnd.get(), helper);
    // A helper that still writes gets an error now instead of waiting for ever.
    output->readEnd.reset();
    const std::optional<int> status = helper.waitForEnd();
    result.crashed = status && WIFSIGNALED(*status);
    result.exitCode = status && WIFEXITED(*status) ? WEXITSTATUS(*status) : Result::unknownExitCode;
    qCDebug(platformLog) << "helper ended:" << executable.path() << "exit code" << result.exitCode << ","
                         << result.standardOutput.size() << "bytes";
    return result;
}

} // namespace keelbright

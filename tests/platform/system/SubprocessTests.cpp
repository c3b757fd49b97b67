#include "KeelbrightCore/platform/system/Subprocess.h"

#include "KeelbrightCore/platform/files/FileDescriptor.h"
#include "tests/support/EnvironmentVariable.h"
#include "tests/support/HelperRun.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <QDir>
#include <QElapsedTimer>
#include <atomic>
#include <csignal>
#include <fcntl.h>
#include <future>
#include <gtest/gtest.h>
#include <pthread.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace keelbright {

namespace {

class SubprocessTests : public ::testing::Test
{
protected:
    /// A helper program made of shell lines.
    FileURL helper(const QByteArray& lines, const QByteArray& name = "helper") const
    {
        const FileURL url = m_mac.writeFile("bin/" + name, "#!/bin/sh\n" + lines + "\n");
        EXPECT_EQ(::chmod(url.nativePath().constData(), 0700), 0);
        return url;
    }

    static Subprocess::Result result(const FileURL& executable, const QList<QByteArray>& arguments = {})
    {
        const auto run = testing::runToItsEnd(executable, arguments);
        if (!run) {
            ADD_FAILURE() << run.error().localizedDescription().toStdString();
            return {};
        }
        return *run;
    }

    /// Runs it in a new process, as a fork would lack the thread that watches helpers.
    template <typename Run> void expectSuccessInAProgramOfItsOwn(const Run& run) const
    {
        // That process lays its machine into this one's folder, which is cleared behind it.
        const testing::EnvironmentVariable folder("TMPDIR");
        folder.set(m_mac.root().nativePath());
        GTEST_FLAG_SET(death_test_style, "threadsafe");
        EXPECT_EXIT(run(), ::testing::ExitedWithCode(0), "");
    }

    testing::TestMac m_mac;
};

/// Whether this process has a child left, running or not reaped.
bool hasChild()
{
    return ::waitid(P_ALL, 0, nullptr, WEXITED | WNOHANG | WNOWAIT) == 0;
}

qsizetype threadsOfThisProgram()
{
    return QDir(QStringLiteral("/proc/self/task")).count() - 2; // without "." and ".."
}

} // namespace

TEST_F(SubprocessTests, theOutputAndTheExitCodeAreGivenBack)
{
    const auto run = result(helper("printf 'one\\ntwo'; exit 7"));
    EXPECT_EQ(run.standardOutput, "one\ntwo");
    EXPECT_EQ(run.exitCode, 7);
    EXPECT_FALSE(run.crashed);
}

TEST_F(SubprocessTests, aHelperThatPrintsNothingHasEmptyOutput)
{
    const auto run = result(helper("exit 0"));
    EXPECT_EQ(run.standardOutput, "");
    EXPECT_EQ(run.exitCode, 0);
}

TEST_F(SubprocessTests, megabytesOnBothStreamsBlockNobody)
{
    const auto run = result(helper("head -c 5000000 /dev/zero >&2\nhead -c 5000000 /dev/zero\n"
                                   "head -c 3000000 /dev/zero >&2\nprintf end"));
    EXPECT_EQ(run.standardOutput.size(), 5'000'003);
    EXPECT_EQ(run.standardOutput.count('\0'), 5'000'000);
    EXPECT_TRUE(run.standardOutput.endsWith("end"));
}

TEST_F(SubprocessTests, outputIsKeptToTheByte)
{
    QByteArray bytes;
    for (int round = 0; round < 300; ++round) {
        for (int value = 0; value < 256; ++value)
            bytes.append(static_cast<char>(value));
    }
    const FileURL file = m_mac.writeFile("bytes", bytes);
    EXPECT_EQ(result(helper("cat \"$1\""), {file.nativePath()}).standardOutput, bytes);
}

TEST_F(SubprocessTests, standardErrorIsNoPartOfTheOutput)
{
    EXPECT_EQ(result(helper("echo wrong >&2; echo right")).standardOutput, "right\n");
}

TEST_F(SubprocessTests, standardInputIsEmpty)
{
    EXPECT_EQ(result(helper("cat; echo done")).standardOutput, "done\n");
}

TEST_F(SubprocessTests, aHelperThatDiesBySignalHasCrashedAndItsOutputIsKept)
{
    const auto run = result(helper("printf before; kill -SEGV $$"));
    EXPECT_TRUE(run.crashed);
    EXPECT_EQ(run.exitCode, Subprocess::Result::unknownExitCode);
    EXPECT_EQ(run.standardOutput, "before");
}

TEST_F(SubprocessTests, aMissingExecutableCanNotBeLaunched)
{
    const auto run = testing::runToItsEnd(m_mac.root().appending(QStringLiteral("usr/bin/mdls")));
    ASSERT_FALSE(run.has_value());
    EXPECT_EQ(run.error(),
              FileError::fromCode(FileError::Operation::launched, QStringLiteral("mdls"), ENOENT));
}

TEST_F(SubprocessTests, aFileThatIsNotExecutableCanNotBeLaunched)
{
    const FileURL plain = m_mac.writeFile("bin/plain", "#!/bin/sh\necho never\n");
    const auto run = testing::runToItsEnd(plain);
    ASSERT_FALSE(run.has_value());
    EXPECT_EQ(run.error().code, EACCES);
    const auto folder = testing::runToItsEnd(m_mac.root());
    ASSERT_FALSE(folder.has_value());
    EXPECT_EQ(folder.error().code, EACCES);
}

TEST_F(SubprocessTests, aFileOfNoExecutableFormatCanNotBeLaunched)
{
    const FileURL text = m_mac.writeFile("bin/text", "just a text");
    ASSERT_EQ(::chmod(text.nativePath().constData(), 0700), 0);
    const auto run = testing::runToItsEnd(text);
    ASSERT_FALSE(run.has_value());
    EXPECT_EQ(run.error().code, ENOEXEC);
    EXPECT_FALSE(hasChild());
}

TEST_F(SubprocessTests, aHelperWhoseNameIsNotUtf8IsLaunched)
{
    EXPECT_EQ(result(helper("printf \"$0\"", "h\xFF")).standardOutput,
              (m_mac.root().nativePath() + "/bin/h\xFF"));
}

TEST_F(SubprocessTests, argumentsArriveToTheByte)
{
    const QList<QByteArray> arguments = {
        "",         " ",     "a b", "\"q\" 'q'", "$HOME `id` \\",         "new\nline",
        "\xFF\xFE", "-name", "*",   "ü🙂",       QByteArray(100'000, 'x')};
    const auto run = result(helper("printf '%s\\0' \"$@\""), arguments);
    EXPECT_EQ(run.standardOutput, arguments.join('\0') + '\0');
}

TEST_F(SubprocessTests, theEnvironmentIsPassedOn)
{
    qputenv("KEELBRIGHT_TEST_VARIABLE", "ü \xFF");
    const auto run = result(helper("printf '%s' \"$KEELBRIGHT_TEST_VARIABLE\""));
    qunsetenv("KEELBRIGHT_TEST_VARIABLE");
    EXPECT_EQ(run.standardOutput, "ü \xFF");
}

TEST_F(SubprocessTests, openFilesAreNotInherited)
{
    const FileURL secret = m_mac.writeFile("secret", "x");
    // One as libraries open them, without the flag that closes it in a new program.
    const FileDescriptor low(::open(secret.nativePath().constData(), O_RDONLY));
    const FileDescriptor high(::fcntl(low.get(), F_DUPFD, 500));
    ASSERT_TRUE(low.isOpen() && high.isOpen());
    const auto run = result(FileURL::fromPath(QStringLiteral("/bin/ls")), {"-l", "/proc/self/fd"});
    EXPECT_FALSE(run.standardOutput.contains("secret")) << run.standardOutput.toStdString();
    EXPECT_TRUE(run.standardOutput.contains("0 -> /dev/null")) << run.standardOutput.toStdString();
    EXPECT_TRUE(run.standardOutput.contains("1 -> pipe:")) << run.standardOutput.toStdString();
    EXPECT_TRUE(run.standardOutput.contains("2 -> /dev/null")) << run.standardOutput.toStdString();
    // The fourth is the listed folder itself; the first line says "total 0".
    EXPECT_EQ(run.standardOutput.count('\n'), 5) << run.standardOutput.toStdString();
}

TEST_F(SubprocessTests, aHelperStartsWithoutBlockedOrIgnoredSignals)
{
    sigset_t blocked;
    sigset_t before;
    ::sigemptyset(&blocked);
    ::sigaddset(&blocked, SIGUSR2);
    ASSERT_EQ(::pthread_sigmask(SIG_BLOCK, &blocked, &before), 0);
    const auto previous = ::signal(SIGPIPE, SIG_IGN);
    const auto run = result(helper("sed -n 's/^Sig\\(Blk\\|Ign\\):\t//p' /proc/self/status"));
    ::signal(SIGPIPE, previous);
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    const QList<QByteArray> masks = run.standardOutput.trimmed().split('\n');
    ASSERT_EQ(masks.size(), 2);
    EXPECT_EQ(masks[0].toULongLong(nullptr, 16), 0U);
    // Signals 32 and above are the C library's own business.
    EXPECT_EQ(masks[1].toULongLong(nullptr, 16) & 0x7FFF'FFFFU, 0U);
}

TEST_F(SubprocessTests, thirtyTwoHelpersAtOnceKeepTheirOutputsApart)
{
    const FileURL tool =
        helper("for i in 1 2 3 4 5 6 7 8; do head -c 40000 /dev/zero | tr '\\0' \"$1\"; done; "
               "exit $2");
    std::atomic<int> right = 0;
    {
        std::vector<std::jthread> threads;
        threads.reserve(32);
        for (int i = 0; i < 32; ++i) {
            threads.emplace_back([&tool, &right, i] {
                const QByteArray letter(1, static_cast<char>('A' + i % 26));
                const auto run = testing::runToItsEnd(tool, {letter, QByteArray::number(i)});
                if (run && run->standardOutput == letter.repeated(320'000) && run->exitCode == i)
                    ++right;
            });
        }
    }
    EXPECT_EQ(right, 32);
    EXPECT_FALSE(hasChild());
}

TEST_F(SubprocessTests, otherChildrenOfTheProgramAreLeftAlone)
{
    const pid_t other = ::fork();
    ASSERT_GE(other, 0);
    if (other == 0)
        ::_exit(42);
    EXPECT_EQ(result(helper("exit 3")).exitCode, 3);
    int status = 0;
    EXPECT_EQ(::waitpid(other, &status, 0), other);
    EXPECT_EQ(WEXITSTATUS(status), 42);
}

TEST_F(SubprocessTests, aProcessThatTheHelperLeavesBehindIsNotWaitedFor)
{
    QElapsedTimer timer;
    timer.start();
    const auto run = result(helper("sleep 60 &\necho $!"));
    EXPECT_LT(timer.elapsed(), 20'000);
    const pid_t left = run.standardOutput.trimmed().toInt();
    ASSERT_GT(left, 1) << "the helper's own output must be whole: " << run.standardOutput.toStdString();
    EXPECT_EQ(::kill(left, SIGKILL), 0) << "it was to be alive still";
}

TEST_F(SubprocessTests, aProcessLeftBehindThatWritesWithoutEndIsNotWaitedFor)
{
    QElapsedTimer timer;
    timer.start();
    const auto run = result(helper("echo first\nyes noise &\nexit 5"));
    EXPECT_LT(timer.elapsed(), 20'000);
    EXPECT_TRUE(run.standardOutput.startsWith("first\n"));
    EXPECT_EQ(run.exitCode, 5);
}

TEST_F(SubprocessTests, aHelperThatClosesItsOutputIsWaitedForStill)
{
    const FileURL mark = m_mac.root().appending(QStringLiteral("mark"));
    const auto run = result(helper("echo out; exec >&-; sleep 0.3; : > \"$1\"; exit 4"), {mark.nativePath()});
    EXPECT_EQ(run.standardOutput, "out\n");
    EXPECT_EQ(run.exitCode, 4);
    EXPECT_TRUE(m_mac.fileManager().fileExists(mark).exists);
}

TEST_F(SubprocessTests, signalsInTheMiddleChangeNothing)
{
    struct sigaction action = {};
    struct sigaction previous = {};
    action.sa_handler = [](int) {}; // without SA_RESTART: every call of the system breaks off
    ASSERT_EQ(::sigaction(SIGUSR1, &action, &previous), 0);
    const FileURL tool = helper("for i in 1 2 3 4 5; do head -c 100000 /dev/zero; sleep 0.02; done; exit 9");
    std::atomic<bool> isOver = false;
    std::optional<Subprocess::Result> run;
    std::thread runner([&] {
        run = result(tool);
        isOver = true;
    });
    while (!isOver) {
        ::pthread_kill(runner.native_handle(), SIGUSR1);
        std::this_thread::sleep_for(std::chrono::microseconds(200));
    }
    runner.join();
    ::sigaction(SIGUSR1, &previous, nullptr);
    ASSERT_TRUE(run.has_value());
    EXPECT_EQ(run->standardOutput.size(), 500'000);
    EXPECT_EQ(run->exitCode, 9);
}

TEST_F(SubprocessTests, aProgramThatIgnoresEndedChildrenGetsTheOutputWithoutTheCode)
{
    const auto previous = ::signal(SIGCHLD, SIG_IGN);
    const auto run = result(helper("sleep 0.1; printf whole; exit 3"));
    ::signal(SIGCHLD, previous);
    EXPECT_EQ(run.standardOutput, "whole");
    EXPECT_EQ(run.exitCode, Subprocess::Result::unknownExitCode);
    EXPECT_FALSE(run.crashed);
}

TEST_F(SubprocessTests, aProgramWithoutStandardStreamsRunsHelpersAllTheSame)
{
    const FileURL tool = helper("cat; printf fine; echo wrong >&2");
    const auto runWithoutStreams = [&tool] {
        ::close(STDIN_FILENO);
        ::close(STDOUT_FILENO);
        ::close(STDERR_FILENO);
        const auto run = testing::runToItsEnd(tool);
        ::_exit(run && run->standardOutput == "fine" && run->exitCode == 0 ? 0 : 1);
    };
    expectSuccessInAProgramOfItsOwn(runWithoutStreams);
}

TEST_F(SubprocessTests, withoutADescriptorLeftTheLaunchFails)
{
    if (KEELBRIGHT_IS_SANITIZED)
        GTEST_SKIP() << "a sanitizer opens files of its own to look at an object";
    const FileURL tool = helper("exit 0");
    const auto runWithoutDescriptors = [&tool] {
        std::vector<int> taken;
        for (int descriptor = ::dup(STDIN_FILENO); descriptor >= 0; descriptor = ::dup(STDIN_FILENO))
            taken.push_back(descriptor);
        const auto run = testing::runToItsEnd(tool);
        const bool hasFailed = !run && run.error().code == EMFILE;
        for (const int descriptor : taken)
            ::close(descriptor);
        const auto next = testing::runToItsEnd(tool);
        ::_exit(hasFailed && next && next->exitCode == 0 ? 0 : 1);
    };
    expectSuccessInAProgramOfItsOwn(runWithoutDescriptors);
}

TEST_F(SubprocessTests, aHelperThatRunsHoldsNoThread)
{
    const FileURL gate = m_mac.root().appending(QStringLiteral("gate"));
    const FileURL tool = helper("while [ ! -e \"$1\" ]; do sleep 0.02; done; printf over");
    const qsizetype threadsBefore = threadsOfThisProgram();
    std::vector<std::future<Subprocess::Result>> results;
    for (int i = 0; i < 40; ++i) {
        std::promise<Subprocess::Result> promise;
        results.push_back(promise.get_future());
        auto receive = [promise = std::move(promise)](Subprocess::Result ended) mutable {
            promise.set_value(std::move(ended));
        };
        ASSERT_TRUE(Subprocess::start(tool, {gate.nativePath()}, std::move(receive)));
    }
    EXPECT_LE(threadsOfThisProgram(), threadsBefore + 1) << "one thread watches all helpers";
    EXPECT_EQ(result(helper("echo other", "other")).standardOutput, "other\n");
    m_mac.writeFile("gate", "");
    for (auto& each : results)
        EXPECT_EQ(each.get().standardOutput, "over");
    EXPECT_FALSE(hasChild());
}

TEST_F(SubprocessTests, outputUpToTheMaximumIsWhole)
{
    const QByteArray maximum = QByteArray::number(Subprocess::maximumOutputBytes);
    const auto run = result(helper("head -c " + maximum + " /dev/zero"));
    EXPECT_EQ(run.standardOutput.size(), Subprocess::maximumOutputBytes);
    EXPECT_TRUE(run.isOutputWhole);
    EXPECT_EQ(run.exitCode, 0);
}

TEST_F(SubprocessTests, aHelperThatWritesMoreThanTheMaximumIsKilled)
{
    const QByteArray more = QByteArray::number(Subprocess::maximumOutputBytes + 1);
    const QByteArrayList tools{"exec yes", "trap '' PIPE; while :; do head -c 100000 /dev/zero; done",
                               "head -c " + more + " /dev/zero"};
    for (const QByteArray& lines : tools) {
        const auto run = result(helper(lines));
        EXPECT_EQ(run.standardOutput.size(), Subprocess::maximumOutputBytes) << lines.toStdString();
        EXPECT_FALSE(run.isOutputWhole) << lines.toStdString();
        EXPECT_FALSE(hasChild());
    }
}

TEST_F(SubprocessTests, noDescriptorStaysOpen)
{
    const auto openFiles = [] { return QDir(QStringLiteral("/proc/self/fd")).count(); };
    const FileURL tool = helper("echo x");
    // The thread that watches helpers keeps a pipe from the first one on.
    EXPECT_EQ(result(tool).exitCode, 0);
    const auto before = openFiles();
    for (int round = 0; round < 20; ++round) {
        EXPECT_EQ(result(tool).exitCode, 0);
        EXPECT_FALSE(testing::runToItsEnd(m_mac.root()).has_value());
    }
    EXPECT_EQ(openFiles(), before);
}

} // namespace keelbright

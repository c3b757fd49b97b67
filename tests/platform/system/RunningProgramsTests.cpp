#include "KeelbrightCore/platform/system/RunningPrograms.h"

#include "tests/support/Printing.h"
#include "tests/support/TestLinux.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <unistd.h>

namespace keelbright::testing {

namespace {

QSet<QByteArray> running(TestLinux& machine)
{
    return runningPrograms(machine.fileManager());
}

} // namespace

TEST(RunningPrograms, areGivenAsTheyWereStarted)
{
    TestLinux machine;
    machine.madeUp(MadeUpLinux::Desktop::gnome)
        .addProcesses({{"/usr/lib/firefox-esr/firefox-esr", "-P", "work"},
                       {"bash"},
                       {"/opt/google/chrome/chrome --type=zygote --no-sandbox"},
                       {"/opt/My Programs/viewer"}});
    EXPECT_EQ(running(machine), (QSet<QByteArray>{"/usr/lib/firefox-esr/firefox-esr", "bash",
                                                  "/opt/google/chrome/chrome", "/opt/My Programs/viewer"}));
}

TEST(RunningPrograms, areOnlyThoseOfTheUser)
{
    TestLinux machine;
    machine.files().text("proc/7/cmdline", "/usr/lib/firefox/firefox");
    machine.files().text("proc/7/status", "Name:\tfirefox\nUid:\t" + QByteArray::number(::getuid() + 1) +
                                              "\t1\t1\t1\nGid:\t1\n");
    EXPECT_EQ(running(machine), QSet<QByteArray>());
}

TEST(RunningPrograms, whatIsNoProcessIsPassedOver)
{
    TestLinux machine;
    EXPECT_EQ(running(machine), QSet<QByteArray>()) << "there is no list";
    machine.files().text("proc/cmdline", "quiet");
    machine.files().text("proc/self/cmdline", "/usr/bin/self");
    machine.files().text("proc/12/cmdline", "");
    machine.files().folder("proc/13");
    machine.files().text("proc/14/cmdline", "/usr/bin/ended");
    EXPECT_EQ(running(machine), QSet<QByteArray>());
}

TEST(RunningPrograms, ofTheRealMachineHoldThisTest)
{
    const SystemFileManager files;
    if (!files.fileExists(FileURL::fromNativePath("/proc/self/cmdline")).exists)
        GTEST_SKIP() << "this system lists no processes";
    const QSet<QByteArray> programs = runningPrograms(files);
    EXPECT_TRUE(std::ranges::any_of(
        programs, [](const QByteArray& program) { return program.endsWith("KeelbrightPlatformTests"); }));
}

} // namespace keelbright::testing

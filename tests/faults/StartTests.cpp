// Starts of the program itself that overlap, are cut short or find the home in a poor state.

#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/system/ProgramVersion.h"
#include "KeelbrightCore/platform/text/UtcZone.h"
#include "KeelbrightCore/records/BackupConfigStore.h"
#include "tests/faults/CareFaultTest.h"
#include "tests/faults/ProgramProcess.h"
#include "tests/support/Printing.h"
#include "tests/support/TemporaryVolume.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace keelbright {
namespace {

using namespace Qt::StringLiterals;
using testing::ProgramProcess;
using testing::reasonNoVolume;
using testing::TemporaryVolume;
using testing::TestMac;

constexpr auto cameToFront = "keelbright.screens: window brought to the front";
constexpr auto noAnswer = "Keel Bright is already running, but it does not answer.\n";

/// The launcher of a program that is given no display at all.
QStringList withoutDisplay()
{
    return {u"env"_s, u"-u"_s, u"QT_QPA_PLATFORM"_s, u"-u"_s, u"DISPLAY"_s, u"-u"_s, u"WAYLAND_DISPLAY"_s};
}

class StartTest : public ::testing::Test
{
protected:
    void save() const { BackupConfigStore(support()).save(settings); }

    /// What the next start loads.
    [[nodiscard]] AppConfiguration loaded() const { return BackupConfigStore(support()).load(); }

    [[nodiscard]] FileURL support() const { return mac.home().appendingNative(".local/share"); }

    [[nodiscard]] FileURL settingsFile(const QByteArray& suffix = {}) const
    {
        return support().appendingNative("Keelbright/config.json" + suffix);
    }

    /// Takes all room of the home but this.
    void fillHome(qint64 bytesLeft) const
    {
        const FileURL filler = mac.home().appendingNative("filler");
        const int file = ::open(filler.nativePath().constData(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
        const QByteArray page(4'096, 'x');
        while (::write(file, page.constData(), static_cast<size_t>(page.size())) > 0) {
        }
        EXPECT_EQ(::ftruncate(file, ::lseek(file, 0, SEEK_END) - bytesLeft), 0);
        ::close(file);
    }

    void emptyHome() const { ::unlink(mac.home().appendingNative("filler").nativePath().constData()); }

    TestMac mac;
    const AppConfiguration settings{
        .selectedDestination = BackupDestination{QUuid::createUuid(), mac.root().appending(u"Drive"_s)},
        .customSources = {{QUuid::createUuid(), mac.home().appending(u"Code"_s), true}},
        .enabledRecommendedFolders = {u"Documents"_s, u"Music"_s},
        .lastReport = std::nullopt,
        .lastBackupTime = QDateTime(QDate(2026, 3, 1), QTime(9, 5, 42), utcZone),
    };
};

TEST_F(StartTest, aSecondStartBringsTheFirstToTheFrontAndEnds)
{
    save();
    ProgramProcess first(mac);
    ASSERT_TRUE(first.waitUntilLoaded());
    ProgramProcess second(mac);
    EXPECT_EQ(second.waitForEnd(), 0);
    EXPECT_EQ(second.output(), QByteArray());
    EXPECT_TRUE(first.waitForLine(cameToFront));
    EXPECT_TRUE(first.isRunning());
    EXPECT_EQ(loaded(), settings);
}

TEST_F(StartTest, anActionOfTheDesktopsMenuReachesTheFirst)
{
    save();
    ProgramProcess first(mac);
    ASSERT_TRUE(first.waitUntilLoaded());
    ProgramProcess second(mac, {}, {u"--storage-browser"_s});
    EXPECT_EQ(second.waitForEnd(), 0);
    EXPECT_EQ(second.output(), QByteArray());
    EXPECT_TRUE(first.waitForLine(cameToFront));
    EXPECT_TRUE(first.waitForLine("keelbright.screens: asked for: storage-browser"));
}

TEST_F(StartTest, anActionOfTheDesktopsMenuIsKnownToAFreshStart)
{
    save();
    ProgramProcess program(mac, {}, {u"--back-up-now"_s});
    EXPECT_TRUE(program.waitForLine("keelbright.screens: asked for: back-up-now"));
    program.sendSignal(SIGTERM);
    EXPECT_EQ(program.waitForEnd(), 0);
    EXPECT_EQ(loaded(), settings);
}

TEST_F(StartTest, whatOnlyPrintsNeedsNoDisplayAndTouchesNothing)
{
    ProgramProcess version(mac, withoutDisplay(), {u"--version"_s});
    EXPECT_EQ(version.waitForEnd(), 0);
    EXPECT_EQ(version.output(), QByteArray("Keel Bright " + programVersion().toUtf8() + '\n'));
    ProgramProcess help(mac, withoutDisplay(), {u"--help"_s});
    EXPECT_EQ(help.waitForEnd(), 0);
    EXPECT_TRUE(help.output().startsWith("Usage: keelbright [OPTION]\n"));
    EXPECT_FALSE(FileManager::defaultManager().fileExists(support().appendingNative("Keelbright")).exists);
}

TEST_F(StartTest, anUnknownArgumentIsRefusedInOneLine)
{
    ProgramProcess program(mac, withoutDisplay(), {u"--force"_s});
    EXPECT_EQ(program.waitForEnd(), 2);
    EXPECT_EQ(program.output(),
              QByteArray("keelbright: unknown argument \"--force\"; keelbright --help lists the options\n"));
}

TEST_F(StartTest, withoutADisplayItEndsWithOneLine)
{
    const QByteArray reason = "keelbright: there is no display to show the window on\n";
    const QStringList unreachable = {u"env"_s, u"QT_QPA_PLATFORM=xcb"_s, u"DISPLAY=:64999"_s};
    const QStringList unknown = {u"env"_s, u"QT_QPA_PLATFORM=none"_s};
    for (const QStringList& launcher : {withoutDisplay(), unreachable, unknown}) {
        ProgramProcess program(mac, launcher);
        EXPECT_EQ(program.waitForEnd(), 1) << launcher.last().toStdString();
        EXPECT_EQ(program.output(), reason) << launcher.last().toStdString();
    }
}

TEST_F(StartTest, startsAtOnceAreOneProgramAndLoseNothing)
{
    save();
    std::array<ProgramProcess, 3> starts{ProgramProcess(mac), ProgramProcess(mac), ProgramProcess(mac)};
    int running = 0;
    for (ProgramProcess& start : starts) {
        if (start.waitUntilLoaded()) {
            ++running;
            EXPECT_TRUE(start.waitForLine(cameToFront));
        } else {
            EXPECT_EQ(start.waitForEnd(), 0);
        }
    }
    EXPECT_EQ(running, 1);
    EXPECT_EQ(loaded(), settings);
}

TEST_F(StartTest, aFirstThatHangsIsReportedInOneLine)
{
    ProgramProcess first(mac);
    ASSERT_TRUE(first.waitUntilLoaded());
    first.sendSignal(SIGSTOP);
    ProgramProcess second(mac);
    EXPECT_EQ(second.waitForEnd(), 0);
    EXPECT_EQ(second.output(), noAnswer);
}

TEST_F(StartTest, aKilledFirstDoesNotHinderTheNext)
{
    save();
    {
        ProgramProcess first(mac);
        ASSERT_TRUE(first.waitUntilLoaded());
        first.sendSignal(SIGKILL);
        EXPECT_EQ(first.waitForEnd(), std::nullopt);
    }
    ProgramProcess next(mac);
    EXPECT_TRUE(next.waitUntilLoaded());
    EXPECT_EQ(loaded(), settings);
}

TEST_F(StartTest, aRequestToEndEndsItAsQuitDoes)
{
    save();
    for (const int number : {SIGTERM, SIGINT}) {
        // A test that runs in the background of a shell ignores SIGINT, and so would the program.
        ProgramProcess program(mac, {u"env"_s, u"--default-signal=INT"_s});
        ASSERT_TRUE(program.waitUntilLoaded());
        program.sendSignal(number);
        EXPECT_EQ(program.waitForEnd(), 0) << number;
        EXPECT_EQ(loaded(), settings);
    }
}

TEST_F(StartTest, aFullHomeStartsAndLosesNothing)
{
    const TemporaryVolume home(mac.home());
    if (!home.isMounted())
        GTEST_SKIP() << reasonNoVolume;
    for (const qint64 bytesLeft : {0, 4'096, 8'192, 12'288}) {
        save();
        fillHome(bytesLeft);
        {
            ProgramProcess program(mac);
            EXPECT_TRUE(program.waitUntilLoaded()) << bytesLeft;
            program.sendSignal(SIGTERM);
            EXPECT_EQ(program.waitForEnd(), 0) << bytesLeft;
        }
        EXPECT_EQ(loaded(), settings) << bytesLeft;
        emptyHome();
    }
}

TEST_F(StartTest, aSecondStartFindsTheFirstInAFullHome)
{
    const TemporaryVolume home(mac.home());
    if (!home.isMounted())
        GTEST_SKIP() << reasonNoVolume;
    save();
    fillHome(0);
    ProgramProcess first(mac);
    ASSERT_TRUE(first.waitUntilLoaded());
    ProgramProcess second(mac);
    EXPECT_EQ(second.waitForEnd(), 0);
    EXPECT_TRUE(first.waitForLine(cameToFront));
}

TEST_F(StartTest, aReadOnlyHomeStartsOnceAndLosesNothing)
{
    const TemporaryVolume home(mac.home());
    if (!home.isMounted())
        GTEST_SKIP() << reasonNoVolume;
    save();
    ASSERT_TRUE(home.makeReadOnly());
    ProgramProcess first(mac);
    EXPECT_TRUE(first.waitUntilLoaded());
    ProgramProcess second(mac);
    EXPECT_EQ(second.waitForEnd(), 0);
    EXPECT_TRUE(first.waitForLine(cameToFront));
    EXPECT_EQ(loaded(), settings);
}

TEST_F(StartTest, fortyOpenFilesAreEnough)
{
    save();
    ProgramProcess program(mac, {u"sh"_s, u"-c"_s, u"ulimit -n 40; exec \"$0\""_s});
    EXPECT_TRUE(program.waitUntilLoaded());
    program.sendSignal(SIGTERM);
    EXPECT_EQ(program.waitForEnd(), 0);
    EXPECT_EQ(loaded(), settings);
}

TEST_F(StartTest, fortyGigabytesOfHolesAreKeptAndNotRead)
{
    constexpr qint64 fortyGigabytes = 40'000'000'000;
    for (const char* name : {"config.json", "activity.json"}) {
        const FileURL file = mac.writeFile(QByteArray("Users/mira/.local/share/Keelbright/") + name, "");
        ASSERT_EQ(::truncate(file.nativePath().constData(), fortyGigabytes), 0);
    }
    ProgramProcess program(mac);
    ASSERT_TRUE(program.waitUntilLoaded());
    const QByteArray said = "Kept the config that could not be loaded: ";
    const QByteArray line = program.output().split('\n').value(0);
    ASSERT_TRUE(line.startsWith(said)) << program.output().toStdString();
    struct stat status = {};
    ASSERT_EQ(::stat(line.sliced(said.size()).constData(), &status), 0);
    EXPECT_EQ(status.st_size, fortyGigabytes);
    EXPECT_EQ(loaded().enabledRecommendedFolders, (QStringList{u"Desktop"_s, u"Documents"_s, u"Pictures"_s}));
}

} // namespace
} // namespace keelbright

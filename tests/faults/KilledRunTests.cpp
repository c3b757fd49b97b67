#include "KeelbrightCore/backup/BackupManifest.h"
#include "KeelbrightCore/backup/BackupReport.h"
#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/records/AppConfiguration.h"
#include "tests/faults/FaultTest.h"
#include "tests/faults/RunnerProcess.h"
#include "tests/support/FatImage.h"

#include <QElapsedTimer>
#include <QProcess>
#include <chrono>
#include <random>

namespace keelbright {
namespace {

using ::testing::AnyOf;
using testing::FatImage;
using testing::RunnerOutcome;
using testing::RunnerProcess;

/// Backups in a separate process that is killed during the run.
class KilledRunTest : public testing::FaultTest
{
protected:
    int fileCount = 400;

    void makeSource(int version) const
    {
        for (int number = 0; number < fileCount; ++number)
            makeFile(fileName(number), number % 50 == 0 ? 700'000 : 3'000, version);
    }

    void emptyDrive() const
    {
        const QString folder = drive.appending(QStringLiteral("Keelbright")).path();
        EXPECT_EQ(QProcess::execute(QStringLiteral("rm"), {QStringLiteral("-rf"), folder}), 0);
    }

    /// Runs a backup to its end, and gives the time that it took.
    std::chrono::microseconds wholeRun()
    {
        QElapsedTimer timer;
        timer.start();
        const RunnerOutcome outcome = RunnerProcess(*this, {documents}).finish();
        EXPECT_TRUE(outcome.hasEnded);
        EXPECT_EQ(outcome.errors, QStringList());
        EXPECT_EQ(outcome.copied, fileCount);
        return std::chrono::microseconds(timer.nsecsElapsed() / 1'000);
    }

    /// Expects the version of every file on the drive to match; a file that is not whole fails.
    void expectWholeFiles(const ::testing::Matcher<std::optional<int>>& version) const
    {
        for (int number = 0; number < fileCount; ++number)
            EXPECT_THAT(mirroredVersion(fileName(number)), version) << number;
    }

    template <typename Record> void expectWholeOrAbsent(const FileURL& url) const
    {
        if (!exists(url))
            return;
        const auto json =
            decodeJsonObject(FileManager::defaultManager().contents(url).value_or(QByteArray()));
        EXPECT_TRUE(json && Record::fromJson(*json)) << url.path().toStdString();
    }

    void expectWholeRecords()
    {
        expectWholeOrAbsent<AppConfiguration>(mac.fileManager().applicationSupportDirectory().appending(
            QStringLiteral("Keelbright/config.json")));
        expectWholeOrAbsent<BackupManifest>(latest("recovery-manifest.json"));
        if (!exists(reports()))
            return;
        for (const QByteArray& name : everythingBelow(reports())) {
            if (name.endsWith(".json"))
                expectWholeOrAbsent<BackupReport>(reports().appendingNative(name));
        }
    }

    /// Kills backups at moments spread over their whole course, and checks the files on the drive.
    void killAtRandomMoments(int times, std::chrono::microseconds whole,
                             const ::testing::Matcher<std::optional<int>>& version,
                             const std::function<void()>& between)
    {
        int killed = 0;
        for (int round = 0; killed < times && round < 5 * times; ++round) {
            std::uniform_int_distribution<qint64> moments(0, whole.count());
            const std::chrono::microseconds moment(moments(m_random));
            RunnerProcess runner(*this, {documents});
            runner.killAfter(moment);
            if (runner.finish().hasEnded)
                whole = moment; // this run was quicker: it had ended before the kill
            else
                ++killed;
            expectWholeFiles(version);
            expectWholeRecords();
            between();
        }
        EXPECT_EQ(killed, times) << "most backups had ended before they were killed";
    }

    /// Kills a backup at the `when`-th call with this name, and checks the files on the drive.
    void killAtCall(const QString& call, int when, const ::testing::Matcher<std::optional<int>>& version)
    {
        RunnerProcess runner(*this, {documents},
                             RunnerProcess::failing(call, QStringLiteral("signal=SIGKILL"), when));
        EXPECT_FALSE(runner.finish().hasEnded) << call.toStdString() << " was not called so often";
        expectWholeFiles(version);
        expectWholeRecords();
    }

private:
    std::mt19937 m_random{20'260'302};
};

TEST_F(KilledRunTest, aFirstBackupLeavesOnlyWholeFilesAndTheNextFinishesIt)
{
    makeSource(1);
    const auto whole = wholeRun();
    emptyDrive();
    int round = 0;
    killAtRandomMoments(15, whole, AnyOf(std::nullopt, std::optional(1)), [this, &round] {
        // Every second run continues what the killed one has left.
        if (++round % 2 == 0)
            emptyDrive();
    });
    wholeRun();
    expectWholeFiles(std::optional(1));
}

TEST_F(KilledRunTest, aLaterBackupLeavesOnlyOldOrNewFilesAndTheNextFinishesIt)
{
    makeSource(1);
    wholeRun();
    makeSource(2);
    const auto whole = wholeRun();
    emptyDrive();
    makeSource(1);
    wholeRun();
    int version = 1;
    killAtRandomMoments(15, whole, AnyOf(std::optional(1), std::optional(2)), [this, &version] {
        version = 3 - version;
        makeSource(version);
    });
    wholeRun();
    expectWholeFiles(std::optional(version));
}

TEST_F(KilledRunTest, leavesWholeFilesOnADriveWithoutUnnamedOnesToo)
{
    const FatImage image(64'000'000);
    if (!image.reasonMissing().empty())
        GTEST_SKIP() << image.reasonMissing();
    drive = image.root();
    fileCount = 8; // this driver can't enlarge a folder in which temporary files have been
    makeSource(1);
    const auto whole = wholeRun();
    emptyDrive();
    killAtRandomMoments(4, whole, AnyOf(std::nullopt, std::optional(1)), [] {});
    wholeRun();
    makeSource(2);
    killAtRandomMoments(4, whole, AnyOf(std::optional(1), std::optional(2)), [] {});
    wholeRun();
    expectWholeFiles(std::optional(2));
}

TEST_F(KilledRunTest, leavesNoHalfFileIfItIsKilledAtACallThatGivesAName)
{
    if (const std::string reason = RunnerProcess::reasonMissing(); !reason.empty())
        GTEST_SKIP() << reason;
    makeSource(1);
    const auto absentOrFirst = AnyOf(std::nullopt, std::optional(1));
    killAtCall(QStringLiteral("linkat"), 1, absentOrFirst);
    killAtCall(QStringLiteral("linkat"), 201, absentOrFirst);
    killAtCall(QStringLiteral("write"), 60, absentOrFirst);
    wholeRun();
    const std::optional first = 1;
    makeSource(2);
    const auto firstOrSecond = AnyOf(first, std::optional(2));
    killAtCall(QStringLiteral("renameat"), 1, first);
    killAtCall(QStringLiteral("renameat"), 77, firstOrSecond);
    killAtCall(QStringLiteral("write"), 60, firstOrSecond);
    // The last three renames are those of the manifest and of the two forms of the report.
    for (int last = 1; last <= 3; ++last)
        killAtCall(QStringLiteral("renameat"), fileCount + last, std::optional(2));
    const QByteArrayList before = temporaryFiles(drive);
    for (int last = 1; last <= 3; ++last)
        killAtCall(QStringLiteral("fdatasync"), last, std::optional(2));
    EXPECT_EQ(temporaryFiles(drive), before) << "a record has no name until it is whole";
    wholeRun();
    expectWholeFiles(std::optional(2));
}

} // namespace
} // namespace keelbright

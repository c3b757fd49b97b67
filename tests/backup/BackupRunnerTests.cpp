#include "KeelbrightCore/backup/BackupRunner.h"

#include "KeelbrightCore/backup/BackupManifest.h"
#include "KeelbrightCore/backup/BackupReport.h"
#include "KeelbrightCore/backup/BackupTask.h"
#include "KeelbrightCore/platform/text/UtcZone.h"
#include "tests/support/EngineRun.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sched.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace keelbright {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using testing::TestMac;

class BackupRunnerTest : public ::testing::Test, public testing::EngineRun
{
protected:
    [[nodiscard]] const BackupProgress& progress() const { return engine.progress(); }

    [[nodiscard]] BackupManifest manifest() const
    {
        const auto json = decodeJsonObject(TestMac::read(latest("recovery-manifest.json")));
        const auto decoded = json ? BackupManifest::fromJson(*json) : std::unexpected(json.error());
        EXPECT_TRUE(decoded.has_value());
        return decoded.value_or(BackupManifest{});
    }

    FileURL documents = mac.makeFolder("Users/mira/Documents");
};

TEST(BackupRunnerSanitize, keepsLettersDigitsHyphensUnderscoresAndSpaces)
{
    const auto sanitized = [](const char16_t* text) {
        return BackupRunner::sanitize(QString::fromUtf16(text));
    };
    EXPECT_EQ(sanitized(u"Mira's Mac!"), QStringLiteral("Miras Mac"));
    EXPECT_EQ(sanitized(u"a-b_c d"), QStringLiteral("a-b_c d"));
    EXPECT_EQ(sanitized(u" Zoë's Größe 2 "), QStringLiteral(" Zoës Größe 2 "));
    EXPECT_EQ(sanitized(u"日本語の Mac/９"), QStringLiteral("日本語の Mac９"));
    EXPECT_EQ(sanitized(u"e\u0301\u2167"), QStringLiteral("e\u0301\u2167"))
        << "marks and letter numbers count";
    EXPECT_EQ(sanitized(u"\U00020000\U0001F600"), QString::fromUcs4(U"\U00020000"));
    EXPECT_EQ(sanitized(u"../..:\n"), QString());
}

TEST_F(BackupRunnerTest, mirrorsASourceAndCountsWhatItDid)
{
    mac.writeFile("Users/mira/Documents/letter.txt", "12345");
    mac.writeFile("Users/mira/Documents/2025/tax.pdf", "1234567");
    mac.writeFile("Users/mira/Documents/node_modules/package/index.js", "x");
    mac.writeFile("Users/mira/Documents/disk.DMG", "x");
    mac.makeFolder("Users/mira/Documents/empty");
    run({documents});
    EXPECT_EQ(TestMac::read(mirrored("Documents/letter.txt")), "12345");
    EXPECT_EQ(TestMac::read(mirrored("Documents/2025/tax.pdf")), "1234567");
    EXPECT_THAT(everythingBelow(mirrored("")),
                ElementsAre("Documents", "Documents/2025", "Documents/2025/tax.pdf", "Documents/letter.txt"));
    EXPECT_EQ(progress().filesCopied, 2);
    EXPECT_EQ(progress().filesSkipped, 2) << "the folder as one item, and the image";
    EXPECT_EQ(progress().bytesCopied, 12);
    EXPECT_EQ(progress().totalFilesEstimate, 2);
    EXPECT_THAT(progress().errors, IsEmpty());
    EXPECT_EQ(progress().fractionCompleted(), 1.0);
}

TEST_F(BackupRunnerTest, laysOutTheDriveAndReportsIt)
{
    mac.writeFile("Users/mira/Documents/letter.txt", "12345");
    const BackupJob order = job({documents});
    run(order);
    ASSERT_TRUE(engine.lastReport().has_value());
    const BackupReport& report = *engine.lastReport();
    EXPECT_EQ(report.jobId, order.id);
    EXPECT_FALSE(report.id.isNull());
    EXPECT_GE(report.completedAt, report.startedAt);
    EXPECT_GT(report.startedAt, order.startedAt) << "the run's own start, not the order's";
    EXPECT_EQ(report.sourcePaths, QStringList{documents.path()});
    EXPECT_EQ(report.destinationPath, drive.path());
    EXPECT_EQ(report.personalFilesPath, mirrored("").path());
    EXPECT_EQ(report.manifestPath, latest("recovery-manifest.json").path());
    EXPECT_EQ(report.filesCopied, 1);
    EXPECT_EQ(report.bytesCopied, 5);
    EXPECT_THAT(everythingBelow(drive),
                ::testing::AllOf(Contains("Keelbright/miras Mac/Latest/recovery-manifest.json"),
                                 Contains("Keelbright/miras Mac/Latest/Personal Files/Documents/letter.txt"),
                                 Contains(::testing::HasSubstr("Reports/backup-report-"))));
    EXPECT_EQ(everythingBelow(reports()).size(), 2);
    EXPECT_EQ(manifest().backupDate, order.startedAt) << "the order's start, not the run's";
    EXPECT_EQ(manifest().deviceName, QStringLiteral("mira's Mac!"));
    EXPECT_EQ(engine.lastError(), std::nullopt);
}

TEST_F(BackupRunnerTest, writesManifestAndReportWithEverySourceDisabled)
{
    mac.writeFile("Users/mira/Documents/letter.txt", "12345");
    BackupJob order = job({documents});
    order.sources[0].isEnabled = false;
    run(order);
    ASSERT_TRUE(engine.lastReport().has_value());
    EXPECT_EQ(engine.lastReport()->filesCopied, 0);
    EXPECT_EQ(engine.lastReport()->filesSkipped, 0);
    EXPECT_EQ(engine.lastReport()->sourcePaths, QStringList{documents.path()});
    EXPECT_EQ(manifest().sourceFolders, QStringList{documents.path()});
    EXPECT_EQ(everythingBelow(reports()).size(), 2);
    EXPECT_FALSE(mac.fileManager().fileExists(mirrored("")).exists);
}

TEST_F(BackupRunnerTest, copiesEverythingAgainOnTheNextRunAndRemovesNothing)
{
    const FileURL kept = mac.writeFile("Users/mira/Documents/kept.txt", "old");
    const FileURL gone = mac.writeFile("Users/mira/Documents/gone.txt", "12345");
    ASSERT_EQ(::symlink("nowhere", documents.appendingNative("dangling").nativePath().constData()), 0);
    run({documents});
    EXPECT_EQ(progress().filesCopied, 3);
    mac.writeFile("Users/mira/Documents/kept.txt", "newer");
    run({documents});
    EXPECT_EQ(progress().filesCopied, 3) << "unchanged files too, and links";
    EXPECT_THAT(progress().errors, IsEmpty());
    ASSERT_EQ(::unlink(gone.nativePath().constData()), 0);
    run({documents});
    EXPECT_EQ(progress().filesCopied, 2);
    EXPECT_THAT(everythingBelow(mirrored("Documents")), ElementsAre("dangling", "gone.txt", "kept.txt"))
        << "no temporary file is left either";
    EXPECT_EQ(TestMac::read(mirrored("Documents/kept.txt")), "newer");
}

TEST_F(BackupRunnerTest, letsTheSourceWinOverANewerCopyOnTheDrive)
{
    const FileURL file = mac.writeFile("Users/mira/Documents/a", "from the source");
    const timespec old[2] = {{1'000'000'000, 0}, {1'000'000'000, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, file.nativePath().constData(), old, 0), 0);
    run({documents});
    mac.writeFile(mirrored("Documents/a").nativePath().mid(mac.root().nativePath().size()),
                  "newer and longer, but not mine");
    run({documents});
    EXPECT_EQ(TestMac::read(mirrored("Documents/a")), "from the source");
}

TEST_F(BackupRunnerTest, mergesSourcesOfTheSameNameAndLetsTheLaterWin)
{
    mac.writeFile("one/Photos/both.jpg", "first");
    mac.writeFile("one/Photos/one.jpg", "1");
    mac.writeFile("two/Photos/both.jpg", "second");
    run({mac.root().appending(QStringLiteral("one/Photos")),
         mac.root().appending(QStringLiteral("two/Photos"))});
    EXPECT_EQ(TestMac::read(mirrored("Photos/both.jpg")), "second");
    EXPECT_EQ(TestMac::read(mirrored("Photos/one.jpg")), "1");
    EXPECT_EQ(progress().filesCopied, 3);
}

TEST_F(BackupRunnerTest, addsNoLevelForADeviceNameOfRemovedCharactersOnly)
{
    mac.writeFile("etc/machine-info", "PRETTY_HOSTNAME='!!!'\n");
    mac.writeFile("Users/mira/Documents/a", "x");
    run({documents});
    EXPECT_EQ(TestMac::read(drive.appendingNative("Keelbright/Latest/Personal Files/Documents/a")), "x");
    EXPECT_TRUE(mac.fileManager().fileExists(drive.appendingNative("Keelbright/Reports")).isDirectory);
}

TEST_F(BackupRunnerTest, filesADeviceWithoutANameUnderMyMac)
{
    mac.writeFile("etc/machine-info", "");
    const BackupJob order = job({documents});
    const auto task = BackupTask::create(engine);
    std::atomic<bool> hasEnded = false;
    bool isNameless = false;
    // Only this thread sees a host without a name.
    std::thread thread([&] {
        isNameless = ::unshare(CLONE_NEWUTS) == 0 && ::sethostname("", 0) == 0;
        if (isNameless)
            BackupRunner::run(order, *task);
        hasEnded = true;
    });
    turnUntil([&] { return hasEnded.load(); });
    thread.join();
    if (!isNameless)
        GTEST_SKIP() << "taking the host's name away needs a name space of its own, and so root";
    const auto json = decodeJsonObject(
        TestMac::read(drive.appendingNative("Keelbright/MyMac/Latest/recovery-manifest.json")));
    ASSERT_TRUE(json.has_value());
    EXPECT_EQ(json->string(QStringLiteral("deviceName")), QStringLiteral("Unknown Mac"));
}

TEST_F(BackupRunnerTest, lastsNoTimeByAClockThatIsSetBack)
{
    mac.writeFile("Users/mira/Documents/a", "x");
    const BackupJob order = job({documents});
    const auto task = BackupTask::create(engine);
    const QDateTime start(QDate(2026, 3, 2), QTime(9, 5, 7), utcZone);
    const auto clock = [start, reads = 0]() mutable { return start.addSecs(-3'600 * reads++); };
    std::atomic<bool> hasEnded = false;
    std::thread thread([&] {
        BackupRunner::run(order, *task, clock);
        hasEnded = true;
    });
    turnUntil([&] { return hasEnded.load(); });
    thread.join();
    ASSERT_TRUE(engine.lastReport().has_value());
    EXPECT_EQ(engine.lastReport()->startedAt, start);
    EXPECT_EQ(engine.lastReport()->durationSeconds(), 0.0);
    EXPECT_TRUE(TestMac::read(reports().appendingNative("backup-report-20260302-090507.md"))
                    .contains("**Duration:** 0.0s\n"));
}

TEST_F(BackupRunnerTest, keepsTheReportsOfRunsWithinOneSecond)
{
    mac.writeFile("Users/mira/Documents/a", "x");
    for (int i = 0; i < 6; ++i)
        run({documents});
    EXPECT_EQ(everythingBelow(reports()).size(), 12);
}

TEST_F(BackupRunnerTest, doesNothingWithASourceOfHiddenItemsOnly)
{
    mac.writeFile("Users/mira/Documents/.hidden/file", "x");
    mac.writeFile("Users/mira/Documents/.file", "x");
    run({documents});
    EXPECT_EQ(progress().filesCopied, 0);
    EXPECT_EQ(progress().filesSkipped, 0);
}

TEST_F(BackupRunnerTest, copiesWhatLiesInABundleThatItselfIsSkipped)
{
    mac.writeFile("Users/mira/Documents/Tool.app/Contents/Info.plist", "x");
    mac.writeFile("Users/mira/Documents/Tool.app/Contents/lib.dylib", "x");
    run({documents});
    EXPECT_EQ(progress().filesCopied, 1);
    EXPECT_EQ(progress().filesSkipped, 2);
    EXPECT_EQ(TestMac::read(mirrored("Documents/Tool.app/Contents/Info.plist")), "x");
}

TEST_F(BackupRunnerTest, neverCopiesItsOwnCopiesHoweverTheyAreReached)
{
    mac.writeFile("Data/Documents/letter.txt", "12345");
    mac.writeFile("Data/Documents/Drive/other.txt", "12345");
    drive = mac.root().appending(QStringLiteral("Data/Documents/Drive"));
    const FileURL link = mac.root().appending(QStringLiteral("Linked"));
    ASSERT_EQ(::symlink("Data/Documents", link.nativePath().constData()), 0);
    for (int round = 0; round < 3; ++round) {
        run({link});
        EXPECT_THAT(progress().errors, IsEmpty());
        EXPECT_EQ(progress().filesCopied, 2);
        EXPECT_EQ(progress().totalFilesEstimate, 2);
        EXPECT_THAT(everythingBelow(mirrored("Linked")),
                    ElementsAre("Drive", "Drive/other.txt", "letter.txt"));
    }
}

TEST_F(BackupRunnerTest, followsASourceThatIsALinkAndNoLinkBelowIt)
{
    mac.writeFile("elsewhere/file", "x");
    mac.writeFile("elsewhere/folder/inside", "x");
    ASSERT_EQ(::symlink("folder",
                        mac.root().appending(QStringLiteral("elsewhere/toFolder")).nativePath().constData()),
              0);
    ASSERT_EQ(
        ::symlink("file", mac.root().appending(QStringLiteral("elsewhere/toFile")).nativePath().constData()),
        0);
    const FileURL link = mac.root().appending(QStringLiteral("Linked"));
    ASSERT_EQ(::symlink("elsewhere", link.nativePath().constData()), 0);
    run({link});
    EXPECT_THAT(everythingBelow(mirrored("Linked")), ElementsAre("file", "folder", "folder/inside", "toFile"))
        << "a link to a folder is neither copied nor walked; one to a file is copied as a link";
    struct stat status = {};
    ASSERT_EQ(::lstat(mirrored("Linked/toFile").nativePath().constData(), &status), 0);
    EXPECT_TRUE(S_ISLNK(status.st_mode));
}

TEST_F(BackupRunnerTest, reportsASourceThatIsMissing)
{
    const FileURL missing = mac.root().appending(QStringLiteral("Users/mira/Missing"));
    mac.writeFile("Users/mira/Documents/a", "x");
    run({missing, documents});
    EXPECT_EQ(progress().errors, QStringList{QStringLiteral("Cannot enumerate: ") + missing.path()});
    EXPECT_EQ(progress().filesCopied, 1);
    EXPECT_EQ(progress().filesSkipped, 0);
}

TEST_F(BackupRunnerTest, skipsASourceWhoseFolderCannotBeCreated)
{
    mac.writeFile("Users/mira/Documents/a", "x");
    mac.writeFile("Volumes/Drive/Keelbright/miras Mac/Latest/Personal Files/Documents", "in the way");
    run({documents});
    EXPECT_EQ(
        progress().errors,
        QStringList{
            QStringLiteral("Cannot create ") + mirrored("Documents").path() +
            QStringLiteral(": “Documents” could not be created: a file stands in the place of a folder.")});
    EXPECT_EQ(progress().filesSkipped, 0) << "given up without a skip count";
    EXPECT_TRUE(engine.lastReport().has_value());
}

TEST_F(BackupRunnerTest, neverWritesThroughALinkInTheMirror)
{
    mac.writeFile("Users/mira/Documents/folder/a", "x");
    mac.writeFile("Users/mira/Documents/folder/b", "x");
    mac.makeFolder("elsewhere");
    mac.makeFolder("Volumes/Drive/Keelbright/miras Mac/Latest/Personal Files/Documents");
    ASSERT_EQ(::symlink("/elsewhere", mirrored("Documents/folder").nativePath().constData()), 0);
    run({documents});
    const QString line =
        QStringLiteral("Dir error ") + mirrored("Documents/folder").path() +
        QStringLiteral(": “folder” could not be created: a symbolic link stands in the place of a folder.");
    EXPECT_EQ(progress().errors, QStringList({line, line})) << "a line for each item";
    EXPECT_EQ(progress().filesSkipped, 2);
    EXPECT_EQ(progress().filesCopied, 0);
    EXPECT_THAT(everythingBelow(mac.root().appending(QStringLiteral("elsewhere"))), IsEmpty());
}

TEST_F(BackupRunnerTest, reportsAnItemThatIsNotAFileAndContinues)
{
    ASSERT_EQ(::mkfifo(documents.appendingNative("pipe").nativePath().constData(), 0600), 0);
    mac.writeFile("Users/mira/Documents/z", "x");
    run({documents});
    EXPECT_EQ(progress().errors,
              QStringList{
                  QStringLiteral("Skip pipe: “pipe” could not be copied: it is neither a file nor a link.")});
    EXPECT_EQ(progress().filesSkipped, 1);
    EXPECT_EQ(progress().filesCopied, 1);
    EXPECT_EQ(engine.lastReport()->errors.size(), 1);
}

TEST_F(BackupRunnerTest, cannotStartWithoutItsFolders)
{
    mac.writeFile("Users/mira/Documents/a", "x");
    mac.writeFile("Volumes/Drive/Keelbright", "a file in the way");
    run({documents});
    EXPECT_EQ(engine.lastError(), QStringLiteral("Could not create backup folders: “Keelbright” could not be "
                                                 "created: a file stands in the place of a folder."));
    EXPECT_EQ(engine.lastReport(), std::nullopt);
    EXPECT_FALSE(engine.isRunning());
    EXPECT_THAT(everythingBelow(drive), ElementsAre("Keelbright"));
}

TEST_F(BackupRunnerTest, cannotStartOnADestinationThatIsAbsent)
{
    BackupJob order = job({documents});
    order.destination.url = mac.root().appending(QStringLiteral("Volumes/Unplugged"));
    run(order);
    EXPECT_EQ(engine.lastError(),
              QStringLiteral(
                  "Could not create backup folders: “Unplugged” could not be opened: it does not exist."));
    EXPECT_FALSE(mac.fileManager().fileExists(order.destination.url).exists)
        << "nothing is made in the place where a drive is mounted";
}

TEST_F(BackupRunnerTest, reportsAManifestThatCannotBeWritten)
{
    mac.writeFile("Users/mira/Documents/a", "x");
    mac.makeFolder("Volumes/Drive/Keelbright/miras Mac/Latest/recovery-manifest.json");
    run({documents});
    const QString line =
        QStringLiteral("Manifest write failed: “recovery-manifest.json” could not be written: "
                       "a folder stands in its place.");
    ASSERT_TRUE(engine.lastReport().has_value());
    EXPECT_EQ(engine.lastReport()->manifestPath, QStringLiteral("Failed"));
    EXPECT_EQ(engine.lastReport()->errors, QStringList{line});
    EXPECT_EQ(progress().filesCopied, 1);
}

TEST_F(BackupRunnerTest, keepsAFailedReportOutOfTheReport)
{
    mac.writeFile("Users/mira/Documents/a", "x");
    const FileURL folder = mac.makeFolder("Volumes/Drive/Keelbright/miras Mac/Reports");
    // The folder goes as soon as the run has begun to copy.
    QObject::connect(&engine, &BackupEngine::progressChanged, [&] {
        if (engine.progress().filesCopied == 1)
            ::rmdir(folder.nativePath().constData());
    });
    run({documents});
    EXPECT_EQ(progress().errors.size(), 1);
    EXPECT_TRUE(
        progress().errors.value(0).startsWith(QStringLiteral("Report write failed: “backup-report-")));
    ASSERT_TRUE(engine.lastReport().has_value());
    EXPECT_THAT(engine.lastReport()->errors, IsEmpty());
}

TEST_F(BackupRunnerTest, copiesNamesOfAnyBytesInPlacesOfAnyBytes)
{
    const QByteArray folder = "odd \xff\n";
    mac.writeFile("Users/mira/" + folder + "/sub\xfe/" + QByteArray(250, 'n') + "\xf0\x01", "content");
    run({mac.home().appendingNative(folder)});
    EXPECT_THAT(progress().errors, IsEmpty());
    EXPECT_EQ(TestMac::read(mirrored(folder + "/sub\xfe/" + QByteArray(250, 'n') + "\xf0\x01")), "content");
}

} // namespace
} // namespace keelbright

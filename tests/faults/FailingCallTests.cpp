#include "tests/faults/FaultTest.h"
#include "tests/faults/RunnerProcess.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace keelbright {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::RunnerOutcome;
using testing::RunnerProcess;
using ::testing::SizeIs;
using testing::TestMac;

constexpr int fileCount = 5;

/// Backups in a separate process in which one system call fails.
class FailingCallTest : public testing::FaultTest
{
protected:
    void SetUp() override
    {
        if (const std::string reason = RunnerProcess::reasonMissing(); !reason.empty())
            GTEST_SKIP() << reason;
        makeFiles(fileCount, 3'000);
    }

    RunnerOutcome runFailing(const char* call, const char* error, int when, const QString& path = {})
    {
        const QStringList options = RunnerProcess::failing(
            QString::fromUtf8(call), QStringLiteral("error=") + QString::fromUtf8(error), when, path);
        const RunnerOutcome outcome = RunnerProcess(*this, {documents}, options).finish();
        EXPECT_TRUE(outcome.hasEnded);
        return outcome;
    }

    void runWhole()
    {
        const RunnerOutcome outcome = RunnerProcess(*this, {documents}).finish();
        EXPECT_TRUE(outcome.hasEnded);
        EXPECT_EQ(outcome.errors, QStringList());
    }

    /// Expects that one file was skipped with this line and all others are copied; `left` is the version
    /// of the failed file on the drive.
    void expectOneSkip(const RunnerOutcome& outcome, const QByteArray& name, const char* reason,
                       std::optional<int> left = std::nullopt, int version = 1) const
    {
        EXPECT_EQ(outcome.errors, QStringList{skipLine(name, reason)});
        EXPECT_EQ(outcome.copied, fileCount - 1);
        EXPECT_EQ(outcome.skipped, 1);
        for (const QByteArray& other : walkingOrder())
            EXPECT_EQ(mirroredVersion(other), other == name ? left : version) << other.toStdString();
        EXPECT_EQ(outcome.manifestPath, latest("recovery-manifest.json").path());
    }

    /// Makes a file with data at its beginning, in its middle and at its end, and holes between.
    [[nodiscard]] FileURL makeSparse() const
    {
        constexpr off_t middle = 400'000;
        FileURL sparse = mac.writeFile("Users/mira/Documents/sparse", "start");
        const int file = ::open(sparse.nativePath().constData(), O_WRONLY | O_CLOEXEC);
        EXPECT_EQ(::pwrite(file, "middle", 6, middle), 6);
        EXPECT_EQ(::pwrite(file, "end", 3, 2 * middle), 3);
        ::close(file);
        return sparse;
    }

    /// Gives files modes that can't be set at their creation.
    void giveUncommonModes() const
    {
        for (const QByteArray& name : walkingOrder())
            ASSERT_EQ(::chmod(documents.appendingNative(name).nativePath().constData(), 01644), 0);
    }

    [[nodiscard]] QString pathOf(const QByteArray& name) const
    {
        return documents.appendingNative(name).path();
    }

    const QByteArray chosen = fileName(2);
    const QString chosenName = QString::fromUtf8(chosen);
};

TEST_F(FailingCallTest, reportsAFileThatCannotBeOpened)
{
    const RunnerOutcome outcome = runFailing("openat", "EIO", 1, chosenName);
    expectOneSkip(outcome, chosen, "read: the drive reported an error.");
}

TEST_F(FailingCallTest, retriesAFileAfterTooManyWereOpen)
{
    const RunnerOutcome outcome = runFailing("openat", "EMFILE", 1, chosenName);
    EXPECT_EQ(outcome.errors, QStringList());
    EXPECT_EQ(outcome.copied, fileCount);
}

TEST_F(FailingCallTest, reportsAFileThatCannotBeReadToItsEnd)
{
    const RunnerOutcome outcome = runFailing("read", "EIO", 1, pathOf(chosen));
    expectOneSkip(outcome, chosen, "read: the drive reported an error.");
    EXPECT_THAT(temporaryFiles(drive), IsEmpty());
}

/// What macOS answers for a file that only its cloud provider has, where it may fetch none.
TEST_F(FailingCallTest, skipsAFileThatIsNotOnThisMachine)
{
    for (const char* call : {"openat", "read"}) {
        const QString item = qstrcmp(call, "openat") == 0 ? chosenName : pathOf(chosen);
        const RunnerOutcome outcome = runFailing(call, "EDEADLK", 1, item);
        expectOneSkip(outcome, chosen, "read: it is not on this Mac.");
        EXPECT_THAT(temporaryFiles(drive), IsEmpty());
    }
}

TEST_F(FailingCallTest, skipsAFolderWhoseListIsNotOnThisMachine)
{
    const RunnerOutcome outcome = runFailing("getdents64", "EDEADLK", 3, documents.path());
    EXPECT_EQ(outcome.errors,
              QStringList{skipLine("Documents", "listed completely: it is not on this Mac.")});
    EXPECT_EQ(outcome.copied, 0);
    EXPECT_EQ(outcome.skipped, 1);
}

TEST_F(FailingCallTest, continuesAfterAnInterruptedRead)
{
    const RunnerOutcome outcome = runFailing("read", "EINTR", 1, pathOf(chosen));
    EXPECT_EQ(outcome.errors, QStringList());
    EXPECT_EQ(mirroredVersion(chosen), 1);
}

TEST_F(FailingCallTest, reportsALargeFileWhoseCopyFails)
{
    makeFile(chosen, 2'000'000);
    const RunnerOutcome outcome = runFailing("copy_file_range", "EIO", 1);
    expectOneSkip(outcome, chosen, "copied: the drive reported an error.");
    EXPECT_THAT(temporaryFiles(drive), IsEmpty());
}

TEST_F(FailingCallTest, copiesALargeFileByReadingAndWritingIfTheFastCallIsRefused)
{
    makeFile(chosen, 2'000'000);
    const RunnerOutcome outcome = runFailing("copy_file_range", "EXDEV", 1);
    EXPECT_EQ(outcome.errors, QStringList());
    EXPECT_EQ(mirroredVersion(chosen), 1);
}

TEST_F(FailingCallTest, reportsAFileWhoseHolesCannotAllBeFound)
{
    const FileURL sparse = makeSparse();
    // The calls seek the first data, its end, its beginning again, and then the next data.
    const RunnerOutcome outcome = runFailing("lseek", "EIO", 4, sparse.path());
    EXPECT_EQ(outcome.errors, QStringList{skipLine("sparse", "read: the drive reported an error.")});
    EXPECT_EQ(outcome.skipped, 1);
    EXPECT_FALSE(exists(mirrored("Documents/sparse")));
    const RunnerOutcome first = runFailing("lseek", "EIO", 1, sparse.path());
    EXPECT_EQ(first.errors, outcome.errors);
}

TEST_F(FailingCallTest, copiesASparseFileWholeIfItsHolesAreUnknown)
{
    const FileURL sparse = makeSparse();
    const RunnerOutcome outcome = runFailing("lseek", "EINVAL", 1, sparse.path());
    EXPECT_EQ(outcome.errors, QStringList());
    EXPECT_TRUE(TestMac::read(mirrored("Documents/sparse")) == TestMac::read(sparse));
}

TEST_F(FailingCallTest, reportsAFileThatCannotBeNamed)
{
    const RunnerOutcome outcome = runFailing("linkat", "EIO", 1, chosenName);
    expectOneSkip(outcome, chosen, "copied: the drive reported an error.");
    EXPECT_THAT(temporaryFiles(drive), IsEmpty());
}

TEST_F(FailingCallTest, retriesAFileWhoseNameFoundNoRoom)
{
    const RunnerOutcome outcome = runFailing("linkat", "EDQUOT", 1, chosenName);
    EXPECT_EQ(outcome.errors, QStringList());
    EXPECT_EQ(outcome.copied, fileCount);
    EXPECT_THAT(temporaryFiles(drive), IsEmpty());
}

TEST_F(FailingCallTest, keepsTheOldFileIfTheSwapFails)
{
    runWhole();
    makeFiles(fileCount, 2'000, 2);
    const RunnerOutcome outcome = runFailing("renameat", "EIO", 1, chosenName);
    expectOneSkip(outcome, chosen, "replaced: the drive reported an error.", 1, 2);
}

TEST_F(FailingCallTest, reportsAFileWhoseModeOrTimesCannotBeSet)
{
    giveUncommonModes();
    const QByteArray third = walkingOrder().at(2);
    constexpr int ofTheFolder = 2; // closed to others first, then given its mode as far as copying allows
    expectOneSkip(runFailing("fchmod", "EIO", ofTheFolder + 3), third,
                  "copied: the drive reported an error.");
    EXPECT_THAT(temporaryFiles(drive), IsEmpty());
    expectOneSkip(runFailing("utimensat", "EIO", 3), third, "copied: the drive reported an error.",
                  std::nullopt);
}

TEST_F(FailingCallTest, copiesAFileWhoseModeOrTimesTheDriveCannotHold)
{
    giveUncommonModes();
    for (const char* refusal : {"EPERM", "EOPNOTSUPP", "ENOSYS"}) {
        for (const char* call : {"fchmod", "utimensat"}) {
            const RunnerOutcome outcome = runFailing(call, refusal, 3);
            EXPECT_EQ(outcome.errors, QStringList()) << call << refusal;
            EXPECT_EQ(outcome.copied, fileCount);
        }
    }
}

TEST_F(FailingCallTest, reportsALinkThatCannotBeRead)
{
    ASSERT_EQ(::symlink("f0000", documents.appendingNative("link").nativePath().constData()), 0);
    const RunnerOutcome outcome = runFailing("readlinkat", "EIO", 1, QStringLiteral("link"));
    EXPECT_EQ(outcome.errors, QStringList{skipLine("link", "read: the drive reported an error.")});
    EXPECT_EQ(outcome.copied, fileCount);
    EXPECT_EQ(outcome.skipped, 1);
}

TEST_F(FailingCallTest, reportsAFolderWhoseListingFails)
{
    const QString line = skipLine("Documents", "listed completely: the drive reported an error.");
    // Two calls belong to the estimate, the third lists all files, the fourth finds no more.
    const RunnerOutcome late = runFailing("getdents64", "EIO", 4, documents.path());
    EXPECT_EQ(late.errors, QStringList{line});
    EXPECT_EQ(late.copied, fileCount);
    EXPECT_EQ(late.skipped, 1);
    const RunnerOutcome early = runFailing("getdents64", "EIO", 3, documents.path());
    EXPECT_EQ(early.errors, QStringList{line});
    EXPECT_EQ(early.copied, 0);
    EXPECT_EQ(early.skipped, 1);
}

TEST_F(FailingCallTest, continuesTheEstimateAfterAFailedListing)
{
    const RunnerOutcome outcome = runFailing("getdents64", "EIO", 1, documents.path());
    EXPECT_EQ(outcome.errors, QStringList());
    EXPECT_EQ(outcome.copied, fileCount);
}

TEST_F(FailingCallTest, skipsASourceWhoseFolderCannotBeMade)
{
    const RunnerOutcome outcome = runFailing("mkdirat", "EIO", 1, QStringLiteral("Documents"));
    EXPECT_EQ(outcome.errors,
              QStringList{QStringLiteral("Cannot create %1: “Documents” could not be created: the drive "
                                         "reported an error.")
                              .arg(mirrored("Documents").path())});
    EXPECT_EQ(outcome.copied, 0);
    EXPECT_EQ(outcome.skipped, 0);
}

TEST_F(FailingCallTest, neverReportsSuccessIfTheBackupDidNotReachTheDrive)
{
    const RunnerOutcome outcome = runFailing("syncfs", "EIO", 1);
    EXPECT_EQ(outcome.errors,
              QStringList{QStringLiteral("Skip Drive: “Latest” could not be written through to the drive: "
                                         "the drive reported an error.")});
    EXPECT_EQ(outcome.copied, fileCount);
}

TEST_F(FailingCallTest, reportsAManifestAndAReportThatDidNotReachTheDrive)
{
    const RunnerOutcome outcome = runFailing("fdatasync", "EIO", 1);
    EXPECT_EQ(outcome.errors,
              QStringList{QStringLiteral("Manifest write failed: “recovery-manifest.json” could not be "
                                         "written: the drive reported an error.")});
    EXPECT_EQ(outcome.manifestPath, QStringLiteral("Failed"));
    EXPECT_FALSE(exists(latest("recovery-manifest.json")));
    EXPECT_THAT(temporaryFiles(drive), IsEmpty());
    const RunnerOutcome second = runFailing("fdatasync", "EIO", 3);
    ASSERT_EQ(second.errors.size(), 1);
    EXPECT_TRUE(second.errors[0].startsWith(QStringLiteral("Report write failed: “backup-report-")));
    EXPECT_TRUE(second.errors[0].endsWith(QStringLiteral(".md” could not be written: the drive reported an "
                                                         "error.")));
    EXPECT_THAT(temporaryFiles(drive), IsEmpty());
}

// The number of a write depends on how often the main thread was woken, so all are tried.
TEST_F(FailingCallTest, reportsEveryFailedWriteOnce)
{
    if (KEELBRIGHT_IS_SANITIZED)
        GTEST_SKIP() << "a sanitizer writes by itself to check what it may read, and gives up";
    int hits = 0;
    for (int when = 1; when <= 16; ++when) {
        const RunnerOutcome outcome = runFailing("write", "EIO", when);
        EXPECT_EQ(outcome.copied + outcome.skipped, fileCount);
        EXPECT_LE(outcome.errors.size(), 1) << outcome.errors.join(u'\n').toStdString();
        EXPECT_THAT(temporaryFiles(drive), IsEmpty());
        for (const QByteArray& name : walkingOrder()) {
            const bool isReported =
                outcome.errors.contains(skipLine(name, "copied: the drive reported an error."));
            EXPECT_EQ(outcome.skipped == 1 && isReported, isReported);
            EXPECT_EQ(mirroredVersion(name), isReported ? std::nullopt : std::optional(1));
            hits += isReported ? 1 : 0;
            ::unlink(mirrored("Documents/" + name).nativePath().constData());
        }
    }
    EXPECT_GE(hits, 2) << "too few writes of files were failed";
}

} // namespace
} // namespace keelbright

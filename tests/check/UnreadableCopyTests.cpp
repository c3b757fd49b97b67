// Drives and originals that can't be read.

#include "tests/check/CheckTestCase.h"
#include "tests/support/BackgroundWork.h"
#include "tests/support/FailingDrive.h"
#include "tests/support/UnprivilegedUser.h"

#include <QThread>

namespace keelbright {
namespace {

using testing::content;
using ::testing::ElementsAre;
using testing::FailingDrive;
using ::testing::UnorderedElementsAre;

class UnreadableCopyTests : public testing::CheckTestCase
{
protected:
    void backUpTo(const FileURL& drive)
    {
        run.drive = drive;
        backUp();
    }
};

TEST_F(UnreadableCopyTests, aDriveThatFailsReadsGivesAFaultWithItsReasonForEachFile)
{
    const FailingDrive broken(QStringLiteral("read"), 0, QStringLiteral("EIO"));
    if (!broken.reasonMissing().empty())
        GTEST_SKIP() << broken.reasonMissing();
    write("a", content(300'000));
    write("b", content(3));
    backUpTo(broken.root());
    const CheckReport report = check();
    EXPECT_EQ(report.end, CheckReport::End::complete);
    EXPECT_EQ(counts(report), (Counts{{"unreadable", 2}}));
    EXPECT_THAT(items(report), UnorderedElementsAre(copy("a"), copy("b")));
    for (const CheckFinding& finding : report.findings)
        EXPECT_EQ(finding.error->localizedDescription(),
                  QStringLiteral("“%1” could not be read: the drive reported an error.")
                      .arg(finding.item.lastPathComponent()));
    EXPECT_FALSE(report.isFromDrive) << "a program answers for that drive";
    EXPECT_EQ(report.checksums->count(), 0);
}

TEST_F(UnreadableCopyTests, aBadBlockMakesTheOneFileUnreadableThatHasIt)
{
    const FailingDrive drive(QStringLiteral("block"), 300'000, QStringLiteral("EIO"));
    if (!drive.reasonMissing().empty())
        GTEST_SKIP() << drive.reasonMissing();
    write("short 1", content(200'000));
    write("bad", content(600'000));
    write("short 2", content(200'000));
    backUpTo(drive.root());
    const CheckReport report = check();
    EXPECT_EQ(report.end, CheckReport::End::complete);
    EXPECT_EQ(counts(report), (Counts{{"same", 2}, {"unreadable", 1}}));
    EXPECT_THAT(items(report), ElementsAre(copy("bad")));
    EXPECT_EQ(report.findings.first().error->code, EIO);
}

TEST_F(UnreadableCopyTests, aFolderThatCantBeListedIsAFault)
{
    const FailingDrive drive(QStringLiteral("list"), 1'000'000, QStringLiteral("EIO"));
    if (!drive.reasonMissing().empty())
        GTEST_SKIP() << drive.reasonMissing();
    write("a", "1");
    backUpTo(drive.root());
    drive.failNow();
    const CheckReport report = check();
    EXPECT_EQ(report.count(CopyVerdict::unreadable), 1);
    EXPECT_EQ(report.unreadableFolders, 1);
    EXPECT_EQ(report.checked, 0);
    EXPECT_THAT(items(report), ElementsAre(run.latest("Personal Files")));
}

TEST_F(UnreadableCopyTests, whatIsKeptFromTheUserIsAFaultAndWhatBelongsToOthersIsCompared)
{
    for (const char* name : {"open", "closed", "room/inside"})
        write(name, "1234");
    backUp();
    const auto setMode = [](const FileURL& item, mode_t mode) {
        ASSERT_EQ(::chmod(item.nativePath().constData(), mode), 0);
    };
    setMode(run.mac.root(), 0755);
    setMode(copy("closed"), 0);
    setMode(copy("room"), 0);
    CheckReport report;
    {
        const testing::UnprivilegedUser user;
        report = check();
    }
    setMode(copy("room"), 0755); // for the removal of the test's files
    EXPECT_EQ(report.end, CheckReport::End::complete);
    EXPECT_EQ(counts(report), (Counts{{"same", 1}, {"unreadable", 2}}));
    EXPECT_EQ(report.unreadableFolders, 1);
    EXPECT_THAT(items(report), UnorderedElementsAre(copy("closed"), copy("room")));
    for (const CheckFinding& finding : report.findings)
        EXPECT_EQ(finding.error->code, EACCES);
}

TEST_F(UnreadableCopyTests, aCopyThatIsRemovedDuringTheCheckIsNotCountedAsChecked)
{
    // What the check has listed can't be found any more when it is opened.
    const FailingDrive drive(QStringLiteral("open"), 1'000'000, QStringLiteral("ENOENT"));
    if (!drive.reasonMissing().empty())
        GTEST_SKIP() << drive.reasonMissing();
    write("a", "1234");
    backUpTo(drive.root());
    drive.failNow();
    const CheckReport report = check();
    EXPECT_EQ(report.end, CheckReport::End::complete);
    EXPECT_EQ(counts(report), Counts());
    EXPECT_EQ(report.copies, 1);
    EXPECT_EQ(report.checked, 0);
}

TEST_F(UnreadableCopyTests, aDriveThatIsPulledInTheMiddleEndsTheCheckWithoutInventedFaults)
{
    FailingDrive drive(QStringLiteral("none"), 0, QStringLiteral("EIO"));
    if (!drive.reasonMissing().empty())
        GTEST_SKIP() << drive.reasonMissing();
    constexpr qint64 files = 300;
    for (qint64 i = 0; i < files; ++i)
        write(QByteArray::number(i), content(20'000));
    backUpTo(drive.root());
    const auto shared = std::make_shared<CheckProgress>();
    const QFuture<CheckReport> future = CopyCheck::start(job(), shared, std::make_shared<Cancellation>());
    while (shared->values().checkedFiles < 5 && !future.isFinished())
        QThread::msleep(1);
    drive.pull();
    testing::waitForBackgroundWork();
    ASSERT_TRUE(future.isFinished());
    const CheckReport report = future.result();
    EXPECT_EQ(report.end, CheckReport::End::driveGone);
    EXPECT_GE(report.checked, 5);
    EXPECT_LT(report.checked, files);
    EXPECT_EQ(report.faults(), 0);
    EXPECT_EQ(report.count(CopyVerdict::notBackedUp), 0);
}

TEST_F(UnreadableCopyTests, aHangingDriveLeavesTheCheckCancellableAndNobodyWaits)
{
    const FailingDrive drive(QStringLiteral("none"), 0, QStringLiteral("EIO"));
    if (!drive.reasonMissing().empty())
        GTEST_SKIP() << drive.reasonMissing();
    for (int i = 0; i < 10; ++i)
        write(QByteArray::number(i), content(100'000));
    backUpTo(drive.root());
    drive.hang();
    const auto shared = std::make_shared<CheckProgress>();
    const auto cancellation = std::make_shared<Cancellation>();
    const QFuture<CheckReport> future = CopyCheck::start(job(), shared, cancellation);
    cancellation->cancel();
    EXPECT_EQ(shared->values().checkedFiles, 0);
    EXPECT_FALSE(future.isFinished());
    drive.goOn();
    testing::waitForBackgroundWork();
    ASSERT_TRUE(future.isFinished());
    EXPECT_EQ(future.result().end, CheckReport::End::cancelled);
    EXPECT_EQ(future.result().faults(), 0);
}

TEST_F(UnreadableCopyTests, anOriginalThatCantBeReadIsNoFaultOfItsCopy)
{
    const FailingDrive source(QStringLiteral("read"), 0, QStringLiteral("EIO"));
    if (!source.reasonMissing().empty())
        GTEST_SKIP() << source.reasonMissing();
    write("a", "1234");
    write("empty", "");
    backUp();
    ASSERT_EQ(::rename(documents.nativePath().constData(),
                       source.folder().appendingNative("Documents").nativePath().constData()),
              0);
    documents = source.root().appendingNative("Documents");
    const CheckReport report = check();
    EXPECT_EQ(counts(report), (Counts{{"same", 1}, {"original unreadable", 1}}));
    EXPECT_THAT(items(report), ElementsAre(copy("a")));
    EXPECT_EQ(report.findings.first().error->localizedDescription(),
              QStringLiteral("“a” could not be read: the drive reported an error."));
    EXPECT_EQ(report.faults(), 0);
}

} // namespace
} // namespace keelbright

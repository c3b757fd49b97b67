#include "tests/faults/FaultTest.h"
#include "tests/faults/RunnerProcess.h"
#include "tests/support/TmpfsMount.h"

#include "KeelbrightCore/backup/BackupManifest.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace keelbright {
namespace {

using ::testing::AnyOf;
using ::testing::Each;
using ::testing::Gt;
using ::testing::IsEmpty;
using testing::RunnerOutcome;
using testing::RunnerProcess;
using ::testing::SizeIs;
using testing::TestMac;
using testing::TmpfsMount;

constexpr auto noSpace = "copied: there is not enough space on the drive.";

class FullDriveTest : public testing::FaultTest
{
protected:
    /// Fills the drive to the last byte.
    void fill() const
    {
        const int file = ::open(drive.appendingNative("filler").nativePath().constData(),
                                O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
        const QByteArray page(4'096, 'x');
        while (::write(file, page.constData(), 4'096) > 0) {
        }
        EXPECT_EQ(errno, ENOSPC);
        ::close(file);
    }

    [[nodiscard]] QStringList skipLines() const
    {
        QStringList lines;
        for (const QByteArray& name : walkingOrder())
            lines.append(skipLine(name, noSpace));
        return lines;
    }

    const QString manifestLine = QStringLiteral(
        "Manifest write failed: “recovery-manifest.json” could not be written: there is not enough space on "
        "the drive.");

    void expectReportLineLast() const
    {
        const QString line = progress().errors.value(progress().errors.size() - 1);
        EXPECT_TRUE(line.startsWith(QStringLiteral("Report write failed: “backup-report-")));
        EXPECT_TRUE(
            line.endsWith(QStringLiteral("could not be written: there is not enough space on the drive.")));
    }
};

/// The maximum size of the files that processes write which are started while it lives.
class LimitedFileSize
{
public:
    explicit LimitedFileSize(rlim_t bytes)
    {
        EXPECT_EQ(::getrlimit(RLIMIT_FSIZE, &m_before), 0);
        const rlimit limited{bytes, m_before.rlim_max};
        EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &limited), 0);
    }

    ~LimitedFileSize() { ::setrlimit(RLIMIT_FSIZE, &m_before); }

    LimitedFileSize(const LimitedFileSize&) = delete;
    LimitedFileSize& operator=(const LimitedFileSize&) = delete;

private:
    rlimit m_before = {};
};

TEST_F(FullDriveTest, aFileAboveTheLimitOfTheProcessIsAnErrorLineAndNoEnd)
{
    makeFile("large", 300'000);
    makeFile("small", 500);
    const RunnerOutcome outcome = [this] {
        const LimitedFileSize limit(100'000);
        return RunnerProcess(*this, {documents}).finish();
    }();
    EXPECT_TRUE(outcome.hasEnded);
    EXPECT_EQ(outcome.errors, QStringList{skipLine("large", "copied: the file is too large for the drive.")});
    EXPECT_EQ(mirroredVersion("large"), std::nullopt);
    EXPECT_EQ(mirroredVersion("small"), 1);
    EXPECT_THAT(temporaryFiles(drive), IsEmpty());
}

TEST_F(FullDriveTest, keepsTheOldCopiesIfTheNewOnesDoNotFit)
{
    const TmpfsMount mount({.bytes = 256 * 1024});
    if (!mount.reasonMissing().empty())
        GTEST_SKIP() << mount.reasonMissing();
    drive = mount.root();
    makeFiles(3, 50'000, 1);
    run({documents});
    ASSERT_THAT(progress().errors, IsEmpty());
    makeFiles(3, 120'000, 2);
    run({documents});
    EXPECT_EQ(progress().errors, skipLines());
    EXPECT_EQ(progress().filesCopied, 0);
    EXPECT_EQ(progress().filesSkipped, 3);
    EXPECT_EQ(engine.lastReport()->errors, skipLines());
    EXPECT_EQ(engine.lastReport()->manifestPath, latest("recovery-manifest.json").path());
    for (const QByteArray& name : walkingOrder())
        EXPECT_EQ(mirroredVersion(name), 1);
    EXPECT_THAT(temporaryFiles(drive), IsEmpty());
}

TEST_F(FullDriveTest, endsWithTwoMoreLinesIfNotEvenManifestAndReportFit)
{
    const TmpfsMount mount({.bytes = 256 * 1024});
    if (!mount.reasonMissing().empty())
        GTEST_SKIP() << mount.reasonMissing();
    drive = mount.root();
    makeFiles(3, 5'000, 1);
    run({documents});
    const QByteArray manifest = TestMac::read(latest("recovery-manifest.json"));
    fill();
    const QByteArrayList before = everythingBelow(drive);
    makeFiles(3, 5'000, 2);
    run({documents});
    EXPECT_EQ(engine.lastReport()->errors, skipLines() + QStringList{manifestLine});
    EXPECT_EQ(engine.lastReport()->manifestPath, QStringLiteral("Failed"));
    EXPECT_EQ(progress().errors.size(), 5);
    expectReportLineLast();
    EXPECT_EQ(progress().filesSkipped, 3);
    EXPECT_EQ(everythingBelow(drive), before) << "no temporary file, no half report";
    EXPECT_EQ(TestMac::read(latest("recovery-manifest.json")), manifest);
    for (const QByteArray& name : walkingOrder())
        EXPECT_EQ(mirroredVersion(name), 1);
}

TEST_F(FullDriveTest, copiesWhatItCanUntilTheDriveHoldsNoMoreFiles)
{
    // Ten inodes: the root, six folders and three files.
    const TmpfsMount mount({.bytes = 1'048'576, .inodes = 10});
    if (!mount.reasonMissing().empty())
        GTEST_SKIP() << mount.reasonMissing();
    drive = mount.root();
    makeFiles(5);
    run({documents});
    EXPECT_EQ(progress().filesCopied, 3);
    EXPECT_EQ(progress().filesSkipped, 2);
    EXPECT_EQ(engine.lastReport()->errors, skipLines().sliced(3) + QStringList{manifestLine});
    expectReportLineLast();
    EXPECT_THAT(everythingBelow(mirrored("Documents")), SizeIs(3));

    makeFiles(5, 100, 2);
    run({documents});
    EXPECT_EQ(engine.lastReport()->errors, skipLines() + QStringList{manifestLine});
    EXPECT_THAT(everythingBelow(mirrored("Documents")), SizeIs(3));
    for (const QByteArray& name : walkingOrder().first(3))
        EXPECT_EQ(mirroredVersion(name), 1);
}

TEST_F(FullDriveTest, cannotStartIfNotEvenTheFoldersFit)
{
    const TmpfsMount mount({.bytes = 1'048'576, .inodes = 3});
    if (!mount.reasonMissing().empty())
        GTEST_SKIP() << mount.reasonMissing();
    drive = mount.root();
    makeFiles(1);
    run({documents});
    EXPECT_EQ(engine.lastError(), QStringLiteral("Could not create backup folders: “Latest” could not be "
                                                 "created: there is not enough space on the drive."));
    EXPECT_EQ(engine.lastReport(), std::nullopt);
}

class DriveOfSize : public FullDriveTest, public ::testing::WithParamInterface<qint64>
{};

TEST_P(DriveOfSize, holdsOnlyWholeFilesOldOrNew)
{
    const TmpfsMount mount({.bytes = GetParam()});
    if (!mount.reasonMissing().empty())
        GTEST_SKIP() << mount.reasonMissing();
    drive = mount.root();
    constexpr int count = 40;
    qint64 differentSize = 1;
    for (const int version : {1, 2}) {
        for (int number = 0; number < count; ++number)
            makeFile(fileName(number), (differentSize = differentSize * 7 % 300'007), version);
        run({documents});
        ASSERT_TRUE(engine.lastReport().has_value());
        EXPECT_EQ(progress().filesCopied + progress().filesSkipped, count);
        EXPECT_THAT(progress().filesSkipped, Gt(0));
        EXPECT_THAT(temporaryFiles(drive), IsEmpty());
        int inThisVersion = 0;
        for (const QByteArray& name : walkingOrder()) {
            const bool isSkipped = progress().errors.contains(skipLine(name, noSpace));
            const auto found = mirroredVersion(name);
            inThisVersion += found == version ? 1 : 0;
            EXPECT_EQ(isSkipped, found != version) << name.toStdString();
        }
        EXPECT_EQ(progress().filesCopied, inThisVersion);
        EXPECT_EQ(engine.lastReport()->errors.contains(manifestLine),
                  engine.lastReport()->manifestPath == QStringLiteral("Failed"));
    }
}

INSTANTIATE_TEST_SUITE_P(FullDrives, DriveOfSize,
                         ::testing::Values(16'384, 65'536, 300'000, 1'048'576, 3'000'000));

} // namespace
} // namespace keelbright

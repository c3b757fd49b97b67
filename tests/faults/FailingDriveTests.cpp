#include "tests/faults/FaultTest.h"
#include "tests/support/FailingDrive.h"

#include <QTimer>

namespace keelbright {
namespace {

using ::testing::AnyOf;
using testing::FailingDrive;
using ::testing::IsEmpty;

constexpr int fileCount = 20;
constexpr qsizetype fileSize = 20'000;

struct Failure
{
    const char* request;
    qint64 after;
    const char* error;
};

void PrintTo(const Failure& failure, std::ostream* stream)
{
    *stream << failure.request << " after " << failure.after << ": " << failure.error;
}

/// Drives that fail during a run and stay broken.
class FailingDriveTest : public testing::FaultTest
{
protected:
    void expectWholeFiles(const ::testing::Matcher<std::optional<int>>& versions) const
    {
        for (int number = 0; number < fileCount; ++number)
            EXPECT_THAT(mirroredVersion(fileName(number)), versions);
    }

    /// Expects exactly one line for each file that is not new, and none for the new ones.
    void expectOneLinePerFile(int newVersion) const
    {
        qint64 skipped = 0;
        for (const QByteArray& name : walkingOrder()) {
            const bool isNew = mirroredVersion(name) == newVersion;
            const QString start = QStringLiteral("Skip %1: ").arg(QString::fromUtf8(name));
            EXPECT_EQ(progress().errors.filter(start).size(), isNew ? 0 : 1) << name.toStdString();
            skipped += isNew ? 0 : 1;
        }
        EXPECT_EQ(progress().filesSkipped, skipped);
        EXPECT_EQ(progress().filesCopied, fileCount - skipped);
    }
};

class DestinationThatFails : public FailingDriveTest, public ::testing::WithParamInterface<Failure>
{};

TEST_P(DestinationThatFails, keepsEveryFileWholeAndReportsEachFailedOne)
{
    const auto [request, after, error] = GetParam();
    for (const bool isSecondRun : {false, true}) {
        const FailingDrive failing(QString::fromUtf8(request), after, QString::fromUtf8(error));
        if (!failing.reasonMissing().empty())
            GTEST_SKIP() << failing.reasonMissing();
        const FileURL good = failing.folder();
        if (isSecondRun) {
            drive = good;
            makeFiles(fileCount, fileSize, 1);
            run({documents});
            ASSERT_THAT(progress().errors, IsEmpty());
        }
        drive = failing.root();
        makeFiles(fileCount, fileSize, 2);
        run({documents});
        drive = good; // the folder behind the failing one
        expectWholeFiles(AnyOf(std::optional(2), isSecondRun ? std::optional(1) : std::nullopt));
        if (engine.lastError())
            continue;
        expectOneLinePerFile(2);
        // A whole copy whose swap with the old one failed is kept, as it may be the only one.
        if (QByteArrayView(request) != "rename") {
            EXPECT_THAT(temporaryFiles(good), IsEmpty());
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Requests, DestinationThatFails,
                         ::testing::Values(Failure{"write", 0, "EIO"}, Failure{"write", 10'000, "EIO"},
                                           Failure{"write", 100'000, "ENOSPC"},
                                           Failure{"write", 399'000, "EDQUOT"}, Failure{"create", 0, "EIO"},
                                           Failure{"create", 7, "ENOSPC"}, Failure{"rename", 0, "EIO"},
                                           Failure{"rename", 7, "EROFS"}, Failure{"mkdir", 0, "EIO"},
                                           Failure{"mkdir", 3, "EIO"}, Failure{"flush", 0, "EIO"},
                                           Failure{"close", 0, "EIO"}, Failure{"close", 7, "EDQUOT"},
                                           Failure{"list", 0, "EIO"}));

class SourceThatFails : public FailingDriveTest, public ::testing::WithParamInterface<Failure>
{};

TEST_P(SourceThatFails, isCopiedAsFarAsItCanBeReadAndTheRestIsReported)
{
    const auto [request, after, error] = GetParam();
    const FailingDrive failing(QString::fromUtf8(request), after, QString::fromUtf8(error));
    if (!failing.reasonMissing().empty())
        GTEST_SKIP() << failing.reasonMissing();
    makeFiles(fileCount, fileSize, 1);
    run({documents});
    makeFiles(fileCount, fileSize, 2);
    ASSERT_EQ(::rename(documents.nativePath().constData(),
                       failing.folder().appendingNative("Documents").nativePath().constData()),
              0);
    run({failing.root().appendingNative("Documents")});
    expectWholeFiles(AnyOf(1, 2));
    EXPECT_FALSE(progress().errors.isEmpty());
    EXPECT_EQ(progress().errors.size(), progress().filesSkipped);
    EXPECT_THAT(temporaryFiles(drive), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Requests, SourceThatFails,
                         ::testing::Values(Failure{"read", 0, "EIO"}, Failure{"read", 150'000, "EIO"},
                                           Failure{"open", 0, "EIO"}, Failure{"open", 9, "EACCES"},
                                           Failure{"list", 1, "EIO"}));

TEST_F(FailingDriveTest, thatIsPulledEndsTheRunWithALineForEachMissingFile)
{
    FailingDrive failing(QStringLiteral("none"), 0, QStringLiteral("EIO"));
    if (!failing.reasonMissing().empty())
        GTEST_SKIP() << failing.reasonMissing();
    drive = failing.root();
    makeFiles(fileCount, fileSize, 1);
    whenCopied(5, [&] { failing.pull(); });
    run({documents});
    drive = failing.folder();
    expectWholeFiles(AnyOf(std::nullopt, std::optional(1)));
    expectOneLinePerFile(1);
    EXPECT_TRUE(engine.lastReport().has_value());
    EXPECT_EQ(engine.lastReport()->manifestPath, QStringLiteral("Failed"));
}

TEST_F(FailingDriveTest, thatTakesShortNamesOnlyKeepsNothingOfAFileWithALongOne)
{
    const FailingDrive failing(QStringLiteral("names"), 60, QStringLiteral("EIO"));
    if (!failing.reasonMissing().empty())
        GTEST_SKIP() << failing.reasonMissing();
    drive = failing.root();
    const QByteArray longName(100, 'n');
    for (const int version : {1, 2}) {
        makeFile("short", fileSize, version);
        makeFile(longName, fileSize, version);
        run({documents});
        EXPECT_EQ(progress().errors, QStringList{skipLine(longName, "copied: the name is too long.")});
        EXPECT_EQ(mirroredVersion("short"), version);
        EXPECT_THAT(temporaryFiles(failing.folder()), IsEmpty());
    }
}

TEST_F(FailingDriveTest, thatHangsLeavesTheWindowResponsiveAndTheRunCancellable)
{
    const FailingDrive failing(QStringLiteral("none"), 0, QStringLiteral("EIO"));
    if (!failing.reasonMissing().empty())
        GTEST_SKIP() << failing.reasonMissing();
    drive = failing.root();
    makeFiles(fileCount, fileSize, 1);
    whenCopied(5, [&] { failing.hang(); });
    QTimer turns;
    int turned = 0;
    QObject::connect(&turns, &QTimer::timeout, &turns, [&] {
        if (progress().filesCopied < 5)
            return;
        ++turned;
        if (turned == 20) {
            engine.cancel();
            EXPECT_TRUE(engine.isCancelled());
            EXPECT_TRUE(engine.isRunning());
        }
        if (turned == 40)
            failing.goOn();
    });
    turns.start(10);
    run({documents});
    EXPECT_GE(turned, 40) << "the main thread waited for the drive";
    EXPECT_LE(progress().filesCopied, 6);
    EXPECT_THAT(progress().errors, IsEmpty());
    EXPECT_TRUE(engine.lastReport().has_value());
    expectWholeFiles(AnyOf(std::nullopt, std::optional(1)));
}

} // namespace
} // namespace keelbright

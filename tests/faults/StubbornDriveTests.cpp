#include "tests/faults/FaultTest.h"
#include "tests/faults/Unchangeable.h"
#include "tests/support/ImageDrive.h"
#include "tests/support/Mounting.h"

#include <linux/fs.h>
#include <unistd.h>

namespace keelbright {
namespace {

using ::testing::AnyOf;
using testing::failureOf;
using testing::ImageDrive;
using ::testing::IsEmpty;
using testing::reasonUnchangeable;
using testing::Unchangeable;

class StubbornDriveTest : public testing::FaultTest
{
protected:
    void expectWholeFiles(int count, const ::testing::Matcher<std::optional<int>>& versions) const
    {
        for (int number = 0; number < count; ++number)
            EXPECT_THAT(mirroredVersion(fileName(number)), versions);
    }
};

TEST_F(StubbornDriveTest, reportsAnOldCopyThatNobodyMayReplace)
{
    for (const int flag : {FS_IMMUTABLE_FL, FS_APPEND_FL}) {
        makeFiles(3, 1'000, 1);
        run({documents});
        makeFiles(3, 1'000, 2);
        const Unchangeable copy(mirrored("Documents/" + fileName(1)), flag);
        if (!copy.isSet())
            GTEST_SKIP() << reasonUnchangeable;
        run({documents});
        EXPECT_EQ(progress().errors,
                  QStringList{skipLine(fileName(1), "replaced: you don't have permission.")});
        EXPECT_EQ(progress().filesCopied, 2);
        EXPECT_EQ(mirroredVersion(fileName(0)), 2);
        EXPECT_EQ(mirroredVersion(fileName(1)), 1);
        EXPECT_EQ(mirroredVersion(fileName(2)), 2);
    }
}

TEST_F(StubbornDriveTest, reportsEachFileOfAFolderThatNobodyMayChange)
{
    makeFile("folder/one", 1'000, 1);
    makeFile("folder/two", 1'000, 1);
    run({documents});
    makeFile("folder/one", 1'000, 2);
    makeFile("folder/two", 1'000, 2);
    makeFile("other", 1'000, 2);
    const Unchangeable folder(mirrored("Documents/folder"), FS_IMMUTABLE_FL);
    if (!folder.isSet())
        GTEST_SKIP() << reasonUnchangeable;
    run({documents});
    QStringList lines = progress().errors;
    lines.sort();
    EXPECT_EQ(lines, QStringList({skipLine("one", "copied: you don't have permission."),
                                  skipLine("two", "copied: you don't have permission.")}));
    EXPECT_EQ(mirroredVersion("other"), 2);
    EXPECT_EQ(mirroredVersion("folder/one"), 1);
    EXPECT_THAT(temporaryFiles(drive), IsEmpty());
}

TEST_F(StubbornDriveTest, copiesAFileThatNobodyMayChangeAsOneThatTheUserMay)
{
    makeFiles(1, 1'000, 1);
    const Unchangeable source(documents.appendingNative(fileName(0)), FS_IMMUTABLE_FL);
    if (!source.isSet())
        GTEST_SKIP() << reasonUnchangeable;
    for (int round = 0; round < 2; ++round) {
        run({documents});
        EXPECT_THAT(progress().errors, IsEmpty());
        EXPECT_EQ(mirroredVersion(fileName(0)), 1);
    }
}

TEST_F(StubbornDriveTest, reportsEachFileOverTheUsersQuotaOnce)
{
    const ImageDrive image(ImageDrive::Kind::btrfs, 314'572'800);
    if (!image.reasonMissing().empty())
        GTEST_SKIP() << image.reasonMissing();
    drive = image.root().appendingNative("share");
    const QString btrfs = QStringLiteral("btrfs");
    ASSERT_EQ(failureOf(btrfs, {QStringLiteral("quota"), QStringLiteral("enable"), image.root().path()}), "");
    ASSERT_EQ(failureOf(btrfs, {QStringLiteral("subvolume"), QStringLiteral("create"), drive.path()}), "");
    ASSERT_EQ(failureOf(btrfs, {QStringLiteral("qgroup"), QStringLiteral("limit"), QStringLiteral("2M"),
                                drive.path()}),
              "");
    constexpr int count = 30;
    for (const int version : {1, 2}) {
        makeFiles(count, 200'000, version);
        run({documents});
        EXPECT_GT(progress().filesSkipped, 0);
        EXPECT_EQ(progress().filesCopied + progress().filesSkipped, count);
        expectWholeFiles(count, AnyOf(std::nullopt, std::optional(1), std::optional(version)));
        for (const QByteArray& name : walkingOrder()) {
            const QString line = skipLine(name, "copied: your share of the drive is used up.");
            const QString swapLine = skipLine(name, "replaced: your share of the drive is used up.");
            EXPECT_EQ(progress().errors.count(line) + progress().errors.count(swapLine),
                      mirroredVersion(name) == version ? 0 : 1)
                << name.toStdString() << progress().errors.join(u'\n').toStdString();
        }
    }
}

TEST_F(StubbornDriveTest, thatBecomesReadOnlyDuringTheRunKeepsItsCopies)
{
    const ImageDrive image(ImageDrive::Kind::ext4, 67'108'864);
    if (!image.reasonMissing().empty())
        GTEST_SKIP() << image.reasonMissing();
    drive = image.root();
    constexpr int count = 40;
    makeFiles(count, 50'000, 1);
    run({documents});
    ASSERT_THAT(progress().errors, IsEmpty());
    makeFiles(count, 50'000, 2);
    whenCopied(5, [&] { image.failInside(); });
    run({documents});
    expectWholeFiles(count, AnyOf(1, 2));
    EXPECT_EQ(progress().filesCopied + progress().filesSkipped, count);
    EXPECT_GE(progress().filesSkipped, count - 6);
    EXPECT_EQ(progress().errors.filter(QStringLiteral("Skip f")).size(), progress().filesSkipped);
    EXPECT_EQ(engine.lastReport()->manifestPath, QStringLiteral("Failed"));
}

TEST_F(StubbornDriveTest, thatIsPulledDuringTheRunEndsTheRun)
{
    const ImageDrive image(ImageDrive::Kind::ext4, 67'108'864);
    if (!image.reasonMissing().empty())
        GTEST_SKIP() << image.reasonMissing();
    drive = image.root();
    constexpr int count = 40;
    makeFiles(count, 50'000, 1);
    run({documents});
    ASSERT_THAT(progress().errors, IsEmpty());
    makeFiles(count, 50'000, 2);
    whenCopied(5, [&] { image.pull(); });
    run({documents});
    EXPECT_GE(progress().filesSkipped, count - 6);
    EXPECT_EQ(progress().filesCopied + progress().filesSkipped, count);
    EXPECT_EQ(progress().errors.filter(QStringLiteral("Skip f")).size(), progress().filesSkipped);
    image.putBack();
    makeFiles(count, 50'000, 3);
    run({documents});
    EXPECT_THAT(progress().errors, IsEmpty());
    expectWholeFiles(count, std::optional(3));
}

TEST_F(StubbornDriveTest, holdsEveryCountedFileAfterAPowerCut)
{
    const ImageDrive image(ImageDrive::Kind::ext4, 67'108'864);
    if (!image.reasonMissing().empty())
        GTEST_SKIP() << image.reasonMissing();
    drive = image.root();
    constexpr int count = 40;
    for (const int version : {1, 2}) {
        makeFiles(count, 50'000, version);
        run({documents});
        ASSERT_THAT(progress().errors, IsEmpty());
        image.pull(); // at the moment in which the run is finished
        image.putBack();
        expectWholeFiles(count, std::optional(version));
        EXPECT_TRUE(exists(latest("recovery-manifest.json")));
        EXPECT_THAT(everythingBelow(reports()), ::testing::SizeIs(::testing::Ge(2)));
    }
}

} // namespace
} // namespace keelbright

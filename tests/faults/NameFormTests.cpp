#include "tests/faults/FaultTest.h"
#include "tests/support/FailingDrive.h"

namespace keelbright {
namespace {

using testing::FailingDrive;
using ::testing::IsEmpty;

/// Names that differ only in how an accented letter is encoded.
class NameFormTest : public testing::FaultTest
{
protected:
    void SetUp() override
    {
        if (!m_drive.reasonMissing().empty())
            GTEST_SKIP() << m_drive.reasonMissing();
        drive = m_drive.root();
    }

    const QByteArray composed = "caf\xc3\xa9";
    const QByteArray decomposed = "cafe\xcc\x81";

private:
    FailingDrive m_drive{QStringLiteral("forms"), 0, QStringLiteral("EIO")};
};

TEST_F(NameFormTest, thatTheDriveTakesForTheSameMakeALineAndLeaveTheFirstFile)
{
    for (const int version : {1, 2}) {
        makeFile(composed, 100, version);
        makeFile(decomposed, 100, version);
        run({documents});
        const QByteArrayList names = walkingOrder();
        EXPECT_EQ(progress().errors,
                  QStringList{skipLine(names.last(), "copied: a file whose name the drive takes for the same "
                                                     "is already there.")});
        EXPECT_EQ(progress().filesCopied, 1);
        EXPECT_EQ(progress().filesSkipped, 1);
        EXPECT_EQ(mirroredVersion(names.first()), version);
        EXPECT_THAT(temporaryFiles(drive), IsEmpty());
    }
}

TEST_F(NameFormTest, ofFoldersMakeALineForEachFileOfTheSecond)
{
    mac.writeFile("Users/mira/Documents/" + composed + "/file", "first");
    mac.writeFile("Users/mira/Documents/" + decomposed + "/file", "second");
    const QByteArrayList names = walkingOrder();
    const QByteArray first = names.value(0);
    const QByteArray second = first == composed ? decomposed : composed;
    run({documents});
    EXPECT_EQ(
        progress().errors,
        QStringList{QStringLiteral("Dir error %1: “%2” could not be created: a file whose name the drive "
                                   "takes for the same is already there.")
                        .arg(mirrored("Documents/" + second).path(), QString::fromUtf8(second))});
    EXPECT_EQ(testing::TestMac::read(mirrored("Documents/" + composed + "/file")),
              first == composed ? "first" : "second");
}

TEST_F(NameFormTest, ofTwoSourcesOfOneNameMakeALineAndLeaveTheFirstFile)
{
    const FileURL archive = mac.makeFolder("Users/mira/Archive/Documents");
    mac.writeFile("Users/mira/Documents/" + composed, "first");
    mac.writeFile("Users/mira/Archive/Documents/" + decomposed, "second");
    for (int attempt = 1; attempt <= 2; ++attempt) {
        run({documents, archive});
        EXPECT_EQ(progress().errors,
                  QStringList{skipLine(decomposed, "copied: a file whose name the drive takes for the same "
                                                   "is already there.")});
        EXPECT_EQ(testing::TestMac::read(mirrored("Documents/" + composed)), "first");
        EXPECT_EQ(progress().filesCopied, 1);
        EXPECT_EQ(progress().filesSkipped, 1);
    }
}

TEST_F(NameFormTest, mayChangeBetweenRuns)
{
    makeFile(composed, 100, 1);
    run({documents});
    ASSERT_EQ(::rename(documents.appendingNative(composed).nativePath().constData(),
                       documents.appendingNative(decomposed).nativePath().constData()),
              0);
    makeFile(decomposed, 100, 2);
    run({documents});
    EXPECT_THAT(progress().errors, IsEmpty());
    EXPECT_EQ(mirroredVersion(decomposed), 2);
}

TEST_F(NameFormTest, areTwoFilesWhereTheDriveKeepsThemApart)
{
    drive = mac.makeFolder("Volumes/Drive");
    for (const int version : {1, 2}) {
        makeFile(composed, 100, version);
        makeFile(decomposed, 100, version);
        run({documents});
        EXPECT_THAT(progress().errors, IsEmpty());
        EXPECT_EQ(mirroredVersion(composed), version);
        EXPECT_EQ(mirroredVersion(decomposed), version);
    }
}

} // namespace
} // namespace keelbright

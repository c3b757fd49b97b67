#include "tests/faults/FaultTest.h"
#include "tests/faults/RunnerProcess.h"
#include "tests/support/ImageDrive.h"

#include <sys/stat.h>
#include <unistd.h>

namespace keelbright {
namespace {

using testing::ImageDrive;
using ::testing::IsEmpty;
using testing::RunnerProcess;
using testing::TestMac;
using ::testing::UnorderedElementsAre;

/// Drives that other systems use too, without unnamed files and with case-insensitive names.
class ForeignDriveTest : public testing::FaultTest, public ::testing::WithParamInterface<ImageDrive::Kind>
{
protected:
    void SetUp() override
    {
        if (!m_image.reasonMissing().empty())
            GTEST_SKIP() << m_image.reasonMissing();
        drive = m_image.root();
    }

    [[nodiscard]] QByteArray copyOf(const QByteArray& name) const
    {
        return TestMac::read(mirrored("Documents/" + name));
    }

    /// One of the two drivers lists all names in lower case.
    [[nodiscard]] QByteArrayList namesInLowerCase() const
    {
        QByteArrayList names = everythingBelow(mirrored("Documents"));
        for (QByteArray& name : names)
            name = name.toLower();
        return names;
    }

private:
    ImageDrive m_image{GetParam(), 50'331'648};
};

TEST_P(ForeignDriveTest, takesAFirstAndASecondBackup)
{
    for (const int version : {1, 2}) {
        makeFiles(30, 3'000, version);
        makeFile("large", 1'500'000, version);
        mac.makeFolder("Users/mira/Documents/folder");
        makeFile("folder/inside", 900, version);
        run({documents});
        EXPECT_THAT(progress().errors, IsEmpty());
        EXPECT_EQ(progress().filesCopied, 32);
        for (int number = 0; number < 30; ++number)
            EXPECT_EQ(mirroredVersion(fileName(number)), version);
        EXPECT_EQ(mirroredVersion("large"), version);
        EXPECT_EQ(mirroredVersion("folder/inside"), version);
        EXPECT_THAT(temporaryFiles(drive), IsEmpty());
        EXPECT_TRUE(exists(latest("recovery-manifest.json")));
    }
}

TEST_P(ForeignDriveTest, keepsTheFirstOfTwoFilesThatDifferInCaseOnly)
{
    mac.writeFile("Users/mira/Documents/a.txt", "small");
    mac.writeFile("Users/mira/Documents/A.TXT", "LARGE");
    mac.writeFile("Users/mira/Documents/other", "x");
    QByteArrayList names = walkingOrder();
    names.removeOne("other");
    for (int round = 0; round < 2; ++round) {
        run({documents});
        EXPECT_EQ(progress().errors,
                  QStringList{skipLine(names[1], "copied: a file whose name differs in upper and lower case "
                                                 "only is already there.")});
        EXPECT_EQ(progress().filesCopied, 2);
        EXPECT_EQ(progress().filesSkipped, 1);
        EXPECT_THAT(namesInLowerCase(), UnorderedElementsAre("other", "a.txt"));
        EXPECT_EQ(copyOf(names[0]), names[0] == "a.txt" ? "small" : "LARGE");
    }
}

TEST_P(ForeignDriveTest, reportsEachRefusedNameAndCopiesTheOthers)
{
    const QByteArrayList odd{"what?", "a:b", "back\\slash", "new\nline", "ends in a blank ", "CON", "star*"};
    for (const QByteArray& name : odd)
        makeFile(name);
    makeFile("fine");
    run({documents});
    EXPECT_EQ(mirroredVersion("fine"), 1);
    EXPECT_EQ(progress().filesCopied + progress().filesSkipped, odd.size() + 1);
    EXPECT_EQ(progress().errors.size(), progress().filesSkipped);
    for (const QByteArray& name : odd) {
        const auto lines = progress().errors.filter(QStringLiteral("Skip %1: ").arg(QString::fromUtf8(name)));
        EXPECT_EQ(lines.size(), mirroredVersion(name) ? 0 : 1) << name.toStdString();
    }
    if (GetParam() == ImageDrive::Kind::ntfs) {
        EXPECT_EQ(progress().filesSkipped, odd.size());
    }
    EXPECT_THAT(temporaryFiles(drive), IsEmpty());
}

TEST_P(ForeignDriveTest, copiesOrReportsALink)
{
    makeFile("file");
    ASSERT_EQ(::symlink("file", documents.appendingNative("link").nativePath().constData()), 0);
    for (int round = 0; round < 2; ++round) {
        run({documents});
        const bool hasLinks = GetParam() == ImageDrive::Kind::ntfs;
        EXPECT_EQ(progress().errors,
                  hasLinks ? QStringList()
                           : QStringList{skipLine("link", "copied: the drive can't hold symbolic links.")});
        EXPECT_EQ(progress().filesCopied, hasLinks ? 2 : 1);
        EXPECT_EQ(mirroredVersion("file"), 1);
    }
}

TEST_P(ForeignDriveTest, reportsEachFileWithoutRoomOnce)
{
    makeFiles(30, 3'000'000, 1);
    run({documents});
    EXPECT_GT(progress().filesSkipped, 0);
    EXPECT_GT(progress().filesCopied, 0);
    EXPECT_EQ(progress().filesCopied + progress().filesSkipped, 30);
    for (const QByteArray& name : walkingOrder()) {
        const auto lines = progress().errors.filter(QStringLiteral("Skip %1: ").arg(QString::fromUtf8(name)));
        EXPECT_EQ(lines.size(), mirroredVersion(name) ? 0 : 1) << name.toStdString();
    }
    EXPECT_THAT(temporaryFiles(drive), IsEmpty());
}

TEST_P(ForeignDriveTest, holdsAFileOfMoreThan4Gigabytes)
{
    const FileURL large = mac.writeFile("Users/mira/Documents/large", "start");
    if (::truncate(large.nativePath().constData(), 4'294'967'300) != 0)
        GTEST_SKIP() << "no file of 4 GiB can be made here";
    run({documents});
    // The image is smaller than the file. A drive that keeps holes must take it despite its size, and
    // on one that does not keep them nothing of it must be left.
    if (progress().filesCopied == 1) {
        struct stat status = {};
        ASSERT_EQ(::stat(mirrored("Documents/large").nativePath().constData(), &status), 0);
        EXPECT_EQ(status.st_size, 4'294'967'300);
    } else {
        ASSERT_EQ(progress().errors.size(), 1);
        EXPECT_TRUE(
            progress().errors.first().startsWith(QStringLiteral("Skip large: “large” could not be ")));
        EXPECT_THAT(everythingBelow(mirrored("Documents")), IsEmpty());
    }
}

TEST_P(ForeignDriveTest, holdsOnlyWholeFilesAfterAKill)
{
    makeFiles(30, 200'000, 1);
    EXPECT_EQ(RunnerProcess(*this, {documents}).finish().errors, QStringList());
    makeFiles(30, 200'000, 2);
    for (int moment = 20; moment <= 120; moment += 20) {
        RunnerProcess runner(*this, {documents});
        runner.killAfter(std::chrono::milliseconds(moment));
        std::ignore = runner.finish();
        for (int number = 0; number < 30; ++number)
            EXPECT_THAT(mirroredVersion(fileName(number)), ::testing::AnyOf(1, 2));
    }
    EXPECT_EQ(RunnerProcess(*this, {documents}).finish().errors, QStringList());
    for (int number = 0; number < 30; ++number)
        EXPECT_EQ(mirroredVersion(fileName(number)), 2);
}

INSTANTIATE_TEST_SUITE_P(ExFat, ForeignDriveTest, ::testing::Values(ImageDrive::Kind::exFat));
INSTANTIATE_TEST_SUITE_P(Ntfs, ForeignDriveTest, ::testing::Values(ImageDrive::Kind::ntfs));

} // namespace
} // namespace keelbright

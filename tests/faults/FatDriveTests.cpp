#include "tests/faults/FaultTest.h"
#include "tests/support/FatImage.h"

#include <unistd.h>

namespace keelbright {
namespace {

using ::testing::ElementsAre;
using testing::FatImage;
using ::testing::IsEmpty;
using testing::TestMac;
using ::testing::UnorderedElementsAre;

/// A drive without unnamed files, links and modes, and with case-insensitive names.
class FatDriveTest : public testing::FaultTest
{
protected:
    void SetUp() override
    {
        if (!m_image.reasonMissing().empty())
            GTEST_SKIP() << m_image.reasonMissing();
        drive = m_image.root();
    }

    [[nodiscard]] static QString caseLine(const QByteArray& name)
    {
        return skipLine(name, "copied: a file whose name differs in upper and lower case only is already "
                              "there.");
    }

    [[nodiscard]] QByteArray copyOf(const QByteArray& name) const
    {
        return TestMac::read(mirrored("Documents/" + name));
    }

private:
    FatImage m_image;
};

TEST_F(FatDriveTest, takesAFirstAndASecondBackup)
{
    makeFiles(5, 3'000, 1);
    makeFile("large", 1'500'000, 1);
    mac.makeFolder("Users/mira/Documents/folder");
    makeFile("folder/inside", 0, 1);
    run({documents});
    EXPECT_THAT(progress().errors, IsEmpty());
    EXPECT_EQ(progress().filesCopied, 7);

    makeFiles(5, 2'000, 2);
    makeFile("large", 1'200'000, 2);
    makeFile("folder/inside", 900, 2);
    run({documents});
    EXPECT_THAT(progress().errors, IsEmpty());
    EXPECT_EQ(progress().filesCopied, 7);
    EXPECT_EQ(progress().filesSkipped, 0);
    for (const QByteArray name : {"f0000", "f0004", "large", "folder/inside"})
        EXPECT_EQ(mirroredVersion(name), 2);
    EXPECT_THAT(temporaryFiles(drive), IsEmpty());
    EXPECT_TRUE(exists(latest("recovery-manifest.json")));
}

TEST_F(FatDriveTest, reportsEachLinkAndContinues)
{
    makeFile("file");
    ASSERT_EQ(::symlink("file", documents.appendingNative("link").nativePath().constData()), 0);
    for (int round = 0; round < 2; ++round) {
        run({documents});
        EXPECT_EQ(progress().errors,
                  QStringList{skipLine("link", "copied: the drive can't hold symbolic links.")});
        EXPECT_EQ(progress().filesCopied, 1);
        EXPECT_EQ(progress().filesSkipped, 1);
        EXPECT_THAT(everythingBelow(mirrored("Documents")), ElementsAre("file"));
    }
}

TEST_F(FatDriveTest, reportsARefusedNameAndLeavesNoTemporaryFile)
{
    makeFile("what?");
    makeFile("fine");
    run({documents});
    EXPECT_EQ(progress().errors, QStringList{skipLine("what?", "copied: you don't have permission.")});
    EXPECT_THAT(everythingBelow(mirrored("Documents")), ElementsAre("fine"));
}

TEST_F(FatDriveTest, keepsTheFirstOfTwoFilesThatDifferInCaseOnly)
{
    mac.writeFile("Users/mira/Documents/a.txt", "small");
    mac.writeFile("Users/mira/Documents/A.TXT", "LARGE");
    mac.writeFile("Users/mira/Documents/other", "x");
    QByteArrayList names = walkingOrder();
    names.removeOne("other");
    for (const char* addition : {" of the first run", " of the second run"}) {
        mac.writeFile("Users/mira/Documents/" + names[0], QByteArray("first") + addition);
        mac.writeFile("Users/mira/Documents/" + names[1], QByteArray("second") + addition);
        run({documents});
        EXPECT_EQ(progress().errors, QStringList{caseLine(names[1])});
        EXPECT_EQ(progress().filesCopied, 2);
        EXPECT_EQ(progress().filesSkipped, 1);
        EXPECT_THAT(everythingBelow(mirrored("Documents")), UnorderedElementsAre("other", names[0]));
        EXPECT_EQ(copyOf(names[0]), QByteArray("first") + addition);
        EXPECT_THAT(temporaryFiles(drive), IsEmpty());
    }
}

TEST_F(FatDriveTest, copiesTheSecondOfTwoSpellingsWhereTheFirstCouldNotBe)
{
    constexpr int pairs = 16;
    makeFile("target");
    const auto makeLink = [this](const QByteArray& name) {
        return ::symlink("target", documents.appendingNative(name).nativePath().constData()) == 0;
    };
    for (int pair = 0; pair < pairs; ++pair) {
        const QByteArray number = QByteArray::number(pair);
        // Some drives list the older of two names first, some the newer.
        const bool isLinkOlder = pair % 2 == 0;
        ASSERT_TRUE(!isLinkOlder || makeLink("PAIR" + number));
        mac.writeFile("Users/mira/Documents/pair" + number, number);
        ASSERT_TRUE(isLinkOlder || makeLink("PAIR" + number));
    }

    const QByteArrayList order = walkingOrder();
    QStringList lines;
    int linksBeforeTheirFile = 0;
    for (const QByteArray& name : order) {
        if (!name.startsWith("PAIR"))
            continue;
        const bool isFirst = order.indexOf(name) < order.indexOf(name.toLower());
        linksBeforeTheirFile += isFirst ? 1 : 0;
        lines += isFirst ? skipLine(name, "copied: the drive can't hold symbolic links.") : caseLine(name);
    }
    ASSERT_GT(linksBeforeTheirFile, 0);
    ASSERT_LT(linksBeforeTheirFile, pairs);

    run({documents});
    EXPECT_EQ(progress().errors, lines);
    EXPECT_EQ(progress().filesCopied, pairs + 1);
    EXPECT_EQ(progress().filesSkipped, pairs);
    EXPECT_EQ(everythingBelow(mirrored("Documents")).size(), pairs + 1);
    for (int pair = 0; pair < pairs; ++pair)
        EXPECT_EQ(copyOf("pair" + QByteArray::number(pair)), QByteArray::number(pair));
}

TEST_F(FatDriveTest, refreshesAFileThatWasRenamedInCaseOnly)
{
    mac.writeFile("Users/mira/Documents/photo.JPG", "old");
    run({documents});
    ASSERT_EQ(::rename(documents.appendingNative("photo.JPG").nativePath().constData(),
                       documents.appendingNative("photo.jpg").nativePath().constData()),
              0);
    mac.writeFile("Users/mira/Documents/photo.jpg", "new");
    run({documents});
    EXPECT_THAT(progress().errors, IsEmpty());
    EXPECT_EQ(copyOf("photo.jpg"), "new");
    EXPECT_EQ(everythingBelow(mirrored("Documents")).size(), 1);
}

TEST_F(FatDriveTest, keepsTwoFoldersApartThatDifferInCaseOnly)
{
    mac.writeFile("Users/mira/Documents/notes/day", "lower");
    mac.writeFile("Users/mira/Documents/Notes/day", "upper");
    const QByteArrayList order = walkingOrder();
    const QByteArray second = order.indexOf("notes") < order.indexOf("Notes") ? "Notes" : "notes";
    const QByteArray first = second == "Notes" ? "notes" : "Notes";
    for (int round = 0; round < 2; ++round) {
        run({documents});
        EXPECT_EQ(progress().errors,
                  QStringList{QStringLiteral("Dir error %1: “%2” could not be created: a file whose name "
                                             "differs in upper and lower case only is already there.")
                                  .arg(mirrored("Documents/" + second).path(), QString::fromUtf8(second))});
        EXPECT_EQ(progress().filesCopied, 1);
        EXPECT_EQ(progress().filesSkipped, 1);
        EXPECT_THAT(everythingBelow(mirrored("Documents")), ElementsAre(first, first + "/day"));
        EXPECT_EQ(copyOf(first + "/day"), first == "notes" ? QByteArray("lower") : QByteArray("upper"));
    }
}

TEST_F(FatDriveTest, keepsTwoSourcesApartThatDifferInCaseOnly)
{
    const FileURL first = mac.makeFolder("Users/mira/Photos");
    const FileURL second = mac.makeFolder("Users/mira/Archive/photos");
    mac.writeFile("Users/mira/Photos/p", "first");
    mac.writeFile("Users/mira/Archive/photos/p", "second");
    run({first, second});
    EXPECT_EQ(progress().errors,
              QStringList{QStringLiteral("Cannot create %1: “photos” could not be created: a file whose name "
                                         "differs in upper and lower case only is already there.")
                              .arg(mirrored("photos").path())});
    EXPECT_EQ(TestMac::read(mirrored("Photos/p")), "first");
    EXPECT_EQ(progress().filesCopied, 1);
}

TEST_F(FatDriveTest, mergesSourcesOfTheSameNameAndLetsTheLaterWin)
{
    mac.writeFile("Users/mira/Documents/a.txt", "first");
    mac.writeFile("Users/mira/Documents/same", "first");
    mac.writeFile("Users/mira/Archive/Documents/same", "second");
    mac.writeFile("Users/mira/Archive/Documents/A.txt", "second");
    run({documents, mac.makeFolder("Users/mira/Archive/Documents")});
    EXPECT_EQ(progress().errors, QStringList{caseLine("A.txt")});
    EXPECT_EQ(copyOf("same"), "second");
    EXPECT_EQ(copyOf("a.txt"), "first");
}

TEST_F(FatDriveTest, endsNormallyWhenItIsFull)
{
    makeFiles(10, 3'000'000, 1);
    run({documents});
    EXPECT_EQ(progress().filesCopied + progress().filesSkipped, 10);
    EXPECT_GT(progress().filesSkipped, 0);
    EXPECT_EQ(progress().errors.size(), progress().filesSkipped);
    const QString name = QString::fromUtf8(walkingOrder().at(progress().filesCopied));
    // This driver reports a full drive as "not permitted".
    EXPECT_TRUE(progress().errors.value(0).startsWith(
        QStringLiteral("Skip %1: “%1” could not be copied: ").arg(name)));
    for (const QByteArray& copied : walkingOrder().first(progress().filesCopied))
        EXPECT_EQ(mirroredVersion(copied), 1);
    EXPECT_THAT(temporaryFiles(drive), IsEmpty());
}

TEST_F(FatDriveTest, reportsAFileThatIsTooLargeForIt)
{
    const FileURL large = mac.writeFile("Users/mira/Documents/large", "start");
    if (::truncate(large.nativePath().constData(), 4'294'967'296) != 0)
        GTEST_SKIP() << "no file of 4 GiB can be made here";
    makeFile("small");
    run({documents});
    EXPECT_EQ(progress().filesCopied, 1);
    EXPECT_EQ(progress().filesSkipped, 1);
    ASSERT_EQ(progress().errors.size(), 1);
    EXPECT_TRUE(
        progress().errors.first().startsWith(QStringLiteral("Skip large: “large” could not be copied: ")));
    EXPECT_THAT(everythingBelow(mirrored("Documents")), ElementsAre("small"));
}

} // namespace
} // namespace keelbright

#include "KeelbrightCore/storage/OrganizerService.h"
#include "tests/storage/OrganizerFixture.h"
#include "tests/support/TemporaryVolume.h"

#include <gmock/gmock.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;
using OrganizerService::ExecutionResult;
using ::testing::ElementsAre;
using ::testing::SizeIs;

namespace {

using OrganizerMovesTest = OrganizerFixture;

} // namespace

TEST_F(OrganizerMovesTest, nothingSelectedMovesNothing)
{
    write("a.png", 1);
    EXPECT_EQ(OrganizerService::execute(propose(), {}), moved(0));
    EXPECT_EQ(files(), QStringList{u"a.png"_s});
}

TEST_F(OrganizerMovesTest, onlySelectedFilesMove)
{
    write("a.png", 1);
    write("b.png", 2);
    write("c.mp3", 30);
    const QList<OrganizeProposal> proposals = propose();
    const QUuid small = proposals.last().files.last().id;
    EXPECT_EQ(OrganizerService::execute(proposals, {small}), moved(1));
    EXPECT_EQ(files(), (QStringList{u"Images/a.png"_s, u"b.png"_s, u"c.mp3"_s}));
}

TEST_F(OrganizerMovesTest, aSelectedIdThatIsInNoProposalIsIgnored)
{
    write("a.png", 1);
    const QList<OrganizeProposal> proposals = propose();
    EXPECT_EQ(OrganizerService::execute(proposals, allIds(proposals) + QSet<QUuid>{QUuid::createUuid()}),
              moved(1));
    EXPECT_EQ(OrganizerService::execute({}, {QUuid::createUuid()}), moved(0));
}

TEST_F(OrganizerMovesTest, aNameThatIsTakenGetsANumberAndTheOldFileStays)
{
    writeText("Images/report.png", "old");
    writeText("report.png", "new");
    EXPECT_EQ(executeAll(), moved(1));
    writeText("report.png", "newest");
    EXPECT_EQ(executeAll(), moved(1));
    EXPECT_EQ(read("Images/report.png"), "old");
    EXPECT_EQ(read("Images/report 2.png"), "new");
    EXPECT_EQ(read("Images/report 3.png"), "newest");
}

TEST_F(OrganizerMovesTest, theNumberGoesBeforeTheLastExtensionOnly)
{
    writeText("Archives/a.tar.gz", "old");
    writeText("a.tar.gz", "new");
    writeText("Other/Notes", "old");
    writeText("Notes", "new");
    writeText("Other/end.", "old");
    writeText("end.", "new");
    EXPECT_EQ(executeAll(), moved(3));
    EXPECT_EQ(read("Archives/a.tar 2.gz"), "new");
    EXPECT_EQ(read("Other/Notes 2"), "new");
    EXPECT_EQ(read("Other/end. 2"), "new");
}

TEST_F(OrganizerMovesTest, aNumberedNameThatIsTakenIsPassedOver)
{
    writeText("Images/a.png", "1");
    writeText("Images/a 2.png", "2");
    writeText("Images/a 4.png", "4");
    writeText("a.png", "new");
    EXPECT_EQ(executeAll(), moved(1));
    EXPECT_EQ(read("Images/a 3.png"), "new");
}

TEST_F(OrganizerMovesTest, aNumberedNameIsNumberedAsItStands)
{
    writeText("Images/a 2.png", "old");
    writeText("a 2.png", "new");
    EXPECT_EQ(executeAll(), moved(1));
    EXPECT_EQ(read("Images/a 2 2.png"), "new");
}

TEST_F(OrganizerMovesTest, aDanglingLinkInThePlaceIsNotReplaced)
{
    makeFolder("Images");
    link("Images/a.png", "gone");
    write("a.png", 1);
    const ExecutionResult result = executeAll();
    EXPECT_EQ(result.moved, 0);
    EXPECT_THAT(
        result.errors,
        ElementsAre(u"a.png: “a.png” could not be moved: something of that name is already there."_s));
    EXPECT_TRUE(std::filesystem::is_symlink(standardPath(at("Images/a.png"))));
    EXPECT_EQ(read("a.png").size(), 1);
}

TEST_F(OrganizerMovesTest, aMissingFileIsReportedAndTheOthersMove)
{
    write("a.png", 3);
    write("b.png", 2);
    write("c.png", 1);
    const QList<OrganizeProposal> proposals = propose();
    std::filesystem::remove(standardPath(at("b.png")));
    EXPECT_EQ(OrganizerService::execute(proposals, allIds(proposals)),
              (ExecutionResult{2, {u"b.png: “b.png” could not be moved: it does not exist."_s}}));
    EXPECT_EQ(files(), (QStringList{u"Images/a.png"_s, u"Images/c.png"_s}));
}

TEST_F(OrganizerMovesTest, aFolderThatWasMadeForAMoveThatFailedStays)
{
    write("a.png", 3);
    const QList<OrganizeProposal> proposals = propose();
    std::filesystem::remove(standardPath(at("a.png")));
    EXPECT_EQ(OrganizerService::execute(proposals, allIds(proposals)).moved, 0);
    EXPECT_TRUE(mac.fileManager().fileExists(at("Images")).isDirectory);
}

TEST_F(OrganizerMovesTest, aFileInThePlaceOfTheFolderIsReportedForEachFile)
{
    write("Images", 1);
    write("a.png", 30);
    write("b.png", 20);
    write("c.mp3", 10);
    const QString reason = u"“Images” could not be created: a file stands in the place of a folder."_s;
    EXPECT_EQ(executeAll(), (ExecutionResult{2, {u"a.png: "_s + reason, u"b.png: "_s + reason}}));
    EXPECT_EQ(files(), (QStringList{u"Audio/c.mp3"_s, u"Other/Images"_s, u"a.png"_s, u"b.png"_s}));
}

TEST_F(OrganizerMovesTest, errorsComeInTheOrderOfTheMoves)
{
    write("Other", 100);
    write("z.png", 30);
    write("a", 20);
    const QList<OrganizeProposal> proposals = propose();
    std::filesystem::remove(standardPath(at("z.png")));
    const QString reason = u"“Other” could not be created: a file stands in the place of a folder."_s;
    EXPECT_EQ(OrganizerService::execute(proposals, allIds(proposals)),
              (ExecutionResult{0,
                               {u"Other: "_s + reason, u"a: "_s + reason,
                                u"z.png: “z.png” could not be moved: it does not exist."_s}}));
}

TEST_F(OrganizerMovesTest, aFolderThatCantBeWrittenToIsReportedAndKeepsItsFiles)
{
    write("a.png", 3);
    const QList<OrganizeProposal> proposals = propose();
    {
        const auto reopened = withMode("", 0555);
        const UnprivilegedUser user;
        EXPECT_EQ(
            OrganizerService::execute(proposals, allIds(proposals)),
            (ExecutionResult{0, {u"a.png: “Images” could not be created: you don't have permission."_s}}));
    }
    EXPECT_EQ(files(), QStringList{u"a.png"_s});
}

TEST_F(OrganizerMovesTest, aCategoryFolderOnAnotherDriveIsReportedAndTheFileStays)
{
    makeFolder("Images");
    const TemporaryVolume volume(at("Images"));
    if (!volume.isMounted())
        GTEST_SKIP() << "this user may not mount";
    write("a.png", 3);
    EXPECT_EQ(executeAll(),
              (ExecutionResult{0, {u"a.png: “a.png” could not be moved: it lies on another drive."_s}}));
    EXPECT_EQ(read("a.png").size(), 3);
}

TEST_F(OrganizerMovesTest, aNumberedNameThatIsTooLongIsReportedAndTheFileStays)
{
    const QByteArray name = QByteArray(251, 'a') + ".png";
    writeText("Images/" + name, "old");
    writeText(name, "new");
    const ExecutionResult result = executeAll();
    EXPECT_EQ(result.moved, 0);
    ASSERT_THAT(result.errors, SizeIs(1));
    EXPECT_TRUE(result.errors.first().endsWith(u"could not be moved: the name is too long."_s));
    EXPECT_EQ(read("Images/" + name), "old");
    EXPECT_EQ(read(name), "new");
}

TEST_F(OrganizerMovesTest, namesThatAreNotUtf8MoveWithTheirExactBytes)
{
    writeText("caf\xe9.png", "1");
    writeText("Images/\xff.png", "old");
    writeText("\xff.png", "2");
    EXPECT_EQ(executeAll(), moved(2));
    EXPECT_EQ(read("Images/caf\xe9.png"), "1");
    EXPECT_EQ(read("Images/\xff 2.png"), "2");
}

TEST_F(OrganizerMovesTest, eachKindGoesToItsFolder)
{
    for (const char* name : {"a.heic", "a.key", "a.mov", "a.flac", "a.7z", "a.rs", "a.dmg", "a.xyz"})
        write(name, 1);
    EXPECT_EQ(executeAll(), moved(8));
    EXPECT_EQ(files(),
              (QStringList{u"Archives/a.7z"_s, u"Audio/a.flac"_s, u"Code/a.rs"_s, u"Documents/a.key"_s,
                           u"Images/a.heic"_s, u"Installers/a.dmg"_s, u"Other/a.xyz"_s, u"Videos/a.mov"_s}));
}

} // namespace keelbright::testing

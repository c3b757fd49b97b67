#include "KeelbrightCore/storage/OrganizerService.h"
#include "tests/storage/OrganizerFixture.h"

#include <gmock/gmock.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::UnorderedElementsAre;

namespace {

using OrganizerServiceTest = OrganizerFixture;

/// A listing that names the folder of its entries in another form than it was asked for.
class ResolvingFileManager : public SandboxFileManager
{
public:
    using SandboxFileManager::SandboxFileManager;

    std::expected<QList<DirectoryEntry>, FileError>
    contentsOfDirectory(const FileURL& url, DirectoryEnumerator::Options options) const override
    {
        return SandboxFileManager::contentsOfDirectory(resolvingSymlinks(url), options);
    }
};

} // namespace

TEST_F(OrganizerServiceTest, anEmptyFolderHasNoPlan)
{
    EXPECT_THAT(propose(), IsEmpty());
}

TEST_F(OrganizerServiceTest, aFolderOfFoldersHasNoPlan)
{
    write("Images/a.png", 1);
    write("Letters.pages/Index", 1);
    makeFolder("empty");
    EXPECT_THAT(propose(), IsEmpty());
}

TEST_F(OrganizerServiceTest, aFolderThatCantBeListedHasNoPlan)
{
    EXPECT_THAT(OrganizerService::propose(at("gone")), IsEmpty());
    EXPECT_THAT(OrganizerService::propose(write("a.txt", 1)), IsEmpty());
    const auto reopened = withMode("", 0);
    const UnprivilegedUser user;
    EXPECT_THAT(propose(), IsEmpty());
}

TEST_F(OrganizerServiceTest, looseFilesAreGroupedLargestFirst)
{
    write("small.png", 10);
    write("large.jpg", 30);
    write("report.pdf", 35);
    write("song.mp3", 100);
    EXPECT_EQ(plan(), (QStringList{u"Audio: song.mp3"_s, u"Images: large.jpg, small.png"_s,
                                   u"Documents: report.pdf"_s}));
}

TEST_F(OrganizerServiceTest, aProposalHasSourceDestinationAndSize)
{
    write("Report.PDF", 35);
    const QList<OrganizeProposal> proposals = propose();
    ASSERT_THAT(proposals, SizeIs(1));
    EXPECT_EQ(proposals.first().category, FileCategory::documents);
    ASSERT_THAT(proposals.first().files, SizeIs(1));
    const FileProposal& file = proposals.first().files.first();
    EXPECT_EQ(file.source, at("Report.PDF"));
    EXPECT_EQ(file.destination, at("Documents/Report.PDF"));
    EXPECT_EQ(file.sizeBytes, 35);
}

TEST_F(OrganizerServiceTest, idsAreNewWithEachPlan)
{
    write("a.png", 1);
    write("b.png", 1);
    const QList<OrganizeProposal> first = propose();
    const QList<OrganizeProposal> second = propose();
    EXPECT_NE(first.first().id, second.first().id);
    EXPECT_THAT(allIds(first) + allIds(second), SizeIs(4));
}

TEST_F(OrganizerServiceTest, letterCaseOfTheExtensionDoesNotMatterAndTheNameKeepsIt)
{
    write("PHOTO.JPG", 1);
    EXPECT_EQ(plan(), QStringList{u"Images: PHOTO.JPG"_s});
    EXPECT_EQ(executeAll(), moved(1));
    EXPECT_EQ(files(), QStringList{u"Images/PHOTO.JPG"_s});
}

TEST_F(OrganizerServiceTest, filesWithoutAKnownExtensionGoToOther)
{
    write("Notes", 2);
    write("data.xyz", 1);
    EXPECT_EQ(plan(), QStringList{u"Other: Notes, data.xyz"_s});
}

TEST_F(OrganizerServiceTest, applicationsAreInstallersWithTheirWholeContent)
{
    write("Tool.app/Contents/MacOS/Tool", 1000);
    write("Tool.app/Contents/Info.plist", 30);
    write("Other.APP/Contents/MacOS/Other", 500);
    write("plain.app", 7);
    const QList<OrganizeProposal> proposals = propose();
    ASSERT_THAT(proposals, SizeIs(1));
    EXPECT_EQ(proposals.first().category, FileCategory::installers);
    EXPECT_EQ(plan(), QStringList{u"Installers: Tool.app, Other.APP, plain.app"_s});
    EXPECT_EQ(proposals.first().files[0].sizeBytes, 1030);
    EXPECT_EQ(proposals.first().files[1].sizeBytes, 500);
    EXPECT_EQ(proposals.first().files[2].sizeBytes, 7);
}

TEST_F(OrganizerServiceTest, anApplicationMovesAsAWhole)
{
    write("Tool.app/Contents/MacOS/Tool", 1000);
    EXPECT_EQ(executeAll(), moved(1));
    EXPECT_EQ(files(), QStringList{u"Installers/Tool.app/Contents/MacOS/Tool"_s});
}

TEST_F(OrganizerServiceTest, otherFoldersAreNeitherListedNorMoved)
{
    write("Images/old.png", 1);
    write("Letters.pages/Index", 1);
    write("Project/main.c", 1);
    write("new.png", 1);
    EXPECT_EQ(plan(), QStringList{u"Images: new.png"_s});
    EXPECT_EQ(executeAll(), moved(1));
    EXPECT_EQ(files(), (QStringList{u"Images/new.png"_s, u"Images/old.png"_s, u"Letters.pages/Index"_s,
                                    u"Project/main.c"_s}));
}

TEST_F(OrganizerServiceTest, aSecondRunFindsNothingToDo)
{
    write("a.png", 1);
    write("b", 1);
    write("Tool.app/x", 1);
    EXPECT_EQ(executeAll(), moved(3));
    EXPECT_THAT(propose(), IsEmpty());
}

TEST_F(OrganizerServiceTest, aLinkToAFolderStays)
{
    write("real/a.txt", 1);
    link("door", "real");
    link("door.png", "real");
    EXPECT_THAT(propose(), IsEmpty());
}

TEST_F(OrganizerServiceTest, aLinkToAFileOrToNowhereIsLooseAndIsMovedItself)
{
    write("real/a.txt", 10);
    link("toFile.png", "real/a.txt");
    link("dangling.mp3", "gone");
    EXPECT_THAT(plan(), UnorderedElementsAre(u"Images: toFile.png"_s, u"Audio: dangling.mp3"_s));
    EXPECT_EQ(executeAll(), moved(2));
    EXPECT_EQ(files(), (QStringList{u"Audio/dangling.mp3"_s, u"Images/toFile.png"_s, u"real/a.txt"_s}));
    EXPECT_TRUE(std::filesystem::is_symlink(standardPath(at("Images/toFile.png"))));
}

TEST_F(OrganizerServiceTest, aLinkToAnApplicationIsMovedAloneAndNotMeasured)
{
    write("Applications/Tool.app/Tool", 1000);
    link("Tool.app", "Applications/Tool.app");
    const QList<OrganizeProposal> proposals = propose();
    ASSERT_THAT(proposals, SizeIs(1));
    EXPECT_EQ(proposals.first().files.first().sizeBytes, 0);
    EXPECT_EQ(executeAll(), moved(1));
    EXPECT_EQ(read("Applications/Tool.app/Tool").size(), 1000);
}

TEST_F(OrganizerServiceTest, hiddenEntriesAreNoPartOfAPlan)
{
    write(".hidden.png", 1);
    write(".Tool.app/x", 1);
    write("seen.png", 1);
    EXPECT_EQ(plan(), QStringList{u"Images: seen.png"_s});
}

TEST_F(OrganizerServiceTest, filesOfEqualSizeKeepTheOrderOfTheListing)
{
    for (int i = 0; i < 20; ++i)
        write(QByteArray::number(i) + ".png", 5);
    QStringList listed;
    const QList<DirectoryEntry> entries = mac.fileManager().contentsOfDirectory(folder, {}).value();
    for (const DirectoryEntry& entry : entries)
        listed.append(entry.url.lastPathComponent());
    EXPECT_EQ(plan(), QStringList{u"Images: "_s + listed.join(u", "_s)});
}

TEST_F(OrganizerServiceTest, categoriesOfEqualTotalsBothCome)
{
    write("a.png", 5);
    write("b.mp3", 5);
    EXPECT_THAT(plan(), UnorderedElementsAre(u"Images: a.png"_s, u"Audio: b.mp3"_s));
}

TEST_F(OrganizerServiceTest, anEntryWhoseSizeCantBeReadStaysInThePlanWithSizeZero)
{
    write("a.png", 10);
    const auto reopened = withMode("", 0444);
    const UnprivilegedUser user;
    const QList<OrganizeProposal> proposals = propose();
    ASSERT_THAT(proposals, SizeIs(1));
    EXPECT_EQ(proposals.first().files.first().sizeBytes, 0);
}

TEST_F(OrganizerServiceTest, aListingInAnotherFormOfTheFolderHasNoPlan)
{
    write("a.png", 1);
    mac.makeFolder("Users/mira/Folder");
    std::filesystem::create_symlink("Folder", standardPath(mac.home().appending(u"door"_s)));
    ResolvingFileManager fm(mac.root());
    const FileManagerGuard guard(fm);
    EXPECT_THAT(OrganizerService::propose(mac.home().appending(u"door"_s)), IsEmpty());
    EXPECT_THAT(OrganizerService::propose(folder), SizeIs(1));
}

TEST_F(OrganizerServiceTest, planningChangesNothing)
{
    write("a.png", 1);
    std::ignore = propose();
    EXPECT_EQ(files(), QStringList{u"a.png"_s});
    EXPECT_FALSE(mac.fileManager().fileExists(at("Images")).exists);
}

} // namespace keelbright::testing

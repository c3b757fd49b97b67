#include "KeelbrightCore/storage/UndoService.h"

#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/system/Cancellation.h"
#include "tests/storage/OrganizerFixture.h"
#include "tests/support/TemporaryVolume.h"

#include <gmock/gmock.h>
#include <memory>

namespace keelbright::testing {

using namespace Qt::StringLiterals;
using ::testing::IsEmpty;

namespace {

/// Cancels an undo in the middle.
class CancellingFileManager : public SandboxFileManager
{
public:
    using SandboxFileManager::SandboxFileManager;

    std::expected<void, FileError> moveItem(const FileURL& source, const FileURL& target) override
    {
        auto moved = SandboxFileManager::moveItem(source, target);
        if (++m_moves == cancelAfter)
            cancellation.cancel();
        return moved;
    }

    Cancellation cancellation;
    int cancelAfter = 0;

private:
    int m_moves = 0;
};

class UndoServiceTest : public OrganizerFixture
{
protected:
    /// Runs the organizer on everything that is loose, and says what it has moved.
    [[nodiscard]] OrganizedFiles organize() const
    {
        const QList<OrganizeProposal> proposals = propose();
        OrganizedFiles done;
        EXPECT_THAT(OrganizerService::execute(proposals, allIds(proposals), &done).errors, IsEmpty());
        return done;
    }

    [[nodiscard]] TrashedItem trash(const QByteArray& path) const
    {
        return FileManager::defaultManager().trashItem(at(path)).value();
    }

    UndoResult undo(const UndoableMoves& moves) { return UndoService::undo(moves, progress, Cancellation()); }

    [[nodiscard]] bool exists(const QByteArray& path) const
    {
        return std::filesystem::exists(std::filesystem::symlink_status(standardPath(at(path))));
    }

    void remove(const QByteArray& path) const { std::filesystem::remove_all(standardPath(at(path))); }

    static void expectOnlyFailure(const UndoResult& result, const FileURL& origin, const QString& reason)
    {
        ASSERT_EQ(result.failures.size(), 1);
        EXPECT_EQ(result.failures.first().origin, origin);
        EXPECT_EQ(result.failures.first().reason, reason);
    }

    UndoProgress progress;
};

} // namespace

TEST_F(UndoServiceTest, theOrganizerSaysWhatItHasMovedAndMade)
{
    writeText("a.png", "1");
    writeText("b.png", "22");
    writeText("Audio/c.mp3", "old");
    writeText("c.mp3", "333");
    writeText("Tool.app/inside", "4444");
    const OrganizedFiles done = organize();
    EXPECT_THAT(done.moves,
                ::testing::UnorderedElementsAre(FileMove{at("b.png"), at("Images/b.png"), false},
                                                FileMove{at("a.png"), at("Images/a.png"), false},
                                                FileMove{at("c.mp3"), at("Audio/c 2.mp3"), false},
                                                FileMove{at("Tool.app"), at("Installers/Tool.app"), true}));
    EXPECT_THAT(done.newFolders, ::testing::UnorderedElementsAre(at("Images"), at("Installers")));
    EXPECT_EQ(countOf(done), 4);
}

TEST_F(UndoServiceTest, whatWasNotMovedIsNotToBeUndone)
{
    writeText("a.png", "1");
    const QList<OrganizeProposal> proposals = propose();
    remove("a.png");
    OrganizedFiles done;
    EXPECT_EQ(OrganizerService::execute(proposals, allIds(proposals), &done).moved, 0);
    EXPECT_THAT(done.moves, IsEmpty());
}

TEST_F(UndoServiceTest, everyFileGoesBackAndNewFoldersAreRemoved)
{
    writeText("a.png", "1");
    writeText("b.pdf", "22");
    writeText("Notes", "333");
    writeText("Audio/old.mp3", "old");
    writeText("old.mp3", "new");
    writeText("Tool.app/inside", "4444");
    link("nowhere", "gone");
    const QStringList before = files();
    const UndoResult result = undo(organize());
    EXPECT_EQ(result.restored, 6);
    EXPECT_THAT(result.failures, IsEmpty());
    EXPECT_EQ(countOf(result.remaining), 0);
    EXPECT_FALSE(result.isFromTrash());
    EXPECT_EQ(progress.tried, 6);
    EXPECT_EQ(files(), before);
    EXPECT_EQ(read("old.mp3"), "new");
    EXPECT_EQ(read("Audio/old.mp3"), "old");
    for (const char* made : {"Images", "Documents", "Other", "Installers"})
        EXPECT_FALSE(exists(made)) << made;
    EXPECT_TRUE(exists("Audio")) << "it was there before";
}

TEST_F(UndoServiceTest, aNewFolderWithSomethingElseInItStays)
{
    writeText("a.png", "1");
    const OrganizedFiles done = organize();
    writeText("Images/.mine", "m");
    EXPECT_EQ(undo(done).restored, 1);
    EXPECT_EQ(files(), (QStringList{u"Images/.mine"_s, u"a.png"_s}));
}

TEST_F(UndoServiceTest, aFileThatWasChangedSinceGoesBackAsItIs)
{
    writeText("a.png", "1");
    const OrganizedFiles done = organize();
    writeText("Images/a.png", "edited");
    EXPECT_EQ(undo(done).restored, 1);
    EXPECT_EQ(read("a.png"), "edited");
}

TEST_F(UndoServiceTest, aFileThatWasRemovedSinceIsReportedAndTheOthersGoBack)
{
    writeText("a.png", "1");
    writeText("b.png", "22");
    const OrganizedFiles done = organize();
    remove("Images/a.png");
    const UndoResult result = undo(done);
    EXPECT_EQ(result.restored, 1);
    expectOnlyFailure(result, at("a.png"), u"“a.png” could not be moved: it does not exist."_s);
    EXPECT_EQ(files(), QStringList{u"b.png"_s});
}

TEST_F(UndoServiceTest, aFolderUnderTheNameOfAFileIsNotThatFile)
{
    writeText("Notes", "1");
    const OrganizedFiles done = organize();
    remove("Other/Notes");
    writeText("Other/Notes/mine", "m");
    expectOnlyFailure(undo(done), at("Notes"), u"“Notes” could not be moved: it does not exist."_s);
    EXPECT_EQ(files(), QStringList{u"Other/Notes/mine"_s});
}

TEST_F(UndoServiceTest, aNameThatIsTakenIsNotReplaced)
{
    writeText("a.png", "old");
    const OrganizedFiles done = organize();
    writeText("a.png", "new");
    const UndoResult result = undo(done);
    EXPECT_EQ(result.restored, 0);
    expectOnlyFailure(result, at("a.png"),
                      u"“a.png” could not be moved: something of that name is already there."_s);
    EXPECT_EQ(read("a.png"), "new");
    EXPECT_EQ(read("Images/a.png"), "old");
    EXPECT_TRUE(exists("Images"));
}

TEST_F(UndoServiceTest, aDanglingLinkInThePlaceIsNotReplaced)
{
    writeText("a.png", "1");
    const OrganizedFiles done = organize();
    link("a.png", "gone");
    EXPECT_EQ(undo(done).restored, 0);
    EXPECT_TRUE(std::filesystem::is_symlink(standardPath(at("a.png"))));
    EXPECT_EQ(read("Images/a.png"), "1");
}

TEST_F(UndoServiceTest, aFolderThatIsGoneIsNotMadeAgainForFilesThatWentWithIt)
{
    writeText("a.png", "1");
    const OrganizedFiles done = organize();
    std::filesystem::remove_all(standardPath(folder));
    expectOnlyFailure(undo(done), at("a.png"), u"“a.png” could not be moved: it does not exist."_s);
    EXPECT_FALSE(std::filesystem::exists(standardPath(folder)));
}

TEST_F(UndoServiceTest, aFolderThatIsGoneIsMadeAgainForFilesThatAreThere)
{
    const FileURL kept = mac.writeFile("Users/mira/Kept/a.png", "1");
    OrganizedFiles done;
    done.moves.append({at("sub/a.png"), kept, false});
    EXPECT_EQ(undo(done).restored, 1);
    EXPECT_EQ(read("sub/a.png"), "1");
}

TEST_F(UndoServiceTest, aFileOnAnotherDriveStaysThere)
{
    writeText("a.png", "1");
    const OrganizedFiles done = organize();
    remove("Images");
    makeFolder("Images");
    const TemporaryVolume volume(at("Images"));
    if (!volume.isMounted())
        GTEST_SKIP() << "a second volume needs the right to mount";
    writeText("Images/a.png", "1");
    expectOnlyFailure(undo(done), at("a.png"), u"“a.png” could not be moved: it lies on another drive."_s);
    EXPECT_EQ(read("Images/a.png"), "1");
}

TEST_F(UndoServiceTest, trashedItemsGoBackFromTheLastToTheFirst)
{
    writeText("Album/1.jpg", "1");
    TrashedItems trashed;
    trashed.items.append(trash("Album/1.jpg"));
    trashed.items.append(trash("Album"));
    trashed.isRemoval = true;
    // The other way round a new folder would take the name of the one in the Trash.
    const UndoResult result = undo(trashed);
    EXPECT_EQ(result.restored, 2);
    EXPECT_THAT(result.failures, IsEmpty());
    EXPECT_TRUE(result.isFromTrash());
    EXPECT_TRUE(result.isOfRemoval());
    EXPECT_EQ(files(), QStringList{u"Album/1.jpg"_s});
}

TEST_F(UndoServiceTest, whatNoLongerLiesInTheTrashIsReported)
{
    writeText("a", "1");
    writeText("b", "2");
    const TrashedItems trashed{.items = {trash("a"), trash("b")}};
    std::filesystem::remove_all(standardPath(mac.home().appendingNative(".local/share/Trash/files/b")));
    const UndoResult result = undo(trashed);
    EXPECT_EQ(result.restored, 1);
    expectOnlyFailure(result, at("b"), u"“b” could not be put back: it no longer lies in the Trash."_s);
    EXPECT_EQ(files(), QStringList{u"a"_s});
}

TEST_F(UndoServiceTest, aCancelLeavesTheRestToBeUndoneLater)
{
    for (const char* name : {"a.png", "b.png", "c.png"})
        writeText(name, name);
    const OrganizedFiles done = organize();
    CancellingFileManager cancelling(mac.root());
    cancelling.cancelAfter = 1;
    UndoResult result;
    {
        const FileManagerGuard guard(cancelling);
        result = UndoService::undo(done, progress, cancelling.cancellation);
    }
    EXPECT_EQ(result.restored, 1);
    EXPECT_EQ(progress.tried, 1);
    EXPECT_EQ(countOf(result.remaining), 2);
    EXPECT_THAT(result.failures, IsEmpty());
    EXPECT_TRUE(exists("Images"));
    result = undo(result.remaining);
    EXPECT_EQ(result.restored, 2);
    EXPECT_EQ(files(), (QStringList{u"a.png"_s, u"b.png"_s, u"c.png"_s}));
    EXPECT_FALSE(exists("Images"));
}

TEST_F(UndoServiceTest, nothingIsTouchedOnceItIsCancelled)
{
    writeText("a.png", "1");
    const OrganizedFiles done = organize();
    Cancellation cancelled;
    cancelled.cancel();
    const UndoResult result = UndoService::undo(done, progress, cancelled);
    EXPECT_EQ(result.restored, 0);
    EXPECT_EQ(result.remaining, UndoableMoves(done));
    EXPECT_EQ(files(), QStringList{u"Images/a.png"_s});
}

} // namespace keelbright::testing

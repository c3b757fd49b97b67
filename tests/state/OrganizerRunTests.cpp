#include "Keelbright/state/OrganizerVM.h"
#include "KeelbrightCore/platform/text/UtcZone.h"
#include "tests/state/OnlyEntry.h"
#include "tests/state/OrganizerVMFixture.h"

#include <filesystem>
#include <gmock/gmock.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;
using ::testing::IsEmpty;

namespace {

class OrganizerRunTest : public OrganizerVMFixture
{
protected:
    void removeFile(const QString& path) const
    {
        std::filesystem::remove(downloads().appending(path).nativePath().toStdString());
    }

    [[nodiscard]] QString loggedDetail() const
    {
        const QList<ActivityEntry> entries = activityStore.load();
        return entries.isEmpty() ? u"nothing logged"_s : entries.first().detail;
    }
};

} // namespace

TEST_F(OrganizerRunTest, aRunMovesWhatIsTickedAndLogsIt)
{
    write("a.png", 10);
    write("b.png", 20);
    write("c.mp3", 100);
    scanDownloads();
    model.execute();
    EXPECT_TRUE(exists(u"Images/a.png"_s));
    EXPECT_TRUE(exists(u"Images/b.png"_s));
    EXPECT_TRUE(exists(u"Audio/c.mp3"_s));
    const ActivityEntry entry = onlyEntry(activityStore);
    EXPECT_FALSE(entry.id.isNull());
    EXPECT_EQ(entry, (ActivityEntry{
                         .id = entry.id,
                         .timestamp = QDateTime(QDate(2026, 3, 2), QTime(9, 5, 7), utcZone),
                         .kind = ActivityEntry::Kind::organise,
                         .title = u"Files organised"_s,
                         .detail = u"3 files sorted into subfolders in Downloads"_s,
                         .bytesAffected = 130,
                         .itemCount = 3,
                     }));
}

TEST_F(OrganizerRunTest, aRunSaysWhatItHasMoved)
{
    write("a.png", 10);
    write("gone.png", 20);
    scanDownloads();
    removeFile(u"gone.png"_s);
    QList<UndoableMoves> moves;
    QObject::connect(&model, &OrganizerVM::organised, &model,
                     [&moves](const UndoableMoves& done) { moves.append(done); });
    model.execute();
    ASSERT_EQ(moves.size(), 1);
    EXPECT_EQ(std::get<OrganizedFiles>(moves.first()),
              (OrganizedFiles{.moves = {{downloads().appending(u"a.png"_s),
                                         downloads().appending(u"Images/a.png"_s), false}},
                              .newFolders = {downloads().appending(u"Images"_s)}}));
    model.execute();
    EXPECT_EQ(moves.size(), 1) << "nothing was moved";
}

TEST_F(OrganizerRunTest, aRunThatMovedEverythingLeavesNothingToDo)
{
    write("a.png", 10);
    scanDownloads();
    model.execute();
    EXPECT_THAT(model.proposals(), IsEmpty());
    EXPECT_THAT(model.selectedCategories(), IsEmpty());
    EXPECT_THAT(model.selectedFiles(), IsEmpty());
    EXPECT_FALSE(model.selectedProposalID().has_value());
    EXPECT_FALSE(model.isScanning());
    EXPECT_EQ(model.targetFolder(), downloads());
    EXPECT_EQ(model.activeTarget(), OrganizerVM::QuickTarget::downloads);
}

TEST_F(OrganizerRunTest, oneFileIsLoggedAsOneFile)
{
    write("a.png", 10);
    scanDownloads();
    model.execute();
    EXPECT_EQ(loggedDetail(), u"1 file sorted into subfolders in Downloads"_s);
}

TEST_F(OrganizerRunTest, aFolderWithAPercentSignIsLoggedAsItIs)
{
    mac.writeFile("Users/mira/100%1 %2/a.png", "1");
    model.scan(mac.home().appending(u"100%1 %2"_s));
    waitForPlan();
    model.execute();
    EXPECT_EQ(loggedDetail(), u"1 file sorted into subfolders in 100%1 %2"_s);
}

TEST_F(OrganizerRunTest, onlyTickedFilesMoveAndTheRestIsTickedAgainUnderNewIds)
{
    write("a.png", 10);
    write("b.png", 20);
    write("c.mp3", 100);
    scanDownloads();
    const QUuid images = proposal(1).id;
    const QUuid kept = fileId(1, 0);
    model.setFile(kept, false, images);
    model.execute();
    EXPECT_EQ(plan(), QStringList{u"Images: b.png"_s});
    EXPECT_TRUE(exists(u"b.png"_s));
    EXPECT_TRUE(exists(u"Images/a.png"_s));
    EXPECT_NE(proposal(0).id, images);
    EXPECT_EQ(fileId(0, 0), kept) << "a file keeps its id";
    EXPECT_EQ(model.selectedCategories(), allCategories());
    EXPECT_EQ(model.selectedFiles(), allFiles());
    EXPECT_EQ(model.selectedProposalID(), proposal(0).id);
    EXPECT_EQ(activityStore.load().first().bytesAffected, 110);
    EXPECT_EQ(activityStore.load().first().itemCount, 2);
}

TEST_F(OrganizerRunTest, aRunWithNothingTickedLogsNothingAndTicksEverythingUnderNewIds)
{
    write("a.png", 10);
    write("b.mp3", 20);
    scanDownloads();
    const QStringList before = plan();
    const QSet<QUuid> oldCategories = allCategories();
    const QSet<QUuid> oldFiles = allFiles();
    model.toggleSelectAll();
    model.execute();
    EXPECT_EQ(plan(), before);
    EXPECT_FALSE(allCategories().intersects(oldCategories));
    EXPECT_EQ(allFiles(), oldFiles);
    EXPECT_EQ(model.selectedCategories(), allCategories());
    EXPECT_EQ(model.selectedFiles(), allFiles());
    EXPECT_EQ(model.selectedProposalID(), proposal(0).id);
    EXPECT_THAT(activityStore.load(), IsEmpty());
}

TEST_F(OrganizerRunTest, theRemainingPlanKeepsItsOrderWhateverItsTotals)
{
    write("big.png", 1000);
    write("small.png", 1);
    write("song.mp3", 100);
    scanDownloads();
    EXPECT_EQ(plan(), (QStringList{u"Images: big.png, small.png"_s, u"Audio: song.mp3"_s}));
    model.toggleSelectAll();
    model.setFile(fileId(0, 0), true, proposal(0).id);
    model.execute();
    EXPECT_EQ(plan(), (QStringList{u"Images: small.png"_s, u"Audio: song.mp3"_s}));
}

TEST_F(OrganizerRunTest, theOpenCategoryBecomesTheFirstAndNoneStaysNone)
{
    write("a.png", 30);
    write("b.mp3", 20);
    write("c.pdf", 10);
    scanDownloads();
    model.toggleSelectAll();
    model.setSelectedProposalID(proposal(2).id);
    model.execute();
    EXPECT_EQ(model.selectedProposalID(), proposal(0).id);
    model.toggleSelectAll();
    model.setSelectedProposalID(std::nullopt);
    model.execute();
    EXPECT_FALSE(model.selectedProposalID().has_value());
}

TEST_F(OrganizerRunTest, filesThatFailedLeaveThePlanToo)
{
    write("a.png", 10);
    write("gone.png", 20);
    scanDownloads();
    removeFile(u"gone.png"_s);
    model.execute();
    EXPECT_THAT(model.proposals(), IsEmpty());
    const ActivityEntry entry = onlyEntry(activityStore);
    EXPECT_EQ(entry.itemCount, 1);
    EXPECT_EQ(entry.bytesAffected, 30) << "what failed is counted as well";
    EXPECT_EQ(entry.detail, u"1 file sorted into subfolders in Downloads"_s);
}

TEST_F(OrganizerRunTest, aFileThatFailedComesBackWithTheNextScan)
{
    write("a.png", 10);
    write("Images", 1);
    scanDownloads();
    model.toggleCategory(proposal(1).id);
    model.execute();
    EXPECT_EQ(plan(), QStringList{u"Other: Images"_s});
    EXPECT_THAT(activityStore.load(), IsEmpty()) << "nothing moved";
    scanDownloads();
    EXPECT_EQ(plan(), (QStringList{u"Images: a.png"_s, u"Other: Images"_s}));
}

TEST_F(OrganizerRunTest, aRunDoesNotClearTheConfirmation)
{
    write("a.png", 10);
    scanDownloads();
    model.setShowConfirm(true);
    model.execute();
    EXPECT_TRUE(model.showConfirm());
}

TEST_F(OrganizerRunTest, aRunWithoutAPlanDoesNothing)
{
    model.execute();
    EXPECT_THAT(model.proposals(), IsEmpty());
    EXPECT_THAT(activityStore.load(), IsEmpty());
}

} // namespace keelbright::testing

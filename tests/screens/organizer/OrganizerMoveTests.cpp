#include "tests/screens/organizer/OrganizerTestCase.h"

namespace keelbright::testing {

using namespace Qt::StringLiterals;

using OrganizerMoveTests = OrganizerTestCase;

TEST_F(OrganizerMoveTests, asksBeforeAnythingIsMoved)
{
    writeSomeFiles();
    openDownloads();
    tickCategory(1);
    press(u"Organise Now"_s);
    EXPECT_TRUE(model().showConfirm());
    ASSERT_EQ(alerts.requests().size(), 1);
    const AlertRequest& request = alerts.requests().first();
    EXPECT_EQ(request.title, u"Move 2 files into subfolders?"_s);
    EXPECT_EQ(request.message, u"Files will be moved into named subfolders inside \"Downloads\". This can be "
                               u"undone in Finder (⌘Z)."_s);
    EXPECT_EQ(request.action, u"Organise"_s);
    EXPECT_EQ(request.cancel, u"Cancel"_s);
    EXPECT_TRUE(request.isDestructive);
    EXPECT_TRUE(mac.fileManager().fileExists(downloads().appending(u"beach.jpg"_s)).exists);
}

TEST_F(OrganizerMoveTests, theQuestionCountsTheTickedFilesOfAllCategories)
{
    writeSomeFiles();
    openDownloads();
    tick(0);
    tickCategory(1);
    // One picture is left of three files, and no category is ticked as a whole.
    press(u"Organise Now"_s);
    EXPECT_EQ(alerts.requests().first().title, u"Move 1 file into subfolders?"_s);
    alerts.confirm();
    EXPECT_FALSE(mac.fileManager().fileExists(downloads().appending(u"cat.png"_s)).exists);
    EXPECT_TRUE(mac.fileManager().fileExists(downloads().appending(u"beach.jpg"_s)).exists);
    EXPECT_TRUE(mac.fileManager().fileExists(downloads().appending(u"letter.pdf"_s)).exists);
}

TEST_F(OrganizerMoveTests, theQuestionSaysTheFolderIfNoneIsChosen)
{
    open();
    model().setShowConfirm(true);
    ASSERT_EQ(alerts.requests().size(), 1);
    EXPECT_EQ(alerts.requests().first().title, u"Move 0 files into subfolders?"_s);
    EXPECT_EQ(
        alerts.requests().first().message,
        u"Files will be moved into named subfolders inside \"the folder\". This can be undone in Finder "
        u"(⌘Z)."_s);
}

TEST_F(OrganizerMoveTests, aDismissedQuestionLeavesAllAsItIs)
{
    writeSomeFiles();
    openDownloads();
    tickCategory(0);
    press(u"Organise Now"_s);
    EXPECT_EQ(alerts.requests().last().title, u"Move 1 file into subfolders?"_s);
    alerts.dismiss();
    turnFrame();
    EXPECT_FALSE(model().showConfirm());
    EXPECT_TRUE(shows(u"1 file selected"_s));
    EXPECT_TRUE(mac.fileManager().fileExists(downloads().appending(u"letter.pdf"_s)).exists);
}

TEST_F(OrganizerMoveTests, confirmedFilesAreMovedAndTheRestIsTickedAgain)
{
    writeSomeFiles();
    openDownloads();
    tick(1);
    press(u"Organise Now"_s);
    alerts.confirm();
    turnFrame();
    EXPECT_FALSE(model().showConfirm());
    EXPECT_TRUE(mac.fileManager().fileExists(downloads().appending(u"Images/beach.jpg"_s)).exists);
    EXPECT_TRUE(mac.fileManager().fileExists(downloads().appending(u"Documents/letter.pdf"_s)).exists);
    EXPECT_EQ(categories().texts(), QStringList(u"Images, 1 file, 5 KB"_s));
    EXPECT_EQ(categories().selectedRow(), 0);
    EXPECT_EQ(files().marks(), (QList{Qt::Checked}));
    ASSERT_EQ(activityStore.load().size(), 1);
    EXPECT_EQ(activityStore.load().first().title, u"Files organised"_s);
}

TEST_F(OrganizerMoveTests, theFolderIsOrganisedAfterEverythingWasMoved)
{
    writeSomeFiles();
    openDownloads();
    press(u"Organise Now"_s);
    alerts.confirm();
    turnFrame();
    EXPECT_TRUE(shows(u"Already organised!"_s));
    EXPECT_TRUE(shows(u"Select a category"_s));
}

TEST_F(OrganizerMoveTests, aNameThatIsNotTextIsShownAndMoved)
{
    write("Br\xfc"
          "cke\n<b>.png",
          10);
    openDownloads();
    EXPECT_TRUE(files().texts().first().startsWith(u"Br\xFFFD"
                                                   u"cke␊<b>.png, "_s));
    press(u"Organise Now"_s);
    alerts.confirm();
    EXPECT_TRUE(mac.fileManager()
                    .fileExists(downloads().appendingNative("Images/Br\xfc"
                                                            "cke\n<b>.png"))
                    .exists);
}

} // namespace keelbright::testing

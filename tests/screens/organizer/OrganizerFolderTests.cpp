#include "tests/screens/organizer/OrganizerTestCase.h"
#include "tests/screens/shared/DroppedItems.h"
#include "tests/support/HeldFileManager.h"

#include <QApplication>
#include <QTest>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

using QuickTarget = OrganizerVM::QuickTarget;
using OrganizerFolderTests = OrganizerTestCase;

TEST_F(OrganizerFolderTests, beginsWithoutAScan)
{
    writeSomeFiles();
    open();
    turnFrame();
    EXPECT_FALSE(model().isScanning());
    EXPECT_EQ(textsIn(*view),
              (QStringList{u"Smart Organizer"_s, u"QUICK TARGETS"_s, u"Desktop"_s, u"Downloads"_s,
                           u"Choose Folder…"_s, u"Pick a folder above"_s, u"Select a category"_s,
                           u"Click a category on the left to preview which files will be moved."_s}));
    EXPECT_EQ(shownSymbols(*view),
              (QStringList{u"folder.badge.gearshape"_s, u"menubar.rectangle"_s, u"arrow.down.circle.fill"_s,
                           u"folder.badge.plus"_s, u"arrow.up.left"_s, u"folder.badge.gearshape"_s}));
    expectEveryControlIsNamedAndReachedByTab(*view);
}

TEST_F(OrganizerFolderTests, aQuickTargetIsScannedAndMarked)
{
    writeSomeFiles();
    HeldFileManager held(mac.root());
    const FileManagerGuard guard(held);
    open();
    held.holdNextLookAt(downloads());
    target(u"Downloads"_s)->click();
    ASSERT_TRUE(held.waitUntilHeld());
    turnFrame();
    EXPECT_TRUE(shows(u"Analysing…"_s));
    EXPECT_TRUE(shows(u"Select a category"_s));
    EXPECT_TRUE(hasChevron(u"Downloads"_s));
    EXPECT_FALSE(hasChevron(u"Desktop"_s));
    EXPECT_TRUE(target(u"Downloads"_s)->isChecked());
    held.letGo();
    waitForPlan();
    EXPECT_FALSE(shows(u"Analysing…"_s));
    EXPECT_EQ(categories().texts(), (QStringList{u"Images, 2 files, 11 KB"_s, u"Documents, 1 file, 3 KB"_s}));
    view.reset();
}

TEST_F(OrganizerFolderTests, theOtherTargetTakesTheMark)
{
    mac.writeFile("Users/mira/Desktop/song.mp3", "x");
    writeSomeFiles();
    openDownloads();
    target(u"Desktop"_s)->click();
    waitForPlan();
    EXPECT_TRUE(hasChevron(u"Desktop"_s));
    EXPECT_FALSE(hasChevron(u"Downloads"_s));
    EXPECT_EQ(categories().texts(), QStringList(u"Audio, 1 file, 1 byte"_s));
}

TEST_F(OrganizerFolderTests, aPressOnTheActiveTargetScansItAgain)
{
    openDownloads();
    EXPECT_TRUE(shows(u"Already organised!"_s));
    writeSomeFiles();
    target(u"Downloads"_s)->click();
    waitForPlan();
    EXPECT_TRUE(hasChevron(u"Downloads"_s));
    EXPECT_EQ(categories().count(), 2);
}

TEST_F(OrganizerFolderTests, aFolderOfTheUsersChoiceMarksNoTarget)
{
    writeSomeFiles();
    openDownloads();
    mac.writeFile("Users/mira/Projects/plan.zip", "xx");
    chooser.willChoose({mac.home().appending(u"Projects"_s)});
    target(u"Choose Folder…"_s)->click();
    waitForPlan();
    EXPECT_FALSE(hasChevron(u"Desktop"_s));
    EXPECT_FALSE(hasChevron(u"Downloads"_s));
    EXPECT_FALSE(hasChevron(u"Choose Folder…"_s));
    EXPECT_EQ(categories().texts(), QStringList(u"Archives, 1 file, 2 bytes"_s));
    EXPECT_TRUE(shows(u"Projects/Archives"_s));
}

TEST_F(OrganizerFolderTests, aDismissedChooserChangesNothing)
{
    writeSomeFiles();
    openDownloads();
    chooser.willBeDismissed();
    target(u"Choose Folder…"_s)->click();
    turnFrame();
    EXPECT_TRUE(hasChevron(u"Downloads"_s));
    EXPECT_EQ(categories().count(), 2);
}

TEST_F(OrganizerFolderTests, aFolderFromElsewhereIsScanned)
{
    writeSomeFiles();
    openDownloads();
    mac.writeFile("Users/mira/Projects/plan.zip", "xx");
    post(QVariant::fromValue(mac.home().appending(u"Projects"_s)));
    EXPECT_TRUE(model().isScanning());
    EXPECT_FALSE(model().activeTarget().has_value());
    waitForPlan();
    EXPECT_FALSE(hasChevron(u"Downloads"_s));
    EXPECT_EQ(categories().texts(), QStringList(u"Archives, 1 file, 2 bytes"_s));
}

TEST_F(OrganizerFolderTests, anythingButAFolderIsIgnored)
{
    writeSomeFiles();
    openDownloads();
    post({});
    post(downloads().path());
    post(42);
    NotificationCenter::defaultCenter().post(u"com.keelbright.other"_s, QVariant::fromValue(downloads()));
    EXPECT_FALSE(model().isScanning());
    EXPECT_EQ(model().activeTarget(), QuickTarget::downloads);
    EXPECT_EQ(model().targetFolder(), downloads());
}

TEST_F(OrganizerFolderTests, aFolderThatWasSentBeforeIsNotTaken)
{
    post(QVariant::fromValue(downloads()));
    open();
    turnFrame();
    EXPECT_FALSE(model().isScanning());
    EXPECT_TRUE(shows(u"Pick a folder above"_s));
}

TEST_F(OrganizerFolderTests, aTidyFolderIsAlreadyOrganised)
{
    mac.makeFolder("Users/mira/Downloads");
    openDownloads();
    EXPECT_TRUE(shows(u"Already organised!"_s));
    EXPECT_TRUE(shows(u"No loose files found."_s));
    EXPECT_TRUE(shownSymbols(*view).contains(u"checkmark.circle.fill"_s));
    EXPECT_TRUE(shows(u"Select a category"_s));
}

TEST_F(OrganizerFolderTests, aFolderThatCantBeReadLooksTidy)
{
    openDownloads();
    EXPECT_TRUE(shows(u"Already organised!"_s));
}

TEST_F(OrganizerFolderTests, f5AndControlRScanAgain)
{
    writeSomeFiles();
    openDownloads();
    write("song.mp3", 1);
    QTest::keyClick(view.get(), Qt::Key_F5);
    EXPECT_TRUE(model().isScanning());
    waitForPlan();
    EXPECT_EQ(categories().count(), 3);
    EXPECT_TRUE(hasChevron(u"Downloads"_s));
    write("film.mov", 2);
    QTest::keyClick(view.get(), Qt::Key_R, Qt::ControlModifier);
    waitForPlan();
    EXPECT_EQ(categories().count(), 4);
}

TEST_F(OrganizerFolderTests, f5ScansAFolderFromElsewhereToo)
{
    open();
    QTest::keyClick(view.get(), Qt::Key_F5);
    EXPECT_FALSE(model().isScanning());
    mac.makeFolder("Users/mira/Projects");
    post(QVariant::fromValue(mac.home().appending(u"Projects"_s)));
    waitForPlan();
    mac.writeFile("Users/mira/Projects/plan.zip", "xx");
    QTest::keyClick(view.get(), Qt::Key_F5);
    waitForPlan();
    EXPECT_EQ(categories().texts(), QStringList(u"Archives, 1 file, 2 bytes"_s));
    EXPECT_FALSE(model().activeTarget().has_value());
}

TEST_F(OrganizerFolderTests, theKeyboardIsWhereItWasAfterAScan)
{
    writeSomeFiles();
    openDownloads();
    files().view()->setFocus();
    QTest::keyClick(files().view(), Qt::Key_F5);
    waitForPlan();
    EXPECT_EQ(QApplication::focusWidget(), files().view());
}

TEST_F(OrganizerFolderTests, aNewVisitStartsOver)
{
    writeSomeFiles();
    openDownloads();
    open();
    EXPECT_TRUE(shows(u"Pick a folder above"_s));
    EXPECT_FALSE(hasChevron(u"Downloads"_s));
}

TEST_F(OrganizerFolderTests, aFolderThatIsDroppedIsScanned)
{
    writeSomeFiles();
    open();
    EXPECT_TRUE(drop(*view, {downloads()}));
    waitForPlan();
    EXPECT_EQ(model().targetFolder(), downloads());
    EXPECT_EQ(model().activeTarget(), std::nullopt);
    EXPECT_EQ(categories().count(), 2);
}

TEST_F(OrganizerFolderTests, theScreenMayCloseInTheMiddleOfAScan)
{
    writeSomeFiles();
    HeldFileManager held(mac.root());
    const FileManagerGuard guard(held);
    open();
    held.holdNextLookAt(downloads());
    target(u"Downloads"_s)->click();
    ASSERT_TRUE(held.waitUntilHeld());
    view.reset();
    held.letGo();
    waitForBackgroundWork();
    turnFrame();
    EXPECT_TRUE(mac.fileManager().fileExists(downloads().appending(u"letter.pdf"_s)).exists);
}

} // namespace keelbright::testing

#include "tests/screens/junk/JunkCleanerTestCase.h"
#include "tests/support/HeldFileManager.h"

#include <QTest>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

using JunkSelectionTests = JunkCleanerTestCase;

TEST_F(JunkSelectionTests, theMarkOfACategoryFollowsItsItems)
{
    addSomeJunk();
    open();
    tick(0);
    EXPECT_EQ(categories().row(0).markState, Qt::PartiallyChecked);
    tick(1);
    EXPECT_EQ(categories().row(0).markState, Qt::Checked);
    tick(0);
    tick(1);
    EXPECT_EQ(categories().row(0).markState, Qt::Unchecked);
}

TEST_F(JunkSelectionTests, theMarkTicksACategoryWithoutShowingIt)
{
    addSomeJunk();
    open();
    categories().clickMark(1);
    turnFrame();
    EXPECT_EQ(categories().marks(), (QList{Qt::Unchecked, Qt::Checked, Qt::Unchecked}));
    EXPECT_EQ(categories().selectedRow(), 0);
    EXPECT_TRUE(shows(u"2 items · 11 MB total"_s));
    EXPECT_TRUE(shows(u"1 item selected"_s));
    EXPECT_TRUE(shows(u"3 MB"_s));
    categories().clickMark(1);
    turnFrame();
    EXPECT_TRUE(shows(u"Nothing selected"_s));
}

TEST_F(JunkSelectionTests, theMarkOfAPartlyTickedCategoryTicksTheRest)
{
    addSomeJunk();
    open();
    tick(1);
    categories().clickMark(0);
    turnFrame();
    EXPECT_EQ(items().marks(), (QList{Qt::Checked, Qt::Checked}));
    EXPECT_TRUE(shows(u"2 items selected"_s));
}

TEST_F(JunkSelectionTests, spaceTicksWhatIsCurrent)
{
    addSomeJunk();
    open();
    categories().view()->setFocus();
    QTest::keyClick(categories().view(), Qt::Key_Down);
    QTest::keyClick(categories().view(), Qt::Key_Space);
    turnFrame();
    EXPECT_EQ(items().row(0).title, u"Example"_s);
    EXPECT_EQ(categories().marks(), (QList{Qt::Unchecked, Qt::Checked, Qt::Unchecked}));
    items().view()->setFocus();
    QTest::keyClick(items().view(), Qt::Key_Down);
    QTest::keyClick(items().view(), Qt::Key_Space);
    turnFrame();
    EXPECT_TRUE(shows(u"Nothing selected"_s));
}

TEST_F(JunkSelectionTests, aSelectionAcrossCategoriesSurvivesSwitching)
{
    addSomeJunk();
    open();
    tick(1);
    chooseCategory(2);
    tick(0);
    EXPECT_TRUE(shows(u"2 items selected"_s));
    EXPECT_TRUE(shows(u"7 MB"_s));
    chooseCategory(0);
    EXPECT_EQ(items().marks(), (QList{Qt::Unchecked, Qt::Checked}));
    chooseCategory(2);
    EXPECT_EQ(items().marks(), (QList{Qt::Checked}));
}

TEST_F(JunkSelectionTests, oneSelectAllIsForTheCategoryAndTheOtherForEverything)
{
    addSomeJunk();
    open();
    Button* ofCategory = button(*view, u"Select All"_s);
    Button* ofAll = lastButton(u"Select All"_s);
    ASSERT_NE(ofCategory, ofAll);
    ofCategory->click();
    turnFrame();
    EXPECT_TRUE(shows(u"2 items selected"_s));
    EXPECT_EQ(ofCategory->caption(), u"Deselect All"_s);
    EXPECT_EQ(ofAll->caption(), u"Deselect All"_s);
    ofAll->click();
    turnFrame();
    EXPECT_TRUE(shows(u"Nothing selected"_s));
    ofAll->click();
    turnFrame();
    EXPECT_TRUE(shows(u"4 items selected"_s));
    EXPECT_TRUE(shows(u"16 MB"_s));
    ofCategory->click();
    turnFrame();
    EXPECT_TRUE(shows(u"2 items selected"_s));
    EXPECT_EQ(ofCategory->caption(), u"Select All"_s);
    EXPECT_EQ(ofAll->caption(), u"Deselect All"_s);
}

TEST_F(JunkSelectionTests, reScanDropsTheSelectionAtOnce)
{
    addSomeJunk();
    HeldFileManager held(mac.root());
    const FileManagerGuard guard(held);
    open();
    press(u"Select All"_s);
    held.holdNextLookAt(mac.home().appending(u"Library/Logs"_s));
    Button* rescan = button(*view, u"Re-scan"_s);
    EXPECT_EQ(rescan->symbol(), u"arrow.clockwise"_s);
    rescan->click();
    ASSERT_TRUE(held.waitUntilHeld());
    turnFrame();
    EXPECT_TRUE(shows(u"Nothing selected"_s));
    EXPECT_TRUE(shows(u"Scanning…"_s));
    EXPECT_TRUE(shows(u"Select a category"_s));
    EXPECT_FALSE(rescan->isEnabled());
    EXPECT_FALSE(button(*view, u"Select All"_s)->isEnabled());
    held.letGo();
    waitForScan();
    EXPECT_EQ(categories().selectedRow(), 0);
    EXPECT_TRUE(shows(u"Nothing selected"_s));
    EXPECT_TRUE(rescan->isEnabled());
    close();
}

TEST_F(JunkSelectionTests, theSelectionIsAnnouncedToAScreenReader)
{
    addSomeJunk();
    open();
    EXPECT_TRUE(accessibleNames(*view).contains(u"Nothing selected"_s));
    tick(0);
    EXPECT_TRUE(accessibleNames(*view).contains(u"1 item selected, 6 MB"_s));
}

} // namespace keelbright::testing

#include "tests/screens/junk/JunkCleanerTestCase.h"
#include "tests/support/SpokenTexts.h"

#include <QDir>
#include <QScrollBar>
#include <QTest>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

using JunkCleaningTests = JunkCleanerTestCase;

TEST_F(JunkCleaningTests, asksBeforeAnythingIsMoved)
{
    addSomeJunk();
    open();
    press(u"Select All"_s);
    Button* clean = button(*view, u"Move to Trash"_s);
    EXPECT_EQ(clean->symbol(), u"trash"_s);
    clean->click();
    EXPECT_TRUE(model().showCleanConfirm());
    ASSERT_EQ(alerts.requests().size(), 1);
    const AlertRequest& request = alerts.requests().first();
    EXPECT_EQ(request.title, u"Move 2 items to Trash?"_s);
    EXPECT_EQ(request.message,
              u"Selected junk (11 MB) will be moved to Trash. Nothing is permanently deleted "
              u"— you can restore from Trash if needed."_s);
    EXPECT_EQ(request.action, u"Move to Trash"_s);
    EXPECT_EQ(request.cancel, u"Cancel"_s);
    EXPECT_TRUE(request.isDestructive);
    EXPECT_EQ(categories().count(), 3);
}

TEST_F(JunkCleaningTests, movingToTheTrashIsTheOneProminentActionAndOrange)
{
    addSomeJunk();
    open();
    tick(0);
    int prominent = 0;
    for (const auto* each : view->findChildren<Button*>())
        prominent += each->kind() == Button::Kind::primary ? 1 : 0;
    EXPECT_EQ(prominent, 1);
    Button* clean = button(*view, u"Move to Trash"_s);
    EXPECT_EQ(clean->kind(), Button::Kind::primary);
    EXPECT_TRUE(holdsColor(pictureOf(*clean), Theme::instance().color(Role::orangeFill)));
}

TEST_F(JunkCleaningTests, aScreenReaderSaysHowManyItemsWereMoved)
{
    addSomeJunk();
    open();
    tick(0);
    press(u"Move to Trash"_s);
    const SpokenTexts spoken;
    alerts.confirm();
    EXPECT_EQ(spoken.all(), QStringList{u"1 item moved to Trash"_s});
}

TEST_F(JunkCleaningTests, aScreenReaderSaysThatNotAllCouldBeMoved)
{
    addSomeJunk();
    open();
    press(u"Select All"_s);
    press(u"Move to Trash"_s);
    QDir(mac.home().appending(u"Library/Caches/com.example.music"_s).path()).removeRecursively();
    const SpokenTexts spoken;
    alerts.confirm();
    EXPECT_EQ(spoken.all(), QStringList{u"1 of 2 items moved to Trash"_s});
}

TEST_F(JunkCleaningTests, aDismissedQuestionLeavesAllAsItIs)
{
    addSomeJunk();
    open();
    tick(0);
    press(u"Move to Trash"_s);
    EXPECT_EQ(alerts.requests().last().title, u"Move 1 item to Trash?"_s);
    alerts.dismiss();
    turnFrame();
    EXPECT_FALSE(model().showCleanConfirm());
    EXPECT_TRUE(shows(u"1 item selected"_s));
    EXPECT_EQ(items().count(), 2);
    press(u"Move to Trash"_s);
    EXPECT_EQ(alerts.requests().size(), 2);
}

TEST_F(JunkCleaningTests, confirmedItemsGoToTheTrash)
{
    addSomeJunk();
    open();
    tick(0);
    press(u"Move to Trash"_s);
    alerts.confirm();
    turnFrame();
    EXPECT_FALSE(model().showCleanConfirm());
    EXPECT_FALSE(
        mac.fileManager().fileExists(mac.home().appending(u"Library/Caches/com.example.editor"_s)).exists);
    EXPECT_EQ(categories().row(0).detail, u"1 item"_s);
    EXPECT_EQ(categories().row(0).value, u"5 MB"_s);
    EXPECT_TRUE(shows(u"1 items · 5 MB total"_s));
    EXPECT_TRUE(shows(u"Nothing selected"_s));
    ASSERT_EQ(activityStore.load().size(), 1);
    EXPECT_EQ(activityStore.load().first().title, u"Junk files moved to Trash"_s);
}

TEST_F(JunkCleaningTests, showsTheFirstCategoryAfterTheShownOneIsGone)
{
    addSomeJunk();
    open();
    chooseCategory(1);
    categories().clickMark(1);
    turnFrame();
    press(u"Move to Trash"_s);
    alerts.confirm();
    turnFrame();
    EXPECT_EQ(categories().count(), 2);
    EXPECT_EQ(categories().selectedRow(), 0);
    EXPECT_TRUE(shows(u"2 items · 11 MB total"_s));
}

TEST_F(JunkCleaningTests, allIsCleanAfterEverythingWasMoved)
{
    addSomeJunk();
    open();
    lastButton(u"Select All"_s)->click();
    turnFrame();
    press(u"Move to Trash"_s);
    alerts.confirm();
    turnFrame();
    EXPECT_TRUE(shows(u"All clean!"_s));
    EXPECT_TRUE(shows(u"Select a category"_s));
    EXPECT_TRUE(shows(u"Nothing selected"_s));
    EXPECT_FALSE(button(*view, u"Move to Trash"_s)->isEnabled());
}

TEST_F(JunkCleaningTests, anItemThatCouldNotBeMovedStaysTickedAndCounted)
{
    // One folder is a cache of the user and of a browser: it can be moved once.
    const FileURL shared = addJunk("Caches/com.apple.Safari", 4'000'000);
    open();
    ASSERT_EQ(categories().count(), 2);
    lastButton(u"Select All"_s)->click();
    turnFrame();
    EXPECT_TRUE(shows(u"2 items selected"_s));
    press(u"Move to Trash"_s);
    alerts.confirm();
    turnFrame();
    EXPECT_FALSE(mac.fileManager().fileExists(shared).exists);
    EXPECT_EQ(categories().texts(), QStringList(u"Browser Caches, 1 item, 4 MB"_s));
    EXPECT_EQ(items().marks(), (QList{Qt::Checked}));
    EXPECT_TRUE(shows(u"1 item selected"_s));
    EXPECT_TRUE(shows(u"4 MB"_s));
    // What is gone counts as a file.
    turnUntil([this] { return items().row(0).symbol == u"doc.fill"_s; });
}

TEST_F(JunkCleaningTests, aCleanKeepsThePlaceInTheList)
{
    for (int i = 0; i < 60; ++i)
        addJunk("Caches/cache" + QByteArray::number(i).rightJustified(2, '0'), 1'000'000 - i);
    open();
    items().view()->setCurrentRow(41);
    const int place = items().view()->verticalScrollBar()->value();
    ASSERT_GT(place, 0);
    tick(40);
    press(u"Move to Trash"_s);
    alerts.confirm();
    turnFrame();
    EXPECT_EQ(items().count(), 59);
    EXPECT_EQ(items().view()->verticalScrollBar()->value(), place);
    EXPECT_EQ(items().view()->currentRow(), 40);
    EXPECT_EQ(items().row(40).title, u"cache41"_s);
}

TEST_F(JunkCleaningTests, theDeleteKeyAsksLikeTheButton)
{
    addSomeJunk();
    open();
    items().view()->setFocus();
    QTest::keyClick(items().view(), Qt::Key_Delete);
    // Nothing is ticked, and the button is off.
    EXPECT_TRUE(alerts.requests().isEmpty());
    tick(0);
    QTest::keyClick(items().view(), Qt::Key_Delete);
    ASSERT_EQ(alerts.requests().size(), 1);
    EXPECT_EQ(alerts.requests().first().title, u"Move 1 item to Trash?"_s);
    alerts.dismiss();
    categories().view()->setFocus();
    QTest::keyClick(categories().view(), Qt::Key_Delete);
    EXPECT_EQ(alerts.requests().size(), 2);
    EXPECT_EQ(items().count(), 2);
    alerts.confirm();
    turnFrame();
    EXPECT_EQ(items().count(), 1);
}

TEST_F(JunkCleaningTests, aNameThatIsNotTextIsShownAndMoved)
{
    const FileURL odd = mac.writeFile("Users/mira/Library/Caches/Br\xfc"
                                      "cke\n<b>/data",
                                      QByteArray(1'000, 'x'))
                            .deletingLastPathComponent();
    open();
    EXPECT_EQ(items().texts().first().section(u", "_s, 0, 0), u"Br\xFFFD"
                                                              u"cke␊<b>"_s);
    tick(0);
    press(u"Move to Trash"_s);
    alerts.confirm();
    EXPECT_FALSE(mac.fileManager().fileExists(odd).exists);
}

} // namespace keelbright::testing

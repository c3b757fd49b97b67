#include "tests/screens/apps/AppDetailTestCase.h"
#include "tests/support/HeldFileManager.h"

#include <QApplication>
#include <QSignalSpy>
#include <QTest>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

using AppDetailRemovalTests = AppDetailTestCase;

TEST_F(AppDetailRemovalTests, removingAsksFirst)
{
    made.addLibrary();
    addApplications();
    const auto panel = makeSettledPanel(sketchbook());
    const Button* remove = button(*panel, u"Remove…"_s);
    EXPECT_EQ(remove->symbol(), u"trash"_s);
    EXPECT_EQ(remove->kind(), Button::Kind::destructive);
    button(*panel, u"Remove…"_s)->click();
    ASSERT_EQ(alerts.requests().size(), 1);
    const AlertRequest& request = alerts.requests().first();
    EXPECT_EQ(request.title, u"Remove \"Sketchbook\"?"_s);
    EXPECT_EQ(request.message, u"Associated files (148 MB) will also be moved to Trash."_s);
    EXPECT_EQ(request.action, u"Move App + Files to Trash"_s);
    EXPECT_EQ(request.secondAction, u"Move App Only to Trash"_s);
    EXPECT_EQ(request.cancel, u"Cancel"_s);
    EXPECT_TRUE(request.isDestructive);
    EXPECT_TRUE(exists(bundle(u"Sketchbook"_s)));
    EXPECT_TRUE(activityStore.load().isEmpty());
}

TEST_F(AppDetailRemovalTests, bothRemovalsAreOfferedEvenWithoutFiles)
{
    const auto panel = makeSettledPanel(sketchbook());
    button(*panel, u"Remove…"_s)->click();
    EXPECT_EQ(alerts.requests().first().message,
              u"Associated files (Zero KB) will also be moved to Trash."_s);
    EXPECT_EQ(alerts.requests().first().action, u"Move App + Files to Trash"_s);
    EXPECT_EQ(alerts.requests().first().secondAction, u"Move App Only to Trash"_s);
}

TEST_F(AppDetailRemovalTests, ofAnAppThatBelongsToAPackageOnlyTheFilesCanGo)
{
    made.addLibrary();
    addApplications();
    AppFacts facts = sketchbook();
    facts.removalCommand = u"sudo apt remove sketchbook"_s;
    const auto panel = makeSettledPanel(AppInfo(facts, mac.clock()()));
    const QSignalSpy removed(panel.get(), &AppDetailPanel::removed);
    button(*panel, u"Remove…"_s)->click();
    ASSERT_EQ(alerts.requests().size(), 1);
    EXPECT_EQ(alerts.requests().first().message,
              u"The app belongs to a package. This command removes it: sudo apt remove sketchbook\n"
              "Associated files (148 MB) can be moved to Trash."_s);
    EXPECT_EQ(alerts.requests().first().action, u"Move Files to Trash"_s);
    EXPECT_EQ(alerts.requests().first().secondAction, QString());
    alerts.confirm();
    EXPECT_TRUE(exists(bundle(u"Sketchbook"_s)));
    EXPECT_FALSE(exists(mac.home().appending(u"Library/Application Support/Sketchbook"_s)));
    EXPECT_EQ(activityStore.load().first().title, u"Files of Sketchbook removed"_s);
    EXPECT_EQ(activityStore.load().first().detail, u"9 leftover files moved to Trash"_s);
    EXPECT_EQ(activityStore.load().first().itemCount, 9);
    EXPECT_EQ(removed.size(), 0);
}

TEST_F(AppDetailRemovalTests, anAppForAllUsersStaysAndItsFilesCanGo)
{
    made.addLibrary();
    addApplications();
    AppFacts facts = sketchbook();
    facts.isForAllUsers = true;
    const auto panel = makeSettledPanel(AppInfo(facts, mac.clock()()));
    button(*panel, u"Remove…"_s)->click();
    ASSERT_EQ(alerts.requests().size(), 1);
    EXPECT_EQ(alerts.requests().first().message, u"The app is installed for all users and stays.\n"
                                                 "Associated files (148 MB) can be moved to Trash."_s);
    EXPECT_EQ(alerts.requests().first().action, u"Move Files to Trash"_s);
    alerts.confirm();
    EXPECT_TRUE(exists(bundle(u"Sketchbook"_s)));
    EXPECT_FALSE(exists(mac.home().appending(u"Library/Application Support/Sketchbook"_s)));
}

TEST_F(AppDetailRemovalTests, appAndFilesGoToTheTrash)
{
    made.addLibrary();
    addApplications();
    const auto panel = makeSettledPanel(sketchbook());
    const QSignalSpy removed(panel.get(), &AppDetailPanel::removed);
    button(*panel, u"Remove…"_s)->click();
    alerts.confirm();
    EXPECT_FALSE(exists(bundle(u"Sketchbook"_s)));
    EXPECT_FALSE(exists(mac.home().appending(u"Library/Application Support/Sketchbook"_s)));
    EXPECT_EQ(activityStore.load().first().detail, u"App + 9 leftover files moved to Trash"_s);
    EXPECT_EQ(removed.size(), 1);
}

TEST_F(AppDetailRemovalTests, theAppAloneGoesToTheTrash)
{
    made.addLibrary();
    addApplications();
    const auto panel = makeSettledPanel(sketchbook());
    const QSignalSpy removed(panel.get(), &AppDetailPanel::removed);
    button(*panel, u"Remove…"_s)->click();
    alerts.confirmSecond();
    EXPECT_FALSE(exists(bundle(u"Sketchbook"_s)));
    EXPECT_TRUE(exists(mac.home().appending(u"Library/Application Support/Sketchbook"_s)));
    EXPECT_EQ(activityStore.load().first().detail, u"App bundle moved to Trash"_s);
    EXPECT_EQ(removed.size(), 1);
}

TEST_F(AppDetailRemovalTests, itAsksOnceAtATimeAndAgainAfterEachAnswer)
{
    const auto panel = makeSettledPanel(sketchbook());
    const auto ask = [&] { button(*panel, u"Remove…"_s)->click(); };
    ask();
    ask();
    EXPECT_EQ(alerts.requests().size(), 1);
    alerts.dismiss();
    ask();
    EXPECT_EQ(alerts.requests().size(), 2);
    alerts.confirmSecond();
    ask();
    EXPECT_EQ(alerts.requests().size(), 3);
    alerts.confirm();
    ask();
    EXPECT_EQ(alerts.requests().size(), 4);
}

TEST_F(AppDetailRemovalTests, aDismissedQuestionChangesNothing)
{
    addApplications();
    const auto panel = makeSettledPanel(sketchbook());
    button(*panel, u"Remove…"_s)->click();
    alerts.dismiss();
    EXPECT_TRUE(exists(bundle(u"Sketchbook"_s)));
    EXPECT_TRUE(activityStore.load().isEmpty());
}

TEST_F(AppDetailRemovalTests, anOpenQuestionShowsTheFilesFoundSince)
{
    made.addLibrary();
    addApplications();
    HeldFileManager held(mac.root());
    const FileManagerGuard guard(held);
    held.holdNextLookAt(groupContainers());
    const auto panel = makePanel(sketchbook());
    ASSERT_TRUE(held.waitUntilHeld());
    button(*panel, u"Remove…"_s)->click();
    EXPECT_EQ(alerts.requests().first().message,
              u"Associated files (Zero KB) will also be moved to Trash."_s);
    held.letGo();
    waitForFiles(*panel);
    EXPECT_EQ(alerts.messages(), QStringList{u"Associated files (148 MB) will also be moved to Trash."_s});
    alerts.dismiss();
    waitForBackgroundWork();
}

TEST_F(AppDetailRemovalTests, theDeleteKeyAsksTheSameQuestion)
{
    const auto panel = makeSettledPanel(sketchbook());
    button(*panel, u"Look Up on App Store"_s)->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Delete);
    ASSERT_EQ(alerts.requests().size(), 1);
    EXPECT_EQ(alerts.requests().first().title, u"Remove \"Sketchbook\"?"_s);
}

TEST_F(AppDetailRemovalTests, aNameThatWouldTurnTheReadingDirectionDoesNot)
{
    const auto panel = makeSettledPanel(sketchbook(u"Sketch\u202Ebook\n<b>"_s));
    button(*panel, u"Remove…"_s)->click();
    EXPECT_FALSE(alerts.requests().first().title.contains(QChar(0x202E)));
    EXPECT_FALSE(alerts.requests().first().title.contains(u'\n'));
}

} // namespace keelbright::testing

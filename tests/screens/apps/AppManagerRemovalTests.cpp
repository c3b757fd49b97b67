#include "Keelbright/widgets/AlertDialog.h"
#include "tests/screens/apps/AppManagerTestCase.h"
#include "tests/screens/shared/ListDriver.h"

#include <QApplication>
#include <QTest>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

using AppManagerRemovalTests = AppManagerTestCase;

TEST_F(AppManagerRemovalTests, aRowsMenuRevealsAndRemovesIt)
{
    const auto view = makeListedView();
    RowListView* rows = apps(*view);
    const int row = static_cast<int>(titlesIn(*rows).indexOf(u"Tidewater"_s));
    EXPECT_TRUE(ListDriver(*rows).press(row, RowActionId::reveal));
    EXPECT_EQ(workspace.opened, QStringList{applications().path()});
    EXPECT_EQ(view->selectedApp()->name, u"Tidewater"_s);
    EXPECT_TRUE(ListDriver(*rows).press(0, RowActionId::remove));
    ASSERT_EQ(alerts.requests().size(), 1);
    EXPECT_EQ(alerts.requests().first().title, u"Remove \"Never Indexed\"?"_s);
    EXPECT_EQ(view->selectedApp()->name, u"Never Indexed"_s);
}

TEST_F(AppManagerRemovalTests, theDeleteKeyOnTheListAsksForItsRow)
{
    const auto view = makeListedView();
    choose(*view, u"Sketchbook"_s);
    QTest::keyClick(apps(*view), Qt::Key_Delete);
    ASSERT_EQ(alerts.requests().size(), 1);
    EXPECT_EQ(alerts.requests().first().title, u"Remove \"Sketchbook\"?"_s);
}

TEST_F(AppManagerRemovalTests, aRemovedAppLeavesTheListAndTheSelection)
{
    const auto view = makeListedView();
    choose(*view, u"Sketchbook"_s);
    button(*view, u"Remove…"_s)->click();
    alerts.confirmSecond();
    EXPECT_FALSE(exists(bundle(u"Sketchbook"_s)));
    EXPECT_FALSE(view->selectedApp().has_value());
    EXPECT_EQ(state->scannedApps().size(), 7);
    turnFrame();
    EXPECT_TRUE(textsIn(*view).contains(u"7 of 7 apps"_s));
    EXPECT_FALSE(titlesIn(*apps(*view)).contains(u"Sketchbook"_s));
    EXPECT_TRUE(textsIn(*view).contains(u"Select an app to see details"_s));
    EXPECT_EQ(QApplication::focusWidget(), apps(*view));
}

TEST_F(AppManagerRemovalTests, anAppThatTheTrashRefusesLeavesTheListUntilTheNextScan)
{
    const auto view = makeListedView();
    choose(*view, u"Sketchbook"_s);
    // Nothing can be made where the Trash would be.
    mac.writeFile("Users/mira/.local/share/Trash", "no folder");
    button(*view, u"Remove…"_s)->click();
    alerts.confirm();
    EXPECT_TRUE(exists(bundle(u"Sketchbook"_s)));
    EXPECT_EQ(state->scannedApps().size(), 7);
    EXPECT_EQ(activityStore.load().first().title, u"Sketchbook removed"_s);
    button(*view, u"Re-scan apps"_s)->click();
    turnUntil([&] { return state->scannedApps().size() == 8; });
}

TEST_F(AppManagerRemovalTests, removingTheLastAppOffersAScan)
{
    const auto view = makeListedView();
    state->setScannedApps({app(u"Sketchbook"_s)});
    turnFrame();
    choose(*view, u"Sketchbook"_s);
    button(*view, u"Remove…"_s)->click();
    alerts.confirm();
    turnFrame();
    EXPECT_TRUE(textsIn(*view).contains(u"No apps scanned yet"_s));
    EXPECT_EQ(QApplication::focusWidget(), button(*view, u"Scan Now"_s));
}

TEST_F(AppManagerRemovalTests, theMenuOfARowHoldsBoth)
{
    const auto view = makeListedView();
    const ListDriver rows(*view, u"Applications"_s);
    QMenu* menu = rows.openMenu(0);
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(ListDriver::textsIn(*menu), (QStringList{u"Reveal in Finder"_s, u"Remove…"_s}));
    menu->actions().last()->trigger();
    ASSERT_EQ(alerts.requests().size(), 1);
    EXPECT_EQ(alerts.requests().first().title, u"Remove \"Never Indexed\"?"_s);
}

TEST_F(AppManagerRemovalTests, aQuestionGoesWithTheSelection)
{
    DialogAlertPresenter dialogs;
    scan();
    AppManagerView view({*state, dialogs, workspace, files});
    show(view);
    const auto questions = [&view] {
        QStringList titles;
        for (const auto* dialog : view.findChildren<AlertDialog*>()) {
            if (dialog->isVisible())
                titles.append(dialog->windowTitle());
        }
        return titles;
    };
    choose(view, u"Sketchbook"_s);
    button(view, u"Remove…"_s)->click();
    EXPECT_EQ(questions(), QStringList{u"Remove \"Sketchbook\"?"_s});
    choose(view, u"Tidewater"_s);
    turnFrame();
    EXPECT_EQ(questions(), QStringList());
    // The new one was not asked about yet, and the old one can be again.
    for (const QString& name : {u"Tidewater"_s, u"Sketchbook"_s}) {
        choose(view, name);
        turnFrame();
        button(view, u"Remove…"_s)->click();
        EXPECT_EQ(questions(), QStringList{u"Remove \"%1\"?"_s.arg(name)});
        EXPECT_TRUE(exists(bundle(name)));
    }
    EXPECT_TRUE(activityStore.load().isEmpty());
}

} // namespace keelbright::testing

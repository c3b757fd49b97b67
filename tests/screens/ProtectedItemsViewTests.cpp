#include "Keelbright/screens/ProtectedItemsView.h"

#include "Keelbright/screens/protect/RecommendedFolderRow.h"
#include "Keelbright/widgets/BackupCards.h"
#include "Keelbright/widgets/ElidedLabel.h"
#include "Keelbright/widgets/SymbolLabel.h"
#include "Keelbright/widgets/ToggleSwitch.h"
#include "tests/screens/shared/DroppedItems.h"
#include "tests/screens/shared/ScreenTestCase.h"
#include "tests/support/AnimationClock.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTest>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

const QString emptyText =
    u"No custom folders yet. Click \"Add Folder\" to include any folder from your Mac."_s;

class ProtectedItemsViewTests : public ScreenTestCase
{
protected:
    [[nodiscard]] static ToggleSwitch* toggle(const QWidget& view, const QString& folder)
    {
        for (auto* candidate : view.findChildren<ToggleSwitch*>()) {
            if (candidate->accessibleName() == folder)
                return candidate;
        }
        ADD_FAILURE() << "no switch " << folder.toStdString();
        static ToggleSwitch nobody({});
        return &nobody;
    }

    [[nodiscard]] static QStringList enabledNames(const AppState& app)
    {
        QStringList names;
        for (const RecommendedFolder& folder : app.recommendedFolders()) {
            if (folder.isEnabled)
                names.append(folder.name);
        }
        return names;
    }
};

} // namespace

TEST_F(ProtectedItemsViewTests, showsTheRecommendedFoldersInOrder)
{
    const ProtectedItemsView view(makeState(), alerts);
    const QStringList shown = textsIn(view);
    EXPECT_EQ(
        shown.mid(0, 2),
        (QStringList{
            u"Choose What to Protect"_s,
            u"Keel Bright recommends common folders below. You can also add your own custom folders."_s}));
    EXPECT_TRUE(shown.contains(u"Recommended Folders"_s));
    QStringList names;
    for (const auto* row : view.findChildren<RecommendedFolderRow*>())
        names.append(row->titleLabel()->text() + u": "_s + row->detailLabel()->text());
    EXPECT_EQ(names, (QStringList{u"Desktop: Files saved directly to your desktop."_s,
                                  u"Documents: Your personal documents, PDFs, spreadsheets, and more."_s,
                                  u"Pictures: Images, screenshots, and photo exports."_s,
                                  u"Downloads: Items downloaded from the web or received via AirDrop."_s,
                                  u"Movies: Video files and projects."_s,
                                  u"Music: Music files and media projects."_s,
                                  u"Photos Library: Your Photos library package. Can be large."_s}));
    const QStringList symbols = shownSymbols(view);
    EXPECT_TRUE(symbols.contains(u"star.fill"_s));
    EXPECT_TRUE(symbols.contains(u"photo.stack.fill"_s));
}

TEST_F(ProtectedItemsViewTests, aSwitchChangesTheStateAtOnce)
{
    AppState& app = makeState();
    ProtectedItemsView view(app, alerts);
    show(view);
    EXPECT_TRUE(toggle(view, u"Desktop"_s)->isChecked());
    EXPECT_FALSE(toggle(view, u"Music"_s)->isChecked());
    toggle(view, u"Music"_s)->click();
    EXPECT_EQ(enabledNames(app), (QStringList{u"Desktop"_s, u"Documents"_s, u"Pictures"_s, u"Music"_s}));
    EXPECT_EQ(configStore.load().enabledRecommendedFolders, enabledNames(app));
    QTest::keyClick(toggle(view, u"Desktop"_s), Qt::Key_Space);
    EXPECT_EQ(enabledNames(app), (QStringList{u"Documents"_s, u"Pictures"_s, u"Music"_s}));
}

TEST_F(ProtectedItemsViewTests, theTileShowsWhetherAFolderIsProtected)
{
    AppState& app = makeState();
    ProtectedItemsView view(app, alerts);
    show(view);
    const auto* row = view.findChildren<RecommendedFolderRow*>().first();
    EXPECT_EQ(row->findChild<Tile*>()->colorRole(), Role::accent);
    toggle(view, u"Desktop"_s)->click();
    turnFrame();
    EXPECT_EQ(row->findChild<Tile*>()->colorRole(), Role::secondaryText);
}

TEST_F(ProtectedItemsViewTests, theSwitchAndTheTileAreAnimatedUnlessMotionIsReduced)
{
    Theme::instance().setMotionReduced(false);
    AnimationClock clock;
    ProtectedItemsView view(makeState(), alerts);
    show(view);
    ToggleSwitch* desktop = toggle(view, u"Desktop"_s);
    auto* tile = view.findChildren<RecommendedFolderRow*>().first()->findChild<Tile*>();
    const QImage protectedTile = tile->grab().toImage();
    desktop->click();
    turnFrame();
    clock.advance(100);
    EXPECT_GT(desktop->position(), 0);
    EXPECT_LT(desktop->position(), 1);
    const QImage between = tile->grab().toImage();
    clock.advance(100);
    EXPECT_EQ(desktop->position(), 0);
    const QImage greyTile = tile->grab().toImage();
    EXPECT_NE(protectedTile, greyTile);
    EXPECT_NE(between, greyTile);
    EXPECT_NE(between, protectedTile);
}

TEST_F(ProtectedItemsViewTests, aFolderThatDoesNotExistIsTaggedAndStaysUsable)
{
    mac.makeFolder("Users/mira/Desktop");
    AppState& app = makeState();
    ProtectedItemsView view(app, alerts);
    show(view);
    const auto rows = view.findChildren<RecommendedFolderRow*>();
    EXPECT_FALSE(textsIn(*rows.at(0)).contains(u"Not found"_s));
    EXPECT_EQ(rows.at(0)->titleLabel()->colorRole(), Role::primaryText);
    EXPECT_TRUE(textsIn(*rows.at(5)).contains(u"Not found"_s));
    EXPECT_EQ(rows.at(5)->titleLabel()->colorRole(), Role::secondaryText);
    toggle(view, u"Music"_s)->click();
    EXPECT_TRUE(app.recommendedFolders().at(5).isEnabled);
}

TEST_F(ProtectedItemsViewTests, aFolderCreatedMeanwhileIsFoundWhenTheScreenAppearsAgain)
{
    ProtectedItemsView view(makeState(), alerts);
    show(view);
    const auto* desktop = view.findChildren<RecommendedFolderRow*>().first();
    EXPECT_TRUE(textsIn(*desktop).contains(u"Not found"_s));
    view.hide();
    mac.makeFolder("Users/mira/Desktop");
    view.show();
    EXPECT_FALSE(textsIn(*desktop).contains(u"Not found"_s));
}

TEST_F(ProtectedItemsViewTests, theEmptyTextIsShownOnlyWithoutCustomFolders)
{
    AppState& app = makeState();
    ProtectedItemsView view(app, alerts);
    show(view);
    EXPECT_TRUE(textsIn(view).contains(u"Custom Folders"_s));
    EXPECT_TRUE(textsIn(view).contains(emptyText));
    const FileURL code = mac.makeFolder("Users/mira/Code");
    chooser.willChoose({code});
    EXPECT_EQ(button(view, u"Add Folder"_s)->symbol(), u"plus.circle.fill"_s);
    button(view, u"Add Folder"_s)->click();
    turnFrame();
    EXPECT_FALSE(textsIn(view).contains(emptyText));
    EXPECT_TRUE(textsIn(view).contains(u"Code"_s));
    EXPECT_TRUE(textsIn(view).contains(code.path()));
    EXPECT_EQ(view.findChild<SourceRowCard*>()->findChild<Tile*>()->colorRole(), Role::purple);
    button(view, u"Remove Code"_s)->click();
    // Without a question.
    EXPECT_TRUE(alerts.requests().isEmpty());
    EXPECT_TRUE(app.customSources().isEmpty());
    turnFrame();
    EXPECT_TRUE(textsIn(view).contains(emptyText));
    EXPECT_FALSE(textsIn(view).contains(u"Code"_s));
}

TEST_F(ProtectedItemsViewTests, aDismissedChooserChangesNothing)
{
    AppState& app = makeState();
    ProtectedItemsView view(app, alerts);
    chooser.willBeDismissed();
    button(view, u"Add Folder"_s)->click();
    EXPECT_TRUE(app.customSources().isEmpty());
}

TEST_F(ProtectedItemsViewTests, removingByKeyboardFocusesTheNextFolder)
{
    AppState& app = makeState();
    for (const QByteArray name : {"One", "Two", "Three"})
        app.addCustomSource(mac.makeFolder("Users/mira/" + name));
    ProtectedItemsView view(app, alerts);
    show(view);
    button(view, u"Remove Two"_s)->setFocus(Qt::TabFocusReason);
    for (const QString& next : {u"Remove Three"_s, u"Remove One"_s, u"Add Folder"_s}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
        turnFrame();
        EXPECT_EQ(QApplication::focusWidget(), button(view, next)) << next.toStdString();
    }
    EXPECT_TRUE(app.customSources().isEmpty());
}

TEST_F(ProtectedItemsViewTests, aNameThatIsNotUtf8IsShownAndRemovedLikeAnyOther)
{
    AppState& app = makeState();
    app.addCustomSource(mac.makeFolder("Users/mira/Br\xfc"
                                       "der"));
    ProtectedItemsView view(app, alerts);
    show(view);
    EXPECT_TRUE(textsIn(view).contains(u"Br\xFFFD"
                                       "der"_s));
    view.findChild<SourceRowCard*>()->findChild<Button*>()->click();
    EXPECT_TRUE(app.customSources().isEmpty());
}

TEST_F(ProtectedItemsViewTests, resetAsksFirst)
{
    AppState& app = makeState();
    app.setSelectedDestination(driveDestination());
    app.addCustomSource(mac.makeFolder("Users/mira/Code"));
    app.setRecommendedFolderEnabled(0, false);
    app.setRecommendedFolderEnabled(5, true);
    ProtectedItemsView view(app, alerts);
    show(view);
    EXPECT_EQ(button(view, u"Reset to Defaults"_s)->symbol(), u"arrow.counterclockwise"_s);
    button(view, u"Reset to Defaults"_s)->click();
    ASSERT_EQ(alerts.requests().size(), 1);
    EXPECT_EQ(alerts.requests().first().title, u"Reset to Defaults"_s);
    EXPECT_EQ(alerts.requests().first().message,
              u"This will re-enable Desktop, Documents, and Pictures, and remove any custom folders."_s);
    EXPECT_EQ(alerts.requests().first().action, u"Reset"_s);
    EXPECT_EQ(alerts.requests().first().cancel, u"Cancel"_s);
    EXPECT_TRUE(alerts.requests().first().isDestructive);
    // Nothing changes before the answer, nor after "Cancel".
    EXPECT_EQ(app.customSources().size(), 1);
    EXPECT_FALSE(app.recommendedFolders().first().isEnabled);

    alerts.confirm();
    turnFrame();
    EXPECT_EQ(enabledNames(app), (QStringList{u"Desktop"_s, u"Documents"_s, u"Pictures"_s}));
    EXPECT_TRUE(app.customSources().isEmpty());
    EXPECT_EQ(app.selectedDestination()->url, drive());
    EXPECT_TRUE(toggle(view, u"Desktop"_s)->isChecked());
    EXPECT_FALSE(toggle(view, u"Music"_s)->isChecked());
    EXPECT_TRUE(textsIn(view).contains(emptyText));
}

TEST_F(ProtectedItemsViewTests, saysWhatIsNeverBackedUp)
{
    const ProtectedItemsView view(makeState(), alerts);
    const QStringList shown = textsIn(view);
    EXPECT_EQ(
        shown.mid(shown.indexOf(u"What Keel Bright does not back up"_s)),
        (QStringList{
            u"What Keel Bright does not back up"_s, u"Application binaries"_s,
            u"The actual .app bundles in /Applications are not copied. Use Mac App Store or Homebrew to reinstall."_s,
            u"macOS system files"_s, u"No system libraries, frameworks, or OS-level data."_s,
            u"node_modules, .git, build folders"_s,
            u"Auto-generated and reproducible \x2014 excluded to keep backups fast and lean."_s,
            u".dmg, .pkg, .iso, .tmp files"_s, u"Installers and temp files are skipped automatically."_s,
            u"Hidden and inaccessible files"_s,
            u"Files without read permission or behind SIP are skipped safely."_s}));
    EXPECT_EQ(shownSymbols(view).count(u"xmark.circle"_s), 5);
}

TEST_F(ProtectedItemsViewTests, everyControlHasANameAndIsReachedByTab)
{
    AppState& app = makeState();
    app.addCustomSource(mac.makeFolder("Users/mira/Code"));
    ProtectedItemsView view(app, alerts);
    show(view);
    expectEveryControlIsNamedAndReachedByTab(view);
}

TEST_F(ProtectedItemsViewTests, foldersThatAreDroppedAreProtected)
{
    AppState& app = makeState();
    ProtectedItemsView view(app, alerts);
    show(view);
    const FileURL photos = mac.makeFolder("Volumes/Photos");
    const FileURL odd = mac.makeFolder("Volumes/a\xff");
    const FileURL file = mac.writeFile("Volumes/letter.txt", "a");
    EXPECT_TRUE(drop(view, {photos, file, odd}));
    ASSERT_EQ(app.customSources().size(), 2);
    EXPECT_EQ(app.customSources().first().url, photos);
    EXPECT_EQ(app.customSources().last().url, odd);
    EXPECT_FALSE(drop(view, {file}));
    EXPECT_EQ(app.customSources().size(), 2);
}

TEST_F(ProtectedItemsViewTests, theMenuOfACustomFolderRemovesIt)
{
    AppState& app = makeState();
    app.addCustomSource(mac.makeFolder("Users/mira/Fish & Chips"));
    ProtectedItemsView view(app, alerts);
    show(view);
    Button* remove = button(view, u"Remove Fish & Chips"_s);
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), remove->mapToGlobal(QPoint()));
    QApplication::sendEvent(remove, &event);
    const QMenu* menu = remove->parentWidget()->findChild<QMenu*>();
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().size(), 1);
    EXPECT_EQ(menu->actions().first()->text(), u"Remove Fish && Chips"_s);
    menu->actions().first()->trigger();
    EXPECT_TRUE(app.customSources().isEmpty());
}

} // namespace keelbright::testing

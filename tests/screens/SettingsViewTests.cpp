#include "Keelbright/screens/SettingsView.h"

#include "Keelbright/widgets/Card.h"
#include "Keelbright/widgets/ElidedLabel.h"
#include "Keelbright/widgets/Headers.h"
#include "Keelbright/widgets/SymbolLabel.h"
#include "tests/screens/shared/ScreenFixture.h"

#include <QTest>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

const QString destinationFooter =
    u"Choose an external drive or a local folder. Keel Bright creates a structured Keelbright/ folder "
    u"inside.\n\n"
    "Cloud Backup: You can choose a local folder synced by iCloud Drive, Dropbox, OneDrive, or Google Drive. "
    "Keel "
    "Bright completes the local backup; the cloud upload is handled by your sync provider."_s;

class SettingsViewTest : public testing::ScreenFixture
{
protected:
    [[nodiscard]] FileURL code() const { return mac.home().appending(u"Code"_s); }

    [[nodiscard]] static QStringList symbolsIn(const QWidget& widget)
    {
        QStringList keys;
        for (const auto* symbol : widget.findChildren<SymbolLabel*>())
            keys.append(symbol->key());
        return keys;
    }

    [[nodiscard]] qsizetype countOf(const QString& text) const { return textsIn(view).count(text); }

    SettingsView view{*state, SettingsView::Place::window};
};

} // namespace

TEST_F(SettingsViewTest, showsTheFactsAboutTheProgram)
{
    const QStringList texts = textsIn(view);
    const qsizetype about = texts.indexOf(u"About Keel Bright"_s);
    ASSERT_GE(about, 0);
    EXPECT_EQ(texts.mid(about), QStringList({u"About Keel Bright"_s, u"Version"_s, u"1.0.0"_s, u"Engine"_s,
                                             u"Local file copy · FileManager"_s, u"Encryption"_s,
                                             u"Not enabled"_s, u"Cloud backup"_s, u"Not available"_s}));
}

TEST_F(SettingsViewTest, hasATitleAsAScreenOnly)
{
    EXPECT_EQ(countOf(u"Settings"_s), 0);
    const SettingsView screen(*state, SettingsView::Place::screen);
    EXPECT_EQ(textsIn(screen).count(u"Settings"_s), 1);
}

TEST_F(SettingsViewTest, itsTitleStandsWhereThoseOfAllScreensDo)
{
    SettingsView screen(*state, SettingsView::Place::screen);
    for (const int width : {620, 940, 1100}) {
        screen.resize(width, 700);
        screen.grab();
        const QPoint title = screen.findChild<PageHeader*>()->mapTo(&screen, QPoint());
        EXPECT_EQ(title, QPoint(Metrics::pageMarginX, Metrics::pageMarginY)) << width;
        const auto* rows = screen.findChild<RowList*>();
        EXPECT_EQ(rows->mapTo(&screen, QPoint()).x(), Metrics::pageMarginX) << width;
        EXPECT_LE(rows->width(), 680);
    }
}

TEST_F(SettingsViewTest, saysThatNoDestinationIsSelected)
{
    EXPECT_EQ(countOf(u"No destination selected"_s), 1);
    EXPECT_EQ(countOf(destinationFooter), 1);
    EXPECT_EQ(symbolsIn(view).first(), u"externaldrive.badge.exclamationmark"_s);
    EXPECT_EQ(view.findChildren<SymbolLabel*>().first()->colorRole(), Role::orange);
}

TEST_F(SettingsViewTest, showsTheDestinationByNameAndPath)
{
    chooseDrive();
    settle();
    EXPECT_EQ(countOf(u"No destination selected"_s), 0);
    EXPECT_EQ(countOf(u"Anchor"_s), 1);
    EXPECT_EQ(countOf(drive().path()), 1);
    EXPECT_TRUE(symbolsIn(view).contains(u"externaldrive.fill"_s));
}

TEST_F(SettingsViewTest, saysBesideTheNameThatTheDriveIsAway)
{
    chooseDrive();
    settle();
    EXPECT_EQ(countOf(u"Not connected"_s), 0);
    state->setIsDestinationAway(true);
    settle();
    EXPECT_EQ(countOf(u"Not connected"_s), 1);
    state->setIsDestinationAway(false);
    settle();
    EXPECT_EQ(countOf(u"Not connected"_s), 0);
}

TEST_F(SettingsViewTest, changeAsksForADestination)
{
    chooser.willChoose({drive()});
    buttonIn(view, u"Change"_s)->click();
    EXPECT_EQ(state->selectedDestination()->url, drive());
    EXPECT_EQ(chooser.requests().first().prompt, u"Choose Backup Destination"_s);
    EXPECT_NE(buttonIn(view, u"Change"_s), nullptr);
}

TEST_F(SettingsViewTest, listsTheEnabledRecommendedFoldersWithTheirTag)
{
    EXPECT_EQ(countOf(u"Recommended"_s), 3);
    for (const QString& name : {u"Desktop"_s, u"Documents"_s, u"Pictures"_s})
        EXPECT_EQ(countOf(name), 1) << name.toStdString();
    EXPECT_EQ(countOf(u"Downloads"_s), 0);
    EXPECT_EQ(
        countOf(u"Manage recommended and custom folders in Protected Items. Application binaries are not "
                "included."_s),
        1);
}

TEST_F(SettingsViewTest, aFolderThatIsSwitchedOffElsewhereDisappearsAtOnce)
{
    state->setRecommendedFolderEnabled(0, false);
    EXPECT_EQ(countOf(u"Desktop"_s), 0);
    state->setRecommendedFolderEnabled(3, true);
    EXPECT_EQ(countOf(u"Downloads"_s), 1);
}

TEST_F(SettingsViewTest, addCustomFolderAsksAndShowsTheFolderInPurple)
{
    chooser.willChoose({code()});
    Button* add = buttonIn(view, u"Add Custom Folder…"_s);
    ASSERT_NE(add, nullptr);
    EXPECT_EQ(add->symbol(), u"plus"_s);
    add->click();
    EXPECT_EQ(chooser.requests().first().prompt, u"Add Folder"_s);
    settle();
    EXPECT_EQ(countOf(u"Code"_s), 1);
    EXPECT_EQ(countOf(code().path()), 1);
    const auto tiles = view.findChildren<Tile*>();
    const auto folder =
        std::ranges::find_if(tiles, [](const Tile* tile) { return tile->colorRole() == Role::purple; });
    ASSERT_NE(folder, tiles.end());
    EXPECT_EQ((*folder)->key(), u"folder.fill"_s);
}

TEST_F(SettingsViewTest, aCustomFolderIsRemovedByItsButton)
{
    state->addCustomSource(code());
    Button* remove = buttonIn(view, u"Remove Code"_s);
    ASSERT_NE(remove, nullptr);
    EXPECT_EQ(remove->symbol(), u"minus.circle.fill"_s);
    remove->click();
    settle();
    EXPECT_TRUE(state->customSources().isEmpty());
    EXPECT_EQ(countOf(u"Code"_s), 0);
}

TEST_F(SettingsViewTest, withNoFoldersOnlyTheButtonAndTheFooterAreShown)
{
    for (qsizetype i = 0; i < 3; ++i)
        state->setRecommendedFolderEnabled(i, false);
    settle();
    const QStringList texts = textsIn(view);
    const qsizetype header = texts.indexOf(u"Protected Folders"_s);
    ASSERT_GE(header, 0);
    EXPECT_EQ(texts.at(header + 1),
              u"Manage recommended and custom folders in Protected Items. Application binaries "
              "are not included."_s);
    EXPECT_NE(buttonIn(view, u"Add Custom Folder…"_s), nullptr);
}

TEST_F(SettingsViewTest, twoViewsReflectEachOther)
{
    const SettingsView other(*state, SettingsView::Place::screen);
    state->addCustomSource(code());
    buttonIn(view, u"Remove Code"_s)->click();
    settle();
    EXPECT_EQ(textsIn(other).count(u"Code"_s), 0);
    chooser.willChoose({drive()});
    buttonIn(other, u"Change"_s)->click();
    EXPECT_EQ(countOf(u"Anchor"_s), 1);
}

TEST_F(SettingsViewTest, removingByKeyboardKeepsTheFocusOnTheList)
{
    state->addCustomSource(code());
    state->addCustomSource(mac.home().appending(u"Letters"_s));
    view.show();
    view.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
    Button* remove = buttonIn(view, u"Remove Code"_s);
    remove->setFocus();
    QTest::keyClick(remove, Qt::Key_Space);
    EXPECT_EQ(view.focusWidget(), buttonIn(view, u"Remove Letters"_s));
    QTest::keyClick(view.focusWidget(), Qt::Key_Space);
    EXPECT_EQ(view.focusWidget(), buttonIn(view, u"Add Custom Folder…"_s));
}

TEST_F(SettingsViewTest, aRunningBackupDoesNotRebuildTheRows)
{
    state->addCustomSource(code());
    const Button* remove = buttonIn(view, u"Remove Code"_s);
    for (int i = 0; i < 100; ++i)
        state->engine().incrementCopied(1, u"a"_s);
    settle();
    EXPECT_EQ(buttonIn(view, u"Remove Code"_s), remove);
}

} // namespace keelbright

#include "Keelbright/screens/apps/AppIconLabel.h"
#include "Keelbright/widgets/Card.h"
#include "tests/screens/apps/AppDetailTestCase.h"
#include "tests/screens/shared/ListDriver.h"
#include "tests/support/HeldFileManager.h"

#include <QTest>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

const QByteArray sketchbookInTheStore = R"({"results": [{"trackName": "Sketchbook",
    "description": "Draws.\nPaints.", "sellerName": "Example & Co", "primaryGenreName": "Graphics",
    "averageUserRating": 4.25, "userRatingCount": 1234}]})";

} // namespace

using AppDetailPanelTests = AppDetailTestCase;

TEST_F(AppDetailPanelTests, theHeaderShowsNameVersionAndIdentifier)
{
    const auto panel = makeSettledPanel(sketchbook());
    EXPECT_EQ(textsIn(*panel).mid(0, 4),
              (QStringList{u"Sketchbook"_s, u"Was Important"_s, u"v4.2.1"_s, u"com.example.Sketchbook"_s}));
}

TEST_F(AppDetailPanelTests, theHeaderHasTheIconOfTheApplication)
{
    addApplications();
    const auto panel = makeSettledPanel(sketchbook());
    auto* label = panel->findChild<AppIconLabel*>();
    ASSERT_NE(label, nullptr);
    const QPoint middle = label->rect().center();
    // A tile in grey until the icon is read.
    turnUntil([&] { return pictureOf(*label).pixelColor(middle).saturation() > 100; });
    EXPECT_EQ(pictureOf(*label).pixelColor(middle),
              icons.icon(bundle(u"Sketchbook"_s), label->width()).toImage().pixelColor(middle));
}

TEST_F(AppDetailPanelTests, itsUseIsShownAsThreeNumbersAndAVerdict)
{
    const auto panel = makeSettledPanel(sketchbook());
    const QStringList names = accessibleNames(*panel);
    EXPECT_TRUE(names.contains(u"Last Opened 6 months ago"_s));
    EXPECT_TRUE(names.contains(u"Times Opened 640"_s));
    EXPECT_TRUE(names.contains(u"Installed Sep 14, 2023"_s));
    EXPECT_TRUE(textsIn(*panel).contains(u"Usage"_s));
    EXPECT_TRUE(
        textsIn(*panel).contains(u"Used heavily before (640 times, ~21/mo). Dormant for 6 months."_s));
    const QStringList symbols = shownSymbols(*panel);
    for (const QString& key : {u"chart.bar.fill"_s, u"clock.fill"_s, u"arrow.clockwise"_s, u"calendar"_s,
                               u"clock.badge.questionmark"_s, u"info.circle.fill"_s, u"folder.fill"_s})
        EXPECT_TRUE(symbols.contains(key)) << key.toStdString();
}

TEST_F(AppDetailPanelTests, theSectionsStandInOneOrderFromTopToBottom)
{
    const auto panel = makeSettledPanel(sketchbook());
    const QStringList order{
        u"Sketchbook"_s,     u"Usage"_s,
        u"Last Opened"_s,    u"Times Opened"_s,
        u"Installed"_s,      u"Used heavily before (640 times, ~21/mo). Dormant for 6 months."_s,
        u"About This App"_s, u"Associated Files"_s};
    QPoint before(-1, -1);
    for (const QString& text : order) {
        QPoint place(-1, -1);
        for (const auto* label : panel->findChildren<QLabel*>()) {
            if (label->text() == text)
                place = label->mapTo(panel.get(), QPoint());
        }
        EXPECT_TRUE(place.y() > before.y() || (place.y() == before.y() && place.x() > before.x()))
            << text.toStdString();
        before = place;
    }
    EXPECT_GT(button(*panel, u"Remove…"_s)->mapTo(panel.get(), QPoint()).y(), before.y());
}

TEST_F(AppDetailPanelTests, theAppStoreIsNotAskedByItself)
{
    const auto panel = makeSettledPanel(sketchbook());
    EXPECT_TRUE(textsIn(*panel).contains(u"About This App"_s));
    EXPECT_EQ(button(*panel, u"Look Up on App Store"_s)->symbol(), u"magnifyingglass"_s);
    turnFrame();
    EXPECT_EQ(lookups, 0);
}

TEST_F(AppDetailPanelTests, theAppStoresDescriptionIsShown)
{
    server.setAnswer(LoopbackAnswer::http(sketchbookInTheStore));
    const auto panel = makeSettledPanel(sketchbook());
    button(*panel, u"Look Up on App Store"_s)->click();
    EXPECT_TRUE(textsIn(*panel).contains(u"Looking up on App Store…"_s));
    turnUntil([&] { return !textsIn(*panel).contains(u"Looking up on App Store…"_s); });
    const QStringList texts = textsIn(*panel);
    const qsizetype start = texts.indexOf(u"Draws.\nPaints."_s);
    ASSERT_GE(start, 0) << texts.join(u'|').toStdString();
    EXPECT_EQ(texts.mid(start, 4),
              (QStringList{u"Draws.\nPaints."_s, u"Example & Co"_s, u"Graphics"_s, u"4.2 (1234)"_s}));
    const QStringList symbols = shownSymbols(*panel);
    for (const QString& key : {u"person.fill"_s, u"tag.fill"_s, u"star.fill"_s})
        EXPECT_TRUE(symbols.contains(key)) << key.toStdString();
    EXPECT_EQ(server.requests().size(), 1);
}

TEST_F(AppDetailPanelTests, aRatingNeedsItsCount)
{
    server.setAnswer(LoopbackAnswer::http(
        R"({"results": [{"trackName": "Sketchbook", "description": "Draws.", "averageUserRating": 4}]})"));
    const auto panel = makeSettledPanel(sketchbook());
    button(*panel, u"Look Up on App Store"_s)->click();
    turnUntil([&] { return textsIn(*panel).contains(u"Draws."_s); });
    EXPECT_FALSE(shownSymbols(*panel).contains(u"star.fill"_s));
}

TEST_F(AppDetailPanelTests, saysIfTheAppStoreDoesNotKnowIt)
{
    server.setAnswer(LoopbackAnswer::http(R"({"results": []})"));
    const auto panel = makeSettledPanel(sketchbook());
    button(*panel, u"Look Up on App Store"_s)->click();
    turnUntil([&] { return textsIn(*panel).contains(u"Not found on the Mac App Store."_s); });
    EXPECT_EQ(buttonIn(*panel, u"Look Up on App Store"_s), nullptr);
}

TEST_F(AppDetailPanelTests, aDescriptionFromOutsideIsNoMarkupAndHasAnEnd)
{
    const QByteArray body =
        R"({"results": [{"trackName": "Sketchbook", "description": "<b>Bold</b>\u202Etxt )" +
        QByteArray(2'000'000, 'x') + R"("}]})";
    server.setAnswer(LoopbackAnswer::http(body));
    const auto panel = makeSettledPanel(sketchbook());
    button(*panel, u"Look Up on App Store"_s)->click();
    turnUntil([&] { return !textsIn(*panel).filter(u"<b>Bold</b>txt"_s).isEmpty(); });
    const QString shown = textsIn(*panel).filter(u"<b>Bold</b>txt"_s).first();
    EXPECT_LE(shown.size(), 20'001);
    EXPECT_TRUE(shown.endsWith(u'…'));
}

TEST_F(AppDetailPanelTests, theFilesAreLookedForAtOnceAndListedLargestFirst)
{
    made.addLibrary();
    HeldFileManager held(mac.root());
    const FileManagerGuard guard(held);
    held.holdNextLookAt(groupContainers());
    const auto panel = makePanel(sketchbook());
    EXPECT_TRUE(textsIn(*panel).contains(u"Associated Files"_s));
    EXPECT_TRUE(textsIn(*panel).contains(u"Scanning for leftover files…"_s));
    ASSERT_TRUE(held.waitUntilHeld());
    held.letGo();
    waitForFiles(*panel);
    const RowListView* left = list(*panel, u"Associated Files"_s);
    EXPECT_EQ(titlesIn(*left),
              (QStringList{u"com.example.Sketchbook"_s, u"Sketchbook"_s, u"com.example.Sketchbook"_s,
                           u"ABCDE12345.com.example.Sketchbook"_s, u"com.example.Sketchbook.plist"_s,
                           u"com.example.Sketchbook.savedState"_s, u"com.example.Sketchbook.plist"_s,
                           u"com.example.Sketchbook.plist"_s, u"com.example.Sketchbook.helper.plist"_s}));
    EXPECT_TRUE(textsIn(*panel).contains(u"Total: 148 MB"_s)) << textsIn(*panel).join(u'|').toStdString();
    waitForBackgroundWork();
}

TEST_F(AppDetailPanelTests, aFileIsRevealedByItsButton)
{
    made.addLibrary();
    const auto panel = makeSettledPanel(sketchbook());
    RowListView* left = list(*panel, u"Associated Files"_s);
    EXPECT_TRUE(ListDriver(*left).press(1, RowActionId::reveal));
    EXPECT_EQ(workspace.revealed,
              QStringList{mac.home().appending(u"Library/Application Support/Sketchbook"_s).path()});
    EXPECT_TRUE(workspace.opened.isEmpty());
}

TEST_F(AppDetailPanelTests, theMenuOfAFileRevealsItToo)
{
    made.addLibrary();
    const auto panel = makeSettledPanel(sketchbook());
    QMenu* menu = ListDriver(*panel, u"Associated Files"_s).openMenu(1);
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(ListDriver::textsIn(*menu), QStringList{u"Reveal in Finder"_s});
    menu->actions().first()->trigger();
    EXPECT_EQ(workspace.revealed,
              QStringList{mac.home().appending(u"Library/Application Support/Sketchbook"_s).path()});
}

TEST_F(AppDetailPanelTests, saysIfNoFilesAreFound)
{
    const auto panel = makeSettledPanel(sketchbook());
    EXPECT_TRUE(textsIn(*panel).contains(u"No leftover files found."_s));
    EXPECT_TRUE(textsIn(*panel).filter(u"Total:"_s).isEmpty());
}

TEST_F(AppDetailPanelTests, revealingOpensTheFolderThatHoldsTheBundle)
{
    const auto panel = makeSettledPanel(sketchbook());
    EXPECT_EQ(button(*panel, u"Reveal in Finder"_s)->symbol(), u"folder"_s);
    button(*panel, u"Reveal in Finder"_s)->click();
    EXPECT_EQ(workspace.opened, QStringList{mac.root().appending(u"Applications"_s).path()});
    EXPECT_TRUE(workspace.revealed.isEmpty());
}

TEST_F(AppDetailPanelTests, everyControlHasANameAndIsReachedByTab)
{
    made.addLibrary();
    const auto panel = makeSettledPanel(sketchbook());
    list(*panel, u"Associated Files"_s)->setCurrentRow(0);
    expectEveryControlIsNamedAndReachedByTab(*panel);
}

TEST_F(AppDetailPanelTests, theNumbersStandBelowEachOtherWhereThePanelIsNarrow)
{
    const auto panel = makeSettledPanel(sketchbook());
    panel->resize(340, 560);
    turnFrame();
    QList<QRect> rects;
    for (auto* shown : panel->findChildren<QWidget*>()) {
        const QString name = shown->accessibleName();
        for (const QString& number : {u"Last Opened "_s, u"Times Opened "_s, u"Installed "_s}) {
            if (name.startsWith(number))
                rects.append({shown->mapTo(panel.get(), QPoint()), shown->size()});
        }
        const auto* label = qobject_cast<QLabel*>(shown);
        if (label != nullptr && label->text().startsWith(u"Used heavily"_s))
            rects.append({shown->mapTo(panel.get(), QPoint()), shown->size()});
    }
    ASSERT_EQ(rects.size(), 4);
    for (qsizetype i = 0; i < rects.size(); ++i) {
        for (qsizetype j = i + 1; j < rects.size(); ++j)
            EXPECT_FALSE(rects.at(i).intersects(rects.at(j))) << i << " and " << j;
    }
}

TEST_F(AppDetailPanelTests, nothingInTheHeaderLiesOnAnotherWhereThePanelIsNarrow)
{
    const auto panel = makeSettledPanel(sketchbook());
    panel->resize(340, 560);
    turnFrame();
    QList<QRect> rects;
    for (const auto* shown : panel->findChild<AppIconLabel*>()->parentWidget()->findChildren<QLabel*>())
        rects.append({shown->mapTo(panel.get(), QPoint()), shown->size()});
    ASSERT_EQ(rects.size(), 4) << "name, tag, version, identifier";
    for (qsizetype i = 0; i < rects.size(); ++i) {
        for (qsizetype j = i + 1; j < rects.size(); ++j)
            EXPECT_FALSE(rects.at(i).intersects(rects.at(j))) << i << " and " << j;
    }
}

TEST_F(AppDetailPanelTests, theHeaderStaysAtTheTopAndTheBarBelowTheCards)
{
    const auto panel = makeSettledPanel(sketchbook());
    panel->resize(700, 1'600);
    turnFrame();
    const auto* icon = panel->findChild<AppIconLabel*>();
    EXPECT_LT(icon->mapTo(panel.get(), QPoint()).y(), 2 * Metrics::pageMarginY);
    const auto* card = panel->findChild<Card*>();
    const Button* remove = button(*panel, u"Remove…"_s);
    EXPECT_EQ(remove->mapTo(panel.get(), remove->rect().topRight()).x(),
              card->mapTo(panel.get(), card->rect().topRight()).x());
}

TEST_F(AppDetailPanelTests, aLongNameIsCutAndPushesNothingOut)
{
    made.addLibrary();
    const auto panel = makeSettledPanel(sketchbook(QString(400, u'W')));
    panel->resize(340, 560);
    turnFrame();
    EXPECT_EQ(panel->width(), 340);
    for (const auto* shown : panel->findChildren<QWidget*>()) {
        if (!shown->isVisible())
            continue;
        const int right = shown->mapTo(panel.get(), QPoint(shown->width(), 0)).x();
        EXPECT_LE(right, 340) << shown->metaObject()->className();
    }
}

} // namespace keelbright::testing

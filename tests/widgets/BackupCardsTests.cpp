#include "Keelbright/widgets/BackupCards.h"

#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/ElidedLabel.h"
#include "Keelbright/widgets/Progress.h"
#include "Keelbright/widgets/SymbolLabel.h"
#include "Keelbright/widgets/theme/Theme.h"
#include "tests/support/Accessible.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"
#include "tests/support/ThemeGuard.h"

#include <gtest/gtest.h>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;
using testing::accessibleName;

QStringList textsIn(const QWidget& widget)
{
    QStringList texts;
    for (const auto* label : widget.findChildren<QLabel*>())
        texts.append(label->text());
    return texts;
}

BackupSource source(const QString& path)
{
    return {QUuid::createUuid(), FileURL::fromPath(path), true};
}

} // namespace

TEST(RiskAlertCard, showsTitleAndMessageAndIsNamedByTheTitle)
{
    RiskAlertCard card(RiskAlert(u"Nothing to Back Up"_s, u"Enable at least one folder in Protected Items."_s,
                                 RiskAlert::Severity::medium));
    EXPECT_EQ(textsIn(card),
              QStringList({u"Nothing to Back Up"_s, u"Enable at least one folder in Protected Items."_s}));
    EXPECT_EQ(accessibleName(&card), u"Nothing to Back Up"_s);
    EXPECT_TRUE(card.findChildren<QAbstractButton*>().isEmpty());
}

TEST(RiskAlertCard, isColouredBySeverity)
{
    EXPECT_EQ(RiskAlertCard::color(RiskAlert::Severity::low), Role::accent);
    EXPECT_EQ(RiskAlertCard::color(RiskAlert::Severity::medium), Role::orange);
    EXPECT_EQ(RiskAlertCard::color(RiskAlert::Severity::high), Role::red);
}

TEST(RiskAlertCard, hasASymbolAndAFaintBackgroundInTheColourOfItsSeverity)
{
    const testing::ThemeGuard guard;
    for (const auto severity :
         {RiskAlert::Severity::low, RiskAlert::Severity::medium, RiskAlert::Severity::high}) {
        RiskAlertCard card(RiskAlert(u"Title"_s, u"Message."_s, severity));
        const Role hue = RiskAlertCard::color(severity);
        const auto* symbol = card.findChild<SymbolLabel*>();
        EXPECT_EQ(symbol->key(), u"exclamationmark.triangle.fill"_s);
        EXPECT_EQ(symbol->colorRole(), hue);
        EXPECT_EQ(card.findChildren<Label*>().last()->colorRole(), Role::mutedText);
        card.resize(300, 70);
        const QColor ground = testing::pictureOf(card).pixelColor(150, 4);
        EXPECT_TRUE(testing::isNear(ground, Theme::instance().tint(hue, panelTint)));
    }
}

TEST(SourceRowCard, hasATileWithAFolderInTheAccentColour)
{
    const SourceRowCard row(source(u"/Users/mira/Code"_s));
    const auto* tile = row.findChild<Tile*>();
    ASSERT_NE(tile, nullptr);
    EXPECT_EQ(tile->key(), u"folder.fill"_s);
    EXPECT_EQ(tile->colorRole(), Role::accent);
}

TEST(SourceRowCard, itsButtonIsRedWithAnOpacityOfFourFifths)
{
    const testing::ThemeGuard guard;
    SourceRowCard row(source(u"/Users/mira/Code"_s), [] {});
    auto* button = row.findChild<Button*>();
    const QImage picture = testing::pictureOf(*button);
    QColor red = Theme::instance().color(Role::red);
    red.setAlphaF(0.8F);
    EXPECT_TRUE(testing::holdsColor(picture, composed(picture.pixelColor(0, 0), red)));
    EXPECT_FALSE(testing::holdsColor(picture, Theme::instance().color(Role::red)));
}

TEST(SourceRowCard, showsNameAndPathAndNoButtonWithoutAnAction)
{
    SourceRowCard row(source(u"/Users/mira/Code"_s));
    EXPECT_EQ(textsIn(row), QStringList({u"Code"_s, u"/Users/mira/Code"_s}));
    EXPECT_TRUE(row.findChildren<Button*>().isEmpty());
}

TEST(SourceRowCard, itsButtonRemovesAndNamesTheFolder)
{
    int removals = 0;
    SourceRowCard row(source(u"/Users/mira/Code"_s), [&removals] { ++removals; });
    auto* button = row.findChild<Button*>();
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(button->symbol(), u"minus.circle.fill"_s);
    EXPECT_EQ(accessibleName(button), u"Remove Code"_s);
    EXPECT_EQ(button->toolTip(), u"Remove Code"_s);
    button->click();
    EXPECT_EQ(removals, 1);
}

TEST(ProgressPanel, showsFilePercentageAndNumbers)
{
    const testing::TestMac mac; // American English
    BackupProgress progress;
    progress.currentFile = u"IMG_2041.heic"_s;
    progress.filesCopied = 812;
    progress.filesSkipped = 11;
    progress.totalFilesEstimate = 1204;
    progress.bytesCopied = 8'310'000'000;
    ProgressPanel panel(progress);
    EXPECT_EQ(textsIn(panel), QStringList({u"IMG_2041.heic"_s, u"68%"_s, u"Backing Up…"_s, u"812 copied"_s,
                                           u"11 skipped"_s, u"8.31 GB"_s}));
    EXPECT_EQ(testing::accessibleValue(panel.findChild<BarProgress*>()).toInt(), 68);
}

TEST(ProgressPanel, eachNumberHasItsSymbol)
{
    const ProgressPanel panel({});
    QStringList symbols;
    for (const auto* symbol : panel.findChildren<SymbolLabel*>())
        symbols.append(symbol->key());
    EXPECT_EQ(symbols, QStringList({u"chevron.right"_s, u"checkmark.circle"_s, u"minus.circle"_s,
                                    u"internaldrive"_s}));
}

TEST(ProgressPanel, aLongFileNameStaysOnOneLine)
{
    BackupProgress progress;
    progress.currentFile = QString(400, u'n');
    ProgressPanel panel(progress);
    ProgressPanel empty({});
    EXPECT_EQ(panel.sizeHint().height(), empty.sizeHint().height());
    panel.resize(400, panel.sizeHint().height());
    panel.grab();
    EXPECT_TRUE(panel.findChild<ElidedLabel*>()->shownText().endsWith(u'…'));
}

TEST(ProgressPanel, cutsThePercentageAndStopsAtAHundred)
{
    BackupProgress progress;
    progress.filesCopied = 2;
    progress.totalFilesEstimate = 3;
    EXPECT_NEAR(ProgressPanel::fraction(progress), 0.6667, 0.0001);
    progress.filesSkipped = 5;
    EXPECT_EQ(ProgressPanel::fraction(progress), 1.0);
}

TEST(ProgressPanel, isAtZeroWithoutAnEstimate)
{
    BackupProgress progress;
    progress.filesCopied = 2;
    EXPECT_EQ(ProgressPanel::fraction(progress), 0.0);
    progress.totalFilesEstimate = -1;
    EXPECT_EQ(ProgressPanel::fraction(progress), 0.0);
}

} // namespace keelbright

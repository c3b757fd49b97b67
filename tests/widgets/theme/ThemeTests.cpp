#include "Keelbright/widgets/Label.h"
#include "Keelbright/widgets/StatusCard.h"
#include "Keelbright/widgets/SymbolLabel.h"
#include "tests/support/Accessible.h"
#include "tests/support/Contrast.h"
#include "tests/support/Printing.h"
#include "tests/support/ThemeGuard.h"

#include <QApplication>
#include <QFontDatabase>
#include <QSignalSpy>
#include <gtest/gtest.h>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;
using testing::holdsColor;
using testing::pictureOf;
using testing::ThemeGuard;

} // namespace

TEST(Theme, announcesAChangeOfTheSchemeOnceAndNothingElse)
{
    const ThemeGuard guard;
    const QSignalSpy spy(&Theme::instance(), &Theme::changed);
    Theme::instance().setScheme(ColorScheme::light);
    EXPECT_EQ(spy.count(), 0);
    Theme::instance().setScheme(ColorScheme::dark);
    EXPECT_EQ(spy.count(), 1);
    EXPECT_EQ(Theme::instance().scheme(), ColorScheme::dark);
}

TEST(Theme, highContrastMakesFaintTextsAndLinesStrong)
{
    const ThemeGuard guard;
    Theme& theme = Theme::instance();
    const QSignalSpy spy(&theme, &Theme::changed);
    for (const ColorScheme scheme : {ColorScheme::light, ColorScheme::dark}) {
        theme.setScheme(scheme);
        theme.setContrastHigh(false);
        const QColor faintLine = theme.color(Role::line);
        const QColor accent = theme.color(Role::accent);
        const qsizetype before = spy.count();
        theme.setContrastHigh(true);
        EXPECT_EQ(spy.count(), before + 1);
        for (const Role text : {Role::secondaryText, Role::mutedText})
            EXPECT_EQ(theme.color(text), theme.color(Role::primaryText));
        EXPECT_NE(theme.color(Role::emptyMark), theme.color(Role::primaryText))
            << "what is disabled shows it";
        EXPECT_GE(testing::contrastRatio(theme.color(Role::emptyMark), theme.color(Role::card)), 4.5);
        EXPECT_GT(theme.color(Role::line).alpha(), 4 * faintLine.alpha());
        EXPECT_GT(theme.color(Role::controlLine).alpha(), theme.color(Role::line).alpha());
        EXPECT_EQ(theme.color(Role::accent), accent);
    }
}

TEST(Theme, holdsTheColoursOfTheTokens)
{
    const ThemeGuard guard;
    Theme& theme = Theme::instance();
    EXPECT_EQ(theme.color(Role::window), QColor(0xF5, 0xF5, 0xF7));
    EXPECT_EQ(theme.color(Role::accent), QColor(0x0A, 0x6C, 0xFF));
    EXPECT_EQ(theme.color(Role::line).alpha(), 20); // 0.08
    theme.setScheme(ColorScheme::dark);
    EXPECT_EQ(theme.color(Role::window), QColor(0x1E, 0x1E, 0x20));
    EXPECT_EQ(theme.color(Role::accent), QColor(0x3D, 0x8B, 0xFF));
    EXPECT_EQ(theme.color(Role::line).alpha(), 23); // 0.09
}

TEST(Theme, aChangeOfTheSchemeRecoloursLabelsAndThePaletteOfTheToolkit)
{
    const ThemeGuard guard;
    const Label label(u"Text"_s, FontRole::body, Role::primaryText);
    EXPECT_EQ(label.palette().color(QPalette::WindowText), QColor(0x1D, 0x1D, 0x1F));
    Theme::instance().setScheme(ColorScheme::dark);
    EXPECT_EQ(label.palette().color(QPalette::WindowText), QColor(0xF5, 0xF5, 0xF7));
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), QColor(0x1E, 0x1E, 0x20));
}

TEST(Theme, aChangeOfTheSchemeRepaintsTheProgramsWidgets)
{
    const ThemeGuard guard;
    SymbolLabel symbol(u"folder.fill"_s, 40, Role::orange);
    StatusCard card(u"Files Copied"_s, u"12"_s, u"doc.fill"_s, Role::green);
    card.resize(180, 120);
    EXPECT_TRUE(holdsColor(pictureOf(symbol), QColor(0xF0, 0x8A, 0x00)));
    EXPECT_TRUE(holdsColor(pictureOf(card), QColor(0xFF, 0xFF, 0xFF)));
    Theme::instance().setScheme(ColorScheme::dark);
    EXPECT_TRUE(holdsColor(pictureOf(symbol), QColor(0xFF, 0x9F, 0x2E)));
    EXPECT_TRUE(holdsColor(pictureOf(card), QColor(0x2A, 0x2A, 0x2E)));
    EXPECT_FALSE(holdsColor(pictureOf(card), QColor(0xFF, 0xFF, 0xFF)));
}

TEST(Theme, fontsHaveTheSizesAndWeightsOfTheirRoles)
{
    Theme& theme = Theme::instance();
    EXPECT_NEAR(theme.font(FontRole::pageTitle).pointSizeF(), 19.5, 0.01); // 26 pixels at 96 dpi
    EXPECT_EQ(theme.font(FontRole::pageTitle).weight(), QFont::Bold);
    EXPECT_NEAR(theme.font(FontRole::body).pointSizeF(), 9.75, 0.01);
    EXPECT_EQ(theme.font(FontRole::number).weight(), QFont::DemiBold);
    EXPECT_NEAR(theme.font(FontRole::captionStrong).pointSizeF(), 8.25, 0.01);
}

TEST(Theme, usesInterIfNoDesktopSetsAFont)
{
    if (!QFontDatabase::hasFamily(u"Inter"_s))
        GTEST_SKIP() << "the font Inter is not installed";
    EXPECT_EQ(Theme::instance().font(FontRole::body).family(), u"Inter"_s);
}

TEST(Theme, reducedMotionMakesEveryDurationZero)
{
    const ThemeGuard guard(ColorScheme::light, true);
    EXPECT_EQ(Theme::instance().duration(200), 0);
    Theme::instance().setMotionReduced(false);
    EXPECT_EQ(Theme::instance().duration(200), 200);
}

TEST(Theme, tintIsOpaque)
{
    const ThemeGuard guard;
    const QColor tint = Theme::instance().tint(Role::red, 0.5);
    // Half way from the card to red.
    EXPECT_EQ(tint.alpha(), 255);
    EXPECT_NEAR(tint.red(), 0xF2, 1);
    EXPECT_NEAR(tint.green(), 0x9C, 1);
    EXPECT_NEAR(tint.blue(), 0x9D, 1);
}

} // namespace keelbright

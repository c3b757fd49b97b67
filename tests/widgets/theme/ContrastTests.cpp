#include "Keelbright/widgets/theme/Theme.h"
#include "Keelbright/widgets/theme/ThemeTokens.h"
#include "tests/support/Contrast.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

namespace keelbright {

namespace {

using testing::contrastRatio;

constexpr double readable = 4.5;
constexpr ColorScheme schemes[] = {ColorScheme::light, ColorScheme::dark};
constexpr Role hues[] = {Role::accent, Role::purple, Role::orange, Role::green, Role::red,
                         Role::teal,   Role::mint,   Role::pink,   Role::jade,  Role::azure};

QColor on(Role base, Role front, ColorScheme scheme)
{
    return composed(tokenColor(base, scheme), tokenColor(front, scheme));
}

QColor tinted(Role base, Role hue, double amount, ColorScheme scheme)
{
    QColor front = tokenColor(hue, scheme);
    front.setAlphaF(static_cast<float>(amount));
    return composed(tokenColor(base, scheme), front);
}

std::string name(Role role, ColorScheme scheme)
{
    return "role " + std::to_string(static_cast<int>(role)) +
           (scheme == ColorScheme::dark ? " dark" : " light");
}

} // namespace

TEST(Contrast, ofBlackOnWhiteIsTwentyOne)
{
    EXPECT_NEAR(contrastRatio(Qt::black, Qt::white), 21.0, 0.001);
    EXPECT_NEAR(contrastRatio(Qt::white, Qt::white), 1.0, 0.001);
}

TEST(Contrast, primaryTextIsReadableOnEverySurface)
{
    for (const ColorScheme scheme : schemes) {
        const QColor text = tokenColor(Role::primaryText, scheme);
        for (const Role surface : {Role::window, Role::sidebar, Role::card}) {
            EXPECT_GE(contrastRatio(text, tokenColor(surface, scheme)), readable) << name(surface, scheme);
            for (const Role shade : {Role::hover, Role::pressed, Role::selection})
                EXPECT_GE(contrastRatio(text, on(surface, shade, scheme)), readable) << name(surface, scheme);
        }
    }
}

TEST(Contrast, secondaryTextIsReadableOnWindowAndCard)
{
    for (const ColorScheme scheme : schemes) {
        for (const Role surface : {Role::window, Role::card}) {
            const QColor back = tokenColor(surface, scheme);
            EXPECT_GE(contrastRatio(tokenColor(Role::secondaryText, scheme), back), readable)
                << name(surface, scheme);
        }
        EXPECT_GE(contrastRatio(tokenColor(Role::secondaryText, scheme), on(Role::card, Role::hover, scheme)),
                  readable);
    }
}

TEST(Contrast, mutedTextIsReadableOnBarsAndOnEveryTint)
{
    for (const ColorScheme scheme : schemes) {
        const QColor text = tokenColor(Role::mutedText, scheme);
        for (const Role surface : {Role::sidebar, Role::window, Role::card})
            EXPECT_GE(contrastRatio(text, tokenColor(surface, scheme)), readable) << name(surface, scheme);
        for (const Role hue : hues) {
            for (const double amount : {panelTint, tileTint, 0.16})
                EXPECT_GE(contrastRatio(text, tinted(Role::card, hue, amount, scheme)), readable)
                    << name(hue, scheme) << " at " << amount;
        }
        EXPECT_GE(contrastRatio(text, on(Role::card, Role::selection, scheme)), readable)
            << name(Role::card, scheme);
        EXPECT_GE(contrastRatio(text, on(Role::window, Role::selection, scheme)), readable);
    }
}

TEST(Contrast, textsOfEveryHueAreReadableOnSurfacesAndOnTheirOwnTint)
{
    for (const ColorScheme scheme : schemes) {
        for (const Role hue : hues) {
            const QColor text = tokenColor(textRole(hue), scheme);
            for (const Role surface : {Role::window, Role::sidebar, Role::card})
                EXPECT_GE(contrastRatio(text, tokenColor(surface, scheme)), readable) << name(hue, scheme);
            for (const double amount : {panelTint, 0.12, tileTint, 0.16})
                EXPECT_GE(contrastRatio(text, tinted(Role::card, hue, amount, scheme)), readable)
                    << name(hue, scheme) << " at " << amount;
        }
    }
}

TEST(Contrast, textsOnAFillAreReadable)
{
    for (const ColorScheme scheme : schemes) {
        for (const Role fill : {Role::accentFill, Role::orangeFill, Role::greenFill, Role::redFill})
            EXPECT_GE(contrastRatio(tokenColor(onFillRole(fill), scheme), tokenColor(fill, scheme)), readable)
                << name(fill, scheme);
    }
}

TEST(Contrast, emptyMarksAreTooFaintForText)
{
    // The reason why no label may have this role.
    EXPECT_LT(contrastRatio(tokenColor(Role::emptyMark, ColorScheme::light),
                            tokenColor(Role::card, ColorScheme::light)),
              readable);
    EXPECT_EQ(textRole(Role::emptyMark), Role::secondaryText);
}

} // namespace keelbright

#include "Keelbright/widgets/Progress.h"

#include "tests/support/Accessible.h"
#include "tests/support/Printing.h"
#include "tests/support/ThemeGuard.h"

#include <QTest>
#include <gtest/gtest.h>

#include <limits>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;
using testing::accessibleName;
using testing::accessibleRole;
using testing::accessibleValue;
using testing::holdsColor;
using testing::pictureOf;
using testing::ThemeGuard;

} // namespace

TEST(BarProgress, hasItsNameAndItsValueInPercent)
{
    BarProgress bar(u"Backup progress"_s);
    bar.setFraction(0.689);
    EXPECT_EQ(accessibleName(&bar), u"Backup progress"_s);
    EXPECT_EQ(accessibleRole(&bar), QAccessible::ProgressBar);
    EXPECT_EQ(accessibleValue(&bar).toInt(), 68);
}

TEST(BarProgress, clampsAFractionOutsideOfItsRange)
{
    BarProgress bar(u"Backup progress"_s);
    bar.setFraction(1.5);
    EXPECT_EQ(bar.fraction(), 1.0);
    bar.setFraction(-3);
    EXPECT_EQ(bar.fraction(), 0.0);
    bar.setFraction(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(bar.fraction(), 0.0);
}

TEST(BarProgress, fillsItsShareOfTheWidth)
{
    const ThemeGuard guard(ColorScheme::light, true);
    BarProgress bar(u"Storage"_s, Role::purple);
    bar.resize(200, 6);
    bar.setFraction(0.5);
    const QImage picture = pictureOf(bar);
    const QRgb purple = Theme::instance().color(Role::purple).rgba();
    EXPECT_EQ(picture.pixel(90, 3), purple);
    EXPECT_NE(picture.pixel(110, 3), purple);
}

TEST(RingProgress, hasItsValueAndItsTexts)
{
    RingProgress ring(u"Backup progress"_s, 120, 10);
    ring.setFraction(0.42);
    ring.setCenter(u"42%"_s, u"complete"_s);
    EXPECT_EQ(accessibleValue(&ring).toInt(), 42);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&ring)->text(QAccessible::Description),
              u"42% complete"_s);
    EXPECT_EQ(ring.sizeHint(), QSize(120, 120));
}

TEST(RingProgress, fillsClockwiseFromTheTop)
{
    const ThemeGuard guard(ColorScheme::light, true);
    RingProgress ring(u"Backup progress"_s, 100, 10, Role::green);
    ring.resize(100, 100);
    ring.setFraction(0.5);
    const QImage picture = pictureOf(ring);
    const QRgb green = Theme::instance().color(Role::green).rgba();
    EXPECT_EQ(picture.pixel(95, 50), green); // three o'clock
    EXPECT_NE(picture.pixel(5, 50), green);  // nine o'clock
}

TEST(RingProgress, anEmptyRingShowsNothingOfItsColour)
{
    const ThemeGuard guard;
    RingProgress ring(u"Backup progress"_s, 100, 10, Role::green);
    EXPECT_FALSE(holdsColor(pictureOf(ring), Theme::instance().color(Role::green)));
}

TEST(Spinner, turnsOnlyWhileItIsOnScreen)
{
    const ThemeGuard guard;
    Spinner spinner(u"Analyzing"_s);
    EXPECT_FALSE(spinner.isTurning());
    spinner.show();
    EXPECT_TRUE(spinner.isTurning());
    spinner.hide();
    EXPECT_FALSE(spinner.isTurning());
    EXPECT_EQ(accessibleName(&spinner), u"Analyzing"_s);
    EXPECT_EQ(accessibleRole(&spinner), QAccessible::ProgressBar);
}

TEST(Spinner, doesNotTurnIfMotionIsReduced)
{
    const ThemeGuard guard(ColorScheme::light, true);
    Spinner spinner(u"Analyzing"_s);
    spinner.show();
    EXPECT_FALSE(spinner.isTurning());
}

} // namespace keelbright

#include "Keelbright/widgets/SmoothGradient.h"

#include "Keelbright/widgets/Card.h"
#include "tests/support/Accessible.h"
#include "tests/support/ThemeGuard.h"

#include <QSet>
#include <array>
#include <cmath>
#include <gtest/gtest.h>

namespace keelbright {

namespace {

constexpr QRgb left = 0xFFDDF1E2;
constexpr QRgb right = 0xFFF2FAF4;

/// What the red would be in a column if it could be any number.
double exactRed(int x, int width)
{
    return qRed(left) + (qRed(right) - qRed(left)) * (x + 0.5) / width;
}

} // namespace

TEST(SmoothGradient, meetsEachColourInTheMeanOfItsPixels)
{
    constexpr int side = 8;
    const QImage image = smoothGradient({640, side}, QColor(left), QColor(right));
    for (int start = 0; start < image.width(); start += side) {
        double shown = 0;
        double exact = 0;
        for (int x = start; x < start + side; ++x) {
            for (int y = 0; y < side; ++y)
                shown += qRed(image.pixel(x, y));
            exact += side * exactRed(x, image.width());
        }
        // Without the pattern the error is up to a half.
        EXPECT_NEAR(shown / (side * side), exact / (side * side), 0.1) << "from column " << start;
    }
}

TEST(SmoothGradient, noPixelIsFartherOffThanTheNextColour)
{
    const QImage image = smoothGradient({200, 30}, QColor(left), QColor(right));
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            ASSERT_LT(std::abs(qRed(image.pixel(x, y)) - exactRed(x, image.width())), 1.0) << x << ", " << y;
    }
}

TEST(SmoothGradient, oneColourStaysAsItIs)
{
    const QImage image = smoothGradient({40, 20}, QColor(left), QColor(left));
    QSet<QRgb> colors;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            colors.insert(image.pixel(x, y));
    }
    EXPECT_EQ(colors, QSet<QRgb>{left});
}

TEST(SmoothGradient, nothingHasNoPixels)
{
    EXPECT_TRUE(smoothGradient({}, QColor(left), QColor(right)).isNull());
}

TEST(Card, itsTintHasNoBands)
{
    const testing::ThemeGuard guard;
    Card card;
    card.setTint(Role::green);
    card.resize(876, 134);
    const QImage picture = testing::pictureOf(card);
    // A band would be a stretch of columns without any difference; the whole gradient has some twenty steps.
    constexpr int band = 16;
    for (int start = 20; start + band < picture.width() - 20; start += band) {
        QSet<QRgb> colors;
        for (int x = start; x < start + band; ++x) {
            for (int y = 40; y < 48; ++y)
                colors.insert(picture.pixel(x, y));
        }
        EXPECT_GT(colors.size(), 1) << "from column " << start;
    }
}

} // namespace keelbright

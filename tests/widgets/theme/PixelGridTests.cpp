#include "Keelbright/widgets/theme/PixelGrid.h"

#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>

namespace keelbright {

namespace {

/// A picture at a scale, painted with antialiasing.
class PixelGridTest : public ::testing::TestWithParam<double>
{
protected:
    PixelGridTest()
        : picture(QSize(100, 200), QImage::Format_RGB32)
    {
        picture.fill(Qt::white);
        picture.setDevicePixelRatio(GetParam());
        painter.begin(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
    }

    /// The number of pixels that are neither of the colours.
    [[nodiscard]] int mixedPixels() const
    {
        int mixed = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                const QRgb pixel = picture.pixel(x, y);
                mixed += pixel != qRgb(255, 255, 255) && pixel != qRgb(0, 0, 255) ? 1 : 0;
            }
        }
        return mixed;
    }

    QImage picture;
    QPainter painter;
};

} // namespace

TEST_P(PixelGridTest, aRectangleHasNoPartialPixels)
{
    for (const QRectF& rect : {QRectF(3, 5, 20, 7), QRectF(1, 19, 30, 33), QRectF(7, 61, 11, 28)}) {
        const QRectF whole = wholePixels(painter, rect);
        EXPECT_TRUE(rect.adjusted(-0.001, -0.001, 0.001, 0.001).contains(whole));
        EXPECT_GT(whole.height(), rect.height() - 2 / GetParam());
        painter.setBrush(Qt::blue);
        painter.drawRect(whole);
    }
    painter.end();
    EXPECT_EQ(mixedPixels(), 0);
}

TEST_P(PixelGridTest, theOffsetOfAWidgetCounts)
{
    painter.translate(1, 3);
    painter.fillRect(wholePixels(painter, QRectF(0, 0, 11, 9)), Qt::blue);
    painter.end();
    EXPECT_EQ(mixedPixels(), 0);
}

TEST_P(PixelGridTest, aLineIsSharpAndAtTheBottom)
{
    for (const QRectF& rect : {QRectF(3, 5, 20, 7), QRectF(1, 19, 30, 33), QRectF(7, 61, 11, 28)}) {
        const QRectF line = lineAtBottom(painter, rect);
        EXPECT_NEAR(line.bottom(), wholePixels(painter, rect).bottom(), 1e-6);
        EXPECT_GE(line.height() * GetParam(), 0.999);
        EXPECT_LE(line.height(), 1.001);
        painter.fillRect(line, Qt::blue);
    }
    painter.end();
    EXPECT_EQ(mixedPixels(), 0);
}

INSTANTIATE_TEST_SUITE_P(Scales, PixelGridTest, ::testing::Values(1.0, 1.25, 1.5, 2.0));

} // namespace keelbright

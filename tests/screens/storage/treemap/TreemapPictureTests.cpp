#include "Keelbright/screens/storage/treemap/TreemapPicture.h"

#include "Keelbright/screens/storage/treemap/TreemapPalette.h"
#include "tests/screens/storage/treemap/TreemapFixture.h"

#include <QImage>
#include <cmath>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

QImage pictureOf(const QList<TreemapCell>& cells, const QSize& size, qreal ratio = 1)
{
    return drawTreemap(cells, size, ratio).toImage().convertToFormat(QImage::Format_ARGB32);
}

/// What the gradients give at a point of a cell, without border and labels.
QColor expectedColor(const TreemapCell& cell, const QPointF& point)
{
    const TreemapColors& colors = treemapPalette().at(cell.colorIndex % 6);
    const QPointF diagonal = cell.rect.bottomRight() - cell.rect.topLeft();
    const double along =
        QPointF::dotProduct(point - cell.rect.topLeft(), diagonal) / QPointF::dotProduct(diagonal, diagonal);
    const double height = (point.y() - cell.rect.top()) / cell.rect.height();
    const double shine = height < 0.28 ? 0.22 * (1 - height / 0.28) : 0;
    const double shade = height > 0.45 ? 0.45 * (height - 0.45) / 0.55 : 0;
    const auto channel = [&](float from, float to) {
        const double fill = from + (to - from) * along;
        return static_cast<float>((fill + (1 - fill) * shine) * (1 - shade));
    };
    return QColor::fromRgbF(channel(colors.lighter.redF(), colors.darker.redF()),
                            channel(colors.lighter.greenF(), colors.darker.greenF()),
                            channel(colors.lighter.blueF(), colors.darker.blueF()));
}

void expectNear(const QColor& actual, const QColor& expected, const QPoint& where)
{
    constexpr int tolerance = 3;
    EXPECT_LE(std::abs(actual.red() - expected.red()), tolerance) << where.x() << ',' << where.y();
    EXPECT_LE(std::abs(actual.green() - expected.green()), tolerance) << where.x() << ',' << where.y();
    EXPECT_LE(std::abs(actual.blue() - expected.blue()), tolerance) << where.x() << ',' << where.y();
    EXPECT_EQ(actual.alpha(), 255);
}

/// How many pixels within differ from the cell's bare gradients: those of its labels.
int writtenPixels(const QImage& picture, const TreemapCell& cell, const QRect& within)
{
    int count = 0;
    for (int y = within.top(); y <= within.bottom(); ++y) {
        for (int x = within.left(); x <= within.right(); ++x) {
            const QColor bare = expectedColor(cell, QPointF(x + 0.5, y + 0.5));
            count += std::abs(picture.pixelColor(x, y).green() - bare.green()) > 12 ? 1 : 0;
        }
    }
    return count;
}

TreemapCell single(double width, double height, const QString& name)
{
    return {.node = {.id = QUuid::createUuid(), .name = name, .url = {}, .totalBytes = 2'500'000'000},
            .rect = QRectF(0, 0, width, height),
            .colorIndex = 0};
}

bool hasName(double width, double height)
{
    const TreemapCell cell = single(width, height, u"WWWWWWWW"_s);
    const QImage picture = pictureOf({cell}, QSize(200, 200));
    return writtenPixels(picture, cell, QRect(9, 8, 20, 12)) > 20;
}

/// The number of lines of pixels below `top` that hold a part of the labels of a cell of this width.
int heightOfLabels(double width, const QString& name, int top)
{
    constexpr int bright = 170; ///< of red, of which the first pair of colours has little
    const QImage picture = pictureOf({single(width, 120, name)}, QSize(200, 200));
    int lines = 0;
    for (int y = top; y < 50; ++y) {
        bool isWritten = false;
        for (int x = 9; x < 50; ++x)
            isWritten = isWritten || picture.pixelColor(x, y).red() > bright;
        lines += isWritten ? 1 : 0;
    }
    return lines;
}

bool hasSize(double width, double height)
{
    const TreemapCell cell = single(width, height, u"W"_s);
    const QImage picture = pictureOf({cell}, QSize(200, 200));
    return writtenPixels(picture, cell, QRect(9, 28, 20, 10)) > 20;
}

} // namespace

TEST(TreemapPicture, thePaletteHasSixPairsFromLighterToDarker)
{
    constexpr float pairs[6][6]{
        {0.12F, 0.47F, 0.90F, 0.06F, 0.28F, 0.66F}, {0.50F, 0.22F, 0.86F, 0.32F, 0.12F, 0.62F},
        {0.08F, 0.62F, 0.44F, 0.04F, 0.38F, 0.28F}, {0.88F, 0.32F, 0.30F, 0.64F, 0.16F, 0.16F},
        {0.90F, 0.60F, 0.08F, 0.66F, 0.40F, 0.02F}, {0.12F, 0.60F, 0.74F, 0.06F, 0.38F, 0.52F},
    };
    ASSERT_EQ(treemapPalette().size(), 6);
    for (qsizetype i = 0; i < 6; ++i) {
        const float(&pair)[6] = pairs[i];
        EXPECT_EQ(treemapPalette().at(i).lighter, QColor::fromRgbF(pair[0], pair[1], pair[2])) << i;
        EXPECT_EQ(treemapPalette().at(i).darker, QColor::fromRgbF(pair[3], pair[4], pair[5])) << i;
    }
}

TEST(TreemapPicture, aCellIsFilledWithItsGradientsShineAndShade)
{
    const QList<TreemapCell> cells = treemapCells({3'000, 1'000}, {400, 300});
    ASSERT_EQ(cells.size(), 2);
    const QImage picture = pictureOf(cells, {400, 300});
    for (const QPoint point : {QPoint(30, 60), QPoint(150, 120), QPoint(280, 250), QPoint(20, 280)})
        expectNear(picture.pixelColor(point), expectedColor(cells.at(0), point + QPointF(0.5, 0.5)), point);
    for (const QPoint point : {QPoint(340, 70), QPoint(380, 150), QPoint(310, 270)})
        expectNear(picture.pixelColor(point), expectedColor(cells.at(1), point + QPointF(0.5, 0.5)), point);
}

TEST(TreemapPicture, theSeventhColorIsTheFirstAgain)
{
    TreemapCell cell = single(40, 40, {});
    const QImage first = pictureOf({cell}, {40, 40});
    cell.colorIndex = 6;
    EXPECT_EQ(pictureOf({cell}, {40, 40}), first);
    cell.colorIndex = 7;
    EXPECT_NE(pictureOf({cell}, {40, 40}), first);
}

TEST(TreemapPicture, aLightLineRunsWithinTheEdge)
{
    const TreemapCell cell = single(100, 100, {});
    const QImage picture = pictureOf({cell}, {100, 100});
    const QColor bare = expectedColor(cell, {0.5, 50.5});
    const auto lit = [](int channel) { return static_cast<int>(channel + (255 - channel) * 0.22); };
    expectNear(picture.pixelColor(0, 50), QColor(lit(bare.red()), lit(bare.green()), lit(bare.blue())),
               {0, 50});
    expectNear(picture.pixelColor(1, 50), expectedColor(cell, {1.5, 50.5}), {1, 50});
    EXPECT_GT(picture.pixelColor(99, 50).lightness(), picture.pixelColor(98, 50).lightness());
    EXPECT_GT(picture.pixelColor(50, 99).lightness(), picture.pixelColor(50, 98).lightness());
}

TEST(TreemapPicture, theNameNeedsRoomOnBothSidesOfEachThreshold)
{
    EXPECT_FALSE(hasName(52, 100));
    EXPECT_TRUE(hasName(53, 100));
    EXPECT_FALSE(hasName(100, 30));
    EXPECT_TRUE(hasName(100, 31));
}

TEST(TreemapPicture, theSizeNeedsMoreHeightThanTheName)
{
    EXPECT_FALSE(hasSize(120, 50));
    EXPECT_TRUE(hasSize(120, 51));
    EXPECT_FALSE(hasSize(52, 120));
}

TEST(TreemapPicture, theNameGrowsWithItsCellBetweenTwoSizes)
{
    const auto height = [](double width) {
        return heightOfLabels(width, u"H"_s, 8) - heightOfLabels(width, {}, 8);
    };
    EXPECT_GT(height(53), 0);
    EXPECT_EQ(height(53), height(81));
    EXPECT_LT(height(81), height(99));
    EXPECT_LT(height(99), height(117));
    EXPECT_EQ(height(117), height(190));
}

TEST(TreemapPicture, theSizeGrowsWithItsCellBetweenTwoSizes)
{
    const auto height = [](double width) { return heightOfLabels(width, {}, 8); };
    EXPECT_GT(height(53), 0);
    EXPECT_EQ(height(53), height(88));
    EXPECT_LT(height(88), height(121));
    EXPECT_EQ(height(121), height(190));
}

TEST(TreemapPicture, theNameIsWhiteOverAShadow)
{
    const TreemapCell cell = single(190, 120, u"H"_s);
    const QImage picture = pictureOf({cell}, {200, 200});
    bool hasWhite = false;
    bool hasShadow = false;
    for (int y = 8; y < 30; ++y) {
        for (int x = 9; x < 25; ++x) {
            const QColor color = picture.pixelColor(x, y);
            const QColor bare = expectedColor(cell, QPointF(x + 0.5, y + 0.5));
            hasWhite = hasWhite || color == QColor(Qt::white);
            hasShadow = hasShadow || color.blue() < bare.blue() / 2;
        }
    }
    EXPECT_TRUE(hasWhite);
    EXPECT_TRUE(hasShadow);
}

TEST(TreemapPicture, isTransparentWithoutCellsAndAtTheCorners)
{
    const QImage empty = pictureOf({}, {60, 40});
    EXPECT_EQ(empty.pixelColor(30, 20).alpha(), 0);
    const QImage full = pictureOf({single(60, 40, {})}, {60, 40});
    EXPECT_EQ(full.pixelColor(0, 0).alpha(), 0);
    EXPECT_EQ(full.pixelColor(59, 39).alpha(), 0);
    EXPECT_EQ(full.pixelColor(30, 20).alpha(), 255);
}

TEST(TreemapPicture, leavesNoSeamBetweenCells)
{
    QList<qint64> sizes;
    for (qint64 i = 1; i <= 80; ++i)
        sizes.append(i * 7 % 41 + 3);
    for (const double ratio : {1.0, 1.25, 2.0}) {
        const QImage picture = pictureOf(treemapCells(sizes, {333, 217}), {333, 217}, ratio);
        ASSERT_EQ(picture.size(), (QSizeF(333, 217) * ratio).toSize());
        for (int y = 20; y < picture.height() - 20; ++y) {
            for (int x = 20; x < picture.width() - 20; ++x)
                ASSERT_EQ(qAlpha(picture.pixel(x, y)), 255) << x << ',' << y << " at " << ratio;
        }
    }
}

TEST(TreemapPicture, aNarrowCellIsStillDrawn)
{
    const QList<TreemapCell> cells{{.node = {}, .rect = QRectF(10.3, 0, 1.1, 40), .colorIndex = 2}};
    const QImage picture = pictureOf(cells, {40, 40});
    EXPECT_EQ(picture.pixelColor(10, 20).alpha(), 255);
    EXPECT_EQ(picture.pixelColor(11, 20).alpha(), 0);
}

TEST(TreemapPicture, aNameWithControlCharactersIsShownWithoutThem)
{
    const QImage plain = pictureOf({single(160, 60, u"name"_s)}, {160, 60});
    EXPECT_EQ(pictureOf({single(160, 60, u"na\x202Eme"_s)}, {160, 60}), plain);
}

} // namespace keelbright::testing

#include "Keelbright/screens/storage/treemap/TreemapColoring.h"
#include "tests/screens/storage/treemap/PlainColoring.h"

#include <QRandomGenerator>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace keelbright::testing {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

/// Two rectangles are neighbours if their colour indices differ.
bool areNeighbours(const QRectF& a, const QRectF& b)
{
    return treemapColorIndices({a, b}) == QList<int>{0, 1};
}

} // namespace

TEST(TreemapColoringTests, noRectanglesHaveNoColors)
{
    EXPECT_THAT(treemapColorIndices({}), IsEmpty());
    EXPECT_THAT(treemapColorIndices({QRectF(0, 0, 10, 10)}), ElementsAre(0));
}

TEST(TreemapColoringTests, besideAndOnTopAreNeighboursOnEitherSide)
{
    const QRectF middle(100, 100, 50, 50);
    EXPECT_TRUE(areNeighbours(middle, {150, 100, 50, 50}));
    EXPECT_TRUE(areNeighbours(middle, {50, 100, 50, 50}));
    EXPECT_TRUE(areNeighbours(middle, {100, 150, 50, 50}));
    EXPECT_TRUE(areNeighbours(middle, {100, 50, 50, 50}));
}

TEST(TreemapColoringTests, aCornerMakesNoNeighbours)
{
    const QRectF middle(100, 100, 50, 50);
    EXPECT_FALSE(areNeighbours(middle, {150, 150, 50, 50}));
    EXPECT_FALSE(areNeighbours(middle, {50, 50, 50, 50}));
    EXPECT_FALSE(areNeighbours(middle, {150, 50, 50, 50}));
}

TEST(TreemapColoringTests, twoPointsOfSharedEdgeAreTooFewAndMoreAreEnough)
{
    const QRectF middle(100, 100, 50, 50);
    EXPECT_FALSE(areNeighbours(middle, {150, 148, 50, 50}));
    EXPECT_TRUE(areNeighbours(middle, {150, 147.75, 50, 50}));
    EXPECT_FALSE(areNeighbours(middle, {148, 150, 50, 50}));
    EXPECT_TRUE(areNeighbours(middle, {147.75, 150, 50, 50}));
}

TEST(TreemapColoringTests, aGapOfLessThanTwoPointsIsBridged)
{
    const QRectF middle(100, 100, 50, 50);
    EXPECT_TRUE(areNeighbours(middle, {151.75, 100, 50, 50}));
    EXPECT_FALSE(areNeighbours(middle, {152, 100, 50, 50}));
    EXPECT_TRUE(areNeighbours(middle, {100, 48.25, 50, 50}));
    EXPECT_FALSE(areNeighbours(middle, {100, 48, 50, 50}));
}

TEST(TreemapColoringTests, rectanglesFarApartOrInsideEachOtherAreNoNeighbours)
{
    EXPECT_FALSE(areNeighbours({0, 0, 10, 10}, {500, 500, 10, 10}));
    EXPECT_FALSE(areNeighbours({0, 0, 100, 100}, {40, 40, 10, 10}));
}

TEST(TreemapColoringTests, eachTakesTheSmallestColorThatIsFree)
{
    // A row, then one below all of it, then one below that.
    EXPECT_THAT(treemapColorIndices(
                    {{0, 0, 10, 10}, {10, 0, 10, 10}, {20, 0, 10, 10}, {0, 10, 30, 10}, {0, 20, 30, 10}}),
                ElementsAre(0, 1, 0, 2, 0));
}

TEST(TreemapColoringTests, thereCanBeMoreThanSixColors)
{
    // Laid on one another with less than the tolerance between, all are neighbours of all.
    QList<QRectF> stacked;
    for (int i = 0; i < 8; ++i)
        stacked.append({0, i * 0.2, 100, 0.1});
    EXPECT_THAT(treemapColorIndices(stacked), ElementsAre(0, 1, 2, 3, 4, 5, 6, 7));
}

TEST(TreemapColoringTests, anyRectanglesGetTheColorsOfThePairwiseRule)
{
    QRandomGenerator random(11);
    for (int round = 0; round < 500; ++round) {
        QList<QRectF> rects;
        const int count = random.bounded(1, 80);
        // Whole and half points bring many distances that are the tolerance exactly.
        const double step = round % 3 == 0 ? 1.0 : (round % 3 == 1 ? 0.5 : 0.37);
        const int span = random.bounded(10, 400);
        for (int i = 0; i < count; ++i)
            rects.append({random.bounded(span) * step, random.bounded(span) * step,
                          random.bounded(span / 2) * step, random.bounded(span / 2) * step});
        ASSERT_EQ(treemapColorIndices(rects), plainColorIndices(rects)) << "round " << round;
    }
}

} // namespace keelbright::testing

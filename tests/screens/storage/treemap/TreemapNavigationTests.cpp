#include "Keelbright/screens/storage/treemap/TreemapNavigation.h"

#include "tests/screens/storage/treemap/TreemapFixture.h"

#include <QSet>
#include <gtest/gtest.h>

namespace keelbright::testing {

namespace {

TreemapCell cellAt(double x, double y, double width, double height)
{
    return {.node = {}, .rect = QRectF(x, y, width, height), .colorIndex = 0};
}

/// A wide cell at the left, and at its right three below each other.
const QList<TreemapCell> comb{cellAt(0, 0, 100, 90), cellAt(100, 0, 50, 30), cellAt(100, 30, 50, 30),
                              cellAt(100, 60, 50, 30)};

int neighbour(int from, TreemapDirection direction, const QPointF& anchor)
{
    return treemapNeighbour(comb, from, direction, anchor);
}

} // namespace

TEST(TreemapNavigation, goesToTheCellAtTheHeightOfTheAnchor)
{
    EXPECT_EQ(neighbour(0, TreemapDirection::right, {50, 45}), 2);
    EXPECT_EQ(neighbour(0, TreemapDirection::right, {50, 5}), 1);
    EXPECT_EQ(neighbour(0, TreemapDirection::right, {50, 85}), 3);
}

TEST(TreemapNavigation, goesUpAndDownWithinAColumn)
{
    EXPECT_EQ(neighbour(2, TreemapDirection::up, {125, 45}), 1);
    EXPECT_EQ(neighbour(2, TreemapDirection::down, {125, 45}), 3);
}

TEST(TreemapNavigation, theOppositeMoveLeadsBackFromEachOfSeveral)
{
    for (const int cell : {1, 2, 3})
        EXPECT_EQ(neighbour(cell, TreemapDirection::left, {125, 15}), 0);
}

TEST(TreemapNavigation, staysAtTheBorder)
{
    EXPECT_EQ(neighbour(0, TreemapDirection::left, {50, 45}), -1);
    EXPECT_EQ(neighbour(0, TreemapDirection::up, {50, 45}), -1);
    EXPECT_EQ(neighbour(0, TreemapDirection::down, {50, 45}), -1);
    EXPECT_EQ(neighbour(2, TreemapDirection::right, {125, 45}), -1);
}

TEST(TreemapNavigation, anAnchorOutsideTheCellCountsAtItsEdge)
{
    EXPECT_EQ(neighbour(0, TreemapDirection::right, {50, 900}), 3);
}

TEST(TreemapNavigation, skipsTheGapOfACellThatIsNotDrawn)
{
    const QList<TreemapCell> gap{cellAt(0, 0, 10, 10), cellAt(13, 0, 10, 10), cellAt(23, 0, 10, 10)};
    EXPECT_EQ(treemapNeighbour(gap, 0, TreemapDirection::right, {5, 5}), 1);
}

TEST(TreemapNavigation, theArrowsReachEveryCell)
{
    QList<qint64> sizes;
    for (qint64 i = 1; i <= 60; ++i)
        sizes.append(i * i % 97 + 5);
    const QList<TreemapCell> cells = treemapCells(sizes, {900, 420});
    ASSERT_EQ(cells.size(), sizes.size());
    QSet<int> reached{0};
    QList<int> waiting{0};
    while (!waiting.isEmpty()) {
        const int from = waiting.takeFirst();
        const QRectF rect = cells.at(from).rect;
        for (const TreemapDirection direction : {TreemapDirection::left, TreemapDirection::right,
                                                 TreemapDirection::up, TreemapDirection::down}) {
            // The anchor may lie at any height of the cell, wherever the walk came from.
            for (const QPointF& anchor : {rect.topLeft(), rect.center(), rect.bottomRight()}) {
                const int next = treemapNeighbour(cells, from, direction, anchor);
                if (next >= 0 && !reached.contains(next)) {
                    reached.insert(next);
                    waiting.append(next);
                }
            }
        }
    }
    EXPECT_EQ(reached.size(), cells.size());
}

} // namespace keelbright::testing

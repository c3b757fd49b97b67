#include "Keelbright/screens/storage/treemap/TreemapLayout.h"
#include "tests/screens/storage/treemap/PlainColoring.h"
#include "tests/support/Printing.h"

#include <QRandomGenerator>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numeric>

namespace keelbright::testing {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

/// A cell as the size of its entry, its rectangle and its colour.
struct Line
{
    qint64 bytes;
    QRectF rect;
    int color;

    friend bool operator==(const Line&, const Line&) = default;
};

void PrintTo(const Line& line, std::ostream* out)
{
    *out << line.bytes << " at " << line.rect.x() << ',' << line.rect.y() << ' ' << line.rect.width() << 'x'
         << line.rect.height() << " colour " << line.color;
}

QList<FolderSizeNode> nodesOf(const QList<qint64>& sizes)
{
    QList<FolderSizeNode> nodes;
    for (const qint64 size : sizes) {
        const QString name = QString::number(nodes.size());
        nodes.append({QUuid(), name, FileURL::fromPath(u'/' + name), size, false});
    }
    return nodes;
}

TreemapLayout layoutOf(const QList<qint64>& sizes, QSizeF size)
{
    return {nodesOf(sizes), std::accumulate(sizes.begin(), sizes.end(), qint64(0)), size};
}

QList<Line> cells(const QList<qint64>& sizes, QSizeF size)
{
    QList<Line> lines;
    for (const TreemapCell& cell : layoutOf(sizes, size).layout())
        lines.append({cell.node.totalBytes, cell.rect, cell.colorIndex});
    return lines;
}

double areaOf(const QList<TreemapCell>& cells)
{
    double area = 0;
    for (const TreemapCell& cell : cells)
        area += cell.rect.width() * cell.rect.height();
    return area;
}

QList<QRectF> rectsOf(const QList<TreemapCell>& cells)
{
    QList<QRectF> rects;
    for (const TreemapCell& cell : cells)
        rects.append(cell.rect);
    return rects;
}

/// Sizes as in real folders: all alike, all different, or a few huge ones among small ones.
QList<qint64> randomSizes(QRandomGenerator& random, int kind)
{
    QList<qint64> sizes;
    const int count = random.bounded(1, 120);
    for (int i = 0; i < count; ++i) {
        if (kind == 0)
            sizes.append(1000);
        else if (kind == 1)
            sizes.append(random.bounded(1'000'000));
        else
            sizes.append(static_cast<qint64>(std::pow(10.0, random.bounded(12.0))));
    }
    return sizes;
}

} // namespace

TEST(TreemapLayoutTests, noEntriesHaveNoCells)
{
    EXPECT_THAT(cells({}, {300, 200}), IsEmpty());
}

TEST(TreemapLayoutTests, entriesOfSizeZeroHaveNoCells)
{
    EXPECT_THAT(cells({0, 0, 0}, {300, 200}), IsEmpty());
    EXPECT_THAT(cells({0, 5, 0}, {300, 200}), ElementsAre(Line{5, {0, 0, 300, 200}, 0}));
}

TEST(TreemapLayoutTests, aTotalThatIsNotAboveZeroHasNoCells)
{
    TreemapLayout layout = layoutOf({5}, {300, 200});
    layout.totalBytes = 0;
    EXPECT_THAT(layout.layout(), IsEmpty());
    layout.totalBytes = -1;
    EXPECT_THAT(layout.layout(), IsEmpty());
    layout.totalBytes = 1;
    EXPECT_EQ(layout.layout().size(), 1);
}

TEST(TreemapLayoutTests, oneEntryFillsTheWholeSpace)
{
    const TreemapLayout layout = layoutOf({42}, {300, 200});
    const QList<TreemapCell> result = layout.layout();
    ASSERT_EQ(result.size(), 1);
    EXPECT_EQ(result.first(), (TreemapCell{layout.nodes.first(), QRectF(0, 0, 300, 200), 0}));
}

TEST(TreemapLayoutTests, threeToOneCutsALandscapeAtThreeQuartersWithTheBiggerOnTheLeft)
{
    EXPECT_THAT(cells({1, 3}, {400, 100}),
                ElementsAre(Line{3, {0, 0, 300, 100}, 0}, Line{1, {300, 0, 100, 100}, 1}));
}

TEST(TreemapLayoutTests, threeToOneCutsAPortraitAtThreeQuartersWithTheBiggerOnTop)
{
    EXPECT_THAT(cells({1, 3}, {100, 400}),
                ElementsAre(Line{3, {0, 0, 100, 300}, 0}, Line{1, {0, 300, 100, 100}, 1}));
}

TEST(TreemapLayoutTests, twoEqualEntriesCutASquareVerticallyInTheMiddle)
{
    EXPECT_THAT(cells({7, 7}, {100, 100}),
                ElementsAre(Line{7, {0, 0, 50, 100}, 0}, Line{7, {50, 0, 50, 100}, 1}));
}

TEST(TreemapLayoutTests, ofThreeEqualEntriesTheFirstTwoShareAGroup)
{
    EXPECT_THAT(cells({10, 10, 10}, {300, 100}),
                ElementsAre(Line{10, {0, 0, 100, 100}, 0}, Line{10, {100, 0, 100, 100}, 1},
                            Line{10, {200, 0, 100, 100}, 0}));
}

TEST(TreemapLayoutTests, anEntryThatReachesHalfOfTheBytesIsCutOffAlone)
{
    EXPECT_THAT(cells({10, 5, 5}, {400, 100}),
                ElementsAre(Line{10, {0, 0, 200, 100}, 0}, Line{5, {200, 0, 100, 100}, 1},
                            Line{5, {300, 0, 100, 100}, 0}));
}

TEST(TreemapLayoutTests, halfOfTheBytesIsAWholeNumberRoundedDown)
{
    // Half of 3 is 1, which the first entry reaches.
    EXPECT_THAT(cells({1, 1, 1}, {300, 100}),
                ElementsAre(Line{1, {0, 0, 100, 100}, 0}, Line{1, {100, 0, 100, 100}, 1},
                            Line{1, {200, 0, 100, 100}, 0}));
    const QList<TreemapCell> portrait = layoutOf({1, 1, 1}, {100, 120}).layout();
    ASSERT_EQ(portrait.size(), 3);
    EXPECT_EQ(portrait[0].rect, QRectF(0, 0, 100, 40)) << "the first group is the first entry alone";
}

TEST(TreemapLayoutTests, aTotalThatOnlyTheLastEntryReachesCutsInTheMiddleOfTheList)
{
    TreemapLayout layout = layoutOf({4, 4, 4, 4}, {400, 100});
    layout.totalBytes = 30;
    const QList<TreemapCell> result = layout.layout();
    ASSERT_EQ(result.size(), 4);
    EXPECT_EQ(result[1].rect, QRectF(100, 0, 100, 100));
    EXPECT_EQ(result[2].rect, QRectF(200, 0, 100, 100));
}

TEST(TreemapLayoutTests, aTotalThatIsNeverReachedCutsAfterTheFirstEntry)
{
    TreemapLayout layout = layoutOf({8, 4, 4}, {400, 1000});
    layout.totalBytes = 1000;
    const QList<TreemapCell> result = layout.layout();
    ASSERT_EQ(result.size(), 3);
    EXPECT_EQ(result[0].rect, QRectF(0, 0, 400, 500));
    EXPECT_EQ(result[1].rect, QRectF(0, 500, 400, 250));
}

TEST(TreemapLayoutTests, equalEntriesKeepTheirOrder)
{
    QStringList names;
    for (const TreemapCell& cell : layoutOf({5, 9, 5, 5}, {400, 300}).layout())
        names.append(cell.node.name);
    EXPECT_EQ(names, (QStringList{u"1"_s, u"0"_s, u"2"_s, u"3"_s}));
}

TEST(TreemapLayoutTests, aSpaceNotOverOnePointHasNoCells)
{
    EXPECT_THAT(cells({5}, {1, 100}), IsEmpty());
    EXPECT_THAT(cells({5}, {100, 1}), IsEmpty());
    EXPECT_THAT(cells({5}, {0, 0}), IsEmpty());
    EXPECT_THAT(cells({5}, {-10, 100}), IsEmpty());
    EXPECT_EQ(cells({5}, {1.01, 1.01}).size(), 1);
}

TEST(TreemapLayoutTests, smallEntriesWithoutRoomGetNoCellAndTheirSpaceStaysFree)
{
    QList<qint64> sizes(1000, 1);
    sizes.append(1'000'000);
    const QList<TreemapCell> result = layoutOf(sizes, {100, 100}).layout();
    EXPECT_LT(result.size(), 1001);
    EXPECT_EQ(result.first().node.totalBytes, 1'000'000);
    EXPECT_LT(areaOf(result), 100.0 * 100.0);
    for (const TreemapCell& cell : result) {
        EXPECT_GT(cell.rect.width(), 1.0);
        EXPECT_GT(cell.rect.height(), 1.0);
    }
}

TEST(TreemapLayoutTests, areasFollowSizes)
{
    const QList<TreemapCell> result = layoutOf({500, 300, 120, 50, 20, 10}, {1000, 700}).layout();
    ASSERT_EQ(result.size(), 6);
    EXPECT_NEAR(areaOf(result), 700'000, 1e-6);
    for (const TreemapCell& cell : result)
        EXPECT_NEAR(cell.rect.width() * cell.rect.height(), 700.0 * static_cast<double>(cell.node.totalBytes),
                    1e-6);
}

TEST(TreemapLayoutTests, hugeSizesDoNotOverflow)
{
    constexpr qint64 maximum = std::numeric_limits<qint64>::max();
    const TreemapLayout layout{nodesOf({maximum, maximum, maximum}), maximum, {300, 100}};
    const QList<TreemapCell> result = layout.layout();
    ASSERT_EQ(result.size(), 3);
    EXPECT_EQ(result.first().rect.x(), 0);
    EXPECT_GT(result.first().rect.width(), 0);
}

TEST(TreemapLayoutTests, anEntryOfEachPowerOfTwoIsLaidOut)
{
    QList<qint64> sizes;
    for (int bit = 0; bit < 62; ++bit)
        sizes.append(qint64(1) << bit);
    EXPECT_FALSE(layoutOf(sizes, {1'000'000, 1'000'000}).layout().isEmpty());
}

TEST(TreemapLayoutTests, twoThousandRandomLayoutsHaveTheColorsOfThePairwiseRule)
{
    QRandomGenerator random(5);
    qsizetype cellCount = 0;
    for (int round = 0; round < 2000; ++round) {
        const QSizeF space(random.bounded(1500.0), random.bounded(1000.0));
        const QList<TreemapCell> result = layoutOf(randomSizes(random, round % 3), space).layout();
        QList<int> colors;
        for (const TreemapCell& cell : result)
            colors.append(cell.colorIndex);
        ASSERT_EQ(colors, plainColorIndices(rectsOf(result))) << "round " << round;
        cellCount += result.size();
    }
    EXPECT_GT(cellCount, 50'000) << "the layouts were to be worth comparing";
}

TEST(TreemapLayoutTests, cellsThatShareAnEdgeNeverShareAColor)
{
    QRandomGenerator random(6);
    QList<qint64> sizes;
    for (int i = 0; i < 300; ++i)
        sizes.append(random.bounded(100, 10'000));
    const QList<TreemapCell> result = layoutOf(sizes, {1200, 800}).layout();
    ASSERT_EQ(result.size(), 300);
    int neighbours = 0;
    for (const TreemapCell& a : result) {
        for (const TreemapCell& b : result) {
            const QRectF shared = a.rect.adjusted(-0.1, -0.1, 0.1, 0.1) & b.rect;
            if (a.node.url == b.node.url || std::max(shared.width(), shared.height()) < 2.5)
                continue;
            ++neighbours;
            EXPECT_NE(a.colorIndex, b.colorIndex);
        }
    }
    EXPECT_GT(neighbours, 300);
}

TEST(TreemapLayoutTests, cellsThatTouchAtACornerOnlyMayShareAColor)
{
    // Four equal squares: the first and the last meet at the centre.
    const QList<TreemapCell> result = layoutOf({10, 10, 10, 10}, {100, 100}).layout();
    ASSERT_EQ(result.size(), 4);
    EXPECT_EQ(result[0].rect, QRectF(0, 0, 50, 50));
    EXPECT_EQ(result[3].rect, QRectF(50, 50, 50, 50));
    EXPECT_EQ(result[0].colorIndex, result[3].colorIndex);
}

} // namespace keelbright::testing

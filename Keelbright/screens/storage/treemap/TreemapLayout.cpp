#include "Keelbright/screens/storage/treemap/TreemapLayout.h"

#include "Keelbright/screens/storage/treemap/TreemapColoring.h"
#include "KeelbrightCore/platform/text/ByteSum.h"

#include <algorithm>
#include <span>
#include <utility>

namespace keelbright {

namespace {

using Nodes = std::span<const FolderSizeNode>;

struct Tile
{
    const FolderSizeNode* node;
    QRectF rect;
};

/// The number of nodes in the first group, which ends with the node that reaches half of the total.
size_t sizeOfFirstGroup(Nodes nodes, qint64 total)
{
    const qint64 half = total / 2;
    qint64 sum = 0;
    size_t last = 0;
    for (size_t i = 0; i < nodes.size(); ++i) {
        sum = addedWithoutOverflow(sum, nodes[i].totalBytes);
        if (sum >= half) {
            last = i;
            break;
        }
    }
    // Neither group may be empty.
    if (last == nodes.size() - 1)
        last = nodes.size() / 2 - 1;
    return last + 1;
}

/// Cuts across the longer side; a square by a vertical line.
std::pair<QRectF, QRectF> cut(const QRectF& rect, double ratio)
{
    if (rect.width() >= rect.height()) {
        const double width = rect.width() * ratio;
        return {{rect.x(), rect.y(), width, rect.height()},
                {rect.x() + width, rect.y(), rect.width() - width, rect.height()}};
    }
    const double height = rect.height() * ratio;
    return {{rect.x(), rect.y(), rect.width(), height},
            {rect.x(), rect.y() + height, rect.width(), rect.height() - height}};
}

void tile(Nodes nodes, const QRectF& rect, qint64 total, QList<Tile>& into)
{
    constexpr double minimumSide = 1.0;
    if (nodes.empty() || !(rect.width() > minimumSide) || !(rect.height() > minimumSide))
        return;
    if (nodes.size() == 1) {
        into.append({&nodes.front(), rect});
        return;
    }
    const size_t count = sizeOfFirstGroup(nodes, total);
    const Nodes first = nodes.first(count);
    const Nodes second = nodes.subspan(count);
    const qint64 a = sumOfBytes(first, &FolderSizeNode::totalBytes);
    const qint64 b = sumOfBytes(second, &FolderSizeNode::totalBytes);
    const double both = static_cast<double>(a) + static_cast<double>(b);
    if (both <= 0)
        return;
    const auto [firstRect, secondRect] = cut(rect, static_cast<double>(a) / both);
    tile(first, firstRect, a, into);
    tile(second, secondRect, b, into);
}

QList<TreemapCell> colorize(const QList<Tile>& tiles)
{
    QList<QRectF> rects;
    rects.reserve(tiles.size());
    for (const Tile& placed : tiles)
        rects.append(placed.rect);
    const QList<int> colors = treemapColorIndices(rects);
    QList<TreemapCell> cells;
    cells.reserve(tiles.size());
    for (qsizetype i = 0; i < tiles.size(); ++i)
        cells.append({*tiles[i].node, tiles[i].rect, colors[i]});
    return cells;
}

} // namespace

QList<TreemapCell> TreemapLayout::layout() const
{
    QList<FolderSizeNode> sorted;
    std::ranges::copy_if(nodes, std::back_inserter(sorted),
                         [](const FolderSizeNode& node) { return node.totalBytes > 0; });
    std::ranges::stable_sort(sorted, std::ranges::greater(), &FolderSizeNode::totalBytes);
    if (sorted.isEmpty() || totalBytes <= 0)
        return {};
    QList<Tile> tiles;
    tile(sorted, QRectF(QPointF(), size), totalBytes, tiles);
    return colorize(tiles);
}

} // namespace keelbright

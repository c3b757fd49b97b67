#include "Keelbright/screens/storage/treemap/TreemapNavigation.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace keelbright {

namespace {

/// A rectangle in the coordinates of a move: `begin` and `end` along the direction, `low` and `high`
/// across it.
struct Extent
{
    double begin;
    double end;
    double low;
    double high;
};

Extent extentOf(const QRectF& rect, TreemapDirection direction)
{
    switch (direction) {
    case TreemapDirection::left:
        return {-rect.right(), -rect.left(), rect.top(), rect.bottom()};
    case TreemapDirection::right:
        return {rect.left(), rect.right(), rect.top(), rect.bottom()};
    case TreemapDirection::up:
        return {-rect.bottom(), -rect.top(), rect.left(), rect.right()};
    case TreemapDirection::down:
        return {rect.top(), rect.bottom(), rect.left(), rect.right()};
    }
    Q_UNREACHABLE();
}

double distance(double position, const Extent& extent)
{
    return std::max({0.0, extent.low - position, position - extent.high});
}

} // namespace

int treemapNeighbour(const QList<TreemapCell>& cells, int from, TreemapDirection direction,
                     const QPointF& anchor)
{
    // Rounding moves the edges of neighbours apart.
    constexpr double tolerance = 0.5;
    const Extent own = extentOf(cells.at(from).rect, direction);
    const bool isSideways = direction == TreemapDirection::left || direction == TreemapDirection::right;
    const double across = std::clamp(isSideways ? anchor.y() : anchor.x(), own.low, own.high);
    int best = -1;
    std::pair<double, double> bestRank{std::numeric_limits<double>::max(), 0};
    for (int i = 0; i < cells.size(); ++i) {
        const Extent other = extentOf(cells.at(i).rect, direction);
        const double gap = other.begin - own.end;
        const bool overlaps = std::min(own.high, other.high) - std::max(own.low, other.low) > tolerance;
        if (i == from || gap < -tolerance || !overlaps)
            continue;
        const std::pair<double, double> rank{std::round(gap), distance(across, other)};
        if (rank < bestRank) {
            bestRank = rank;
            best = i;
        }
    }
    return best;
}

} // namespace keelbright

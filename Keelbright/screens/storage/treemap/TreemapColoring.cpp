#include "Keelbright/screens/storage/treemap/TreemapColoring.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace keelbright {

namespace {

constexpr double tolerance = 2.0;

bool overlap(double aStart, double aEnd, double bStart, double bEnd)
{
    return bEnd - tolerance > aStart && aEnd - tolerance > bStart;
}

bool touch(double aStart, double aEnd, double bStart, double bEnd)
{
    return std::abs(aEnd - bStart) < tolerance || std::abs(bEnd - aStart) < tolerance;
}

bool areNeighbours(const QRectF& a, const QRectF& b)
{
    return (overlap(a.left(), a.right(), b.left(), b.right()) &&
            touch(a.top(), a.bottom(), b.top(), b.bottom())) ||
           (overlap(a.top(), a.bottom(), b.top(), b.bottom()) &&
            touch(a.left(), a.right(), b.left(), b.right()));
}

/// Divides the plane into about as many squares as there are rectangles, and records in each square
/// the rectangles that reach into it, so that only rectangles near each other are compared.
class NeighbourGrid
{
public:
    explicit NeighbourGrid(const QList<QRectF>& rects)
    {
        for (const QRectF& rect : rects)
            m_bounds |= rect.adjusted(-tolerance, -tolerance, tolerance, tolerance);
        const double area = std::max(m_bounds.width() * m_bounds.height(), 1.0);
        const double perRect = area / std::max(static_cast<double>(rects.size()), 1.0);
        // A long thin plane must not need more squares along one side than there are rectangles.
        const double longest = std::max(m_bounds.width(), m_bounds.height());
        m_side =
            std::max({std::sqrt(perRect), longest / static_cast<double>(rects.size() + 1), 2 * tolerance});
        m_columns = squaresWithin(m_bounds.width());
        m_rows = squaresWithin(m_bounds.height());
        m_squares.resize(static_cast<size_t>(m_columns * m_rows));
    }

    void add(qsizetype index, const QRectF& rect)
    {
        forEachSquare(rect, 0, [&](std::vector<qsizetype>& square) { square.push_back(index); });
    }

    /// Calls `visit` with every recorded rectangle that may touch this one, some more than once.
    template <typename Visit> void forEachNear(const QRectF& rect, Visit visit)
    {
        forEachSquare(rect, tolerance,
                      [&](const std::vector<qsizetype>& square) { std::ranges::for_each(square, visit); });
    }

private:
    [[nodiscard]] qsizetype squaresWithin(double length) const
    {
        return static_cast<qsizetype>(length / m_side) + 1;
    }

    // Rounding can put a position just outside the outermost squares.
    [[nodiscard]] qsizetype columnOf(double x) const
    {
        return std::clamp<qsizetype>(static_cast<qsizetype>((x - m_bounds.left()) / m_side), 0,
                                     m_columns - 1);
    }

    [[nodiscard]] qsizetype rowOf(double y) const
    {
        return std::clamp<qsizetype>(static_cast<qsizetype>((y - m_bounds.top()) / m_side), 0, m_rows - 1);
    }

    template <typename Visit> void forEachSquare(const QRectF& rect, double margin, Visit visit)
    {
        const qsizetype lastColumn = columnOf(rect.right() + margin);
        const qsizetype lastRow = rowOf(rect.bottom() + margin);
        for (qsizetype row = rowOf(rect.top() - margin); row <= lastRow; ++row) {
            for (qsizetype column = columnOf(rect.left() - margin); column <= lastColumn; ++column)
                visit(m_squares[static_cast<size_t>(row * m_columns + column)]);
        }
    }

    QRectF m_bounds;
    double m_side = 1;
    qsizetype m_columns = 1;
    qsizetype m_rows = 1;
    std::vector<std::vector<qsizetype>> m_squares;
};

} // namespace

QList<int> treemapColorIndices(const QList<QRectF>& rects)
{
    QList<int> colors;
    colors.reserve(rects.size());
    NeighbourGrid grid(rects);
    std::vector<qsizetype> lastUser; // of each colour: the last rectangle with a neighbour of that colour
    for (const QRectF& rect : rects) {
        const qsizetype index = colors.size();
        grid.forEachNear(rect, [&](qsizetype earlier) {
            if (areNeighbours(rect, rects[earlier]))
                lastUser[static_cast<size_t>(colors[earlier])] = index;
        });
        const auto unused = std::ranges::find_if(lastUser, [&](qsizetype user) { return user != index; });
        colors.append(static_cast<int>(unused - lastUser.begin()));
        if (unused == lastUser.end())
            lastUser.push_back(-1);
        grid.add(index, rect);
    }
    return colors;
}

} // namespace keelbright

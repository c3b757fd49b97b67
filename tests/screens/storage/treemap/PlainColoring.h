#pragma once

#include <QList>
#include <QRectF>

#include <cmath>
#include <set>

namespace keelbright::testing {

/// The colours as the plain rule gives them, each rectangle compared with all before it.
[[nodiscard]] inline QList<int> plainColorIndices(const QList<QRectF>& rects)
{
    const auto minX = [](const QRectF& rect) { return rect.x(); };
    const auto maxX = [](const QRectF& rect) { return rect.x() + rect.width(); };
    const auto minY = [](const QRectF& rect) { return rect.y(); };
    const auto maxY = [](const QRectF& rect) { return rect.y() + rect.height(); };
    QList<int> colors(rects.size(), 0);
    for (qsizetype i = 0; i < rects.size(); ++i) {
        std::set<int> used;
        const QRectF& a = rects[i];
        for (qsizetype j = 0; j < i; ++j) {
            const QRectF& b = rects[j];
            const bool onTop = maxX(b) - 2.0 > minX(a) && maxX(a) - 2.0 > minX(b) &&
                               (std::abs(maxY(a) - minY(b)) < 2.0 || std::abs(maxY(b) - minY(a)) < 2.0);
            const bool beside = maxY(b) - 2.0 > minY(a) && maxY(a) - 2.0 > minY(b) &&
                                (std::abs(maxX(a) - minX(b)) < 2.0 || std::abs(maxX(b) - minX(a)) < 2.0);
            if (onTop || beside)
                used.insert(colors[j]);
        }
        while (used.contains(colors[i]))
            ++colors[i];
    }
    return colors;
}

} // namespace keelbright::testing

#pragma once

#include <QColor>
#include <QList>

namespace keelbright {

/// The two ends of a treemap cell's gradient.
struct TreemapColors
{
    QColor lighter;
    QColor darker;
};

/// The same in both schemes. A cell's colour index selects an entry, modulo their number.
[[nodiscard]] inline const QList<TreemapColors>& treemapPalette()
{
    const auto rgb = [](float red, float green, float blue) { return QColor::fromRgbF(red, green, blue); };
    static const QList<TreemapColors> palette{
        {rgb(0.12F, 0.47F, 0.90F), rgb(0.06F, 0.28F, 0.66F)},
        {rgb(0.50F, 0.22F, 0.86F), rgb(0.32F, 0.12F, 0.62F)},
        {rgb(0.08F, 0.62F, 0.44F), rgb(0.04F, 0.38F, 0.28F)},
        {rgb(0.88F, 0.32F, 0.30F), rgb(0.64F, 0.16F, 0.16F)},
        {rgb(0.90F, 0.60F, 0.08F), rgb(0.66F, 0.40F, 0.02F)},
        {rgb(0.12F, 0.60F, 0.74F), rgb(0.06F, 0.38F, 0.52F)},
    };
    return palette;
}

} // namespace keelbright

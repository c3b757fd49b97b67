#include "Keelbright/widgets/SmoothGradient.h"

#include <array>

namespace keelbright {

namespace {

constexpr int side = 8;

/// The usual matrix for ordered dithering: neighbours differ as much as they can.
constexpr std::array<std::array<int, side>, side> pattern{{
    {0, 32, 8, 40, 2, 34, 10, 42},
    {48, 16, 56, 24, 50, 18, 58, 26},
    {12, 44, 4, 36, 14, 46, 6, 38},
    {60, 28, 52, 20, 62, 30, 54, 22},
    {3, 35, 11, 43, 1, 33, 9, 41},
    {51, 19, 59, 27, 49, 17, 57, 25},
    {15, 47, 7, 39, 13, 45, 5, 37},
    {63, 31, 55, 23, 61, 29, 53, 21},
}};

/// What is added to a value before it is cut to a whole one.
double threshold(int x, int y)
{
    const auto row = static_cast<std::size_t>(y % side);
    const auto column = static_cast<std::size_t>(x % side);
    return (pattern.at(row).at(column) + 0.5) / (side * side);
}

} // namespace

QImage smoothGradient(const QSize& size, const QColor& left, const QColor& right)
{
    QImage image(size, QImage::Format_RGB32);
    if (image.isNull())
        return image;
    for (int y = 0; y < size.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < size.width(); ++x) {
            const double way = (x + 0.5) / size.width();
            const double added = threshold(x, y);
            const auto mixed = [way, added](int from, int to) {
                return static_cast<int>(from + (to - from) * way + added);
            };
            line[x] = qRgb(mixed(left.red(), right.red()), mixed(left.green(), right.green()),
                           mixed(left.blue(), right.blue()));
        }
    }
    return image;
}

} // namespace keelbright

#include "Keelbright/screens/shell/ProgramIcon.h"

#include "tests/support/Printing.h"

#include <QImage>
#include <QPixmap>
#include <algorithm>
#include <gtest/gtest.h>

namespace keelbright {

TEST(ProgramIcon, isDrawnForEachSizeOfADesktop)
{
    const QIcon icon = programIcon();
    QList<int> sides;
    for (const QSize& size : icon.availableSizes()) {
        EXPECT_EQ(size.width(), size.height());
        sides.append(size.width());
    }
    std::sort(sides.begin(), sides.end());
    EXPECT_EQ(sides, (QList<int>{16, 22, 24, 32, 48, 64, 128, 256, 512}));
}

TEST(ProgramIcon, isAWhiteHullUnderASunOnBlueWithClearCorners)
{
    for (const int side : {16, 32, 48, 256}) {
        const QImage picture = programIcon().pixmap(side, side).toImage();
        ASSERT_EQ(picture.size(), QSize(side, side));
        const auto colorAt = [&](double x, double y) {
            return picture.pixelColor(static_cast<int>(x * side), static_cast<int>(y * side));
        };
        EXPECT_EQ(colorAt(0, 0).alpha(), 0) << side;
        const QColor sky = colorAt(0.14, 0.4);
        EXPECT_GT(sky.blue(), sky.red() + 100) << side;
        const QColor sun = colorAt(0.5, 0.3);
        EXPECT_GT(sun.red(), sun.blue() + 60) << side;
        const QColor hull = colorAt(0.4, 0.65);
        EXPECT_GT(hull.red(), 240) << side;
        EXPECT_GT(hull.blue(), 240) << side;
    }
}

} // namespace keelbright

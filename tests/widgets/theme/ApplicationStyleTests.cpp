#include "Keelbright/widgets/theme/ApplicationStyle.h"

#include "Keelbright/widgets/theme/Theme.h"
#include "tests/support/ThemeGuard.h"

#include <QMenu>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyleOptionSlider>
#include <QTest>
#include <algorithm>
#include <gtest/gtest.h>

namespace keelbright {

namespace {

class ScrollBarStyleTest : public ::testing::Test
{
protected:
    ScrollBarStyleTest()
    {
        bar.setStyle(&style);
        bar.resize(12, 400);
        bar.setRange(0, 1000);
        bar.setPageStep(100);
    }

    ApplicationStyle style;
    QScrollBar bar{Qt::Vertical};
};

/// An open menu of two entries.
class MenuOf
{
public:
    explicit MenuOf(ApplicationStyle::Corners corners)
        : style(corners)
    {
        menu.setStyle(&style);
        menu.addAction(QStringLiteral("Size"));
        menu.addAction(QStringLiteral("Name"));
        menu.popup(QPoint(20, 20));
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&menu));
    }

    [[nodiscard]] QImage picture() { return menu.grab().toImage(); }

    [[nodiscard]] QList<QPoint> corners() const
    {
        const QRect area = menu.rect();
        return {area.topLeft(), area.topRight(), area.bottomLeft(), area.bottomRight()};
    }

    ApplicationStyle style;
    QMenu menu;
};

QColor lineOnCard()
{
    const Theme& theme = Theme::instance();
    return composed(theme.color(Role::card), theme.color(Role::controlLine));
}

} // namespace

TEST_F(ScrollBarStyleTest, theHandleCanBeDraggedThroughTheWholeRange)
{
    bar.show();
    QTest::mousePress(&bar, Qt::LeftButton, Qt::NoModifier, QPoint(6, 10));
    QTest::mouseMove(&bar, QPoint(6, 395));
    QTest::mouseRelease(&bar, Qt::LeftButton, Qt::NoModifier, QPoint(6, 395));
    EXPECT_EQ(bar.value(), 1000);
}

TEST_F(ScrollBarStyleTest, aFloatingBarTakesNoRoom)
{
    const auto widthOfViewport = [this](bool isFloating, int height) {
        QScrollArea area;
        if (isFloating)
            ApplicationStyle::floatScrollBar(area);
        area.setFrameShape(QFrame::NoFrame);
        area.verticalScrollBar()->setStyle(&style);
        auto* content = new QWidget;
        content->setFixedSize(100, height);
        area.setWidget(content);
        area.resize(300, 200);
        area.grab();
        return area.viewport()->width();
    };
    EXPECT_EQ(widthOfViewport(true, 100), 300);
    EXPECT_EQ(widthOfViewport(true, 1'000), 300);
    EXPECT_EQ(widthOfViewport(false, 1'000), 288);
}

TEST_F(ScrollBarStyleTest, theHandleStaysLargeEnoughToGrabOverAHugeRange)
{
    bar.setRange(0, std::numeric_limits<int>::max());
    QStyleOptionSlider option;
    option.initFrom(&bar);
    option.orientation = Qt::Vertical;
    option.minimum = bar.minimum();
    option.maximum = bar.maximum();
    option.pageStep = bar.pageStep();
    const QRect handle =
        style.subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, &bar);
    EXPECT_EQ(handle.height(), 32);
}

TEST(MenuStyle, hasTransparentCornersAndTheLineOfControls)
{
    const testing::ThemeGuard guard(ColorScheme::light, true);
    MenuOf open(ApplicationStyle::Corners::transparent);
    const QImage picture = open.picture();
    const QRect area = picture.rect();
    for (const QPoint& corner : open.corners())
        EXPECT_EQ(picture.pixelColor(corner).alpha(), 0) << corner.x() << ", " << corner.y();
    for (const QPoint& edge : {QPoint(area.center().x(), 0), QPoint(area.center().x(), area.bottom()),
                               QPoint(0, area.center().y()), QPoint(area.right(), area.center().y())})
        EXPECT_EQ(picture.pixelColor(edge), lineOnCard()) << edge.x() << ", " << edge.y();
    EXPECT_EQ(picture.pixelColor(3, area.center().y()), Theme::instance().color(Role::card));
    EXPECT_TRUE(open.menu.mask().isEmpty());
}

TEST(MenuStyle, itsCornersAreCutOffWhereThereMayBeNoCompositor)
{
    const testing::ThemeGuard guard(ColorScheme::light, true);
    MenuOf open(ApplicationStyle::Corners::cutOff);
    const QRegion mask = open.menu.mask();
    const QRect area = open.menu.rect();
    for (const QPoint& corner : open.corners())
        EXPECT_FALSE(mask.contains(corner)) << corner.x() << ", " << corner.y();
    EXPECT_TRUE(mask.contains(QPoint(area.center().x(), 0)));
    EXPECT_TRUE(mask.contains(QPoint(0, area.center().y())));
    const int outermost = static_cast<int>(std::ranges::count_if(
        QList<int>{0, 1, 2, 3, 4, 5, 6, 7}, [&mask](int x) { return !mask.contains(QPoint(x, 0)); }));
    EXPECT_EQ(outermost, 4) << "of eight pixels in the first row";
}

TEST(MenuStyle, nothingBlackIsLeftOfCornersThatAreCutOff)
{
    const testing::ThemeGuard guard(ColorScheme::light, true);
    MenuOf open(ApplicationStyle::Corners::cutOff);
    const QRegion mask = open.menu.mask();
    const QImage picture = open.picture();
    const int darkest = lineOnCard().lightness() - 1; // painting rounds
    for (int y = 0; y < 8; ++y) {
        for (int x = 0; x < 8; ++x) {
            const QColor color = picture.pixelColor(x, y);
            EXPECT_TRUE(!mask.contains(QPoint(x, y)) ||
                        (color.alpha() == 255 && color.lightness() >= darkest))
                << x << ", " << y;
        }
    }
}

TEST(ApplicationStyle, endsTheToolkitsAnimationsIfMotionIsReduced)
{
    const testing::ThemeGuard guard(ColorScheme::light, true);
    const ApplicationStyle style;
    EXPECT_EQ(style.styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, nullptr, nullptr), 0);
}

} // namespace keelbright

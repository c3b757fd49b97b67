#include "Keelbright/widgets/theme/ApplicationStyle.h"

#include "Keelbright/widgets/theme/Theme.h"
#include "tests/support/ThemeGuard.h"

#include <QMenu>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyleOptionSlider>
#include <QTest>
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

class MenuStyleTest : public ::testing::Test
{
protected:
    MenuStyleTest()
    {
        menu.setStyle(&style);
        menu.addAction(QStringLiteral("Size"));
        menu.addAction(QStringLiteral("Name"));
        menu.popup(QPoint(20, 20));
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&menu));
    }

    [[nodiscard]] static QColor lineOnCard()
    {
        const Theme& theme = Theme::instance();
        return composed(theme.color(Role::card), theme.color(Role::controlLine));
    }

    testing::ThemeGuard guard{ColorScheme::light, true};
    ApplicationStyle style;
    QMenu menu;
};

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

TEST_F(MenuStyleTest, hasRoundedCornersAndTheLineOfControls)
{
    const QImage picture = menu.grab().toImage();
    const QRect area = picture.rect();
    for (const QPoint& corner : {area.topLeft(), area.topRight(), area.bottomLeft(), area.bottomRight()})
        EXPECT_EQ(picture.pixelColor(corner).alpha(), 0) << corner.x() << ", " << corner.y();
    for (const QPoint& edge : {QPoint(area.center().x(), 0), QPoint(area.center().x(), area.bottom()),
                               QPoint(0, area.center().y()), QPoint(area.right(), area.center().y())})
        EXPECT_EQ(picture.pixelColor(edge), lineOnCard()) << edge.x() << ", " << edge.y();
    EXPECT_EQ(picture.pixelColor(3, area.center().y()), Theme::instance().color(Role::card));
}

TEST_F(MenuStyleTest, itsCornersAreCutOffWhereThereMayBeNoCompositor)
{
    const QRegion mask = menu.mask();
    const QRect area = menu.rect();
    for (const QPoint& corner : {area.topLeft(), area.topRight(), area.bottomLeft(), area.bottomRight()})
        EXPECT_FALSE(mask.contains(corner)) << corner.x() << ", " << corner.y();
    EXPECT_TRUE(mask.contains(QPoint(area.center().x(), 0)));
    EXPECT_TRUE(mask.contains(QPoint(0, area.center().y())));
    // Nothing that is drawn is cut off.
    const QImage picture = menu.grab().toImage();
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            EXPECT_TRUE(picture.pixelColor(x, y).alpha() == 0 || mask.contains(QPoint(x, y)))
                << x << ", " << y;
    }
}

TEST(ApplicationStyle, endsTheToolkitsAnimationsIfMotionIsReduced)
{
    const testing::ThemeGuard guard(ColorScheme::light, true);
    const ApplicationStyle style;
    EXPECT_EQ(style.styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, nullptr, nullptr), 0);
}

} // namespace keelbright

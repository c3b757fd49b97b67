#include "Keelbright/widgets/theme/ApplicationStyle.h"

#include "Keelbright/widgets/theme/Theme.h"
#include "tests/support/ThemeGuard.h"

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

TEST(ApplicationStyle, endsTheToolkitsAnimationsIfMotionIsReduced)
{
    const testing::ThemeGuard guard(ColorScheme::light, true);
    const ApplicationStyle style;
    EXPECT_EQ(style.styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, nullptr, nullptr), 0);
}

} // namespace keelbright

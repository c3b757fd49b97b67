#include "Keelbright/widgets/StepStack.h"

#include "tests/support/AnimationClock.h"
#include "tests/support/ThemeGuard.h"

#include <QTest>
#include <gtest/gtest.h>

namespace keelbright {

namespace {

struct StepStackTest : ::testing::Test
{
    StepStackTest()
    {
        stack.addPage(first);
        stack.addPage(second);
        stack.resize(400, 300);
        stack.show();
    }

    testing::ThemeGuard theme;
    testing::AnimationClock clock;
    StepStack stack;
    QWidget* first = new QWidget;
    QWidget* second = new QWidget;
};

} // namespace

TEST_F(StepStackTest, slidesToTheNextPageWithinThreeTenthsOfASecond)
{
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&stack));
    stack.setCurrentIndex(1);
    EXPECT_FALSE(first->isVisible());
    EXPECT_TRUE(second->isVisible());
    EXPECT_GT(second->x(), 0);
    EXPECT_NE(second->graphicsEffect(), nullptr);
    clock.advance(200);
    EXPECT_NE(second->graphicsEffect(), nullptr);
    clock.advance(60);
    EXPECT_EQ(second->graphicsEffect(), nullptr);
    EXPECT_EQ(second->pos(), QPoint(0, 0));
}

TEST_F(StepStackTest, comesBackFromTheOtherSide)
{
    Theme::instance().setMotionReduced(true);
    stack.setCurrentIndex(1);
    Theme::instance().setMotionReduced(false);
    stack.setCurrentIndex(0);
    EXPECT_LT(first->x(), 0);
}

TEST_F(StepStackTest, changesAtOnceIfMotionIsReduced)
{
    Theme::instance().setMotionReduced(true);
    stack.setCurrentIndex(1);
    EXPECT_EQ(second->pos(), QPoint(0, 0));
    EXPECT_EQ(second->graphicsEffect(), nullptr);
    EXPECT_EQ(second->size(), stack.size());
}

TEST_F(StepStackTest, aSecondChangeDuringTheFirstEndsOnTheRightPage)
{
    stack.setCurrentIndex(1);
    stack.setCurrentIndex(0);
    clock.advance(260);
    EXPECT_EQ(first->graphicsEffect(), nullptr);
    EXPECT_TRUE(first->isVisible());
    EXPECT_FALSE(second->isVisible());
    EXPECT_EQ(second->graphicsEffect(), nullptr);
}

TEST_F(StepStackTest, ignoresPagesThatDoNotExist)
{
    stack.setCurrentIndex(5);
    stack.setCurrentIndex(-1);
    EXPECT_EQ(stack.currentIndex(), 0);
}

} // namespace keelbright

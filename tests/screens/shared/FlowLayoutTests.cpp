#include "Keelbright/screens/shared/FlowLayout.h"

#include <QWidget>
#include <gtest/gtest.h>

namespace keelbright::testing {

namespace {

/// Three blocks of 100 by 20 with 10 between them and 4 between lines.
class FlowLayoutTests : public ::testing::Test
{
protected:
    FlowLayoutTests()
    {
        for (QWidget*& block : blocks) {
            block = new QWidget(&ground);
            block->setFixedSize(100, 20);
            layout->addWidget(block);
        }
    }

    [[nodiscard]] QList<QPoint> placesAt(int width)
    {
        layout->setGeometry({0, 0, width, 100});
        return {blocks[0]->pos(), blocks[1]->pos(), blocks[2]->pos()};
    }

    QWidget ground;
    FlowLayout* layout = new FlowLayout(10, 4, &ground);
    QWidget* blocks[3] = {};
};

} // namespace

TEST_F(FlowLayoutTests, putsAllOnOneLineWhereTheyFitExactly)
{
    EXPECT_EQ(placesAt(320), (QList<QPoint>{{0, 0}, {110, 0}, {220, 0}}));
    EXPECT_EQ(layout->heightForWidth(320), 20);
    EXPECT_EQ(layout->sizeHint(), QSize(320, 20));
}

TEST_F(FlowLayoutTests, movesCloserWhereThatSavesTheSecondLine)
{
    EXPECT_EQ(placesAt(319), (QList<QPoint>{{0, 0}, {105, 0}, {210, 0}}));
    EXPECT_EQ(placesAt(310), (QList<QPoint>{{0, 0}, {105, 0}, {210, 0}}));
    EXPECT_EQ(layout->heightForWidth(310), 20);
}

TEST_F(FlowLayoutTests, goesOnBelowWhereOnePixelIsMissing)
{
    EXPECT_EQ(placesAt(309), (QList<QPoint>{{0, 0}, {110, 0}, {0, 24}}));
    EXPECT_EQ(layout->heightForWidth(309), 44);
    EXPECT_EQ(layout->heightForWidth(100), 68);
    EXPECT_EQ(layout->minimumSize(), QSize(100, 20));
}

TEST_F(FlowLayoutTests, aBalancedOneLeavesNoItemAlone)
{
    auto* fourth = new QWidget(&ground);
    fourth->setFixedSize(100, 20);
    layout->addWidget(fourth);
    const auto fourthAt = [&](int width) {
        layout->setGeometry({0, 0, width, 100});
        return fourth->pos();
    };
    EXPECT_EQ(fourthAt(400), QPoint(0, 24));
    layout->setBalanced(true);
    EXPECT_EQ(fourthAt(400), QPoint(110, 24));
    EXPECT_EQ(blocks[2]->pos(), QPoint(0, 24));
    EXPECT_EQ(fourthAt(430), QPoint(330, 0)) << "one line stays as it is";
    EXPECT_EQ(layout->heightForWidth(400), 44);
}

TEST_F(FlowLayoutTests, whatIsHiddenTakesNoRoom)
{
    blocks[1]->hide();
    EXPECT_EQ(placesAt(320).at(2), QPoint(110, 0));
    EXPECT_EQ(layout->sizeHint(), QSize(210, 20));
}

TEST_F(FlowLayoutTests, anEmptyOneHasNoHeight)
{
    FlowLayout empty(10, 4);
    EXPECT_EQ(empty.heightForWidth(100), 0);
    EXPECT_EQ(empty.takeAt(0), nullptr);
}

} // namespace keelbright::testing

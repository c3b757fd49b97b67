#include "Keelbright/screens/shared/HealthCard.h"

#include "Keelbright/screens/shared/Placeholder.h"
#include "Keelbright/widgets/Progress.h"
#include "tests/screens/shared/ScreenTestCase.h"

#include <QSignalSpy>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

constexpr int cardWidth = 876;

class HealthCardTests : public ScreenTestCase
{
protected:
    [[nodiscard]] static HealthScore score(HealthScore::Grade grade = HealthScore::Grade::a)
    {
        return {grade, 89, u"Backed up today. 412.6 MB of cached junk found."_s, 1, 2, 3, 40, 24, 15};
    }

    static void lay(HealthCard& card) { card.resize(cardWidth, card.heightForWidth(cardWidth)); }
};

} // namespace

TEST_F(HealthCardTests, showsGreyShapesAndNoTextWithoutAScore)
{
    HealthCard card;
    show(card);
    EXPECT_EQ(textsIn(card), QStringList());
    EXPECT_EQ(card.findChildren<Placeholder*>().size(), 9); // ring, two lines, three bands of two
    for (const auto* shape : card.findChildren<Placeholder*>())
        EXPECT_TRUE(shape->isVisible());
    EXPECT_FALSE(card.findChild<RingProgress*>()->isVisible());
    EXPECT_FALSE(card.findChild<Button*>()->isVisible());
    EXPECT_EQ(card.accessibleName(), u"Calculating the health score"_s);
}

TEST_F(HealthCardTests, hasTheSameShapeBeforeAndAfter)
{
    HealthCard card;
    const int before = card.heightForWidth(cardWidth);
    card.setScore(score());
    EXPECT_EQ(card.heightForWidth(cardWidth), before);
}

TEST_F(HealthCardTests, showsPointsGradeHeadlineDetailAndBands)
{
    HealthCard card;
    card.setScore(score());
    show(card);
    EXPECT_EQ(textsIn(card), (QStringList{u"Your Mac is in great shape."_s,
                                          u"Backed up today. 412.6 MB of cached junk found."_s,
                                          u"Backup  40/40"_s, u"Storage  24/30"_s, u"Junk  15/30"_s}));
    const auto* ring = card.findChild<RingProgress*>();
    EXPECT_EQ(ring->centerText(), u"89"_s);
    EXPECT_EQ(ring->caption(), u"A"_s);
    EXPECT_DOUBLE_EQ(ring->fraction(), 0.89);
    EXPECT_EQ(card.accessibleName(), u"Health score 89, A. Your Mac is in great shape."_s);
    for (const auto* shape : card.findChildren<Placeholder*>())
        EXPECT_FALSE(shape->isVisible());
}

TEST_F(HealthCardTests, fillsEachBandByItsPoints)
{
    HealthCard card;
    card.setScore(score());
    const QList<BarProgress*> bars = card.findChildren<BarProgress*>();
    ASSERT_EQ(bars.size(), 3);
    EXPECT_DOUBLE_EQ(bars.at(0)->fraction(), 1);
    EXPECT_DOUBLE_EQ(bars.at(1)->fraction(), 0.8);
    EXPECT_DOUBLE_EQ(bars.at(2)->fraction(), 0.5);
    EXPECT_EQ(bars.at(0)->colorRole(), Role::accent);
    EXPECT_EQ(bars.at(1)->colorRole(), Role::purple);
    EXPECT_EQ(bars.at(2)->colorRole(), Role::orange);
    EXPECT_EQ(accessibleName(bars.at(1)), u"Storage"_s);
}

TEST_F(HealthCardTests, eachGradeHasItsColor)
{
    EXPECT_EQ(HealthCard::color(HealthScore::Grade::a), Role::green);
    EXPECT_EQ(HealthCard::color(HealthScore::Grade::b), Role::jade);
    EXPECT_EQ(HealthCard::color(HealthScore::Grade::c), Role::accent);
    EXPECT_EQ(HealthCard::color(HealthScore::Grade::d), Role::orange);
    EXPECT_EQ(HealthCard::color(HealthScore::Grade::f), Role::red);
    const QColor jade = Theme::instance().color(Role::jade);
    EXPECT_EQ(jade, QColor(26, 179, 153)); // 0.1, 0.7 and 0.6 of 255
}

TEST_F(HealthCardTests, itsGroundFollowsTheGrade)
{
    for (const HealthScore::Grade grade : HealthScore::allGrades()) {
        HealthCard card;
        card.setScore(score(grade));
        lay(card);
        const QColor ground = pictureOf(card).pixelColor(3, card.height() / 2);
        const QColor expected = Theme::instance().tint(HealthCard::color(grade), 0.16);
        EXPECT_NEAR(ground.red(), expected.red(), 2);
        EXPECT_NEAR(ground.green(), expected.green(), 2);
        EXPECT_NEAR(ground.blue(), expected.blue(), 2);
        EXPECT_EQ(card.findChild<RingProgress*>()->colorRole(), HealthCard::color(grade));
        EXPECT_EQ(card.findChild<RingProgress*>()->caption(), HealthScore::rawValue(grade));
    }
}

TEST_F(HealthCardTests, theButtonAsksForARecalculation)
{
    HealthCard card;
    card.setScore(score());
    show(card);
    const QSignalSpy requests(&card, &HealthCard::recalculateRequested);
    Button* recalculate = button(card, u"Recalculate health score"_s);
    EXPECT_EQ(recalculate->toolTip(), u"Recalculate health score"_s);
    EXPECT_EQ(recalculate->symbol(), u"arrow.clockwise"_s);
    recalculate->click();
    EXPECT_EQ(requests.count(), 1);
}

TEST_F(HealthCardTests, announcesANewScoreWhileItIsOnScreen)
{
    HealthCard card;
    show(card);
    card.setScore(score(HealthScore::Grade::f));
    EXPECT_EQ(card.accessibleName(), u"Health score 89, F. Your Mac needs immediate attention."_s);
    card.setScore(std::nullopt);
    EXPECT_EQ(card.accessibleName(), u"Calculating the health score"_s);
    EXPECT_EQ(textsIn(card), QStringList());
}

} // namespace keelbright::testing

#include "KeelbrightCore/platform/system/SpinWait.h"

#include <gtest/gtest.h>

namespace keelbright {
namespace {

/// A condition that becomes true at a given check and counts how often it is checked.
class CountedCondition
{
public:
    explicit CountedCondition(int trueAt)
        : m_trueAt(trueAt)
    {}

    bool operator()() { return ++checks >= m_trueAt; }

    int checks = 0;

private:
    int m_trueAt;
};

constexpr int never = 1'000'000'000;

TEST(SpinWait, checksOnceWhereTheConditionIsTrueAtFirst)
{
    SpinWait wait;
    const SpinWait other;
    CountedCondition condition(1);
    EXPECT_TRUE(wait.until(std::ref(condition), other));
    EXPECT_EQ(condition.checks, 1);
}

TEST(SpinWait, seesAConditionThatBecomesTrueMeanwhile)
{
    SpinWait wait;
    const SpinWait other;
    CountedCondition condition(5);
    EXPECT_TRUE(wait.until(std::ref(condition), other));
    EXPECT_EQ(condition.checks, 5);
}

TEST(SpinWait, givesUpAfterAMoment)
{
    SpinWait wait;
    const SpinWait other;
    CountedCondition condition(never);
    EXPECT_FALSE(wait.until(std::ref(condition), other));
    EXPECT_GT(condition.checks, 16) << "it has spun";
}

TEST(SpinWait, doesNotSpinWhereTheOtherThreadRunsOnTheSameProcessor)
{
    SpinWait wait;
    SpinWait other;
    CountedCondition condition(never);
    other.noteProcessor();
    EXPECT_FALSE(wait.until(std::ref(condition), other));
    EXPECT_EQ(condition.checks, 2) << "before and after";
}

} // namespace
} // namespace keelbright

#include "KeelbrightCore/check/CheckPace.h"

#include <gtest/gtest.h>

namespace keelbright {

TEST(CheckPaceTests, knowsNothingBeforeASecondHasPassed)
{
    CheckPace pace;
    EXPECT_EQ(pace.speed(), std::nullopt);
    pace.add(0, 0);
    pace.add(999, 1'000'000);
    EXPECT_EQ(pace.speed(), std::nullopt);
}

TEST(CheckPaceTests, isTheMeanOfTheLastTenSeconds)
{
    CheckPace pace;
    for (qint64 second = 0; second <= 20; ++second)
        pace.add(second * 1'000, second * 1'000'000);
    EXPECT_EQ(pace.speed(), 1'000'000);
    for (qint64 second = 21; second <= 30; ++second)
        pace.add(second * 1'000, 20'000'000 + (second - 20) * 3'000'000);
    EXPECT_EQ(pace.speed(), 3'000'000);
}

TEST(CheckPaceTests, isZeroWhereNothingMoves)
{
    CheckPace pace;
    pace.add(0, 5'000);
    pace.add(10'000, 5'000);
    EXPECT_EQ(pace.speed(), 0);
}

} // namespace keelbright

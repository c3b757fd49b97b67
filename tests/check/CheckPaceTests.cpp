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
    EXPECT_EQ(pace.remainingSeconds(2'000'000), std::nullopt);
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

TEST(CheckPaceTests, saysHowLongTheRestTakes)
{
    CheckPace pace;
    pace.add(0, 0);
    pace.add(10'000, 50'000'000);
    EXPECT_EQ(pace.remainingSeconds(350'000'000), 60);
    EXPECT_EQ(pace.remainingSeconds(50'000'000), 0);
    EXPECT_EQ(pace.remainingSeconds(10'000'000), 0) << "files may have grown meanwhile";
}

TEST(CheckPaceTests, knowsNoEndWhereNothingMoves)
{
    CheckPace pace;
    pace.add(0, 5'000);
    pace.add(10'000, 5'000);
    EXPECT_EQ(pace.speed(), 0);
    EXPECT_EQ(pace.remainingSeconds(10'000), std::nullopt);
}

} // namespace keelbright

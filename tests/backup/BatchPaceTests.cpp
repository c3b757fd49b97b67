#include "KeelbrightCore/backup/BatchPace.h"

#include <functional>
#include <gtest/gtest.h>

namespace keelbright {
namespace {

using Setting = BatchPace::Setting;
using std::chrono::microseconds;

/// What a file takes with a setting.
using Cost = std::function<microseconds(const Setting&)>;

/// How many of a thousand bursts were made with a setting that takes the shortest time.
int quickBursts(BatchPace& pace, const Cost& cost, microseconds shortest)
{
    int quick = 0;
    for (int burst = 0; burst < 1'000; ++burst) {
        const Setting setting = pace.setting();
        quick += cost(setting) == shortest ? 1 : 0;
        pace.note(setting.items, 0, setting.items * cost(setting));
    }
    return quick;
}

Cost quickWhere(const std::function<bool(const Setting&)>& isQuick)
{
    return [isQuick](const Setting& setting) { return microseconds(isQuick(setting) ? 80 : 160); };
}

constexpr microseconds quickest(80);

TEST(BatchPace, beginsWithBatchesOfAMediumSize)
{
    const BatchPace pace(1'000, 2);
    EXPECT_EQ(pace.setting(), (Setting{64, 2}));
}

TEST(BatchPace, staysWhereItIsQuickest)
{
    BatchPace pace(1'000, 2);
    const Cost cost = quickWhere([](const Setting& setting) { return setting == Setting{64, 2}; });
    EXPECT_GT(quickBursts(pace, cost, quickest), 900);
}

TEST(BatchPace, findsTheSmallestBatches)
{
    BatchPace pace(1'000, 2);
    const Cost cost = [](const Setting& setting) { return microseconds(setting.items * setting.workers); };
    EXPECT_GT(quickBursts(pace, cost, microseconds(16)), 700);
}

TEST(BatchPace, findsTheLargestBatches)
{
    BatchPace pace(1'000, 2);
    const Cost cost = [](const Setting& setting) {
        return microseconds(40'000 / setting.items / setting.workers);
    };
    EXPECT_GT(quickBursts(pace, cost, microseconds(20)), 700);
}

TEST(BatchPace, findsAnotherSettingWhenTheDriveChanges)
{
    BatchPace pace(1'000, 2);
    const Cost two = quickWhere([](const Setting& setting) { return setting.workers == 2; });
    const Cost one = quickWhere([](const Setting& setting) { return setting.workers == 1; });
    EXPECT_GT(quickBursts(pace, two, quickest), 900);
    EXPECT_GT(quickBursts(pace, one, quickest), 700);
}

TEST(BatchPace, staysWithinItsMaximum)
{
    BatchPace pace(10, 1);
    for (int burst = 0; burst < 1'000; ++burst) {
        EXPECT_EQ(pace.setting(), (Setting{10, 1}));
        pace.note(10, 0, microseconds(burst * 10));
    }
}

TEST(BatchPace, countsLargeFilesByTheirBytes)
{
    BatchPace pace(1'000, 2);
    int medium = 0;
    // A thousand times as long now and then, but no slower for what it is.
    for (int burst = 0; burst < 1'000; ++burst) {
        const Setting setting = pace.setting();
        medium += setting == Setting{64, 2} ? 1 : 0;
        const qint64 blocks = burst % 7 == 0 ? 64'000 : 0;
        pace.note(setting.items, blocks * 50'000, (setting.items + blocks) * microseconds(100));
    }
    EXPECT_GT(medium, 900);
}

} // namespace
} // namespace keelbright

#include "KeelbrightCore/platform/system/LatestTask.h"

#include <gtest/gtest.h>

namespace keelbright {
namespace {

TEST(LatestTask, goesOnAtFirst)
{
    LatestTask latest;
    EXPECT_FALSE(latest.begin()->isCancelled());
}

TEST(LatestTask, isGivenUpWhenTheNextOneBegins)
{
    LatestTask latest;
    const auto first = latest.begin();
    const auto second = latest.begin();
    EXPECT_TRUE(first->isQuitting());
    EXPECT_FALSE(second->isCancelled());
}

TEST(LatestTask, isGivenUpOnDemandAndTheNextOneIsNot)
{
    LatestTask latest;
    latest.giveUp();
    const auto first = latest.begin();
    latest.giveUp();
    EXPECT_TRUE(first->isQuitting());
    EXPECT_FALSE(latest.begin()->isCancelled());
}

TEST(LatestTask, canBeAskedToEndWithWhatItHas)
{
    LatestTask latest;
    latest.cancel();
    const auto task = latest.begin();
    EXPECT_FALSE(task->isCancelled());
    latest.cancel();
    EXPECT_TRUE(task->isCancelled());
    EXPECT_FALSE(task->isQuitting());
}

TEST(LatestTask, isGivenUpWhenItsOwnerGoes)
{
    std::shared_ptr<const Cancellation> task;
    {
        LatestTask latest;
        task = latest.begin();
    }
    EXPECT_TRUE(task->isQuitting());
}

} // namespace
} // namespace keelbright

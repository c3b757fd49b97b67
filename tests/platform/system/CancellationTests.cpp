#include "KeelbrightCore/platform/system/Cancellation.h"

#include <gtest/gtest.h>

namespace keelbright {
namespace {

TEST(Cancellation, letsATaskGoOnAtFirst)
{
    const Cancellation cancellation;
    EXPECT_FALSE(cancellation.isCancelled());
    EXPECT_FALSE(cancellation.isQuitting());
}

TEST(Cancellation, letsTheItemUnderWayFinishWhenTheUserCancels)
{
    Cancellation cancellation;
    cancellation.cancel();
    EXPECT_TRUE(cancellation.isCancelled());
    EXPECT_FALSE(cancellation.isQuitting());
}

TEST(Cancellation, stopsEverythingWhenTheProgramQuits)
{
    Cancellation cancellation;
    cancellation.quit();
    EXPECT_TRUE(cancellation.isCancelled());
    EXPECT_TRUE(cancellation.isQuitting());
}

TEST(Cancellation, keepsQuittingWhenTheUserCancelsAfterwards)
{
    Cancellation cancellation;
    cancellation.quit();
    cancellation.cancel();
    EXPECT_TRUE(cancellation.isQuitting());
}

} // namespace
} // namespace keelbright

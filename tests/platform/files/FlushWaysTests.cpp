#include "KeelbrightCore/platform/files/FlushWays.h"

#include <cerrno>
#include <gtest/gtest.h>

namespace keelbright {
namespace {

constexpr int someFile = 7;
int flushed = 0;

int succeeds(int file)
{
    EXPECT_EQ(file, someFile);
    ++flushed;
    return 0;
}

int isUnknown(int)
{
    return ENOTSUP;
}

int isUnknownOtherwise(int)
{
    return EOPNOTSUPP;
}

int isNoControl(int)
{
    return ENOTTY;
}

int isRefused(int)
{
    return EINVAL;
}

int fails(int)
{
    return EIO;
}

class FlushWaysTest : public ::testing::Test
{
protected:
    void SetUp() override { flushed = 0; }
};

TEST_F(FlushWaysTest, takesTheFirstWayThatTheDriveHas)
{
    EXPECT_TRUE(flushInFirstWay(someFile, {succeeds, fails}).has_value());
    EXPECT_EQ(flushed, 1);
    EXPECT_TRUE(
        flushInFirstWay(someFile, {isUnknown, isUnknownOtherwise, isNoControl, isRefused, succeeds, fails})
            .has_value());
    EXPECT_EQ(flushed, 2);
}

TEST_F(FlushWaysTest, reportsWhatCouldNotBeWrittenAndTriesNothingElse)
{
    EXPECT_EQ(flushInFirstWay(someFile, {isUnknown, fails, succeeds}).error(), EIO);
    EXPECT_EQ(flushed, 0);
}

TEST_F(FlushWaysTest, reportsADriveThatHasNone)
{
    EXPECT_EQ(flushInFirstWay(someFile, {isUnknown, isRefused}).error(), EINVAL);
    EXPECT_EQ(flushInFirstWay(someFile, {}).error(), ENOTSUP);
}

} // namespace
} // namespace keelbright

#include "KeelbrightCore/storage/FolderSizeNode.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <gtest/gtest.h>

#include <limits>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

FolderSizeNode nodeOf(qint64 bytes)
{
    return {QUuid::createUuid(), u"a"_s, FileURL::fromPath(u"/a"_s), bytes, true};
}

} // namespace

TEST(FolderSizeNodeTests, theFractionIsTheShareOfTheTotal)
{
    EXPECT_EQ(nodeOf(1).fraction(4), 0.25);
    EXPECT_EQ(nodeOf(0).fraction(4), 0.0);
    EXPECT_EQ(nodeOf(4).fraction(4), 1.0);
}

TEST(FolderSizeNodeTests, theFractionOfNothingIsZero)
{
    EXPECT_EQ(nodeOf(5).fraction(0), 0.0);
    EXPECT_EQ(nodeOf(5).fraction(-1), 0.0);
    EXPECT_EQ(nodeOf(5).fraction(1), 1.0);
}

TEST(FolderSizeNodeTests, theFractionIsCappedAtOneAndHasNoLowerBound)
{
    EXPECT_EQ(nodeOf(5).fraction(4), 1.0);
    EXPECT_EQ(nodeOf(std::numeric_limits<qint64>::max()).fraction(1), 1.0);
    EXPECT_EQ(nodeOf(-2).fraction(4), -0.5);
}

TEST(FolderSizeNodeTests, theSizeReadsLikeEverySize)
{
    const TestMac mac;
    EXPECT_EQ(nodeOf(0).formattedSize(), u"Zero KB"_s);
    EXPECT_EQ(nodeOf(2'500'000).formattedSize(), u"2.5 MB"_s);
}

} // namespace keelbright::testing

#include "KeelbrightCore/platform/text/ByteSum.h"

#include <QList>
#include <gtest/gtest.h>

namespace keelbright {
namespace {

constexpr qint64 maximum = std::numeric_limits<qint64>::max();

struct Sized
{
    qint64 bytes = 0;

    [[nodiscard]] qint64 doubled() const { return 2 * bytes; }
};

TEST(ByteSum, addsTwoCounts)
{
    EXPECT_EQ(addedWithoutOverflow(0, 0), 0);
    EXPECT_EQ(addedWithoutOverflow(1'000, 24), 1'024);
    EXPECT_EQ(addedWithoutOverflow(maximum - 1, 1), maximum);
}

TEST(ByteSum, staysAtTheMaximumInsteadOfOverflowing)
{
    EXPECT_EQ(addedWithoutOverflow(maximum, 1), maximum);
    EXPECT_EQ(addedWithoutOverflow(1, maximum), maximum);
    EXPECT_EQ(addedWithoutOverflow(maximum, maximum), maximum);
}

TEST(ByteSum, staysAtTheMinimumInsteadOfOverflowing)
{
    constexpr qint64 minimum = std::numeric_limits<qint64>::min();
    EXPECT_EQ(addedWithoutOverflow(minimum, -1), minimum);
    EXPECT_EQ(addedWithoutOverflow(-1, minimum), minimum);
    EXPECT_EQ(addedWithoutOverflow(minimum, minimum), minimum);
    EXPECT_EQ(addedWithoutOverflow(minimum, maximum), -1);
    EXPECT_EQ(addedWithoutOverflow(1'500, -500), 1'000);
}

TEST(ByteSum, isZeroForAnEmptyRange)
{
    EXPECT_EQ(sumOfBytes(QList<Sized>(), &Sized::bytes), 0);
}

TEST(ByteSum, addsAMemberOrAFunctionOfEachElement)
{
    const QList<Sized> items = {{1}, {20}, {300}};
    EXPECT_EQ(sumOfBytes(items, &Sized::bytes), 321);
    EXPECT_EQ(sumOfBytes(items, &Sized::doubled), 642);
    EXPECT_EQ(sumOfBytes(items, [](const Sized& item) { return item.bytes % 100; }), 21);
}

TEST(ByteSum, staysAtTheMaximumOverARange)
{
    const QList<Sized> items = {{maximum}, {maximum}, {1}};
    EXPECT_EQ(sumOfBytes(items, &Sized::bytes), maximum);
}

} // namespace
} // namespace keelbright

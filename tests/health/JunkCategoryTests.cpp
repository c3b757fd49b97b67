#include "KeelbrightCore/health/JunkCategory.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <gtest/gtest.h>
#include <limits>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

JunkItem item(const QString& path, qint64 bytes)
{
    return {.url = FileURL::fromPath(path), .sizeBytes = bytes};
}

JunkCategory category(const QList<JunkItem>& items)
{
    return {u"userLogs"_s, u"Log Files"_s, u"doc.text.fill"_s, items};
}

} // namespace

TEST(JunkItemTest, theNameIsTheLastPathComponent)
{
    EXPECT_EQ(item(u"/Users/mira/Library/Caches/com.example.Sketchbook"_s, 1).name(),
              u"com.example.Sketchbook"_s);
}

TEST(JunkItemTest, theSizeIsWrittenInTheFileStyle)
{
    const TestMac mac;
    EXPECT_EQ(item(u"/a"_s, 96'400'000).formattedSize(), u"96.4 MB"_s);
}

TEST(JunkItemTest, everyItemHasAnIdOfItsOwn)
{
    EXPECT_FALSE(item(u"/a"_s, 1).id.isNull());
    EXPECT_NE(item(u"/a"_s, 1).id, item(u"/a"_s, 1).id);
}

TEST(JunkCategoryTest, theTotalIsTheSumOfItsItems)
{
    const TestMac mac;
    const JunkCategory logs = category({item(u"/a"_s, 1'000'000), item(u"/b"_s, 1'500'000)});
    EXPECT_EQ(logs.totalBytes(), 2'500'000);
    EXPECT_EQ(logs.formattedSize(), u"2.5 MB"_s);
}

TEST(JunkCategoryTest, withoutItemsTheTotalIsZero)
{
    const TestMac mac;
    EXPECT_EQ(category({}).totalBytes(), 0);
    EXPECT_EQ(category({}).formattedSize(), u"Zero KB"_s);
}

TEST(JunkCategoryTest, sizesAbove64BitsStayAtTheLargestNumber)
{
    constexpr qint64 maximum = std::numeric_limits<qint64>::max();
    EXPECT_EQ(category({item(u"/a"_s, maximum), item(u"/b"_s, maximum)}).totalBytes(), maximum);
}

} // namespace keelbright::testing

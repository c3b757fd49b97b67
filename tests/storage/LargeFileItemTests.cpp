#include "KeelbrightCore/storage/LargeFileItem.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

LargeFileItem itemAt(const QString& path)
{
    return {QUuid::createUuid(), FileURL::fromPath(path), 1'300'000'000};
}

} // namespace

TEST(LargeFileItemTests, theNameIsTheLastPathComponent)
{
    EXPECT_EQ(itemAt(u"/Users/mira/Film.MOV"_s).name(), u"Film.MOV"_s);
}

TEST(LargeFileItemTests, theExtensionIsInLowerCaseAndMayBeMissing)
{
    EXPECT_EQ(itemAt(u"/Users/mira/Film.MOV"_s).ext(), u"mov"_s);
    EXPECT_EQ(itemAt(u"/Users/mira/a.tar.GZ"_s).ext(), u"gz"_s);
    EXPECT_EQ(itemAt(u"/Users/mira.d/Notes"_s).ext(), QString());
}

TEST(LargeFileItemTests, theSizeReadsLikeEverySize)
{
    const TestMac mac;
    EXPECT_EQ(itemAt(u"/a"_s).formattedSize(), u"1.3 GB"_s);
}

} // namespace keelbright::testing

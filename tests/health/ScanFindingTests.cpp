#include "KeelbrightCore/health/ScanFinding.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <gtest/gtest.h>
#include <utility>

namespace keelbright::testing {

using namespace Qt::StringLiterals;
using Severity = ScanFinding::Severity;

namespace {

ScanFinding finding(qint64 bytes)
{
    return {.category = ScanFinding::Category::junk,
            .title = u"Log Files"_s,
            .detail = u"2 items taking up 17 MB"_s,
            .sizeBytes = bytes,
            .action = ScanFinding::NavigateTo{u"Junk Cleaner"_s},
            .severity = Severity::low};
}

} // namespace

TEST(ScanFindingTest, everyFindingHasAnIdOfItsOwn)
{
    EXPECT_FALSE(finding(1).id.isNull());
    EXPECT_NE(finding(1).id, finding(1).id);
}

TEST(ScanFindingTest, onlyASizeAboveZeroIsWritten)
{
    const TestMac mac;
    EXPECT_EQ(finding(-1).formattedSize(), QString());
    EXPECT_EQ(finding(0).formattedSize(), QString());
    EXPECT_EQ(finding(1).formattedSize(), u"1 byte"_s);
    EXPECT_EQ(finding(17'000'000).formattedSize(), u"17 MB"_s);
}

TEST(ScanFindingTest, theCategoriesHaveTheirNames)
{
    using Category = ScanFinding::Category;
    EXPECT_EQ(ScanFinding::rawValue(Category::junk), u"Junk"_s);
    EXPECT_EQ(ScanFinding::rawValue(Category::apps), u"Apps"_s);
    EXPECT_EQ(ScanFinding::rawValue(Category::storage), u"Storage"_s);
    EXPECT_EQ(ScanFinding::rawValue(Category::backup), u"Backup"_s);
}

TEST(ScanFindingTest, severitiesAreOrderedByTheirNumber)
{
    EXPECT_EQ(std::to_underlying(Severity::low), 0);
    EXPECT_EQ(std::to_underlying(Severity::medium), 1);
    EXPECT_EQ(std::to_underlying(Severity::high), 2);
    EXPECT_LT(Severity::low, Severity::medium);
    EXPECT_LT(Severity::medium, Severity::high);
}

TEST(ScanFindingTest, anActionIsAScreenOrALocation)
{
    ScanFinding one = finding(1);
    EXPECT_EQ(std::get<ScanFinding::NavigateTo>(one.action).screen, u"Junk Cleaner"_s);
    one.action = ScanFinding::OpenURL{FileURL::fromPath(u"/Users/mira"_s)};
    EXPECT_EQ(std::get<ScanFinding::OpenURL>(one.action).url, FileURL::fromPath(u"/Users/mira"_s));
}

} // namespace keelbright::testing

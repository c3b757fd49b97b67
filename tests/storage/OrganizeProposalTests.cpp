#include "KeelbrightCore/storage/OrganizeProposal.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <gtest/gtest.h>

#include <limits>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

FileProposal fileOf(qint64 size)
{
    return {.source = FileURL::fromPath(u"/Downloads/Report.PDF"_s),
            .destination = FileURL::fromPath(u"/Downloads/Documents/Report.PDF"_s),
            .sizeBytes = size};
}

} // namespace

TEST(OrganizeProposalTests, aFileHasItsNameAndSize)
{
    const TestMac mac;
    EXPECT_EQ(fileOf(1).name(), u"Report.PDF"_s);
    EXPECT_EQ(fileOf(2'500'000).formattedSize(), u"2.5 MB"_s);
    EXPECT_EQ(fileOf(0).formattedSize(), u"Zero KB"_s);
}

TEST(OrganizeProposalTests, eachFileAndEachGroupHasAnIdOfItsOwn)
{
    EXPECT_NE(fileOf(1).id, fileOf(1).id);
    EXPECT_FALSE(fileOf(1).id.isNull());
    const OrganizeProposal first{.category = FileCategory::code, .files = {}};
    const OrganizeProposal second{.category = FileCategory::code, .files = {}};
    EXPECT_NE(first.id, second.id);
    EXPECT_FALSE(first.id.isNull());
}

TEST(OrganizeProposalTests, theTotalIsTheSumOfTheFiles)
{
    const TestMac mac;
    const OrganizeProposal proposal{.category = FileCategory::documents,
                                    .files = {fileOf(2'000'000), fileOf(500'000)}};
    EXPECT_EQ(proposal.totalBytes(), 2'500'000);
    EXPECT_EQ(proposal.formattedSize(), u"2.5 MB"_s);
    EXPECT_EQ(OrganizeProposal{}.totalBytes(), 0);
}

TEST(OrganizeProposalTests, theTotalStaysAtTheLargestValueInsteadOfOverflowing)
{
    constexpr qint64 maximum = std::numeric_limits<qint64>::max();
    const OrganizeProposal proposal{.files = {fileOf(maximum), fileOf(1)}};
    EXPECT_EQ(proposal.totalBytes(), maximum);
}

} // namespace keelbright::testing

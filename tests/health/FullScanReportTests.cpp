#include "KeelbrightCore/health/FullScanReport.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

TEST(FullScanReportTest, whatCanBeReclaimedIsWrittenInTheFileStyle)
{
    const TestMac mac;
    FullScanReport report;
    EXPECT_EQ(report.formattedReclaimable(), u"Zero KB"_s);
    report.totalReclaimableBytes = 9'870'000'000;
    EXPECT_EQ(report.formattedReclaimable(), u"9.87 GB"_s);
}

} // namespace keelbright::testing

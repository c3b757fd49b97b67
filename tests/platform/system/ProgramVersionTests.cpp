#include "KeelbrightCore/platform/system/ProgramVersion.h"
#include "tests/support/Printing.h"

#include <QVersionNumber>
#include <gtest/gtest.h>

namespace keelbright::testing {

TEST(ProgramVersion, hasThreeNumbers)
{
    const QVersionNumber version = QVersionNumber::fromString(programVersion());
    EXPECT_EQ(version.segmentCount(), 3);
    EXPECT_EQ(version.toString(), programVersion());
}

} // namespace keelbright::testing

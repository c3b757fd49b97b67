#include "KeelbrightCore/backup/DeviceFolder.h"

#include "tests/support/TestMac.h"

#include <gtest/gtest.h>

namespace keelbright {

TEST(DeviceFolderTests, isNamedAfterTheMachine)
{
    const testing::TestMac mac;
    mac.writeFile("etc/machine-info", "PRETTY_HOSTNAME=\"mira's Mac!\"\n");
    EXPECT_EQ(DeviceFolder::ofThisMachine(), "Keelbright/miras Mac");
}

TEST(DeviceFolderTests, isTheCommonFolderWhereNothingOfTheNameIsLeft)
{
    const testing::TestMac mac;
    mac.writeFile("etc/machine-info", "PRETTY_HOSTNAME=\"!!!\"\n");
    EXPECT_EQ(DeviceFolder::ofThisMachine(), "Keelbright");
}

} // namespace keelbright

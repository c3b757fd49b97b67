#include "Keelbright/state/KeelbrightApp.h"

#include "tests/support/FakeFolderChooser.h"
#include "tests/support/Printing.h"
#include "tests/support/SampleReport.h"
#include "tests/support/StandardOutput.h"
#include "tests/support/TestMac.h"

#include <gtest/gtest.h>

namespace keelbright {

TEST(KeelbrightApp, ownsOneStateOnTheStoresOfItsMachineAndShutsDownCleanly)
{
    const testing::TestMac mac;
    testing::FakeFolderChooser chooser;
    const QString output = testing::standardOutputOf([&] {
        KeelbrightApp app(chooser);
        EXPECT_EQ(&app.state(), &app.state());
        EXPECT_EQ(app.state().selectedScreen(), Screen::dashboard);
        EXPECT_FALSE(app.state().isOnboardingCompleted());
        EXPECT_TRUE(app.shutDown());
    });
    EXPECT_TRUE(output.contains(QStringLiteral("--- Keel Bright Diagnostics ---")));
    EXPECT_TRUE(output.contains(mac.home().path()));
}

TEST(KeelbrightApp, aBackupThatHasJustEndedIsLoggedBeforeItShutsDown)
{
    const testing::TestMac mac;
    testing::FakeFolderChooser chooser;
    (void)testing::standardOutputOf([&] {
        KeelbrightApp app(chooser);
        BackupEngine& engine = app.state().engine();
        engine.setIsRunning(true);
        engine.setLastReport(testing::sampleReport());
        engine.setIsRunning(false);
        EXPECT_FALSE(app.state().lastReport().has_value());
        EXPECT_TRUE(app.shutDown());
        EXPECT_EQ(app.state().lastReport(), testing::sampleReport());
    });
}

} // namespace keelbright

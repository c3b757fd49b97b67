#include "Keelbright/state/KeelbrightApp.h"

#include "tests/support/BackgroundWork.h"
#include "tests/support/EngineRun.h"
#include "tests/support/FakeFolderChooser.h"
#include "tests/support/HeldReport.h"
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

TEST(KeelbrightApp, aBackupThatIsWritingItsReportIsKeptWhenItShutsDown)
{
    const testing::TestMac mac;
    testing::HeldReport report(mac.root());
    const FileManagerGuard inPlace(report);
    testing::FakeFolderChooser chooser;
    mac.writeFile("Users/mira/Documents/a.txt", "12345");
    const FileURL drive = mac.makeFolder("Volumes/Drive");
    (void)testing::standardOutputOf([&] {
        KeelbrightApp app(chooser);
        BackupEngine& engine = app.state().engine();
        engine.startBackup({QUuid::createUuid(),
                            {{QUuid::createUuid(), mac.home().appending(QStringLiteral("Documents")), true}},
                            {QUuid::createUuid(), drive},
                            mac.clock()()});
        testing::EngineRun::turnUntil([&report] { return report.isHeld(); });
        EXPECT_FALSE(engine.shutDown(0));
        report.letGo();
        testing::waitForBackgroundWork();
        EXPECT_TRUE(app.shutDown());
        ASSERT_TRUE(app.state().lastReport().has_value());
        EXPECT_EQ(app.state().lastReport()->filesCopied, 1);
    });
}

} // namespace keelbright

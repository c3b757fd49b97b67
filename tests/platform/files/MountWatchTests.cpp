#include "KeelbrightCore/platform/files/MountWatch.h"

#include "tests/support/TemporaryVolume.h"
#include "tests/support/TestMac.h"
#include "tests/support/UndisturbedTimer.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <gtest/gtest.h>
#include <memory>

namespace keelbright::testing {

namespace {

class MountWatchTest : public ::testing::Test
{
protected:
    /// Waits for a change, and returns how many seconds it took.
    [[nodiscard]] double secondsUntilNoticed()
    {
        const int before = changes;
        const UndisturbedTimer timer;
        const QDeadlineTimer patience(60'000);
        while (changes == before && !patience.hasExpired())
            QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 50);
        EXPECT_GT(changes, before) << "nothing was noticed";
        return timer.seconds();
    }

    TestMac mac;
    int argc = 1;
    char name[5] = "test";
    char* argv[1] = {name};
    QCoreApplication application{argc, argv};
    int changes = 0;
};

} // namespace

TEST_F(MountWatchTest, noticesADriveThatComesAndGoesWithinASecond)
{
    MountWatch watch;
    QObject::connect(&watch, &MountWatch::changed, &watch, [this] { ++changes; });
    auto drive = std::make_unique<TemporaryVolume>(mac.makeFolder("Volumes/Anchor"));
    if (!drive->isMounted())
        GTEST_SKIP() << "needs the right to mount";
    EXPECT_LT(secondsUntilNoticed(), 1);
    drive.reset();
    EXPECT_LT(secondsUntilNoticed(), 1);
}

} // namespace keelbright::testing

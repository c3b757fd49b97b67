#include "Keelbright/state/OrganizerVM.h"
#include "KeelbrightCore/apps/AppScanner.h"
#include "KeelbrightCore/backup/PreflightService.h"
#include "KeelbrightCore/platform/system/Cancellation.h"
#include "tests/state/AppStateFixture.h"
#include "tests/support/BackgroundWork.h"
#include "tests/support/MadeUpFiles.h"
#include "tests/support/MadeUpPropertyList.h"
#include "tests/support/UndisturbedTimer.h"

#include <QTest>
#include <algorithm>
#include <functional>

// What the user starts while two application scans wait for their tools: it does not wait for them.

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

constexpr double toolSeconds = 0.4;

class BusyMachineTest : public AppStateFixture
{
protected:
    BusyMachineTest()
    {
        for (int number = 0; number < 100; ++number)
            files.text(
                "Applications/App" + QByteArray::number(number) + ".app/Contents/Info.plist",
                madeUpPropertyList({{"CFBundleIdentifier", "org.example.app"}}, PropertyListForm::xml));
        files.folder("started");
        mac.writeFile("Users/mira/Documents/a.txt", "12345");
        mac.makeFolder("Volumes/Anchor");
        state = makeState();
        state->setSelectedDestination(drive());
    }

    ~BusyMachineTest() override
    {
        files.text("gate", "");
        waitForBackgroundWork();
    }

    /// Two scans at once, each with more applications than there may be tools, until all tools run.
    void startScans(const QByteArray& lines)
    {
        files.program("usr/bin/mdls",
                      "#!/bin/sh\nroot=${0%/usr/bin/mdls}\n: > \"$root/started/$$\"\n" + lines + '\n');
        state->scanApps();
        second = AppScanner::scan(mac.clock());
        waitUntil([this] { return started() >= 32; });
    }

    void startScansThatHang()
    {
        // At most half a minute, should the test break off.
        startScans("waited=0\nwhile [ ! -e \"$root/gate\" ] && [ $waited -lt 300 ]; do\n"
                   "    sleep 0.1\n    waited=$((waited + 1))\ndone");
    }

    [[nodiscard]] qsizetype started()
    {
        const auto entries = mac.fileManager().contentsOfDirectory(mac.root().appending(u"started"_s), {});
        return entries ? entries->size() : 0;
    }

    [[nodiscard]] bool areScansUnderWay() const { return state->isAppScanning() && !second.isFinished(); }

    static void waitUntil(const std::function<bool()>& condition)
    {
        ASSERT_TRUE(QTest::qWaitFor(condition, 25'000));
    }

    /// How long the work takes at its quickest, other programs' turns left out.
    static double quickest(const std::function<void()>& work)
    {
        double seconds = 60;
        for (int attempt = 0; attempt < 5; ++attempt) {
            const UndisturbedTimer timer;
            work();
            seconds = std::min(seconds, timer.seconds());
        }
        return seconds;
    }

    void backUp()
    {
        ASSERT_TRUE(state->confirmBackup());
        waitUntil([this] { return !state->engine().isRunning(); });
        ASSERT_TRUE(state->engine().lastReport().has_value());
        EXPECT_EQ(state->engine().lastReport()->filesCopied, 1);
    }

    void check()
    {
        const QFuture<PreflightResult> result = state->runPreflight(std::make_shared<Cancellation>());
        waitUntil([&] { return result.isFinished(); });
        EXPECT_EQ(result.result().estimatedFileCount, 1);
    }

    void organize()
    {
        OrganizerVM model(activityStore, chooser, mac.clock());
        model.scan(mac.home().appending(u"Documents"_s));
        waitUntil([&] { return !model.isScanning(); });
        EXPECT_EQ(model.proposals().size(), 1);
    }

    /// Each of the three is done, from beginning to end, before the first tool can have ended.
    void expectNothingWaits()
    {
        const auto expectSoon = [](const char* work, const std::function<void()>& doIt) {
            const double seconds = quickest(doIt);
            EXPECT_LT(seconds, toolSeconds) << work;
            RecordProperty(work, static_cast<int>(seconds * 1'000));
        };
        expectSoon("backupMilliseconds", [this] { backUp(); });
        expectSoon("preflightMilliseconds", [this] { check(); });
        expectSoon("organizerMilliseconds", [this] { organize(); });
    }

    MadeUpFiles files{mac.root(), mac.clock()()};
    std::unique_ptr<AppState> state;
    QFuture<QList<AppInfo>> second;
};

} // namespace

TEST_F(BusyMachineTest, nothingWaitsForToolsThatHang)
{
    startScansThatHang();
    expectNothingWaits();
    EXPECT_TRUE(areScansUnderWay());
    EXPECT_EQ(started(), 32);
}

TEST_F(BusyMachineTest, nothingWaitsForToolsThatAreSlow)
{
    startScans("sleep " + QByteArray::number(toolSeconds));
    expectNothingWaits();
    waitUntil([this] { return !state->isAppScanning() && second.isFinished(); });
    EXPECT_EQ(state->scannedApps().size(), 100);
    EXPECT_EQ(second.result().size(), 100);
    EXPECT_EQ(started(), 200);
}

} // namespace keelbright::testing

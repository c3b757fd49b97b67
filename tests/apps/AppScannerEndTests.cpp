#include "KeelbrightCore/platform/system/TaskPools.h"
#include "tests/apps/AppScannerTestCase.h"
#include "tests/support/EngineRun.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFutureWatcher>
#include <QThreadPool>
#include <cstdlib>
#include <memory>

// What becomes of a scan whose caller has gone.

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

using Apps = QList<AppInfo>;

class AppScannerEndTests : public AppScannerTestCase
{
protected:
    AppScannerEndTests()
    {
        addNumberedBundles(100);
        m_files.folder("started");
        // Every one waits at the gate, at most for half a minute.
        setMetadataTool(R"(: > "$root/started/$name"
waited=0
while [ ! -e "$root/gate" ] && [ $waited -lt 300 ]; do
    sleep 0.1
    waited=$((waited + 1))
done)");
    }

    [[nodiscard]] qsizetype started() const
    {
        const auto entries =
            FileManager::defaultManager().contentsOfDirectory(m_mac.root().appending(u"started"_s), {});
        return entries ? entries->size() : 0;
    }

    void openTheGate() const { m_files.text("gate", ""); }
};

} // namespace

TEST_F(AppScannerEndTests, theCallerIsNotHeld)
{
    const QFuture<Apps> future = AppScanner::scan(m_mac.clock());
    EXPECT_FALSE(future.isFinished());
    openTheGate();
    EXPECT_EQ(future.result().size(), 100);
}

TEST_F(AppScannerEndTests, aWatcherIsNotifiedOnItsOwnThread)
{
    QFutureWatcher<Apps> watcher;
    QThread* thread = nullptr;
    QObject::connect(&watcher, &QFutureWatcherBase::finished, &watcher,
                     [&thread] { thread = QThread::currentThread(); });
    watcher.setFuture(AppScanner::scan(m_mac.clock()));
    openTheGate();
    EngineRun::turnUntil([&thread] { return thread != nullptr; });
    EXPECT_EQ(thread, QThread::currentThread());
    EXPECT_EQ(watcher.result().size(), 100);
}

TEST_F(AppScannerEndTests, anOwnerDestroyedInTheMiddleReceivesNothing)
{
    bool hasHeard = false;
    auto owner = std::make_unique<QObject>();
    auto* const watcher = new QFutureWatcher<Apps>(owner.get());
    QObject::connect(watcher, &QFutureWatcherBase::finished, owner.get(), [&hasHeard] { hasHeard = true; });
    QFuture<Apps> future = AppScanner::scan(m_mac.clock());
    watcher->setFuture(future);
    EngineRun::turnUntil([this] { return started() == 32; });
    owner.reset();
    openTheGate();
    EXPECT_EQ(future.result().size(), 100);
    QCoreApplication::processEvents();
    EXPECT_FALSE(hasHeard);
}

TEST_F(AppScannerEndTests, scansWhoseToolsHangHoldNoThread)
{
    const QFuture<Apps> first = AppScanner::scan(m_mac.clock());
    const QFuture<Apps> second = AppScanner::scan(m_mac.clock());
    EngineRun::turnUntil([this] { return started() == 32; });
    EngineRun::turnUntil([] {
        return TaskPools::userInitiated().activeThreadCount() + TaskPools::utility().activeThreadCount() == 0;
    });
    EXPECT_TRUE(TaskPools::isAtWork());
    EXPECT_EQ(started(), 32);
    openTheGate();
    EXPECT_EQ(first.result().size(), 100);
    EXPECT_EQ(second.result().size(), 100);
}

TEST_F(AppScannerEndTests, aCancelledScanStartsNoFurtherApplication)
{
    QFuture<Apps> future = AppScanner::scan(m_mac.clock());
    EngineRun::turnUntil([this] { return started() == 32; });
    future.cancel();
    openTheGate();
    EngineRun::turnUntil([&future] { return future.isFinished(); });
    EXPECT_EQ(started(), 32);
    EXPECT_EQ(future.resultCount(), 0);
}

TEST_F(AppScannerEndTests, aProgramThatQuitsWhileToolsRunEndsAtOnce)
{
    // The program that quits lays its machine into this one's folder, which is cleared behind it.
    qputenv("TMPDIR", m_mac.root().nativePath());
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    QElapsedTimer timer;
    timer.start();
    EXPECT_EXIT(
        {
            const QFuture<Apps> future = AppScanner::scan(m_mac.clock());
            EngineRun::turnUntil([this] { return started() == 32; });
            std::exit(0);
        },
        ::testing::ExitedWithCode(0), "");
    EXPECT_LT(timer.elapsed(), 20'000);
    qunsetenv("TMPDIR");
}

TEST_F(AppScannerEndTests, aProgramThatQuitsWhileApplicationsAreReadEndsInPeace)
{
    qputenv("TMPDIR", m_mac.root().nativePath());
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            openTheGate();
            const QFuture<Apps> future = AppScanner::scan(m_mac.clock());
            EngineRun::turnUntil([this] { return started() >= 40; });
            std::exit(0);
        },
        ::testing::ExitedWithCode(0), "");
    qunsetenv("TMPDIR");
}

} // namespace keelbright::testing

#include "KeelbrightCore/health/FullScanService.h"
#include "KeelbrightCore/platform/system/TaskPools.h"
#include "tests/support/BackgroundWork.h"
#include "tests/support/HeldFileManager.h"
#include "tests/support/MadeUpMac.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <QSemaphore>
#include <QThreadPool>
#include <gtest/gtest.h>
#include <memory>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

class FullScanServiceTest : public ::testing::Test
{
protected:
    ~FullScanServiceTest() override { waitForBackgroundWork(); }

    [[nodiscard]] QFuture<FullScanReport> start(const QList<AppInfo>& cachedApps) const
    {
        return FullScanService::scan(std::nullopt, cachedApps, mac.clock());
    }

    [[nodiscard]] FullScanReport scan(const QList<AppInfo>& cachedApps) const
    {
        return start(cachedApps).result();
    }

    static QStringList titlesOf(const FullScanReport& report, ScanFinding::Category category)
    {
        QStringList titles;
        for (const ScanFinding& finding : report.findings) {
            if (finding.category == category)
                titles.append(finding.title);
        }
        return titles;
    }

    [[nodiscard]] AppInfo forgotten(const QString& name) const
    {
        return AppInfo({.name = name}, mac.clock()());
    }

    [[nodiscard]] qsizetype looksAtApplications() const
    {
        return fileManager.looksAt(mac.root().appending(u"Applications"_s));
    }

    TestMac mac;
    HeldFileManager fileManager{mac.root()};
    FileManagerGuard guard{fileManager};
};

/// Takes every thread of a pool until it goes.
class OccupiedPool
{
public:
    explicit OccupiedPool(QThreadPool& pool)
        : m_threads(pool.maxThreadCount() - 1)
    {
        const auto arrived = std::make_shared<QSemaphore>();
        for (int i = 0; i < m_threads; ++i) {
            pool.start([arrived, go = m_go] {
                arrived->release();
                go->acquire();
            });
        }
        EXPECT_TRUE(arrived->tryAcquire(m_threads, 20'000));
    }

    ~OccupiedPool() { m_go->release(m_threads); }

    OccupiedPool(const OccupiedPool&) = delete;
    OccupiedPool& operator=(const OccupiedPool&) = delete;

private:
    int m_threads;
    std::shared_ptr<QSemaphore> m_go = std::make_shared<QSemaphore>();
};

} // namespace

TEST_F(FullScanServiceTest, aNewMachineHasOnlyTheBackupFinding)
{
    const FullScanReport report = scan({});
    EXPECT_EQ(titlesOf(report, ScanFinding::Category::backup), QStringList{u"No backup on record"_s});
    EXPECT_EQ(titlesOf(report, ScanFinding::Category::junk), QStringList());
    EXPECT_EQ(titlesOf(report, ScanFinding::Category::apps), QStringList());
    EXPECT_EQ(report.totalReclaimableBytes, 0);
    EXPECT_EQ(report.scannedAt, mac.clock()());
}

TEST_F(FullScanServiceTest, aMachineAfterYearsOfUseHasFindingsFromEverySource)
{
    const MadeUpMac machine(mac.root(), mac.clock()());
    machine.addLibrary();
    machine.addApplications();
    const FullScanReport report = FullScanService::scan(mac.clock()().addDays(-20), {}, mac.clock()).result();
    EXPECT_EQ(titlesOf(report, ScanFinding::Category::junk),
              (QStringList{u"iOS Device Backups"_s, u"Xcode & Simulators"_s, u"Browser Caches"_s,
                           u"User Caches"_s, u"Trash"_s}));
    EXPECT_EQ(titlesOf(report, ScanFinding::Category::apps),
              (QStringList{u"Never Indexed"_s, u"Old Scanner"_s}));
    EXPECT_EQ(titlesOf(report, ScanFinding::Category::backup), QStringList{u"Backup overdue"_s});
    EXPECT_EQ(report.totalReclaimableBytes, 11'130'000'000);
    ASSERT_TRUE(report.healthScore.has_value());
    EXPECT_EQ(report.healthScore->backupPoints, 8);
    EXPECT_EQ(report.healthScore->junkEstimateBytes, 2'858'000'021);
}

TEST_F(FullScanServiceTest, anEmptyListOfApplicationsCausesAFreshScan)
{
    MadeUpMac(mac.root(), mac.clock()()).addApplications();
    EXPECT_EQ(titlesOf(scan({}), ScanFinding::Category::apps),
              (QStringList{u"Never Indexed"_s, u"Old Scanner"_s}));
    EXPECT_EQ(looksAtApplications(), 1);
}

TEST_F(FullScanServiceTest, aListOfApplicationsIsUsedAsItIs)
{
    MadeUpMac(mac.root(), mac.clock()()).addApplications();
    EXPECT_EQ(titlesOf(scan({forgotten(u"Long gone"_s)}), ScanFinding::Category::apps),
              QStringList{u"Long gone"_s});
    EXPECT_EQ(looksAtApplications(), 0);
}

TEST_F(FullScanServiceTest, everyScanGivesNewIds)
{
    const FullScanReport first = scan({});
    const FullScanReport second = scan({});
    ASSERT_EQ(first.findings.size(), second.findings.size());
    for (qsizetype i = 0; i < first.findings.size(); ++i)
        EXPECT_NE(first.findings.at(i).id, second.findings.at(i).id);
}

TEST_F(FullScanServiceTest, theMomentOfTheReportIsTheEndOfTheScan)
{
    fileManager.holdNextLookAt(mac.root().appending(u"Applications"_s));
    const QFuture<FullScanReport> report = start({});
    ASSERT_TRUE(fileManager.waitUntilHeld());
    mac.setNow(mac.clock()().addSecs(90));
    fileManager.letGo();
    EXPECT_EQ(report.result().scannedAt, mac.clock()());
}

TEST_F(FullScanServiceTest, theSourcesWorkOneAfterAnother)
{
    const FileURL trash = mac.home().appending(u".Trash"_s);
    fileManager.holdNextLookAt(trash);
    const QFuture<FullScanReport> report = start({});
    ASSERT_TRUE(fileManager.waitUntilHeld());
    EXPECT_EQ(fileManager.looksAt(mac.home()), 0) << "the score began before the junk was known";
    fileManager.holdNextLookAt(mac.home());
    fileManager.letGo();
    ASSERT_TRUE(fileManager.waitUntilHeld());
    EXPECT_EQ(looksAtApplications(), 0) << "the applications began before the score was known";
    EXPECT_FALSE(report.isFinished());
    fileManager.letGo();
    EXPECT_EQ(report.result().findings.isEmpty(), false);
    EXPECT_EQ(fileManager.looksAt(trash), 1);
    EXPECT_EQ(fileManager.looksAt(mac.home()), 1);
    EXPECT_EQ(looksAtApplications(), 1);
}

TEST_F(FullScanServiceTest, oneFreeThreadInEachPoolIsEnough)
{
    const OccupiedPool utility(TaskPools::utility());
    const OccupiedPool userInitiated(TaskPools::userInitiated());
    MadeUpMac(mac.root(), mac.clock()()).addApplications();
    EXPECT_EQ(titlesOf(scan({}), ScanFinding::Category::apps),
              (QStringList{u"Never Indexed"_s, u"Old Scanner"_s}));
}

TEST_F(FullScanServiceTest, theResultNeedsNoReceiver)
{
    fileManager.holdNextLookAt(mac.home().appending(u".Trash"_s));
    {
        const auto dropped = start({});
    }
    ASSERT_TRUE(fileManager.waitUntilHeld());
    fileManager.letGo();
    waitForBackgroundWork();
    EXPECT_EQ(looksAtApplications(), 1) << "a scan that nobody waits for goes on to its end";
}

} // namespace keelbright::testing

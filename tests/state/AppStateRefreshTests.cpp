#include "tests/state/AppStateFixture.h"
#include "tests/support/BackgroundWork.h"
#include "tests/support/HeldFileManager.h"
#include "tests/support/MadeUpMac.h"

#include <QSignalSpy>
#include <QTest>

#include <filesystem>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

class AppStateRefreshTest : public AppStateFixture
{
protected:
    ~AppStateRefreshTest() override { waitForBackgroundWork(); }

    [[nodiscard]] FileURL applications() const { return mac.root().appending(u"Applications"_s); }

    void addApplications() const { MadeUpMac(mac.root(), mac.clock()()).addApplications(); }

    static void waitForScore(const AppState& state)
    {
        ASSERT_TRUE(QTest::qWaitFor([&] { return state.healthScore().has_value(); }, 20'000));
    }

    static void waitForApps(const AppState& state)
    {
        ASSERT_TRUE(QTest::qWaitFor([&] { return !state.isAppScanning(); }, 20'000));
    }

    /// A backup that ends now, by the machine's clock.
    void endBackup(AppState& state) const
    {
        BackupReport report = sampleReport();
        report.completedAt = mac.clock()();
        state.engine().setIsRunning(true);
        state.engine().setLastReport(report);
        state.engine().setIsRunning(false);
        turnEventLoopOnce();
    }

    HeldFileManager held{mac.root()};
    FileManagerGuard heldGuard{held};
};

} // namespace

TEST_F(AppStateRefreshTest, beforeAnyRefreshNothingIsKnown)
{
    const auto state = makeState();
    EXPECT_FALSE(state->healthScore().has_value());
    EXPECT_TRUE(state->scannedApps().isEmpty());
    EXPECT_FALSE(state->isAppScanning());
    EXPECT_TRUE(state->alerts().isEmpty());
}

TEST_F(AppStateRefreshTest, theScoreGoesByTheLastBackup)
{
    const auto state = makeState();
    endBackup(*state);
    state->refreshHealthScore();
    EXPECT_FALSE(state->healthScore().has_value());
    waitForScore(*state);
    EXPECT_EQ(state->healthScore()->backupPoints, 40);
    EXPECT_TRUE(state->healthScore()->detail.startsWith(u"Backed up today."_s));
}

TEST_F(AppStateRefreshTest, theAgeOfTheBackupGoesByTheStatesClock)
{
    const auto state = makeState();
    endBackup(*state);
    mac.setNow(mac.clock()().addDays(10));
    state->refreshHealthScore();
    waitForScore(*state);
    EXPECT_EQ(state->healthScore()->backupPoints, 15);
}

TEST_F(AppStateRefreshTest, theScoreStaysWhileANewOneIsComputed)
{
    const auto state = makeState();
    state->refreshHealthScore();
    waitForScore(*state);
    const HealthScore first = *state->healthScore();
    endBackup(*state);
    held.holdNextLookAt(mac.home());
    state->refreshHealthScore();
    ASSERT_TRUE(held.waitUntilHeld());
    QCoreApplication::processEvents();
    EXPECT_EQ(state->healthScore(), first);
    held.letGo();
    ASSERT_TRUE(QTest::qWaitFor([&] { return state->healthScore()->backupPoints == 40; }, 20'000));
}

TEST_F(AppStateRefreshTest, recalculatingTwiceQuicklyComputesTwice)
{
    const auto state = makeState();
    const QSignalSpy replaced(state.get(), &AppState::healthScoreChanged);
    state->refreshHealthScore();
    state->refreshHealthScore();
    ASSERT_TRUE(QTest::qWaitFor([&] { return replaced.count() == 2; }, 20'000));
    EXPECT_EQ(held.looksAt(mac.home()), 2);
}

TEST_F(AppStateRefreshTest, ofTwoRecalculationsTheOneThatEndsLastHoldsWithTheBackupOfItsStart)
{
    const auto state = makeState();
    const QSignalSpy replaced(state.get(), &AppState::healthScoreChanged);
    held.holdNextLookAt(mac.home());
    state->refreshHealthScore();
    ASSERT_TRUE(held.waitUntilHeld());
    endBackup(*state);
    state->refreshHealthScore();
    waitForScore(*state);
    EXPECT_EQ(state->healthScore()->backupPoints, 40);
    held.letGo();
    ASSERT_TRUE(QTest::qWaitFor([&] { return replaced.count() == 2; }, 20'000));
    EXPECT_EQ(state->healthScore()->backupPoints, 0);
}

TEST_F(AppStateRefreshTest, neitherTheEndOfABackupNorAChoiceComputesTheScore)
{
    const auto state = makeState();
    endBackup(*state);
    state->setSelectedDestination(drive());
    state->setSelectedScreen(Screen::dashboard);
    waitForBackgroundWork();
    QCoreApplication::processEvents();
    EXPECT_FALSE(state->healthScore().has_value());
    EXPECT_EQ(held.looksAt(applications()), 0);
}

TEST_F(AppStateRefreshTest, theApplicationsAreListedInTheBackground)
{
    addApplications();
    const auto state = makeState();
    held.holdNextLookAt(applications());
    state->refreshAppsIfNeeded();
    EXPECT_TRUE(state->isAppScanning());
    ASSERT_TRUE(held.waitUntilHeld());
    QCoreApplication::processEvents();
    EXPECT_TRUE(state->isAppScanning());
    EXPECT_TRUE(state->scannedApps().isEmpty());
    held.letGo();
    waitForApps(*state);
    EXPECT_EQ(state->scannedApps().size(), 8);
    EXPECT_EQ(state->scannedApps().first().name, u"Never Indexed"_s);
}

TEST_F(AppStateRefreshTest, askingAgainDuringAScanStartsNoSecondOne)
{
    addApplications();
    const auto state = makeState();
    state->refreshAppsIfNeeded();
    state->refreshAppsIfNeeded();
    waitForApps(*state);
    waitForBackgroundWork();
    EXPECT_EQ(held.looksAt(applications()), 1);
}

TEST_F(AppStateRefreshTest, scanningAgainReplacesTheListAndKeepsTheOldOneMeanwhile)
{
    addApplications();
    const auto state = makeState();
    state->refreshAppsIfNeeded();
    waitForApps(*state);
    std::filesystem::remove_all(applications().appending(u"Never Indexed.app"_s).path().toStdString());
    held.holdNextLookAt(applications());
    state->scanApps();
    EXPECT_TRUE(state->isAppScanning());
    ASSERT_TRUE(held.waitUntilHeld());
    QCoreApplication::processEvents();
    EXPECT_EQ(state->scannedApps().size(), 8);
    state->scanApps();
    held.letGo();
    waitForApps(*state);
    waitForBackgroundWork();
    EXPECT_EQ(state->scannedApps().size(), 7);
    EXPECT_EQ(held.looksAt(applications()), 2);
}

TEST_F(AppStateRefreshTest, openingTheDashboardWithAFilledListScansNothingButComputesTheScore)
{
    addApplications();
    const auto state = makeState();
    state->refreshAppsIfNeeded();
    waitForApps(*state);
    const QList<AppInfo> first = state->scannedApps();
    state->refreshHealthScore();
    state->refreshAppsIfNeeded();
    EXPECT_FALSE(state->isAppScanning());
    waitForScore(*state);
    waitForBackgroundWork();
    EXPECT_EQ(held.looksAt(applications()), 1);
    EXPECT_EQ(held.looksAt(mac.home()), 1);
    EXPECT_EQ(state->scannedApps(), first);
}

TEST_F(AppStateRefreshTest, aRemovedApplicationLeavesTheList)
{
    addApplications();
    const auto state = makeState();
    state->refreshAppsIfNeeded();
    waitForApps(*state);
    QList<AppInfo> expected = state->scannedApps();
    const QSignalSpy changes(state.get(), &AppState::scannedAppsChanged);
    state->removeScannedApp(expected.takeAt(3).id);
    EXPECT_EQ(state->scannedApps(), expected);
    EXPECT_EQ(changes.count(), 1);
}

TEST_F(AppStateRefreshTest, anEmptyListIsAskedForAgain)
{
    const auto state = makeState();
    state->refreshAppsIfNeeded();
    waitForApps(*state);
    EXPECT_TRUE(state->scannedApps().isEmpty());
    addApplications();
    state->refreshAppsIfNeeded();
    waitForApps(*state);
    EXPECT_EQ(state->scannedApps().size(), 8);
}

TEST_F(AppStateRefreshTest, everySetIsAnnouncedInOrder)
{
    const auto state = makeState();
    QStringList names;
    QObject::connect(state.get(), &AppState::healthScoreChanged, state.get(),
                     [&] { names.append(u"score"_s); });
    QObject::connect(state.get(), &AppState::scannedAppsChanged, state.get(),
                     [&] { names.append(u"apps"_s); });
    QObject::connect(state.get(), &AppState::isAppScanningChanged, state.get(),
                     [&] { names.append(state->isAppScanning() ? u"scanning"_s : u"not scanning"_s); });
    QObject::connect(state.get(), &AppState::changed, state.get(), [&] { names.append(u"changed"_s); });
    state->refreshAppsIfNeeded();
    waitForApps(*state);
    EXPECT_EQ(names, (QStringList{u"scanning"_s, u"changed"_s, u"apps"_s, u"changed"_s, u"not scanning"_s,
                                  u"changed"_s}));
    names.clear();
    state->refreshHealthScore();
    waitForScore(*state);
    EXPECT_EQ(names, (QStringList{u"score"_s, u"changed"_s}));
}

TEST_F(AppStateRefreshTest, nothingOfItIsSaved)
{
    addApplications();
    const auto state = makeState();
    const FileURL config = held.applicationSupportDirectory().appending(u"Keelbright/config.json"_s);
    ASSERT_TRUE(std::filesystem::remove(config.nativePath().toStdString()));
    state->refreshHealthScore();
    state->refreshAppsIfNeeded();
    waitForScore(*state);
    waitForApps(*state);
    EXPECT_FALSE(held.fileExists(config).exists);
    EXPECT_FALSE(makeState()->healthScore().has_value());
    EXPECT_TRUE(makeState()->scannedApps().isEmpty());
}

TEST_F(AppStateRefreshTest, closedInTheMiddleOfComputingTheScoreItReceivesNothing)
{
    auto state = makeState();
    const QSignalSpy delivered(state.get(), &AppState::healthScoreChanged);
    held.holdNextLookAt(mac.home());
    state->refreshHealthScore();
    ASSERT_TRUE(held.waitUntilHeld());
    state.reset();
    held.letGo();
    waitForBackgroundWork();
    QCoreApplication::processEvents();
    EXPECT_EQ(delivered.count(), 0);
}

TEST_F(AppStateRefreshTest, closedInTheMiddleOfListingApplicationsItReceivesNothing)
{
    addApplications();
    auto state = makeState();
    const QSignalSpy delivered(state.get(), &AppState::scannedAppsChanged);
    held.holdNextLookAt(applications());
    state->refreshAppsIfNeeded();
    ASSERT_TRUE(held.waitUntilHeld());
    state.reset();
    held.letGo();
    waitForBackgroundWork();
    QCoreApplication::processEvents();
    EXPECT_EQ(delivered.count(), 0);
}

TEST_F(AppStateRefreshTest, closedWithBothResultsOnTheirWayItReceivesNeither)
{
    addApplications();
    auto state = makeState();
    const QSignalSpy score(state.get(), &AppState::healthScoreChanged);
    const QSignalSpy apps(state.get(), &AppState::scannedAppsChanged);
    state->refreshHealthScore();
    state->refreshAppsIfNeeded();
    waitForBackgroundWork();
    state.reset();
    QCoreApplication::processEvents();
    EXPECT_EQ(score.count(), 0);
    EXPECT_EQ(apps.count(), 0);
}

TEST_F(AppStateRefreshTest, theUndoOfARemovalListsTheApplicationsAgain)
{
    addApplications();
    const auto state = makeState();
    state->scanApps();
    waitForApps(*state);
    const AppInfo removed = state->scannedApps().first();
    TrashedItems trashed;
    trashed.items.append(held.trashItem(removed.url).value());
    trashed.isRemoval = true;
    state->removeScannedApp(removed.id);
    const qsizetype without = state->scannedApps().size();
    state->undo().remember(trashed);
    state->undo().undo();
    ASSERT_TRUE(QTest::qWaitFor([&] { return state->scannedApps().size() > without; }, 60'000));
    EXPECT_EQ(state->scannedApps().size(), without + 1);
}

TEST_F(AppStateRefreshTest, theUndoOfAnythingElseListsNothing)
{
    const auto state = makeState();
    TrashedItems trashed;
    trashed.items.append(held.trashItem(mac.writeFile("Users/mira/a", "a")).value());
    state->undo().remember(trashed);
    const QSignalSpy scans(state.get(), &AppState::isAppScanningChanged);
    const QSignalSpy ends(&state->undo(), &UndoStore::ended);
    state->undo().undo();
    ASSERT_TRUE(QTest::qWaitFor([&] { return ends.count() > 0; }, 60'000));
    EXPECT_EQ(scans.count(), 0);
}

} // namespace keelbright::testing

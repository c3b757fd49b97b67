#include "KeelbrightCore/backup/PreflightService.h"
#include "KeelbrightCore/platform/text/UtcZone.h"
#include "tests/state/AppStateFixture.h"

#include <QDeadlineTimer>
#include <QSignalSpy>
#include <QTest>
#include <cstdio>
#include <sys/stat.h>
#include <unistd.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

class AppStateBackupTest : public AppStateFixture
{
protected:
    /// A run of the engine that ends with `report`, as the state finds it.
    static void endRun(AppState& state, const std::optional<BackupReport>& report)
    {
        state.engine().setIsRunning(true);
        state.engine().setLastReport(report);
        state.engine().setIsRunning(false);
    }

    /// A state with one file on the desktop and a drive to put it on.
    std::unique_ptr<AppState> makeStateWithWork()
    {
        mac.writeFile("Users/mira/Desktop/a.txt", "12345");
        mac.makeFolder("Volumes/Anchor");
        auto state = makeState();
        state->setRecommendedFolderEnabled(1, false);
        state->setRecommendedFolderEnabled(2, false);
        state->setSelectedDestination(drive());
        return state;
    }

    /// Confirms a backup and waits until the state has handled its end.
    static void backUp(AppState& state)
    {
        const QSignalSpy completed(&state, &AppState::lastReportChanged);
        ASSERT_TRUE(state.confirmBackup());
        EXPECT_TRUE(state.engine().isRunning());
        EXPECT_TRUE(QTest::qWaitFor([&] { return completed.count() > 0; }, 20'000));
        EXPECT_FALSE(state.engine().isRunning());
    }

    static void expectAlert(const AppState& state, const QString& title, const QString& message,
                            RiskAlert::Severity severity)
    {
        ASSERT_EQ(state.alerts().size(), 1);
        EXPECT_EQ(state.alerts().first().title, title);
        EXPECT_EQ(state.alerts().first().message, message);
        EXPECT_EQ(state.alerts().first().severity, severity);
    }
};

} // namespace

TEST_F(AppStateBackupTest, withoutADestinationOnlyThatIsReported)
{
    const auto state = makeState();
    state->setAlerts({RiskAlert(u"old"_s, u"old"_s, RiskAlert::Severity::low)});
    for (qsizetype index = 0; index < state->recommendedFolders().size(); ++index)
        state->setRecommendedFolderEnabled(index, false);
    state->startBackup();
    expectAlert(*state, u"No Destination Selected"_s,
                u"Go to Settings and choose a backup destination first."_s, RiskAlert::Severity::high);
    EXPECT_EQ(state->selectedScreen(), Screen::dashboard);
}

TEST_F(AppStateBackupTest, withoutASourceThereIsNothingToBackUp)
{
    const auto state = makeState();
    state->setSelectedDestination(drive());
    state->setAlerts({RiskAlert(u"old"_s, u"old"_s, RiskAlert::Severity::low)});
    for (qsizetype index = 0; index < state->recommendedFolders().size(); ++index)
        state->setRecommendedFolderEnabled(index, false);
    state->startBackup();
    expectAlert(*state, u"Nothing to Back Up"_s, u"Enable at least one folder in Protected Items."_s,
                RiskAlert::Severity::medium);
    EXPECT_EQ(state->selectedScreen(), Screen::dashboard);
}

TEST_F(AppStateBackupTest, withDestinationAndSourcesItGoesOnToThePreflightScreen)
{
    const auto state = makeState();
    state->setSelectedDestination(drive());
    state->setAlerts({RiskAlert(u"old"_s, u"old"_s, RiskAlert::Severity::low)});
    state->startBackup();
    EXPECT_TRUE(state->alerts().isEmpty());
    EXPECT_EQ(state->selectedScreen(), Screen::preflight);
    EXPECT_FALSE(state->engine().isRunning());
}

TEST_F(AppStateBackupTest, aDisabledCustomSourceAloneIsEnoughToGoOn)
{
    const auto state = makeState();
    state->setSelectedDestination(drive());
    for (qsizetype index = 0; index < state->recommendedFolders().size(); ++index)
        state->setRecommendedFolderEnabled(index, false);
    BackupSource disabled = codeFolder();
    disabled.isEnabled = false;
    state->setCustomSources({disabled});
    state->startBackup();
    EXPECT_TRUE(state->alerts().isEmpty());
    EXPECT_EQ(state->selectedScreen(), Screen::preflight);
}

TEST_F(AppStateBackupTest, thePreflightChecksThePresentChoices)
{
    const auto state = makeStateWithWork();
    mac.writeFile("Users/mira/Desktop/b.txt", "123");
    QFuture<PreflightResult> check = state->runPreflight(std::make_shared<Cancellation>());
    EXPECT_EQ(check.result().estimatedFileCount, 2);
    EXPECT_EQ(check.result().estimatedBytes, 8);
    EXPECT_GT(check.result().destinationFreeSpace, 0);
    EXPECT_EQ(check.result().errors, QStringList());
    state->setSelectedDestination(std::nullopt);
    check = state->runPreflight(std::make_shared<Cancellation>());
    EXPECT_EQ(check.result().errors, QStringList{u"No destination selected."_s});
}

TEST_F(AppStateBackupTest, thePreflightOutlivesTheState)
{
    auto state = makeStateWithWork();
    const QFuture<PreflightResult> check = state->runPreflight(std::make_shared<Cancellation>());
    state.reset();
    EXPECT_EQ(check.result().estimatedFileCount, 1);
}

TEST_F(AppStateBackupTest, confirmingWithoutADestinationDoesNothing)
{
    const auto state = makeState();
    EXPECT_FALSE(state->confirmBackup());
    EXPECT_FALSE(state->engine().isRunning());
    EXPECT_EQ(state->selectedScreen(), Screen::dashboard);
}

TEST_F(AppStateBackupTest, confirmingBacksUpAndShowsTheProgress)
{
    const auto state = makeStateWithWork();
    const FileURL gone = mac.home().appending(u"Gone"_s);
    state->setCustomSources({{QUuid::createUuid(), gone, false}});
    backUp(*state);
    EXPECT_EQ(state->selectedScreen(), Screen::backupProgress);
    ASSERT_TRUE(state->lastReport().has_value());
    const BackupReport report = *state->lastReport();
    EXPECT_EQ(report.filesCopied, 1);
    EXPECT_EQ(report.bytesCopied, 5);
    EXPECT_EQ(report.errors, QStringList());
    EXPECT_EQ(report.destinationPath, drive().path());
    EXPECT_EQ(report.sourcePaths, (QStringList{mac.home().appending(u"Desktop"_s).path(), gone.path()}));
    EXPECT_EQ(state->lastBackupTime(), report.completedAt);
    EXPECT_EQ(TestMac::read(FileURL::fromPath(report.personalFilesPath).appending(u"Desktop/a.txt"_s)),
              "12345");
}

TEST_F(AppStateBackupTest, theMomentOfConfirmingIsTheManifestsDate)
{
    const auto state = makeStateWithWork();
    mac.setNow(QDateTime(QDate(2026, 1, 2), QTime(3, 4, 5), utcZone));
    backUp(*state);
    const QByteArray manifest = TestMac::read(FileURL::fromPath(state->lastReport()->manifestPath));
    EXPECT_EQ(decodeJsonObject(manifest).value().string(u"backupDate"_s).value(), u"2026-01-02T03:04:05Z"_s);
}

TEST_F(AppStateBackupTest, aFinishedBackupIsSavedAndLogged)
{
    const auto state = makeStateWithWork();
    backUp(*state);
    const AppConfiguration saved = savedConfiguration();
    ASSERT_TRUE(saved.lastReport.has_value());
    EXPECT_EQ(saved.lastReport->id, state->lastReport()->id);
    EXPECT_TRUE(saved.lastBackupTime.has_value());
    const QList<ActivityEntry> entries = activityStore.load();
    ASSERT_EQ(entries.size(), 1);
    EXPECT_EQ(entries.first().title, u"Backup completed"_s);
    EXPECT_EQ(entries.first().detail, u"1 files · 5 bytes"_s);
}

TEST_F(AppStateBackupTest, aFailureOfTheReportFilesIsNoWarning)
{
    const auto state = makeStateWithWork();
    backUp(*state);
    const FileURL latest =
        FileURL::fromPath(state->lastReport()->personalFilesPath).deletingLastPathComponent();
    const FileURL reports = latest.deletingLastPathComponent().appending(u"Reports"_s);
    QObject::connect(&state->engine(), &BackupEngine::progressChanged, [&] {
        if (state->engine().progress().filesCopied == 1)
            ::rename(reports.nativePath().constData(), (reports.nativePath() + " of before").constData());
    });
    backUp(*state);
    EXPECT_EQ(state->lastReport()->errors, QStringList());
    EXPECT_TRUE(state->alerts().isEmpty());
    EXPECT_EQ(activityStore.load().first().title, u"Backup completed"_s);
    ASSERT_EQ(state->engine().progress().errors.size(), 1);
    EXPECT_TRUE(state->engine().progress().errors.first().startsWith(u"Report write failed: "_s));
}

TEST_F(AppStateBackupTest, aFailureOfTheManifestCountsAsOneSkippedFile)
{
    const auto state = makeStateWithWork();
    backUp(*state);
    const QByteArray manifest = FileURL::fromPath(state->lastReport()->manifestPath).nativePath();
    ASSERT_EQ(::unlink(manifest.constData()), 0);
    ASSERT_EQ(::mkdir(manifest.constData(), 0755), 0);
    backUp(*state);
    EXPECT_EQ(state->lastReport()->filesSkipped, 0);
    EXPECT_EQ(state->lastReport()->manifestPath, u"Failed"_s);
    expectAlert(*state, u"Backup completed with warnings"_s,
                u"1 file(s) were skipped. View the report for details."_s, RiskAlert::Severity::medium);
    EXPECT_EQ(activityStore.load().first().title, u"Backup completed with warnings"_s);
}

TEST_F(AppStateBackupTest, theEndOfARunIsHandledOnceAndOneTurnLater)
{
    const auto state = makeState();
    endRun(*state, sampleReport());
    EXPECT_FALSE(state->lastReport().has_value());
    turnEventLoopOnce();
    EXPECT_EQ(state->lastReport(), sampleReport());
    EXPECT_EQ(state->lastBackupTime(), sampleReport().completedAt);
    EXPECT_EQ(activityStore.load().size(), 1);
    turnEventLoopOnce();
    EXPECT_EQ(activityStore.load().size(), 1);
}

TEST_F(AppStateBackupTest, aRepeatedEndIsNoSecondEnd)
{
    const auto state = makeState();
    endRun(*state, sampleReport());
    state->engine().setIsRunning(false);
    turnEventLoopOnce();
    state->engine().setIsRunning(false);
    turnEventLoopOnce();
    EXPECT_EQ(activityStore.load().size(), 1);
}

TEST_F(AppStateBackupTest, theStartOfARunIsNoEnd)
{
    const auto state = makeState();
    state->engine().setLastReport(sampleReport());
    state->engine().setIsRunning(true);
    turnEventLoopOnce();
    EXPECT_TRUE(activityStore.load().isEmpty());
}

TEST_F(AppStateBackupTest, everyRunIsLogged)
{
    const auto state = makeState();
    endRun(*state, sampleReport());
    turnEventLoopOnce();
    endRun(*state, sampleReport());
    turnEventLoopOnce();
    EXPECT_EQ(activityStore.load().size(), 2);
}

TEST_F(AppStateBackupTest, theEntryOfTheLogHasTheNumbersOfTheReport)
{
    const auto state = makeState();
    mac.setNow(QDateTime(QDate(2026, 3, 1), QTime(9, 6), utcZone));
    endRun(*state, sampleReport());
    turnEventLoopOnce();
    const QList<ActivityEntry> entries = activityStore.load();
    ASSERT_EQ(entries.size(), 1);
    EXPECT_FALSE(entries.first().id.isNull());
    EXPECT_EQ(entries.first(), (ActivityEntry{
                                   .id = entries.first().id,
                                   .timestamp = QDateTime(QDate(2026, 3, 1), QTime(9, 6), utcZone),
                                   .kind = ActivityEntry::Kind::backup,
                                   .title = u"Backup completed"_s,
                                   .detail = u"1234 files · 2.5 MB"_s,
                                   .bytesAffected = 2'500'000,
                                   .itemCount = 1234,
                               }));
}

TEST_F(AppStateBackupTest, errorsRaiseOneAlertWithTheirNumber)
{
    const auto state = makeState();
    state->setAlerts({RiskAlert(u"old"_s, u"old"_s, RiskAlert::Severity::high)});
    BackupReport report = sampleReport();
    report.errors = {u"Skip a: no"_s, u"Skip b: no"_s, u"Cannot enumerate: /c"_s};
    endRun(*state, report);
    turnEventLoopOnce();
    expectAlert(*state, u"Backup completed with warnings"_s,
                u"3 file(s) were skipped. View the report for details."_s, RiskAlert::Severity::medium);
    EXPECT_EQ(activityStore.load().first().title, u"Backup completed with warnings"_s);
    EXPECT_EQ(activityStore.load().first().detail, u"1234 files · 2.5 MB"_s);
}

TEST_F(AppStateBackupTest, aCleanRunClearsTheAlerts)
{
    const auto state = makeState();
    state->setAlerts({RiskAlert(u"old"_s, u"old"_s, RiskAlert::Severity::high)});
    endRun(*state, sampleReport());
    turnEventLoopOnce();
    EXPECT_TRUE(state->alerts().isEmpty());
}

TEST_F(AppStateBackupTest, aRunThatCouldNotStartLeavesNoTraceInTheState)
{
    const auto state = makeState();
    endRun(*state, sampleReport());
    turnEventLoopOnce();
    state->setAlerts({RiskAlert(u"old"_s, u"old"_s, RiskAlert::Severity::high)});
    std::ignore = takeSaves();
    endRun(*state, std::nullopt);
    turnEventLoopOnce();
    EXPECT_EQ(state->lastReport(), sampleReport());
    EXPECT_EQ(state->alerts().size(), 1);
    EXPECT_TRUE(takeSaves().isEmpty());
    EXPECT_EQ(activityStore.load().size(), 1);
}

TEST_F(AppStateBackupTest, aRunThatIsUnderWayEndsWithTheState)
{
    auto state = makeStateWithWork();
    for (int i = 0; i < 2000; ++i)
        mac.writeFile("Users/mira/Desktop/more/" + QByteArray::number(i), "1");
    ASSERT_TRUE(state->confirmBackup());
    // In short turns, so that the run can't end within the first one.
    const QDeadlineTimer deadline(20'000);
    while (state->engine().progress().filesCopied == 0 && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
    ASSERT_TRUE(state->engine().isRunning());
    ASSERT_GT(state->engine().progress().filesCopied, 0);
    state.reset();
    turnEventLoopOnce();
    EXPECT_TRUE(activityStore.load().isEmpty());
    EXPECT_FALSE(savedConfiguration().lastReport.has_value());
}

TEST_F(AppStateBackupTest, aRealRunThatCantCreateItsFoldersLeavesOnlyTheEnginesError)
{
    const auto state = makeStateWithWork();
    mac.writeFile("Volumes/Anchor/Keelbright", "a file in the way");
    const QSignalSpy running(&state->engine(), &BackupEngine::isRunningChanged);
    ASSERT_TRUE(state->confirmBackup());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !state->engine().isRunning(); }, 20'000));
    turnEventLoopOnce();
    ASSERT_TRUE(state->engine().lastError().has_value());
    EXPECT_TRUE(state->engine().lastError()->startsWith(u"Could not create backup folders: "_s));
    EXPECT_FALSE(state->lastReport().has_value());
    EXPECT_TRUE(activityStore.load().isEmpty());
    EXPECT_EQ(running.count(), 2);
}

} // namespace keelbright::testing

#include "Keelbright/state/CopyCheckVM.h"

#include "KeelbrightCore/check/ChecksumSpool.h"
#include "tests/state/AppStateFixture.h"
#include "tests/support/BackgroundWork.h"
#include "tests/support/FakeCopyCheck.h"
#include "tests/support/FakeFileChooser.h"
#include "tests/support/StandardOutput.h"

#include <QSignalSpy>
#include <QTest>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

using Phase = CopyCheckVM::Phase;

class CopyCheckVMTests : public AppStateFixture
{
protected:
    CopyCheckVMTests()
    {
        AppServices given = services();
        given.startCopyCheck = checks.starter();
        given.steadyClock = [this] { return now; };
        (void)standardOutputOf([&] { state = std::make_unique<AppState>(given); });
        model = std::make_unique<CopyCheckVM>(*state, files);
    }

    void chooseDrive() { state->setSelectedDestination(drive()); }

    void startCheck()
    {
        chooseDrive();
        model->checkOriginals();
        ASSERT_EQ(checks.jobs.size(), 1);
    }

    void endCheck(const CheckReport& report)
    {
        checks.end(report);
        EXPECT_TRUE(QTest::qWaitFor([this] { return model->phase() == Phase::finished; }, 60'000));
    }

    std::chrono::milliseconds now{0};
    FakeCopyCheck checks;
    FakeFileChooser files;
    std::unique_ptr<AppState> state;
    std::unique_ptr<CopyCheckVM> model;
};

} // namespace

TEST_F(CopyCheckVMTests, withoutADestinationOnlyAListCanBeChecked)
{
    EXPECT_EQ(model->refusalForOriginals(), u"Choose a backup destination in Settings first."_s);
    EXPECT_EQ(model->refusal(), QString());
    EXPECT_EQ(model->driveName(), QString());
    model->checkOriginals();
    EXPECT_TRUE(checks.jobs.isEmpty());
    EXPECT_EQ(model->phase(), Phase::ready);
}

TEST_F(CopyCheckVMTests, checksWhatABackupWouldCopy)
{
    startCheck();
    EXPECT_EQ(model->phase(), Phase::running);
    EXPECT_EQ(model->driveName(), u"Anchor"_s);
    const CheckJob& job = checks.jobs.first();
    EXPECT_EQ(job.destination, drive().url);
    EXPECT_EQ(job.checksumList, std::nullopt);
    QList<FileURL> sources;
    for (const BackupSource& source : job.sources)
        sources.append(source.url);
    QList<FileURL> expected;
    for (const BackupSource& source : state->allEnabledSources())
        expected.append(source.url);
    EXPECT_EQ(sources, expected);
    EXPECT_TRUE(state->isCheckingCopies());
    endCheck(sampleCheck(3));
}

TEST_F(CopyCheckVMTests, aResultEndsTheCheck)
{
    startCheck();
    endCheck(sampleCheck(3));
    ASSERT_TRUE(model->report().has_value());
    EXPECT_EQ(model->report()->checked, 3);
    EXPECT_FALSE(state->isCheckingCopies());
    EXPECT_FALSE(model->canSaveChecksums()) << "there are none";
    model->startOver();
    EXPECT_EQ(model->phase(), Phase::ready);
    EXPECT_EQ(model->report(), std::nullopt);
}

TEST_F(CopyCheckVMTests, showsTheProgressWhileACheckRuns)
{
    startCheck();
    checks.progress().setTotal(10, 1'000);
    checks.progress().addBytes(500);
    EXPECT_TRUE(QTest::qWaitFor([this] { return model->progress().readBytes == 500; }, 60'000));
    EXPECT_EQ(model->progress().fraction(), 0.5);
    endCheck(sampleCheck(10));
}

TEST_F(CopyCheckVMTests, saysHowLongItStillTakes)
{
    startCheck();
    CheckProgress& progress = checks.progress();
    progress.setTotal(10, 1'000'000'000);
    progress.setPhase(CheckProgress::Phase::reading);
    QSignalSpy looks(model.get(), &CopyCheckVM::progressChanged);
    for (int second = 0; second < 20; ++second) {
        looks.clear();
        ASSERT_TRUE(looks.wait(60'000));
        now += std::chrono::seconds(1);
        progress.addBytes(4'000'000);
    }
    EXPECT_EQ(model->timeLeft(), u"About 4 minutes left"_s);
    model->cancel();
    EXPECT_EQ(model->timeLeft(), QString());
    endCheck(sampleCheck(10));
}

TEST_F(CopyCheckVMTests, aCancelledCheckEndsWithWhatItHas)
{
    startCheck();
    model->cancel();
    EXPECT_EQ(model->phase(), Phase::cancelling);
    EXPECT_TRUE(checks.cancellation().isCancelled());
    EXPECT_FALSE(checks.cancellation().isQuitting());
    EXPECT_TRUE(state->isCheckingCopies()) << "a drive that hangs keeps it";
    CheckReport report = sampleCheck(2);
    report.end = CheckReport::End::cancelled;
    endCheck(report);
    EXPECT_EQ(model->report()->end, CheckReport::End::cancelled);
    EXPECT_FALSE(state->isCheckingCopies());
}

TEST_F(CopyCheckVMTests, isRefusedDuringABackup)
{
    chooseDrive();
    const QSignalSpy changed(model.get(), &CopyCheckVM::changed);
    state->engine().setIsRunning(true);
    EXPECT_EQ(changed.count(), 1);
    const QString refusal = u"A backup is running. The copies can be checked when it has ended."_s;
    EXPECT_EQ(model->refusal(), refusal);
    EXPECT_EQ(model->refusalForOriginals(), refusal);
    model->checkOriginals();
    model->checkList();
    EXPECT_TRUE(checks.jobs.isEmpty());
    state->engine().setIsRunning(false);
    EXPECT_EQ(model->refusal(), QString());
}

TEST_F(CopyCheckVMTests, aDriveThatIsAwayIsNotTakenForOneWithoutCopies)
{
    chooseDrive();
    const QSignalSpy changed(model.get(), &CopyCheckVM::changed);
    state->setIsDestinationAway(true);
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(model->refusalForOriginals(), u"Anchor is not connected."_s);
    EXPECT_EQ(model->refusal(), QString()) << "a list may lie beside copies of another drive";
    model->checkOriginals();
    EXPECT_TRUE(checks.jobs.isEmpty());
    state->setIsDestinationAway(false);
    EXPECT_EQ(changed.count(), 2);
    EXPECT_EQ(model->refusalForOriginals(), QString());
}

TEST_F(CopyCheckVMTests, refusesABackupWhileItRuns)
{
    startCheck();
    state->startBackup();
    ASSERT_EQ(state->alerts().size(), 1);
    EXPECT_EQ(state->alerts().first().title, u"Copies Are Being Checked"_s);
    EXPECT_EQ(state->alerts().first().message,
              u"A backup can start when the check has ended or is cancelled."_s);
    EXPECT_EQ(state->selectedScreen(), Screen::dashboard);
    state->setAlerts({});
    state->setSelectedScreen(Screen::preflight);
    EXPECT_FALSE(state->confirmBackup());
    EXPECT_FALSE(state->engine().isRunning());
    EXPECT_EQ(state->alerts().size(), 1);
    EXPECT_EQ(state->selectedScreen(), Screen::dashboard) << "where it can be read";
    endCheck(sampleCheck(1));
    state->startBackup();
    EXPECT_TRUE(state->alerts().isEmpty());
    EXPECT_EQ(state->selectedScreen(), Screen::preflight);
}

TEST_F(CopyCheckVMTests, isGivenUpWithItsWindow)
{
    startCheck();
    model.reset();
    EXPECT_TRUE(checks.cancellation().isQuitting());
    EXPECT_FALSE(state->isCheckingCopies());
    checks.end(sampleCheck(1));
}

TEST_F(CopyCheckVMTests, asksForAListOfChecksumsInThePlaceWhereOneIsSaved)
{
    chooseDrive();
    const FileURL list = drive().url.appending(u"Keelbright/Mira.sha256"_s);
    files.willChoose(list);
    model->checkList();
    ASSERT_EQ(files.openRequests.size(), 1);
    EXPECT_EQ(files.openRequests.first().message,
              u"Choose the list of checksums to compare the copies with."_s);
    EXPECT_EQ(files.openRequests.first().prompt, u"Check"_s);
    EXPECT_EQ(files.openRequests.first().extensions, QStringList({u"sha256"_s}));
    EXPECT_EQ(files.openRequests.first().folder, drive().url.appending(u"Keelbright"_s));
    ASSERT_EQ(checks.jobs.size(), 1);
    EXPECT_EQ(checks.jobs.first().checksumList, list);
    EXPECT_EQ(checks.jobs.first().destination, drive().url);
    EXPECT_TRUE(checks.jobs.first().sources.isEmpty());
    endCheck(sampleCheck(1));
}

TEST_F(CopyCheckVMTests, savesTheChecksumsWhereTheUserWants)
{
    startCheck();
    CheckReport report = sampleCheck(1);
    report.checksums = ChecksumSpool::create();
    ASSERT_NE(report.checksums, nullptr);
    const ChecksumLine line{QByteArray(32, 'x'), "Latest/Personal Files/a"};
    report.checksums->add(line);
    endCheck(report);
    EXPECT_TRUE(model->canSaveChecksums());
    const FileURL place = mac.root().appending(u"my list.sha256"_s);
    files.willChoose(place);
    model->saveChecksums();
    ASSERT_EQ(files.saveRequests.size(), 1);
    EXPECT_EQ(files.saveRequests.first().title, u"Save Checksums"_s);
    EXPECT_EQ(files.saveRequests.first().prompt, u"Save"_s);
    EXPECT_EQ(files.saveRequests.first().name, u"Mira.sha256"_s);
    EXPECT_EQ(files.saveRequests.first().extension, u"sha256"_s);
    EXPECT_EQ(files.saveRequests.first().folder, FileURL::fromPath(u"/Volumes/Anchor/Keelbright"_s));
    EXPECT_TRUE(QTest::qWaitFor([this] { return !model->savingNote().isEmpty(); }, 60'000));
    EXPECT_EQ(model->savingNote(), u"The checksums are saved as my list.sha256."_s);
    EXPECT_FALSE(model->hasSavingFailed());
    EXPECT_EQ(TestMac::read(place), line.text());
}

TEST_F(CopyCheckVMTests, saysWhyTheChecksumsCouldNotBeSaved)
{
    startCheck();
    CheckReport report = sampleCheck(1);
    report.checksums = ChecksumSpool::create();
    report.checksums->add({QByteArray(32, 'x'), "a"});
    endCheck(report);
    files.willChoose(mac.root().appending(u"no such folder/list.sha256"_s));
    model->saveChecksums();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !model->savingNote().isEmpty(); }, 60'000));
    EXPECT_EQ(model->savingNote(), u"“list.sha256” could not be written: it does not exist."_s);
    EXPECT_TRUE(model->hasSavingFailed());
}

TEST_F(CopyCheckVMTests, aPartOfTheChecksumsIsNotSaved)
{
    startCheck();
    CheckReport report = sampleCheck(1);
    report.checksums = ChecksumSpool::create();
    report.checksums->add({QByteArray(32, 'x'), "a"});
    report.end = CheckReport::End::cancelled;
    endCheck(report);
    EXPECT_FALSE(model->canSaveChecksums());
    model->saveChecksums();
    EXPECT_TRUE(files.saveRequests.isEmpty());
}

} // namespace keelbright::testing

#include "Keelbright/state/BackupEndNotice.h"

#include "Keelbright/state/Notifier.h"
#include "tests/state/AppStateFixture.h"

#include <optional>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

class FakeNotifier : public Notifier
{
public:
    void show(const Notification& notification, std::function<void()> onClick) override
    {
        shown.append(notification);
        click = std::move(onClick);
    }

    QList<Notification> shown;
    std::function<void()> click;
};

class BackupEndNoticeTest : public testing::AppStateFixture
{
protected:
    void endRun(const std::optional<BackupReport>& report, const std::optional<QString>& error = std::nullopt)
    {
        state->engine().setIsRunning(true);
        state->engine().setLastReport(report);
        state->engine().setLastError(error);
        state->engine().setIsRunning(false);
        turnEventLoopOnce();
    }

    static BackupReport reportWith(const QStringList& errors)
    {
        BackupReport report = testing::sampleReport();
        report.errors = errors;
        report.filesCopied = 12;
        report.bytesCopied = 3'400'000;
        return report;
    }

    std::unique_ptr<AppState> state = makeState();
    FakeNotifier notifier;
    bool isInFront = false;
    int broughtToFront = 0;
    std::optional<BackupEndNotice> notice{
        std::in_place, *state, notifier,
        BackupEndNotice::Windows{[this] { return isInFront; }, [this] { ++broughtToFront; }}};
};

} // namespace

TEST_F(BackupEndNoticeTest, namesWhatWasCopied)
{
    endRun(reportWith({}));
    EXPECT_EQ(notifier.shown, (QList<Notification>{{u"Backup completed"_s, u"12 files · 3.4 MB"_s}}));
}

TEST_F(BackupEndNoticeTest, namesWarnings)
{
    endRun(reportWith({u"Skip a.txt: no."_s}));
    EXPECT_EQ(notifier.shown,
              (QList<Notification>{{u"Backup completed with warnings"_s, u"12 files · 3.4 MB"_s}}));
}

TEST_F(BackupEndNoticeTest, namesWhyABackupCouldNotStart)
{
    endRun(std::nullopt, u"Could not create backup folders: The drive is full."_s);
    EXPECT_EQ(notifier.shown,
              (QList<Notification>{
                  {u"Backup could not start"_s, u"Could not create backup folders: The drive is full."_s}}));
}

TEST_F(BackupEndNoticeTest, isNotShownToWhoLooksAtTheWindow)
{
    isInFront = true;
    endRun(reportWith({}));
    EXPECT_TRUE(notifier.shown.isEmpty());
}

TEST_F(BackupEndNoticeTest, isNotShownAfterACancel)
{
    state->engine().setIsRunning(true);
    state->engine().cancel();
    state->engine().setLastReport(reportWith({}));
    state->engine().setIsRunning(false);
    EXPECT_TRUE(notifier.shown.isEmpty());
}

TEST_F(BackupEndNoticeTest, isShownOnceForEachRunAndNotAtItsStart)
{
    state->engine().setIsRunning(false);
    state->engine().setIsRunning(true);
    EXPECT_TRUE(notifier.shown.isEmpty());
    endRun(reportWith({}));
    endRun(reportWith({}));
    EXPECT_EQ(notifier.shown.size(), 2);
}

TEST_F(BackupEndNoticeTest, aClickShowsTheReport)
{
    endRun(reportWith({}));
    notifier.click();
    EXPECT_EQ(broughtToFront, 1);
    EXPECT_EQ(state->selectedScreen(), Screen::backupReport);
    EXPECT_EQ(state->lastReport(), reportWith({}));
}

TEST_F(BackupEndNoticeTest, aClickShowsTheReasonOfABackupThatCouldNotStart)
{
    endRun(std::nullopt, u"Could not create backup folders: no."_s);
    notifier.click();
    EXPECT_EQ(broughtToFront, 1);
    EXPECT_EQ(state->selectedScreen(), Screen::backupProgress);
}

TEST_F(BackupEndNoticeTest, aClickAfterTheEndOfTheProgramDoesNothing)
{
    endRun(reportWith({}));
    notice.reset();
    notifier.click();
    EXPECT_EQ(broughtToFront, 0);
    EXPECT_EQ(state->selectedScreen(), Screen::dashboard);
}

} // namespace keelbright

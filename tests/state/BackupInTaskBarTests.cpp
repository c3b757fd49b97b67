#include "Keelbright/state/BackupInTaskBar.h"

#include "Keelbright/state/TaskBar.h"
#include "tests/state/AppStateFixture.h"

#include <optional>

namespace keelbright::testing {

namespace {

using namespace Qt::StringLiterals;

class FakeTaskBar : public TaskBar
{
public:
    void showProgress(double fraction) override { calls.append(QString::number(fraction)); }

    void hideProgress() override { calls.append(u"hide"_s); }

    QStringList calls;
};

class BackupInTaskBarTests : public AppStateFixture
{
protected:
    void setCopied(qint64 files)
    {
        BackupProgress progress;
        progress.filesCopied = files;
        progress.totalFilesEstimate = 1'000;
        state->engine().setProgress(progress);
        turnEventLoopOnce();
    }

    void setRunning(bool isRunning)
    {
        state->engine().setIsRunning(isRunning);
        turnEventLoopOnce();
    }

    std::unique_ptr<AppState> state = makeState();
    FakeTaskBar taskBar;
    std::optional<BackupInTaskBar> backup{std::in_place, *state, taskBar};
};

} // namespace

TEST_F(BackupInTaskBarTests, showsNothingWhileNoBackupRuns)
{
    setCopied(500);
    state->setSelectedScreen(Screen::settings);
    turnEventLoopOnce();
    backup.reset();
    EXPECT_EQ(taskBar.calls, QStringList());
}

TEST_F(BackupInTaskBarTests, followsTheRunInWholePercent)
{
    setRunning(true);
    setCopied(9);
    setCopied(10);
    setCopied(19);
    setCopied(538);
    EXPECT_EQ(taskBar.calls, (QStringList{u"0"_s, u"0.01"_s, u"0.53"_s}));
}

TEST_F(BackupInTaskBarTests, goesWithTheEndOfEachRun)
{
    setRunning(true);
    setRunning(false);
    setRunning(true);
    state->engine().setLastError(u"Could not create backup folders: no."_s);
    setRunning(false);
    setRunning(true);
    state->engine().cancel();
    setRunning(false);
    EXPECT_EQ(taskBar.calls, (QStringList{u"0"_s, u"hide"_s, u"0"_s, u"hide"_s, u"0"_s, u"hide"_s}));
}

TEST_F(BackupInTaskBarTests, goesWhereTheProgramEndsInTheMiddleOfARun)
{
    setRunning(true);
    backup.reset();
    EXPECT_EQ(taskBar.calls, (QStringList{u"0"_s, u"hide"_s}));
}

TEST_F(BackupInTaskBarTests, noticesARunThatIsUnderWayAlready)
{
    setRunning(true);
    setCopied(250);
    taskBar.calls.clear();
    const BackupInTaskBar late(*state, taskBar);
    EXPECT_EQ(taskBar.calls, QStringList{u"0.25"_s});
}

} // namespace keelbright::testing

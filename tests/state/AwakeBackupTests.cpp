#include "Keelbright/state/AwakeBackup.h"

#include "Keelbright/state/SleepBlocker.h"
#include "KeelbrightCore/backup/BackupEngine.h"
#include "tests/support/Printing.h"

#include <QStringList>
#include <gtest/gtest.h>
#include <optional>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

class FakeSleepBlocker : public SleepBlocker
{
public:
    void block(const QString& reason) override { calls.append(u"block: "_s + reason); }

    void allow() override { calls.append(u"allow"_s); }

    QStringList calls;
};

const QString blocked = u"block: A backup is running"_s;

class AwakeBackupTest : public ::testing::Test
{
protected:
    BackupEngine engine;
    FakeSleepBlocker blocker;
    std::optional<AwakeBackup> awake{std::in_place, engine, blocker};
};

} // namespace

TEST_F(AwakeBackupTest, asksForNothingWhileNoBackupRuns)
{
    engine.setProgress({});
    engine.setIsRunning(false);
    awake.reset();
    EXPECT_EQ(blocker.calls, QStringList());
}

TEST_F(AwakeBackupTest, blocksSleepDuringEachRunAndOnlyThen)
{
    engine.setIsRunning(true);
    EXPECT_EQ(blocker.calls, QStringList{blocked});
    engine.setIsRunning(true);
    engine.setIsRunning(false);
    EXPECT_EQ(blocker.calls, (QStringList{blocked, u"allow"_s}));
    engine.setIsRunning(true);
    engine.setIsRunning(false);
    EXPECT_EQ(blocker.calls, (QStringList{blocked, u"allow"_s, blocked, u"allow"_s}));
}

TEST_F(AwakeBackupTest, allowsSleepAfterARunThatCouldNotStart)
{
    engine.setIsRunning(true);
    engine.setLastError(u"Could not create backup folders: no."_s);
    engine.setIsRunning(false);
    EXPECT_EQ(blocker.calls, (QStringList{blocked, u"allow"_s}));
}

TEST_F(AwakeBackupTest, allowsSleepWhereTheProgramEndsInTheMiddleOfARun)
{
    engine.setIsRunning(true);
    awake.reset();
    EXPECT_EQ(blocker.calls, (QStringList{blocked, u"allow"_s}));
    engine.setIsRunning(false);
    EXPECT_EQ(blocker.calls.size(), 2);
}

TEST_F(AwakeBackupTest, noticesARunThatIsUnderWayAlready)
{
    engine.setIsRunning(true);
    blocker.calls.clear();
    const AwakeBackup late(engine, blocker);
    EXPECT_EQ(blocker.calls, QStringList{blocked});
}

} // namespace keelbright

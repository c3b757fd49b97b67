#include "tests/support/EngineRun.h"
#include "tests/support/LoggedLines.h"
#include "tests/support/Printing.h"

#include <gmock/gmock.h>

namespace keelbright {
namespace {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::LoggedLines;

class BackupLoggingTest : public ::testing::Test, public testing::EngineRun
{
protected:
    BackupLoggingTest() { mac.writeFile("Users/mira/Documents/letter.txt", "12345"); }

    FileURL documents = mac.makeFolder("Users/mira/Documents");
    QString started = u"keelbright.backup: run started: 1 sources to "_s + drive.path();
    QString entered = u"keelbright.backup: source entered: "_s + documents.path();
};

TEST_F(BackupLoggingTest, isSilentUntilARuleTurnsItOn)
{
    const LoggedLines log{{}};
    run({documents});
    EXPECT_THAT(LoggedLines::take(), IsEmpty());
}

TEST_F(BackupLoggingTest, namesTheStepsOfARun)
{
    const LoggedLines log{u"keelbright.backup=true"_s};
    run({documents});
    EXPECT_THAT(LoggedLines::take(),
                ElementsAre(started, u"keelbright.backup: estimate: 1 files"_s, entered,
                            u"keelbright.backup: drive flushed"_s,
                            u"keelbright.backup: run ended: 1 copied, 0 skipped, 0 errors"_s));
}

TEST_F(BackupLoggingTest, saysThatARunWasCancelled)
{
    QObject::connect(&engine, &BackupEngine::progressChanged, [this] {
        if (engine.progress().filesCopied == 1)
            engine.cancel();
    });
    const LoggedLines log{u"keelbright.backup=true"_s};
    run({documents});
    EXPECT_EQ(LoggedLines::take().value(3), u"keelbright.backup: run cancelled"_s);
}

TEST_F(BackupLoggingTest, saysThatARunWasGivenUpBecauseTheProgramQuits)
{
    bool hasEnded = false;
    QObject::connect(&engine, &BackupEngine::progressChanged, [&] {
        if (engine.progress().filesCopied == 1 && !hasEnded)
            hasEnded = engine.shutDown(10'000);
    });
    const LoggedLines log{u"keelbright.backup=true"_s};
    engine.startBackup(job({documents}));
    turnUntil([&] { return hasEnded; });
    EXPECT_EQ(LoggedLines::take().last(), u"keelbright.backup: run given up: the program quits"_s);
}

TEST_F(BackupLoggingTest, saysWhyARunCouldNotStart)
{
    mac.writeFile("Volumes/Drive/Keelbright", "a file in the way");
    const LoggedLines log{u"keelbright.backup=true"_s};
    run({documents});
    EXPECT_THAT(
        LoggedLines::take(),
        ElementsAre(started,
                    u"keelbright.backup: run could not start: Could not create backup folders: “Keelbright” "
                    "could not be created: a file stands in the place of a folder."_s));
}

} // namespace
} // namespace keelbright

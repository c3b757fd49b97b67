#include "tests/state/AppStateFixture.h"
#include "tests/support/BackgroundWork.h"
#include "tests/support/EngineRun.h"
#include "tests/support/HeldReport.h"

#include <filesystem>

// What a state keeps of a run that ends in the moment in which the program quits.

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

class AppStateQuitTests : public AppStateFixture
{
protected:
    AppStateQuitTests()
    {
        mac.writeFile("etc/machine-info", "PRETTY_HOSTNAME=\"Mac\"\n");
        mac.writeFile("Users/mira/Documents/a.txt", "12345");
        mac.makeFolder("Volumes/Anchor");
        state = makeState();
    }

    ~AppStateQuitTests() override
    {
        report.letGo();
        state.reset();
        waitForBackgroundWork();
    }

    /// A run that comes to its report.
    void startBackup() const
    {
        state->engine().startBackup({QUuid::createUuid(),
                                     {{QUuid::createUuid(), mac.home().appending(u"Documents"_s), true}},
                                     drive(),
                                     mac.clock()()});
        EngineRun::turnUntil([this] { return report.isHeld(); });
    }

    [[nodiscard]] qsizetype reportsOnDrive() const
    {
        qsizetype count = 0;
        const FileURL folder = drive().url.appendingNative("Keelbright/Mac/Reports");
        for (const auto& file : std::filesystem::directory_iterator(folder.nativePath().toStdString()))
            count += file.path().extension() == ".json" ? 1 : 0;
        return count;
    }

    HeldReport report{mac.root()};
    FileManagerGuard inPlace{report};
    std::unique_ptr<AppState> state;
};

} // namespace

TEST_F(AppStateQuitTests, theReportOfARunThatEndsWhileTheProgramQuitsIsSavedAndLogged)
{
    startBackup();
    BackupEngine& engine = state->engine();
    EXPECT_FALSE(engine.shutDown(0)) << "it is still at its report";
    report.letGo();
    waitForBackgroundWork();
    EXPECT_TRUE(engine.shutDown(0));
    QCoreApplication::sendPostedEvents(state.get(), QEvent::MetaCall);

    EXPECT_FALSE(engine.isRunning());
    ASSERT_TRUE(engine.lastReport().has_value());
    EXPECT_EQ(engine.lastReport()->filesCopied, 1);
    EXPECT_EQ(reportsOnDrive(), 1);
    EXPECT_EQ(state->lastReport(), engine.lastReport());
    ASSERT_TRUE(savedConfiguration().lastReport.has_value());
    EXPECT_EQ(savedConfiguration().lastReport->jobId, engine.lastReport()->jobId);
    ASSERT_EQ(activityStore.load().size(), 1);
    EXPECT_EQ(activityStore.load().first().title, u"Backup completed"_s);
}

TEST_F(AppStateQuitTests, aRunThatWritesNoReportAnyMoreLeavesNoneAnywhere)
{
    report.letGo();
    state->engine().startBackup({QUuid::createUuid(),
                                 {{QUuid::createUuid(), mac.home().appending(u"Documents"_s), true}},
                                 drive(),
                                 mac.clock()()});
    // Before its first change, which nobody makes.
    std::ignore = state->engine().shutDown(0);
    waitForBackgroundWork();
    EXPECT_TRUE(state->engine().shutDown(0));
    QCoreApplication::sendPostedEvents(state.get(), QEvent::MetaCall);
    EXPECT_FALSE(state->engine().lastReport().has_value());
    EXPECT_FALSE(savedConfiguration().lastReport.has_value());
    EXPECT_TRUE(activityStore.load().isEmpty());
}

} // namespace keelbright::testing

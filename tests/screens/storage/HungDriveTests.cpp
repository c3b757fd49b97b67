#include "Keelbright/screens/PreflightSummaryView.h"
#include "Keelbright/screens/storage/StorageBrowserModel.h"
#include "KeelbrightCore/health/HealthScoreService.h"
#include "KeelbrightCore/health/JunkScanner.h"
#include "KeelbrightCore/platform/system/TaskPools.h"
#include "tests/screens/storage/StorageBrowserFixture.h"
#include "tests/support/BackgroundWork.h"
#include "tests/support/FailingDrive.h"

#include <filesystem>
#include <fstream>

// What walks on a drive that has stopped to answer keep from others: nothing.

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

class HungDriveTests : public StorageBrowserFixture
{
protected:
    HungDriveTests()
    {
        for (int folder = 0; folder < 20; ++folder) {
            const QByteArray path = drive.folder().nativePath() + "/folder " + QByteArray::number(folder);
            std::filesystem::create_directories(path.toStdString());
            std::ofstream((path + "/photo").toStdString()) << "some bytes";
        }
    }

    ~HungDriveTests() override
    {
        // What still hangs uses the machine of the test.
        if (drive.reasonMissing().empty())
            drive.goOn();
        waitForBackgroundWork();
    }

    static void expectHealthAndJunkSoon()
    {
        const QFuture<HealthScore> score = HealthScoreService::compute(std::nullopt);
        const QFuture<QList<JunkCategory>> junk = JunkScanner::scan();
        turnUntil([&] { return score.isFinished() && junk.isFinished(); });
    }

    FailingDrive drive{u"none"_s, 0, u"EIO"_s};
};

} // namespace

TEST_F(HungDriveTests, searchesForLargestFilesHoldNobodyElse)
{
    if (!drive.reasonMissing().empty())
        GTEST_SKIP() << drive.reasonMissing();
    StorageBrowserModel model(*state);
    navigate(model, drive.root());
    ASSERT_EQ(model.currentNodes().size(), 20);
    drive.hang();
    for (int asked = 0; asked < 5; ++asked)
        model.loadLargestFiles();
    expectHealthAndJunkSoon();
    StorageBrowserModel other(*state);
    navigate(other, documents());
    other.loadLargestFiles();
    waitForLargest(other);
    EXPECT_EQ(other.largestFiles().size(), 4);
    EXPECT_TRUE(model.isLoadingLargest());
    drive.goOn();
    waitForLargest(model);
    EXPECT_EQ(model.largestFiles().size(), 20);
}

TEST_F(HungDriveTests, searchesOfScreensThatWereClosedEndWhenTheDriveAnswers)
{
    if (!drive.reasonMissing().empty())
        GTEST_SKIP() << drive.reasonMissing();
    for (int opened = 0; opened < 3; ++opened) {
        StorageBrowserModel model(*state);
        navigate(model, drive.root());
        drive.hang();
        model.loadLargestFiles();
        expectHealthAndJunkSoon();
        EXPECT_TRUE(TaskPools::isAtWork());
        drive.goOn();
    }
    waitForBackgroundWork();
}

TEST_F(HungDriveTests, checksBeforeABackupHoldNobodyElseAndStartAgain)
{
    if (!drive.reasonMissing().empty())
        GTEST_SKIP() << drive.reasonMissing();
    state->setSelectedDestination(driveDestination());
    state->addCustomSource(drive.root());
    auto view = std::make_unique<PreflightSummaryView>(*state);
    drive.hang();
    for (int visit = 0; visit < 40; ++visit) {
        show(*view);
        view->hide();
    }
    show(*view);
    expectHealthAndJunkSoon();
    EXPECT_EQ(textsIn(*view), (QStringList{u"Preflight Check"_s, u"Analyzing selected folders..."_s}));
    // Without the drive among the folders the check needs nothing of it.
    state->setCustomSources({});
    view->hide();
    show(*view);
    turnUntil([&] { return textsIn(*view).contains(u"Backup Estimate"_s); });
    EXPECT_TRUE(TaskPools::isAtWork()) << "the drive was to hang still";
    drive.goOn();
    waitForBackgroundWork();
}

} // namespace keelbright::testing

#include "Keelbright/state/ScanResultsVM.h"
#include "Keelbright/state/Screen.h"
#include "tests/support/BackgroundWork.h"
#include "tests/support/HeldFileManager.h"
#include "tests/support/MadeUpMac.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <QCoreApplication>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

class ScanResultsVMTest : public ::testing::Test
{
protected:
    ~ScanResultsVMTest() override { waitForBackgroundWork(); }

    static void waitFor(const ScanResultsVM& scanned)
    {
        ASSERT_TRUE(QTest::qWaitFor([&] { return !scanned.isScanning(); }, 20'000));
    }

    void run(const QList<AppInfo>& apps)
    {
        model.runScan(std::nullopt, apps);
        waitFor(model);
    }

    [[nodiscard]] QStringList titles() const
    {
        QStringList texts;
        for (const ScanFinding& finding : model.report()->findings)
            texts.append(finding.title);
        return texts;
    }

    [[nodiscard]] AppInfo forgotten(const QString& name) const
    {
        return AppInfo({.name = name}, mac.clock()());
    }

    int argc = 1;
    char program[5] = "test";
    char* argv[1] = {program};
    QCoreApplication application{argc, argv};
    TestMac mac;
    HeldFileManager fileManager{mac.root()};
    FileManagerGuard guard{fileManager};
    FileURL trash = mac.home().appending(u".Trash"_s);
    ScanResultsVM model{mac.clock()};
};

} // namespace

TEST_F(ScanResultsVMTest, aNewModelIsIdle)
{
    EXPECT_FALSE(model.report().has_value());
    EXPECT_FALSE(model.isScanning());
}

TEST_F(ScanResultsVMTest, aScanReturnsAtOnceAndDeliversItsReport)
{
    fileManager.holdNextLookAt(trash);
    model.runScan(mac.clock()().addDays(-2), {forgotten(u"Tidewater"_s)});
    EXPECT_TRUE(model.isScanning());
    ASSERT_TRUE(fileManager.waitUntilHeld());
    QCoreApplication::processEvents();
    EXPECT_TRUE(model.isScanning());
    EXPECT_FALSE(model.report().has_value());
    fileManager.letGo();
    waitFor(model);
    ASSERT_TRUE(model.report().has_value());
    EXPECT_TRUE(titles().contains(u"Tidewater"_s));
    EXPECT_TRUE(titles().contains(u"Backup is recent"_s));
    EXPECT_EQ(model.report()->scannedAt, mac.clock()());
}

TEST_F(ScanResultsVMTest, theStepsAreAnnouncedInOrder)
{
    QStringList states;
    QObject::connect(&model, &ScanResultsVM::changed, &model, [&] {
        const QString report = model.report() ? u"a report"_s : u"no report"_s;
        states.append((model.isScanning() ? u"scanning, "_s : u"idle, "_s) + report);
    });
    run({forgotten(u"Tidewater"_s)});
    EXPECT_EQ(states, (QStringList{u"scanning, no report"_s, u"scanning, a report"_s, u"idle, a report"_s}));
}

TEST_F(ScanResultsVMTest, theEarlierReportStaysWhileTheNextScanRuns)
{
    run({forgotten(u"Tidewater"_s)});
    const FullScanReport earlier = *model.report();
    fileManager.holdNextLookAt(trash);
    model.runScan(std::nullopt, {forgotten(u"Sketchbook"_s)});
    ASSERT_TRUE(fileManager.waitUntilHeld());
    EXPECT_EQ(model.report(), earlier);
    fileManager.letGo();
    waitFor(model);
    EXPECT_NE(model.report(), earlier);
}

TEST_F(ScanResultsVMTest, aSecondRunReplacesTheReportAsAWhole)
{
    run({forgotten(u"Tidewater"_s)});
    const FullScanReport earlier = *model.report();
    run({forgotten(u"Sketchbook"_s)});
    EXPECT_FALSE(titles().contains(u"Tidewater"_s));
    EXPECT_TRUE(titles().contains(u"Sketchbook"_s));
    for (const ScanFinding& finding : model.report()->findings) {
        for (const ScanFinding& old : earlier.findings)
            EXPECT_NE(finding.id, old.id);
    }
}

TEST_F(ScanResultsVMTest, withoutApplicationsTheScanListsThemItself)
{
    MadeUpMac(mac.root(), mac.clock()()).addApplications();
    run({});
    EXPECT_TRUE(titles().contains(u"Old Scanner"_s));
    EXPECT_EQ(fileManager.looksAt(mac.root().appending(u"Applications"_s)), 1);
}

TEST_F(ScanResultsVMTest, everyFindingLeadsToAScreenThatThereIs)
{
    MadeUpMac(mac.root(), mac.clock()()).addLibrary();
    run({forgotten(u"Tidewater"_s)});
    QSet<Screen> screens;
    for (const ScanFinding& finding : model.report()->findings) {
        const auto* action = std::get_if<ScanFinding::NavigateTo>(&finding.action);
        ASSERT_NE(action, nullptr);
        const std::optional<Screen> screen = screenFromRawValue(action->screen);
        ASSERT_TRUE(screen.has_value()) << action->screen.toStdString();
        screens.insert(*screen);
    }
    // How full the real disk is decides on the storage finding.
    screens.remove(Screen::storageBrowser);
    EXPECT_EQ(screens, (QSet{Screen::junkCleaner, Screen::appManager, Screen::dashboard}));
}

TEST_F(ScanResultsVMTest, closedInTheMiddleOfAScanItReceivesNothing)
{
    auto closed = std::make_unique<ScanResultsVM>(mac.clock());
    fileManager.holdNextLookAt(trash);
    closed->runScan(std::nullopt, {});
    const QSignalSpy delivered(closed.get(), &ScanResultsVM::changed);
    ASSERT_TRUE(fileManager.waitUntilHeld());
    closed.reset();
    fileManager.letGo();
    waitForBackgroundWork();
    QCoreApplication::processEvents();
    EXPECT_EQ(delivered.count(), 0);
}

TEST_F(ScanResultsVMTest, closedWithTheReportOnItsWayItReceivesNothing)
{
    auto closed = std::make_unique<ScanResultsVM>(mac.clock());
    closed->runScan(std::nullopt, {});
    const QSignalSpy delivered(closed.get(), &ScanResultsVM::changed);
    waitForBackgroundWork();
    closed.reset();
    QCoreApplication::processEvents();
    EXPECT_EQ(delivered.count(), 0);
}

} // namespace keelbright::testing

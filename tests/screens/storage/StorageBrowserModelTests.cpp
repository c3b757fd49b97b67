#include "Keelbright/screens/storage/StorageBrowserModel.h"

#include "Keelbright/state/NotificationCenter.h"
#include "tests/screens/storage/StorageBrowserFixture.h"
#include "tests/support/UnprivilegedUser.h"

#include <QSignalSpy>

#include <filesystem>

namespace keelbright::testing {

using namespace Qt::StringLiterals;
using ViewMode = StorageBrowserModel::ViewMode;
using SortOrder = StorageBrowserModel::SortOrder;

namespace {

using StorageBrowserModelTests = StorageBrowserFixture;

} // namespace

TEST_F(StorageBrowserModelTests, startsWithNothing)
{
    const StorageBrowserModel model(*state);
    EXPECT_TRUE(model.stack().isEmpty());
    EXPECT_FALSE(model.isScanning());
    EXPECT_FALSE(model.pendingDelete().has_value());
    EXPECT_EQ(model.sortOrder(), SortOrder::size);
    EXPECT_EQ(model.viewMode(), ViewMode::list);
    EXPECT_TRUE(model.largestFiles().isEmpty());
    EXPECT_FALSE(model.isLoadingLargest());
    EXPECT_FALSE(model.currentURL().has_value());
    EXPECT_TRUE(model.currentNodes().isEmpty());
    EXPECT_TRUE(model.sortedNodes().isEmpty());
    EXPECT_EQ(model.currentBytes(), 0);
}

TEST_F(StorageBrowserModelTests, namesItsModesAndOrders)
{
    QStringList modes;
    for (const ViewMode mode : StorageBrowserModel::allViewModes())
        modes.append(StorageBrowserModel::rawValue(mode));
    EXPECT_EQ(modes, (QStringList{u"List"_s, u"Treemap"_s, u"Largest Files"_s}));
    QStringList orders;
    for (const SortOrder order : StorageBrowserModel::allSortOrders())
        orders.append(StorageBrowserModel::rawValue(order));
    EXPECT_EQ(orders, (QStringList{u"Size"_s, u"Name"_s}));
}

TEST_F(StorageBrowserModelTests, aWalkBeginsWithTheLevelOfItsFolder)
{
    StorageBrowserModel model(*state);
    model.navigate(documents());
    EXPECT_TRUE(model.isScanning());
    EXPECT_TRUE(model.stack().isEmpty());
    waitForLevel(model);
    EXPECT_EQ(model.currentURL(), documents());
    EXPECT_EQ(lines(model.currentNodes()), (QStringList{u"Work 7000"_s, u"c.txt 2000"_s, u"d.JPG 1000"_s}));
    EXPECT_EQ(model.currentBytes(), 10'000);
}

TEST_F(StorageBrowserModelTests, choosingTheSameFolderAgainStartsANewWalkAndMeasuresAgain)
{
    StorageBrowserModel model(*state);
    navigate(model, documents());
    drillIn(model, u"Work"_s);
    model.setViewMode(ViewMode::treemap);
    write("c.txt", 9'000);
    navigate(model, documents());
    EXPECT_EQ(walked(model), QStringList{u"Documents"_s});
    EXPECT_EQ(model.viewMode(), ViewMode::list);
    EXPECT_EQ(lines(model.currentNodes()), (QStringList{u"c.txt 9000"_s, u"Work 7000"_s, u"d.JPG 1000"_s}));
}

TEST_F(StorageBrowserModelTests, aNewWalkEmptiesTheLargestFilesAndADeeperLevelToo)
{
    StorageBrowserModel model(*state);
    navigate(model, documents());
    model.setViewMode(ViewMode::largest);
    waitForLargest(model);
    ASSERT_FALSE(model.largestFiles().isEmpty());
    drillIn(model, u"Work"_s);
    EXPECT_TRUE(model.largestFiles().isEmpty());
    EXPECT_EQ(model.viewMode(), ViewMode::largest);
    model.loadLargestFiles();
    waitForLargest(model);
    ASSERT_FALSE(model.largestFiles().isEmpty());
    model.navigate(pictures());
    EXPECT_TRUE(model.largestFiles().isEmpty());
    waitForLevel(model);
}

TEST_F(StorageBrowserModelTests, goingBackMeasuresNothing)
{
    HeldWalks held(mac.root());
    const FileManagerGuard guard(held);
    StorageBrowserModel model(*state);
    navigate(model, documents());
    drillIn(model, u"Work"_s);
    drillIn(model, u"Old"_s);
    EXPECT_EQ(walked(model), (QStringList{u"Documents"_s, u"Work"_s, u"Old"_s}));
    const qsizetype looks = held.looksAt(documents());
    model.goBack();
    EXPECT_FALSE(model.isScanning());
    EXPECT_EQ(walked(model), (QStringList{u"Documents"_s, u"Work"_s}));
    model.goBack();
    model.goBack();
    EXPECT_EQ(walked(model), QStringList{u"Documents"_s});
    waitForBackgroundWork();
    EXPECT_EQ(held.looksAt(documents()), looks);
}

TEST_F(StorageBrowserModelTests, aLevelAboveIsReachedAtOnce)
{
    StorageBrowserModel model(*state);
    navigate(model, documents());
    drillIn(model, u"Work"_s);
    drillIn(model, u"Old"_s);
    model.goTo(0);
    EXPECT_EQ(walked(model), QStringList{u"Documents"_s});
    model.goTo(1);
    model.goTo(-1);
    EXPECT_EQ(walked(model), QStringList{u"Documents"_s});
}

TEST_F(StorageBrowserModelTests, sortsByNameAndBack)
{
    write("apple.txt", 1);
    StorageBrowserModel model(*state);
    navigate(model, documents());
    model.setSortOrder(SortOrder::name);
    EXPECT_EQ(lines(model.sortedNodes()),
              (QStringList{u"apple.txt 1"_s, u"c.txt 2000"_s, u"d.JPG 1000"_s, u"Work 7000"_s}));
    EXPECT_EQ(lines(model.currentNodes()).first(), u"Work 7000"_s);
    model.setSortOrder(SortOrder::size);
    EXPECT_EQ(model.sortedNodes(), model.currentNodes());
}

TEST_F(StorageBrowserModelTests, eachMeasurementAppendsItsLevelWhenItEnds)
{
    HeldWalks held(mac.root());
    const FileManagerGuard guard(held);
    StorageBrowserModel model(*state);
    held.holdNextLookAt(documents());
    model.navigate(documents());
    ASSERT_TRUE(held.waitUntilHeld());
    model.navigate(pictures());
    waitForLevel(model);
    EXPECT_EQ(walked(model), QStringList{u"Pictures"_s});
    held.letGo();
    turnUntil([&] { return model.stack().size() == 2; });
    EXPECT_EQ(walked(model), (QStringList{u"Pictures"_s, u"Documents"_s}));
}

TEST_F(StorageBrowserModelTests, trashingMeasuresTheLevelAgainAndLeavesTheOnesAboveAsTheyWere)
{
    StorageBrowserModel model(*state);
    navigate(model, documents());
    drillIn(model, u"Work"_s);
    const FolderSizeNode old = node(model, u"Old"_s);
    model.setPendingDelete(old);
    model.trash(old);
    EXPECT_FALSE(model.pendingDelete().has_value());
    EXPECT_TRUE(model.isScanning());
    EXPECT_EQ(walked(model), QStringList{u"Documents"_s});
    EXPECT_FALSE(exists(old.url));
    waitForLevel(model);
    EXPECT_EQ(walked(model), (QStringList{u"Documents"_s, u"Work"_s}));
    EXPECT_EQ(lines(model.currentNodes()), QStringList{u"a.pdf 3000"_s});
    model.goBack();
    EXPECT_EQ(node(model, u"Work"_s).totalBytes, 7'000);
    EXPECT_TRUE(activityStore.load().isEmpty());
}

TEST_F(StorageBrowserModelTests, trashingFromTheFirstLevelComesBackToIt)
{
    StorageBrowserModel model(*state);
    navigate(model, documents());
    model.trash(node(model, u"c.txt"_s));
    EXPECT_FALSE(model.currentURL().has_value());
    waitForLevel(model);
    EXPECT_EQ(model.currentURL(), documents());
    EXPECT_EQ(lines(model.currentNodes()), (QStringList{u"Work 7000"_s, u"d.JPG 1000"_s}));
}

TEST_F(StorageBrowserModelTests, trashingWithoutALevelMeasuresNothing)
{
    StorageBrowserModel model(*state);
    const FileURL file = documents().appending(u"c.txt"_s);
    const FolderSizeNode node{.id = QUuid::createUuid(), .name = u"c.txt"_s, .url = file};
    model.setPendingDelete(node);
    model.trash(node);
    EXPECT_FALSE(exists(file));
    EXPECT_FALSE(model.pendingDelete().has_value());
    EXPECT_FALSE(model.isScanning());
}

TEST_F(StorageBrowserModelTests, anItemThatMayNotBeMovedStaysAfterTheNewMeasurement)
{
    std::filesystem::permissions(mac.root().nativePath().toStdString(), std::filesystem::perms(0755));
    const std::filesystem::path folder = documents().nativePath().toStdString();
    std::filesystem::permissions(folder, std::filesystem::perms(0555));
    StorageBrowserModel model(*state);
    navigate(model, documents());
    {
        const UnprivilegedUser user;
        model.trash(node(model, u"c.txt"_s));
        waitForLevel(model);
    }
    std::filesystem::permissions(folder, std::filesystem::perms(0755));
    EXPECT_EQ(lines(model.currentNodes()), (QStringList{u"Work 7000"_s, u"c.txt 2000"_s, u"d.JPG 1000"_s}));
}

TEST_F(StorageBrowserModelTests, measuringAgainReplacesTheLastLevelOnly)
{
    StorageBrowserModel model(*state);
    navigate(model, documents());
    drillIn(model, u"Work"_s);
    write("Work/new.txt", 5'000);
    model.measureAgain();
    EXPECT_TRUE(model.isScanning());
    // Asked for again before it has ended.
    model.measureAgain();
    EXPECT_EQ(walked(model), QStringList{u"Documents"_s});
    waitForLevel(model);
    EXPECT_EQ(walked(model), (QStringList{u"Documents"_s, u"Work"_s}));
    EXPECT_EQ(lines(model.currentNodes()), (QStringList{u"new.txt 5000"_s, u"Old 4000"_s, u"a.pdf 3000"_s}));
}

TEST_F(StorageBrowserModelTests, withoutALevelThereIsNothingToMeasureAgain)
{
    StorageBrowserModel model(*state);
    model.measureAgain();
    EXPECT_FALSE(model.isScanning());
}

TEST_F(StorageBrowserModelTests, theModelMayBeDestroyedInTheMiddleOfAMeasurement)
{
    HeldWalks held(mac.root());
    const FileManagerGuard guard(held);
    auto model = std::make_unique<StorageBrowserModel>(*state);
    held.holdNextLookAt(documents());
    model->navigate(documents());
    ASSERT_TRUE(held.waitUntilHeld());
    model.reset();
    held.letGo();
    waitForBackgroundWork();
    settle();
}

TEST_F(StorageBrowserModelTests, organisingSelectsTheScreenAndThenPostsTheFolder)
{
    StorageBrowserModel model(*state);
    QStringList posted;
    const auto listener = QObject::connect(&NotificationCenter::defaultCenter(), &NotificationCenter::posted,
                                           state.get(), [&](const QString& name, const QVariant& object) {
                                               EXPECT_EQ(state->selectedScreen(), Screen::organizer);
                                               posted.append(name + u' ' + object.value<FileURL>().path());
                                           });
    model.organiseCurrentFolder(documents());
    QObject::disconnect(listener);
    EXPECT_EQ(posted, QStringList{u"com.keelbright.organizeFolder "_s + documents().path()});
}

TEST_F(StorageBrowserModelTests, aFolderBecomesASourceOfTheBackup)
{
    StorageBrowserModel model(*state);
    navigate(model, documents());
    model.addToBackup(node(model, u"Work"_s));
    ASSERT_EQ(state->customSources().size(), 1);
    EXPECT_EQ(state->customSources().first().url, documents().appending(u"Work"_s));
}

TEST_F(StorageBrowserModelTests, theChooserAsksForOneFolder)
{
    StorageBrowserModel model(*state);
    chooser.willChoose({documents()});
    model.pickFolder();
    ASSERT_EQ(chooser.requests().size(), 1);
    const FolderChooserRequest& request = chooser.requests().first();
    EXPECT_EQ(request.message, u"Choose a folder to inspect."_s);
    EXPECT_EQ(request.prompt, u"Browse"_s);
    EXPECT_FALSE(request.allowsMultipleSelection);
    EXPECT_FALSE(request.canCreateDirectories);
    waitForLevel(model);
    EXPECT_EQ(model.currentURL(), documents());
}

TEST_F(StorageBrowserModelTests, aDismissedChooserChangesNothing)
{
    StorageBrowserModel model(*state);
    chooser.willBeDismissed();
    model.pickFolder();
    EXPECT_FALSE(model.isScanning());
}

TEST_F(StorageBrowserModelTests, theModelMayBeDestroyedWhileTheChooserIsOpen)
{
    auto model = std::make_unique<StorageBrowserModel>(*state);
    chooser.willStayOpen();
    model->pickFolder();
    model.reset();
    chooser.confirm({documents()});
}

TEST_F(StorageBrowserModelTests, aFolderThatCannotBeReadIsAnEmptyLevel)
{
    StorageBrowserModel model(*state);
    navigate(model, mac.home().appending(u"Nowhere"_s));
    EXPECT_EQ(model.stack().size(), 1);
    EXPECT_TRUE(model.currentNodes().isEmpty());
    EXPECT_EQ(model.currentBytes(), 0);
}

TEST_F(StorageBrowserModelTests, aFolderThatMayNotBeReadIsAnEmptyLevelToo)
{
    std::filesystem::permissions(mac.root().nativePath().toStdString(), std::filesystem::perms(0755));
    const std::filesystem::path folder = documents().appending(u"Work"_s).nativePath().toStdString();
    std::filesystem::permissions(folder, std::filesystem::perms::none);
    StorageBrowserModel model(*state);
    {
        const UnprivilegedUser user;
        navigate(model, documents().appending(u"Work"_s));
    }
    std::filesystem::permissions(folder, std::filesystem::perms(0755));
    EXPECT_EQ(walked(model), QStringList{u"Work"_s});
    EXPECT_TRUE(model.currentNodes().isEmpty());
    EXPECT_EQ(model.currentBytes(), 0);
}

TEST_F(StorageBrowserModelTests, announcesEachChange)
{
    StorageBrowserModel model(*state);
    QSignalSpy changes(&model, &StorageBrowserModel::changed);
    model.setSortOrder(SortOrder::name);
    EXPECT_EQ(changes.count(), 1);
    navigate(model, documents());
    EXPECT_EQ(changes.count(), 3);
    model.setPendingDelete(node(model, u"c.txt"_s));
    EXPECT_EQ(changes.count(), 4);
}

} // namespace keelbright::testing

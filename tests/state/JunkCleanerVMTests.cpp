#include "tests/state/JunkCleanerVMFixture.h"

#include <QSignalSpy>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

using SelectionState = JunkCleanerVM::SelectionState;
using JunkCleanerVMTest = JunkCleanerVMFixture;

TEST_F(JunkCleanerVMTest, aNewModelIsEmpty)
{
    EXPECT_TRUE(model.categories().isEmpty());
    EXPECT_EQ(model.selectedCategoryID(), std::nullopt);
    EXPECT_TRUE(model.selectedItemIDs().isEmpty());
    EXPECT_FALSE(model.isScanning());
    EXPECT_FALSE(model.showCleanConfirm());
    EXPECT_EQ(model.totalSelectedBytes(), 0);
}

TEST_F(JunkCleanerVMTest, aScanListsTheJunkAndShowsItsFirstCategory)
{
    addJunk();
    scan();
    EXPECT_EQ(listed(),
              (QStringList{u"userCaches: large small"_s, u"userLogs: one two"_s, u"iosBackups: phone"_s}));
    EXPECT_EQ(model.selectedCategoryID(), u"userCaches"_s);
}

TEST_F(JunkCleanerVMTest, aScanSelectsNothing)
{
    addJunk();
    scan();
    EXPECT_TRUE(model.selectedItemIDs().isEmpty());
}

TEST_F(JunkCleanerVMTest, aScanThatFindsNothingShowsNoCategory)
{
    scan();
    EXPECT_TRUE(model.categories().isEmpty());
    EXPECT_EQ(model.selectedCategoryID(), std::nullopt);
}

TEST_F(JunkCleanerVMTest, aScanReturnsAtOnceAndKeepsTheOldListUntilTheNewOneIsThere)
{
    addJunk();
    scan();
    const QList<JunkCategory> before = model.categories();
    junk("Logs/three", 100);
    fileManager.holdNextLookAt(mac.home().appending(u".Trash"_s));
    model.scan();
    EXPECT_TRUE(model.isScanning());
    ASSERT_TRUE(fileManager.waitUntilHeld());
    QCoreApplication::processEvents();
    EXPECT_TRUE(model.isScanning());
    EXPECT_EQ(model.categories(), before);
    fileManager.letGo();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !model.isScanning(); }, 20'000));
    EXPECT_EQ(listed().first(), u"userLogs: three one two"_s);
}

TEST_F(JunkCleanerVMTest, scanningAgainDropsTheSelectionBeforeTheResultIsThere)
{
    addJunk();
    scan();
    model.selectAll();
    fileManager.holdNextLookAt(mac.home().appending(u".Trash"_s));
    model.scan();
    EXPECT_TRUE(model.selectedItemIDs().isEmpty());
    EXPECT_EQ(model.selectedCategoryID(), std::nullopt);
    EXPECT_FALSE(model.categories().isEmpty());
    fileManager.letGo();
}

TEST_F(JunkCleanerVMTest, aSelectionNeverRefersToItemsOfAnEarlierScan)
{
    addJunk();
    scan();
    const QUuid earlier = item(u"large"_s).id;
    scan();
    model.setSelected(earlier, true);
    EXPECT_EQ(model.totalSelectedBytes(), 0);
    model.clean();
    EXPECT_TRUE(fileManager.asked.isEmpty());
    EXPECT_EQ(listed().size(), 3);
}

TEST_F(JunkCleanerVMTest, aScanDuringAScanDeliversBoth)
{
    addJunk();
    QSet<QUuid> deliveries;
    const QObject context;
    QObject::connect(&model, &JunkCleanerVM::changed, &context, [&] {
        if (!model.categories().isEmpty())
            deliveries.insert(model.categories().first().items.first().id);
    });
    model.scan();
    model.scan();
    ASSERT_TRUE(QTest::qWaitFor([&] { return deliveries.size() == 2; }, 20'000));
    EXPECT_EQ(listed().size(), 3);
    EXPECT_FALSE(model.isScanning());
}

TEST_F(JunkCleanerVMTest, aScanAnnouncesItsStepsInOrder)
{
    junk("Logs/one", 9);
    scan();
    model.selectAll();
    EXPECT_EQ(changesOf([this] {
                  junk("Logs/two", 8);
                  scan();
              }),
              (QStringList{u"scanning; userLogs: one; shows userLogs; 1 selected"_s,
                           u"scanning; userLogs: one; shows userLogs; 0 selected"_s,
                           u"scanning; userLogs: one; shows nothing; 0 selected"_s,
                           u"scanning; userLogs: one two; shows nothing; 0 selected"_s,
                           u"userLogs: one two; shows nothing; 0 selected"_s,
                           u"userLogs: one two; shows userLogs; 0 selected"_s}));
}

TEST_F(JunkCleanerVMTest, aModelThatIsGoneGetsNothingOfARunningScan)
{
    addJunk();
    auto closed = std::make_unique<JunkCleanerVM>(activityStore, mac.clock());
    fileManager.holdNextLookAt(mac.home().appending(u".Trash"_s));
    closed->scan();
    const QSignalSpy delivered(closed.get(), &JunkCleanerVM::changed);
    ASSERT_TRUE(fileManager.waitUntilHeld());
    closed.reset();
    fileManager.letGo();
    waitForBackgroundWork();
    QCoreApplication::processEvents();
    EXPECT_EQ(delivered.count(), 0);
}

TEST_F(JunkCleanerVMTest, aModelThatIsGoneGetsNothingOfAFinishedScan)
{
    addJunk();
    auto closed = std::make_unique<JunkCleanerVM>(activityStore, mac.clock());
    closed->scan();
    const QSignalSpy delivered(closed.get(), &JunkCleanerVM::changed);
    waitForBackgroundWork();
    closed.reset();
    QCoreApplication::processEvents();
    EXPECT_EQ(delivered.count(), 0);
}

TEST_F(JunkCleanerVMTest, aCategoryIsSelectedInPartsOrAsAWhole)
{
    addJunk();
    scan();
    const JunkCategory caches = model.categories().at(0);
    EXPECT_EQ(model.selectionState(caches), SelectionState::none);
    select({u"large"_s});
    EXPECT_EQ(model.selectionState(caches), SelectionState::partial);
    select({u"small"_s});
    EXPECT_EQ(model.selectionState(caches), SelectionState::all);
    EXPECT_EQ(model.selectionState(model.categories().at(1)), SelectionState::none);
}

TEST_F(JunkCleanerVMTest, aCategoryWithoutItemsIsNeverSelected)
{
    const JunkCategory empty{u"trash"_s, u"Trash"_s, u"trash.fill"_s, {}};
    EXPECT_EQ(model.selectionState(empty), SelectionState::none);
    EXPECT_EQ(changesOf([&] { model.toggleAll(empty); }), QStringList());
}

TEST_F(JunkCleanerVMTest, togglingAnUnselectedCategorySelectsItAllAndTogglingAgainNoneOfIt)
{
    addJunk();
    scan();
    const JunkCategory caches = model.categories().at(0);
    model.toggleAll(caches);
    EXPECT_EQ(model.selectionState(caches), SelectionState::all);
    EXPECT_EQ(model.totalSelectedBytes(), 40);
    model.toggleAll(caches);
    EXPECT_EQ(model.selectionState(caches), SelectionState::none);
    EXPECT_TRUE(model.selectedItemIDs().isEmpty());
}

TEST_F(JunkCleanerVMTest, togglingAPartialCategorySelectsTheRest)
{
    addJunk();
    scan();
    select({u"small"_s});
    model.toggleAll(model.categories().at(0));
    EXPECT_EQ(model.selectionState(model.categories().at(0)), SelectionState::all);
}

TEST_F(JunkCleanerVMTest, togglingACategoryLeavesTheOthersAlone)
{
    addJunk();
    scan();
    select({u"one"_s});
    model.toggleAll(model.categories().at(0));
    model.toggleAll(model.categories().at(0));
    EXPECT_EQ(model.selectedItemIDs(), QSet<QUuid>{item(u"one"_s).id});
}

TEST_F(JunkCleanerVMTest, selectingAllAfterSomeWereSelectedEndsWithAllSelected)
{
    addJunk();
    scan();
    select({u"small"_s, u"two"_s});
    model.selectAll();
    EXPECT_EQ(model.selectedItemIDs().size(), 5);
    EXPECT_EQ(model.totalSelectedBytes(), 58);
    for (const JunkCategory& category : model.categories())
        EXPECT_EQ(model.selectionState(category), SelectionState::all);
}

TEST_F(JunkCleanerVMTest, anItemIsSelectedAndUnselectedByItsId)
{
    addJunk();
    scan();
    model.setSelected(item(u"one"_s).id, true);
    EXPECT_EQ(model.totalSelectedBytes(), 9);
    model.setSelected(item(u"one"_s).id, false);
    EXPECT_EQ(model.totalSelectedBytes(), 0);
    model.setSelected(item(u"one"_s).id, false);
    EXPECT_TRUE(model.selectedItemIDs().isEmpty());
}

TEST_F(JunkCleanerVMTest, eachSetIsAnnouncedOnce)
{
    const QSignalSpy confirmation(&model, &JunkCleanerVM::showCleanConfirmChanged);
    const QSignalSpy changes(&model, &JunkCleanerVM::changed);
    model.setShowCleanConfirm(true);
    EXPECT_EQ(confirmation.count(), 1);
    EXPECT_EQ(changes.count(), 1);
    model.setSelectedCategoryID(u"trash"_s);
    EXPECT_EQ(changes.count(), 2);
    model.setSelectedItemIDs({});
    EXPECT_EQ(changes.count(), 3);
    model.setSelected(QUuid::createUuid(), true);
    EXPECT_EQ(changes.count(), 4);
    model.selectAll();
    EXPECT_EQ(changes.count(), 5);
    EXPECT_EQ(confirmation.count(), 1);
    EXPECT_TRUE(model.showCleanConfirm());
    EXPECT_EQ(model.selectedCategoryID(), u"trash"_s);
}

} // namespace keelbright::testing

#include "Keelbright/state/JunkCleanerVM.h"
#include "KeelbrightCore/records/ActivityStore.h"
#include "tests/support/BackgroundWork.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"
#include "tests/support/WatchedTrash.h"

#include <QCoreApplication>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;
using SelectionState = JunkCleanerVM::SelectionState;

namespace {

class JunkCleanerVMTest : public ::testing::Test
{
protected:
    ~JunkCleanerVMTest() override { waitForBackgroundWork(); }

    /// A folder of junk below the home's Library, with a file of that many bytes.
    FileURL junk(const QByteArray& path, qsizetype bytes) const
    {
        mac.writeFile("Users/mira/Library/" + path + "/file", QByteArray(bytes, 'x'));
        return mac.home().appendingNative("Library/" + path);
    }

    /// Two caches (30 and 10 bytes), two logs (9 and 8 bytes) and one device backup (1 byte).
    void addJunk() const
    {
        junk("Caches/large", 30);
        junk("Caches/small", 10);
        junk("Logs/one", 9);
        junk("Logs/two", 8);
        junk("Application Support/MobileSync/Backup/phone", 1);
    }

    void scan(JunkCleanerVM& scanned) const
    {
        scanned.scan();
        ASSERT_TRUE(QTest::qWaitFor([&] { return !scanned.isScanning(); }, 20'000));
    }

    void scan() { scan(model); }

    [[nodiscard]] JunkItem item(const QString& name) const
    {
        for (const JunkCategory& category : model.categories()) {
            for (const JunkItem& one : category.items) {
                if (one.name() == name)
                    return one;
            }
        }
        ADD_FAILURE() << "not listed: " << name.toStdString();
        return {.url = {}, .sizeBytes = 0};
    }

    void select(const QStringList& names)
    {
        for (const QString& name : names)
            model.setSelected(item(name).id, true);
    }

    /// "userCaches: large small" for each category.
    [[nodiscard]] QStringList listed() const
    {
        QStringList lines;
        for (const JunkCategory& category : model.categories()) {
            QStringList names;
            for (const JunkItem& one : category.items)
                names.append(one.name());
            lines.append(category.id + u": "_s + names.join(u' '));
        }
        return lines;
    }

    [[nodiscard]] FileURL trashed(const QByteArray& name) const
    {
        return mac.home().appendingNative(".local/share/Trash/files/" + name);
    }

    [[nodiscard]] bool exists(const FileURL& url) { return fileManager.fileExists(url).exists; }

    /// "scanning; userLogs: one; shows userLogs; 1 selected": the model as an observer finds it.
    [[nodiscard]] QString summary() const
    {
        const QString shown = model.selectedCategoryID().value_or(u"nothing"_s);
        return (model.isScanning() ? u"scanning; "_s : QString()) + listed().join(u", "_s) + u"; shows "_s +
               shown + u"; "_s + QString::number(model.selectedItemIDs().size()) + u" selected"_s;
    }

    /// What an observer finds at each change that `act` makes.
    [[nodiscard]] QStringList changesOf(const std::function<void()>& act) const
    {
        QStringList summaries;
        QObject context;
        QObject::connect(&model, &JunkCleanerVM::changed, &context, [&] { summaries.append(summary()); });
        act();
        return summaries;
    }

    int argc = 1;
    char program[5] = "test";
    char* argv[1] = {program};
    QCoreApplication application{argc, argv};
    TestMac mac;
    WatchedTrash fileManager{mac.root()};
    FileManagerGuard guard{fileManager};
    ActivityStore activityStore{fileManager.applicationSupportDirectory()};
    JunkCleanerVM model{activityStore, mac.clock()};
};

} // namespace

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
    QObject::connect(&model, &JunkCleanerVM::changed, &model, [&] {
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

TEST_F(JunkCleanerVMTest, closedInTheMiddleOfAScanItHearsNothingMoreOfIt)
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

TEST_F(JunkCleanerVMTest, closedWithTheResultOnItsWayItHearsNothingMoreOfIt)
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

TEST_F(JunkCleanerVMTest, cleaningMovesWhatIsSelectedToTheTrashAndNothingElse)
{
    addJunk();
    scan();
    select({u"small"_s, u"one"_s});
    model.clean();
    EXPECT_EQ(fileManager.asked, (QStringList{u"small"_s, u"one"_s}));
    EXPECT_EQ(TestMac::read(trashed("small/file")), QByteArray(10, 'x'));
    EXPECT_EQ(TestMac::read(trashed("one/file")), QByteArray(9, 'x'));
    EXPECT_FALSE(exists(mac.home().appending(u"Library/Caches/small"_s)));
    EXPECT_TRUE(exists(mac.home().appending(u"Library/Caches/large"_s)));
    EXPECT_TRUE(exists(mac.home().appending(u"Library/Logs/two"_s)));
    EXPECT_EQ(listed(), (QStringList{u"userCaches: large"_s, u"userLogs: two"_s, u"iosBackups: phone"_s}));
    EXPECT_TRUE(model.selectedItemIDs().isEmpty());
}

TEST_F(JunkCleanerVMTest, whatIsLeftKeepsItsIdsSizesAndNames)
{
    addJunk();
    scan();
    const JunkItem large = item(u"large"_s);
    junk("Caches/large/grown since", 1'000);
    select({u"small"_s});
    model.clean();
    EXPECT_EQ(item(u"large"_s), large);
    EXPECT_EQ(model.categories().first(),
              (JunkCategory{u"userCaches"_s, u"User Caches"_s, u"arrow.clockwise.circle.fill"_s, {large}}));
}

TEST_F(JunkCleanerVMTest, aCleanIsLogged)
{
    addJunk();
    scan();
    select({u"small"_s, u"one"_s, u"two"_s});
    mac.setNow(QDateTime(QDate(2026, 3, 4), QTime(5, 6, 7), Qt::UTC));
    model.clean();
    const QList<ActivityEntry> entries = activityStore.load();
    ASSERT_EQ(entries.size(), 1);
    EXPECT_FALSE(entries.first().id.isNull());
    EXPECT_EQ(entries.first(), (ActivityEntry{
                                   .id = entries.first().id,
                                   .timestamp = QDateTime(QDate(2026, 3, 4), QTime(5, 6, 7), Qt::UTC),
                                   .kind = ActivityEntry::Kind::clean,
                                   .title = u"Junk files moved to Trash"_s,
                                   .detail = u"3 items across 3 categories"_s,
                                   .bytesAffected = 27,
                                   .itemCount = 3,
                               }));
}

TEST_F(JunkCleanerVMTest, theLogHasTheSingularForOneItemButNotForOneCategory)
{
    junk("Logs/one", 9);
    scan();
    model.selectAll();
    model.clean();
    EXPECT_EQ(activityStore.load().value(0).detail, u"1 item across 1 categories"_s);
}

TEST_F(JunkCleanerVMTest, theLogCountsTheBytesOfWhatFailedButNotItsItems)
{
    addJunk();
    scan();
    fileManager.refused = {u"large"_s};
    select({u"large"_s, u"small"_s});
    model.clean();
    const QList<ActivityEntry> entries = activityStore.load();
    ASSERT_EQ(entries.size(), 1);
    EXPECT_EQ(entries.first().bytesAffected, 40);
    EXPECT_EQ(entries.first().itemCount, 1);
    EXPECT_EQ(entries.first().detail, u"1 item across 3 categories"_s);
}

TEST_F(JunkCleanerVMTest, anItemThatCanNotBeMovedStaysListedAndSelectedAndTheRestGoesOn)
{
    addJunk();
    scan();
    fileManager.refused = {u"large"_s, u"one"_s};
    model.selectAll();
    const QSet<QUuid> failed{item(u"large"_s).id, item(u"one"_s).id};
    model.clean();
    EXPECT_EQ(fileManager.asked, (QStringList{u"large"_s, u"small"_s, u"one"_s, u"two"_s, u"phone"_s}));
    EXPECT_EQ(listed(), (QStringList{u"userCaches: large"_s, u"userLogs: one"_s}));
    EXPECT_EQ(model.selectedItemIDs(), failed);
    EXPECT_EQ(model.totalSelectedBytes(), 39);
}

TEST_F(JunkCleanerVMTest, whereNothingCanBeMovedNothingIsLoggedAndNothingChanges)
{
    addJunk();
    scan();
    fileManager.refused = {u"large"_s};
    select({u"large"_s});
    const QList<JunkCategory> before = model.categories();
    model.clean();
    EXPECT_TRUE(activityStore.load().isEmpty());
    EXPECT_EQ(model.categories(), before);
    EXPECT_EQ(model.selectedItemIDs(), QSet<QUuid>{item(u"large"_s).id});
    EXPECT_EQ(model.selectedCategoryID(), u"userCaches"_s);
}

TEST_F(JunkCleanerVMTest, withNothingSelectedACleanDoesNothing)
{
    addJunk();
    scan();
    const QList<JunkCategory> before = model.categories();
    model.clean();
    EXPECT_TRUE(fileManager.asked.isEmpty());
    EXPECT_TRUE(activityStore.load().isEmpty());
    EXPECT_EQ(model.categories(), before);
    EXPECT_FALSE(exists(trashed("")));
}

TEST_F(JunkCleanerVMTest, cleaningTheLastItemOfTheShownCategoryShowsTheFirstThatIsLeft)
{
    addJunk();
    scan();
    model.setSelectedCategoryID(u"iosBackups"_s);
    select({u"phone"_s});
    model.clean();
    EXPECT_EQ(model.selectedCategoryID(), u"userCaches"_s);
}

TEST_F(JunkCleanerVMTest, cleaningAnotherCategoryKeepsTheShownOne)
{
    addJunk();
    scan();
    model.setSelectedCategoryID(u"iosBackups"_s);
    select({u"large"_s, u"small"_s});
    model.clean();
    EXPECT_EQ(listed(), (QStringList{u"userLogs: one two"_s, u"iosBackups: phone"_s}));
    EXPECT_EQ(model.selectedCategoryID(), u"iosBackups"_s);
}

TEST_F(JunkCleanerVMTest, whereNoCategoryWasShownNoneIsShownAfterTheClean)
{
    addJunk();
    scan();
    model.setSelectedCategoryID(std::nullopt);
    select({u"phone"_s});
    model.clean();
    EXPECT_EQ(model.selectedCategoryID(), std::nullopt);
}

TEST_F(JunkCleanerVMTest, cleaningEverythingLeavesNothing)
{
    addJunk();
    scan();
    model.selectAll();
    model.clean();
    EXPECT_TRUE(model.categories().isEmpty());
    EXPECT_EQ(model.selectedCategoryID(), std::nullopt);
    EXPECT_TRUE(model.selectedItemIDs().isEmpty());
    EXPECT_FALSE(model.isScanning());
}

TEST_F(JunkCleanerVMTest, theSamePathUnderTwoCategoriesIsMovedOnceAndStaysListedOnce)
{
    const FileURL safari = junk("Caches/com.apple.Safari", 10);
    junk("Caches/zoo", 90);
    scan();
    ASSERT_EQ(listed(),
              (QStringList{u"userCaches: zoo com.apple.Safari"_s, u"browserCache: com.apple.Safari"_s}));
    const JunkItem cache = model.categories().at(0).items.at(1);
    const JunkItem browserCache = model.categories().at(1).items.at(0);
    model.setSelectedItemIDs({cache.id, browserCache.id});
    model.clean();
    EXPECT_FALSE(exists(safari));
    EXPECT_EQ(TestMac::read(trashed("com.apple.Safari/file")), QByteArray(10, 'x'));
    EXPECT_EQ(listed(), (QStringList{u"userCaches: zoo"_s, u"browserCache: com.apple.Safari"_s}));
    EXPECT_EQ(model.selectedItemIDs(), QSet<QUuid>{browserCache.id});
    const QList<ActivityEntry> entries = activityStore.load();
    ASSERT_EQ(entries.size(), 1);
    EXPECT_EQ(entries.first().detail, u"1 item across 2 categories"_s);
    EXPECT_EQ(entries.first().bytesAffected, 20);
}

TEST_F(JunkCleanerVMTest, whatLiesInTheHomesTrashFolderCanBeCleanedToo)
{
    mac.writeFile("Users/mira/.Trash/Old drafts/draft.psd", "12345");
    scan();
    ASSERT_EQ(listed(), QStringList{u"trash: Old drafts"_s});
    model.selectAll();
    model.clean();
    EXPECT_EQ(TestMac::read(trashed("Old drafts/draft.psd")), "12345");
    EXPECT_TRUE(model.categories().isEmpty());
}

TEST_F(JunkCleanerVMTest, theConfirmationIsTheScreensToClear)
{
    addJunk();
    scan();
    model.setShowCleanConfirm(true);
    model.selectAll();
    model.clean();
    EXPECT_TRUE(model.showCleanConfirm());
}

TEST_F(JunkCleanerVMTest, cleaningAnnouncesItsStepsInOrder)
{
    junk("Logs/one", 9);
    scan();
    model.selectAll();
    EXPECT_EQ(changesOf([this] { model.clean(); }),
              (QStringList{u"userLogs: one; shows userLogs; 0 selected"_s, u"; shows userLogs; 0 selected"_s,
                           u"; shows nothing; 0 selected"_s}));
}

} // namespace keelbright::testing

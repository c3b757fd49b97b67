#include "KeelbrightCore/platform/text/UtcZone.h"
#include "tests/state/JunkCleanerVMFixture.h"
#include "tests/state/OnlyEntry.h"

namespace keelbright::testing {

using namespace Qt::StringLiterals;

using JunkCleanTest = JunkCleanerVMFixture;

TEST_F(JunkCleanTest, cleaningMovesWhatIsSelectedToTheTrashAndNothingElse)
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

TEST_F(JunkCleanTest, aCleanSaysWhatItHasMoved)
{
    addJunk();
    scan();
    fileManager.refused = {u"large"_s};
    select({u"large"_s, u"small"_s, u"one"_s});
    QList<UndoableMoves> moves;
    QObject::connect(&model, &JunkCleanerVM::trashed, &model,
                     [&moves](const UndoableMoves& done) { moves.append(done); });
    model.clean();
    ASSERT_EQ(moves.size(), 1);
    const auto done = std::get<TrashedItems>(moves.first());
    ASSERT_EQ(done.items.size(), 2);
    EXPECT_EQ(done.items.first().origin, mac.home().appending(u"Library/Caches/small"_s));
    EXPECT_EQ(done.items.first().place, trashed("small"));
    EXPECT_EQ(done.items.last().origin, mac.home().appending(u"Library/Logs/one"_s));
    EXPECT_FALSE(done.isRemoval);
    model.clean();
    EXPECT_EQ(moves.size(), 1) << "nothing was moved";
}

TEST_F(JunkCleanTest, remainingItemsKeepTheirIdsSizesAndNames)
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

TEST_F(JunkCleanTest, aCleanIsLogged)
{
    addJunk();
    scan();
    select({u"small"_s, u"one"_s, u"two"_s});
    mac.setNow(QDateTime(QDate(2026, 3, 4), QTime(5, 6, 7), utcZone));
    model.clean();
    const ActivityEntry entry = onlyEntry(activityStore);
    EXPECT_FALSE(entry.id.isNull());
    EXPECT_EQ(entry, (ActivityEntry{
                         .id = entry.id,
                         .timestamp = QDateTime(QDate(2026, 3, 4), QTime(5, 6, 7), utcZone),
                         .kind = ActivityEntry::Kind::clean,
                         .title = u"Junk files moved to Trash"_s,
                         .detail = u"3 items across 3 categories"_s,
                         .bytesAffected = 27,
                         .itemCount = 3,
                     }));
}

TEST_F(JunkCleanTest, theLogHasTheSingularForOneItemButNotForOneCategory)
{
    junk("Logs/one", 9);
    scan();
    model.selectAll();
    model.clean();
    EXPECT_EQ(activityStore.load().value(0).detail, u"1 item across 1 categories"_s);
}

TEST_F(JunkCleanTest, theLogCountsTheBytesOfWhatFailedButNotItsItems)
{
    addJunk();
    scan();
    fileManager.refused = {u"large"_s};
    select({u"large"_s, u"small"_s});
    model.clean();
    const ActivityEntry entry = onlyEntry(activityStore);
    EXPECT_EQ(entry.bytesAffected, 40);
    EXPECT_EQ(entry.itemCount, 1);
    EXPECT_EQ(entry.detail, u"1 item across 3 categories"_s);
}

TEST_F(JunkCleanTest, anItemThatCantBeMovedStaysListedAndSelectedAndTheOthersAreMoved)
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

TEST_F(JunkCleanTest, nothingIsLoggedOrChangedIfNothingCanBeMoved)
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

TEST_F(JunkCleanTest, aCleanWithNothingSelectedDoesNothing)
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

TEST_F(JunkCleanTest, cleaningTheLastItemOfTheShownCategoryShowsTheFirstThatIsLeft)
{
    addJunk();
    scan();
    model.setSelectedCategoryID(u"iosBackups"_s);
    select({u"phone"_s});
    model.clean();
    EXPECT_EQ(model.selectedCategoryID(), u"userCaches"_s);
}

TEST_F(JunkCleanTest, cleaningAnotherCategoryKeepsTheShownOne)
{
    addJunk();
    scan();
    model.setSelectedCategoryID(u"iosBackups"_s);
    select({u"large"_s, u"small"_s});
    model.clean();
    EXPECT_EQ(listed(), (QStringList{u"userLogs: one two"_s, u"iosBackups: phone"_s}));
    EXPECT_EQ(model.selectedCategoryID(), u"iosBackups"_s);
}

TEST_F(JunkCleanTest, noCategoryIsShownAfterACleanIfNoneWasBefore)
{
    addJunk();
    scan();
    model.setSelectedCategoryID(std::nullopt);
    select({u"phone"_s});
    model.clean();
    EXPECT_EQ(model.selectedCategoryID(), std::nullopt);
}

TEST_F(JunkCleanTest, cleaningEverythingLeavesNothing)
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

TEST_F(JunkCleanTest, theSamePathUnderTwoCategoriesIsMovedOnceAndStaysListedOnce)
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
    const ActivityEntry entry = onlyEntry(activityStore);
    EXPECT_EQ(entry.detail, u"1 item across 2 categories"_s);
    EXPECT_EQ(entry.bytesAffected, 20);
}

TEST_F(JunkCleanTest, itemsOfTheHomesTrashFolderCanBeCleaned)
{
    mac.writeFile("Users/mira/.Trash/Old drafts/draft.psd", "12345");
    scan();
    ASSERT_EQ(listed(), QStringList{u"trash: Old drafts"_s});
    model.selectAll();
    model.clean();
    EXPECT_EQ(TestMac::read(trashed("Old drafts/draft.psd")), "12345");
    EXPECT_TRUE(model.categories().isEmpty());
}

TEST_F(JunkCleanTest, theConfirmationIsClearedByTheScreen)
{
    addJunk();
    scan();
    model.setShowCleanConfirm(true);
    model.selectAll();
    model.clean();
    EXPECT_TRUE(model.showCleanConfirm());
}

TEST_F(JunkCleanTest, cleaningAnnouncesItsStepsInOrder)
{
    junk("Logs/one", 9);
    scan();
    model.selectAll();
    EXPECT_EQ(changesOf([this] { model.clean(); }),
              (QStringList{u"userLogs: one; shows userLogs; 0 selected"_s, u"; shows userLogs; 0 selected"_s,
                           u"; shows nothing; 0 selected"_s}));
}

} // namespace keelbright::testing

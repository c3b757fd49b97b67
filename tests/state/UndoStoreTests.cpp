#include "Keelbright/state/UndoStore.h"

#include "tests/support/BackgroundWork.h"
#include "tests/support/HeldFileManager.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <QCoreApplication>
#include <QTest>
#include <gtest/gtest.h>

namespace keelbright::testing {

namespace {

constexpr int patience = 60'000; // milliseconds

class UndoStoreTest : public ::testing::Test
{
protected:
    UndoStoreTest()
    {
        QObject::connect(&*store, &UndoStore::ended, &*store,
                         [this](const UndoResult& result) { results.append(result); });
    }

    ~UndoStoreTest() override { files.finish(); }

    UndoStoreTest(const UndoStoreTest&) = delete;
    UndoStoreTest& operator=(const UndoStoreTest&) = delete;

    /// Writes files of these names and moves them to the Trash.
    [[nodiscard]] TrashedItems trash(const QByteArrayList& names)
    {
        TrashedItems trashed;
        for (const QByteArray& name : names)
            trashed.items.append(files.trashItem(mac.writeFile("Users/mira/" + name, name)).value());
        return trashed;
    }

    [[nodiscard]] OrganizedFiles oneMove() const
    {
        OrganizedFiles done;
        done.moves.append(
            {mac.home().appendingNative("a.png"), mac.writeFile("Users/mira/Images/a.png", "a"), false});
        done.newFolders.append(mac.home().appendingNative("Images"));
        return done;
    }

    [[nodiscard]] bool exists(const QByteArray& name) const
    {
        return files.fileExists(mac.home().appendingNative(name)).exists;
    }

    /// Waits for the end of one more undo.
    void waitForEnd()
    {
        const qsizetype before = results.size();
        EXPECT_TRUE(QTest::qWaitFor([&] { return results.size() > before; }, patience));
    }

    void undo()
    {
        store->undo();
        waitForEnd();
    }

    int argc = 1;
    char program[5] = "test";
    char* argv[1] = {program};
    QCoreApplication application{argc, argv};
    TestMac mac;
    HeldFileManager files{mac.root()};
    FileManagerGuard guard{files};
    std::unique_ptr<UndoStore> store = std::make_unique<UndoStore>();
    QList<UndoResult> results;
};

} // namespace

TEST_F(UndoStoreTest, atFirstThereIsNothingToUndo)
{
    EXPECT_FALSE(store->canUndo());
    EXPECT_EQ(store->kind(), std::nullopt);
    store->undo();
    EXPECT_FALSE(store->isUndoing());
}

TEST_F(UndoStoreTest, anActionThatHasMovedNothingIsPassedOver)
{
    store->remember(OrganizedFiles());
    EXPECT_FALSE(store->canUndo());
    store->remember(trash({"a"}));
    store->remember(OrganizedFiles{.moves = {}, .newFolders = {mac.home()}});
    EXPECT_EQ(store->kind(), UndoStore::Kind::trash);
}

TEST_F(UndoStoreTest, anUndoRunsInTheBackgroundAndCanBeUsedOnce)
{
    store->remember(oneMove());
    EXPECT_TRUE(store->canUndo());
    EXPECT_EQ(store->kind(), UndoStore::Kind::organise);
    store->undo();
    EXPECT_TRUE(store->isUndoing());
    EXPECT_FALSE(store->canUndo());
    EXPECT_EQ(store->kind(), UndoStore::Kind::organise);
    EXPECT_EQ(store->total(), 1);
    waitForEnd();
    EXPECT_TRUE(exists("a.png"));
    EXPECT_FALSE(exists("Images"));
    EXPECT_EQ(results.last().restored, 1);
    EXPECT_FALSE(store->isUndoing());
    EXPECT_FALSE(store->canUndo());
    EXPECT_EQ(store->kind(), std::nullopt);
}

TEST_F(UndoStoreTest, onlyTheLastActionIsUndone)
{
    store->remember(oneMove());
    store->remember(trash({"b"}));
    EXPECT_EQ(store->kind(), UndoStore::Kind::trash);
    undo();
    EXPECT_TRUE(exists("b"));
    EXPECT_TRUE(exists("Images/a.png"));
    EXPECT_FALSE(store->canUndo());
}

TEST_F(UndoStoreTest, whatCantGoBackIsInTheResultAndNotKept)
{
    store->remember(trash({"a", "b"}));
    mac.writeFile("Users/mira/a", "new");
    undo();
    EXPECT_EQ(results.last().restored, 1);
    ASSERT_EQ(results.last().failures.size(), 1);
    EXPECT_EQ(results.last().failures.first().reason,
              QStringLiteral("“a” could not be put back: something of that name is already there."));
    EXPECT_FALSE(store->canUndo());
}

TEST_F(UndoStoreTest, aCancelStopsBeforeTheNextItemAndTheRestCanBeUndone)
{
    const TrashedItems trashed = trash({"a", "b", "c"});
    files.holdNextLookAt(trashed.items.at(1).origin);
    store->remember(trashed);
    store->undo();
    ASSERT_TRUE(files.waitUntilHeld());
    EXPECT_EQ(store->tried(), 1);
    EXPECT_EQ(store->total(), 3);
    store->cancel();
    EXPECT_TRUE(store->isCancelling());
    files.letGo();
    waitForEnd();
    EXPECT_FALSE(store->isCancelling());
    EXPECT_EQ(results.last().restored, 2);
    EXPECT_FALSE(exists("a"));
    EXPECT_TRUE(exists("b"));
    EXPECT_TRUE(exists("c"));
    ASSERT_TRUE(store->canUndo());
    undo();
    EXPECT_TRUE(exists("a"));
    EXPECT_FALSE(store->canUndo());
}

TEST_F(UndoStoreTest, whatIsMovedDuringAnUndoComesNext)
{
    const TrashedItems trashed = trash({"a", "b"});
    files.holdNextLookAt(trashed.items.at(1).origin);
    store->remember(trashed);
    store->undo();
    ASSERT_TRUE(files.waitUntilHeld());
    store->remember(oneMove());
    EXPECT_FALSE(store->canUndo()) << "one at a time";
    EXPECT_EQ(store->kind(), UndoStore::Kind::trash);
    store->cancel();
    files.letGo();
    waitForEnd();
    EXPECT_TRUE(store->canUndo());
    EXPECT_EQ(store->kind(), UndoStore::Kind::organise) << "and not the rest of the one before";
}

TEST_F(UndoStoreTest, aStoreThatGoesEndsItsUndoBeforeTheNextItem)
{
    const TrashedItems trashed = trash({"a", "b"});
    files.holdNextLookAt(trashed.items.at(1).origin);
    store->remember(trashed);
    store->undo();
    ASSERT_TRUE(files.waitUntilHeld());
    store.reset();
    files.letGo();
    waitForBackgroundWork();
    EXPECT_TRUE(exists("b"));
    EXPECT_FALSE(exists("a"));
    EXPECT_TRUE(files.fileExists(trashed.items.at(0).place).exists) << "nothing is lost";
}

} // namespace keelbright::testing

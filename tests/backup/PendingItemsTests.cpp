#include "tests/backup/PendingItemsTest.h"
#include "tests/support/Printing.h"

#include <gmock/gmock.h>
#include <new>
#include <thread>

namespace keelbright {
namespace {

using testing::CopyRecord;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::PendingItemsTest;
using testing::RecordedCopy;
using ::testing::SizeIs;

TEST_F(PendingItemsTest, publishesAndReportsInTheOrderInWhichItemsAreAdded)
{
    QStringList files;
    QObject::connect(&engine, &BackupEngine::progressChanged, [&] {
        const QString& current = engine.progress().currentFile;
        if (!current.isEmpty() && (files.isEmpty() || files.last() != current))
            files.append(current);
    });
    const QByteArrayList items = numbered(700);
    runWhole(items);
    EXPECT_EQ(record.names("published"), items);
    ASSERT_EQ(files.size(), items.size());
    for (qsizetype index = 0; index < items.size(); ++index)
        EXPECT_EQ(files[index].toUtf8(), items[index]);
    EXPECT_EQ(engine.progress().filesCopied, 700);
    EXPECT_EQ(engine.progress().bytesCopied, 700);
    EXPECT_THAT(record.names("dropped"), IsEmpty());
}

TEST_F(PendingItemsTest, publishesNothingBeforeThePreviousChangeHasBeenMade)
{
    QList<qsizetype> ahead;
    QObject::connect(&engine, &BackupEngine::progressChanged, [&] {
        const qint64 counted = engine.progress().filesCopied;
        ahead.append(record.names("published").size() - counted);
    });
    runWhole(numbered(300));
    EXPECT_THAT(ahead, SizeIs(900));
    EXPECT_THAT(ahead, Each(0));
}

TEST_F(PendingItemsTest, preparesAnItemOnceMoreWhereMemoryRanOut)
{
    int attempts = 0;
    prepare = [&](const QByteArray& item) -> Prepared {
        if (item == "b" && ++attempts == 1)
            throw std::bad_alloc();
        return std::make_unique<RecordedCopy>(item, record, 1);
    };
    runWhole({"a", "b", "c"});
    EXPECT_EQ(attempts, 2);
    EXPECT_THAT(record.names("published"), ElementsAre("a", "b", "c"));
    EXPECT_THAT(engine.progress().errors, IsEmpty());
}

TEST_F(PendingItemsTest, reportsAnItemThatFindsNoMemoryInItsPlace)
{
    prepare = [this](const QByteArray& item) -> Prepared {
        if (item == "f0100")
            throw std::bad_alloc();
        return std::make_unique<RecordedCopy>(item, record, 1);
    };
    runWhole(numbered(200));
    EXPECT_THAT(
        engine.progress().errors,
        ElementsAre(QStringLiteral("Skip f0100: “f0100” could not be copied: there is not enough memory.")));
    EXPECT_EQ(engine.progress().filesCopied, 199);
    EXPECT_EQ(engine.progress().filesSkipped, 1);
}

TEST_F(PendingItemsTest, reportsACopyWhoseNameFindsNoMemory)
{
    class Unpublishable : public RecordedCopy
    {
    public:
        using RecordedCopy::RecordedCopy;

        std::expected<void, FileError> publish() override { throw std::bad_alloc(); }
    };

    prepare = [this](const QByteArray& item) -> Prepared {
        return std::make_unique<Unpublishable>(item, record, 1);
    };
    runWhole({"a"});
    // Once more, alone, as there may be memory then.
    EXPECT_THAT(record.lines(), ElementsAre("flushed a", "dropped a", "flushed a", "dropped a"));
    EXPECT_THAT(engine.progress().errors,
                ElementsAre(QStringLiteral("Skip a: “a” could not be copied: there is not enough memory.")));
    EXPECT_EQ(engine.progress().filesCopied, 0);
}

TEST_F(PendingItemsTest, preparesOneAtATimeWhereTheDriveAllowsNoMore)
{
    runWhole({"a", "b"}, 1);
    EXPECT_THAT(record.lines(), ElementsAre("prepared a", "flushed a", "published a", "prepared b",
                                            "flushed b", "published b"));
}

TEST_F(PendingItemsTest, flushesWhatReplacesOldCopiesBeforeTheFirstOfTheirBatchIsPublished)
{
    waitsForOthers = "f0000";
    runWhole(numbered(500));
    EXPECT_EQ(record.names("published"), numbered(500));
    int bursts = 0;
    QByteArrayList flushed; // of the burst, and not yet published
    QByteArray before;
    for (const QByteArray& line : record.lines()) {
        const QByteArray step = line.first(line.indexOf(' '));
        const QByteArray item = line.sliced(step.size() + 1);
        if (step == "flushed") {
            bursts += before != "flushed" ? 1 : 0;
            flushed.append(item);
        } else if (step == "published") {
            EXPECT_TRUE(flushed.removeOne(item)) << item.constData();
        } else {
            continue;
        }
        before = step;
    }
    EXPECT_LT(bursts, 250) << "one after the other";
}

TEST_F(PendingItemsTest, reportsACopyThatCouldNotBeFlushedAndKeepsTheOldOne)
{
    class Unflushable : public RecordedCopy
    {
    public:
        using RecordedCopy::RecordedCopy;

        std::expected<void, FileError> flushBeforeReplacing() override
        {
            return failure(FileError::Operation::flushed, "f0001", EIO);
        }
    };

    prepare = [&](const QByteArray& item) -> Prepared {
        if (item == "f0001")
            return std::make_unique<Unflushable>(item, record, 1);
        return std::make_unique<RecordedCopy>(item, record, 1);
    };
    runWhole(numbered(3));
    EXPECT_THAT(record.names("published"), ElementsAre("f0000", "f0002"));
    EXPECT_THAT(
        engine.progress().errors,
        ElementsAre(QStringLiteral("Skip f0001: “f0001” could not be written through to the drive: the "
                                   "drive reported an error.")));
}

TEST_F(PendingItemsTest, preparesAFewItemsWithoutWakingAnotherThread)
{
    runWhole(numbered(CopyQueue::worthWaking - 1));
    EXPECT_EQ(elsewhere, 0);
    EXPECT_EQ(engine.progress().filesCopied, CopyQueue::worthWaking - 1);
}

TEST_F(PendingItemsTest, preparesManyItemsOnOtherThreads)
{
    waitsForOthers = "f0000";
    runWhole(numbered(2'000));
    EXPECT_GT(elsewhere, 1'000);
    EXPECT_EQ(engine.progress().filesCopied, 2'000);
}

TEST_F(PendingItemsTest, publishesWhatIsReadyWhileAWorkerHangsAndEndsOnceItIsCancelled)
{
    QSemaphore end;
    QSemaphore ended;
    prepare = [&](const QByteArray& item) -> Prepared {
        if (item == "f0040") {
            end.acquire();
            ended.release();
        }
        return std::make_unique<RecordedCopy>(item, record, 1);
    };
    QObject::connect(&engine, &BackupEngine::progressChanged, [&] {
        if (engine.progress().filesCopied == 40)
            task->cancel();
    });
    waitsForOthers = "f0000";
    runWhole(numbered(200)); // ends although one copy still hangs
    EXPECT_EQ(record.names("published"), numbered(40));
    end.release();
    ended.acquire();
    EXPECT_EQ(engine.progress().filesCopied, 40);
    // The worker drops its copy, which uses the record of this test.
    while (!record.names("dropped").contains("f0040"))
        QThread::msleep(1);
}

TEST_F(PendingItemsTest, reportsAFailedPreparationInItsPlace)
{
    prepare = [&](const QByteArray& item) -> Prepared {
        if (item == "f0100")
            return failed(item, EIO);
        return std::make_unique<RecordedCopy>(item, record, 1);
    };
    qint64 copiedBefore = -1;
    QObject::connect(&engine, &BackupEngine::progressChanged, [&] {
        if (copiedBefore < 0 && !engine.progress().errors.isEmpty())
            copiedBefore = engine.progress().filesCopied;
    });
    runWhole(numbered(200));
    EXPECT_EQ(copiedBefore, 100);
    EXPECT_THAT(
        engine.progress().errors,
        ElementsAre(QStringLiteral("Skip f0100: “f0100” could not be copied: the drive reported an error.")));
    EXPECT_EQ(engine.progress().filesSkipped, 1);
    EXPECT_EQ(engine.progress().filesCopied, 199);
}

TEST_F(PendingItemsTest, reportsAnItemWithoutACopyInItsPlace)
{
    qint64 copiedBefore = -1;
    run([&](PendingItems& pending) {
        for (const QByteArray& item : numbered(100)) {
            if (item == "f0050")
                pending.addChange(
                    [&](BackupEngine& changed) { copiedBefore = changed.progress().filesCopied; });
            pending.addCopy({nullptr, nullptr, item, EntryType::regularFile}, QString::fromUtf8(item));
        }
        pending.completeAll();
    });
    EXPECT_EQ(copiedBefore, 50);
    EXPECT_EQ(engine.progress().filesCopied, 100);
}

TEST_F(PendingItemsTest, reportsACopyThatCouldNotBePublishedAsSkipped)
{
    prepare = [&](const QByteArray& item) -> Prepared {
        return std::make_unique<RecordedCopy>(item, record, 1, failed(item, ENOSPC));
    };
    runWhole({"a"});
    EXPECT_EQ(engine.progress().filesCopied, 0);
    EXPECT_EQ(engine.progress().filesSkipped, 1);
    EXPECT_THAT(engine.progress().errors,
                ElementsAre(QStringLiteral(
                    "Skip a: “a” could not be copied: there is not enough space on the drive.")));
}

/// A copy that takes one of the few places on a drive until it has its name.
class CopyWithAPlace : public RecordedCopy
{
public:
    CopyWithAPlace(const QByteArray& name, CopyRecord& record, std::atomic<int>& freePlaces)
        : RecordedCopy(name, record, 1)
        , m_freePlaces(freePlaces)
    {}

    ~CopyWithAPlace() override { ++m_freePlaces; }

private:
    std::atomic<int>& m_freePlaces;
};

TEST_F(PendingItemsTest, preparesACopyOnceMoreWhenTheOthersHaveGivenTheirRoomBack)
{
    std::atomic<int> freePlaces = 3;
    prepare = [&](const QByteArray& item) -> Prepared {
        if (--freePlaces < 0) {
            ++freePlaces;
            return failed(item, ENOSPC);
        }
        return std::make_unique<CopyWithAPlace>(item, record, freePlaces);
    };
    runWhole(numbered(300));
    EXPECT_THAT(engine.progress().errors, IsEmpty());
    EXPECT_EQ(record.names("published"), numbered(300));
}

/// A copy whose folder has no room for one more name, the first time that it is asked.
class CopyWithoutRoomForItsName : public RecordedCopy
{
public:
    CopyWithoutRoomForItsName(const QByteArray& name, CopyRecord& record, std::atomic<int>& refusals)
        : RecordedCopy(name, record, 1)
        , m_name(name)
        , m_refusals(refusals)
    {}

    std::expected<void, FileError> publish() override
    {
        if (m_refusals-- > 0)
            return failure(FileError::Operation::copied, m_name, ENOSPC);
        return RecordedCopy::publish();
    }

private:
    QByteArray m_name;
    std::atomic<int>& m_refusals;
};

TEST_F(PendingItemsTest, preparesACopyOnceMoreWhereItsNameFoundNoRoom)
{
    std::atomic<int> refusals = 1;
    prepare = [&](const QByteArray& item) -> Prepared {
        record.append("prepared " + item);
        if (item == "f0100")
            return std::make_unique<CopyWithoutRoomForItsName>(item, record, refusals);
        return std::make_unique<RecordedCopy>(item, record, 1);
    };
    runWhole(numbered(300));
    EXPECT_THAT(engine.progress().errors, IsEmpty());
    EXPECT_EQ(record.names("published"), numbered(300));
    EXPECT_EQ(record.names("prepared").count("f0100"), 2);
}

TEST_F(PendingItemsTest, doesNotRepeatASwapThatFoundNoRoomAsItsTemporaryFileStays)
{
    prepare = [&](const QByteArray& item) -> Prepared {
        record.append("prepared " + item);
        return std::make_unique<RecordedCopy>(item, record, 1,
                                              failure(FileError::Operation::replaced, item, ENOSPC));
    };
    runWhole({"a"});
    EXPECT_EQ(record.names("prepared"), QByteArrayList{"a"});
    EXPECT_THAT(engine.progress().errors,
                ElementsAre(QStringLiteral(
                    "Skip a: “a” could not be replaced: there is not enough space on the drive.")));
}

TEST_F(PendingItemsTest, reportsACopyThatHasNoRoomEvenAlone)
{
    prepare = [&](const QByteArray& item) -> Prepared {
        if (item >= "f0090")
            return failed(item, ENOSPC);
        return std::make_unique<RecordedCopy>(item, record, 1);
    };
    runWhole(numbered(200));
    EXPECT_EQ(engine.progress().filesCopied, 90);
    EXPECT_EQ(engine.progress().filesSkipped, 110);
    EXPECT_THAT(engine.progress().errors, SizeIs(110));
    EXPECT_EQ(
        engine.progress().errors.value(0),
        QStringLiteral("Skip f0090: “f0090” could not be copied: there is not enough space on the drive."));
}

TEST_F(PendingItemsTest, dropsWhatIsPendingOnceTheUserHasCancelled)
{
    QObject::connect(&engine, &BackupEngine::progressChanged, [&] {
        if (engine.progress().filesCopied == 10)
            task->cancel();
    });
    runWhole(numbered(300));
    EXPECT_EQ(record.names("published"), numbered(10));
    EXPECT_EQ(engine.progress().filesCopied, 10);
    EXPECT_EQ(record.names("dropped").size(), record.names("prepared").size() - 10);
}

TEST_F(PendingItemsTest, completesNothingOnceTheProgramQuits)
{
    task->quit();
    runWhole(numbered(100));
    EXPECT_THAT(record.names("published"), IsEmpty());
    EXPECT_EQ(engine.progress(), BackupProgress());
}

} // namespace
} // namespace keelbright

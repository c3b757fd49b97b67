#include "tests/backup/PendingItemsTest.h"
#include "tests/support/Printing.h"

#include <gmock/gmock.h>

namespace keelbright {
namespace {

using testing::CopyRecord;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::RecordedCopy;

/// A folder that only records what becomes of it.
class RecordedFolder : public FilledFolder
{
public:
    RecordedFolder(QByteArray name, CopyRecord& record)
        : m_name(std::move(name))
        , m_record(record)
    {}

    void complete() override { m_record.append("completed " + m_name); }

    void giveUp() override { m_record.append("given-up " + m_name); }

private:
    QByteArray m_name;
    CopyRecord& m_record;
};

/// Cancels on the thread on which it was made, as the window does it.
class Canceller : public QObject
{
public:
    explicit Canceller(BackupTask& task)
        : m_task(task)
    {}

    /// For any other thread.
    void cancelAndWait()
    {
        QCoreApplication::postEvent(this, new QEvent(QEvent::User));
        m_isCancelled.acquire();
    }

protected:
    bool event(QEvent* event) override
    {
        if (event->type() != QEvent::User)
            return QObject::event(event);
        m_task.cancel();
        m_isCancelled.release();
        return true;
    }

private:
    BackupTask& m_task;
    QSemaphore m_isCancelled;
};

/// What becomes of pending items when the user cancels, or the program quits.
class CancelledItemsTest : public testing::PendingItemsTest
{
protected:
    CancelledItemsTest()
    {
        QObject::connect(&engine, &BackupEngine::progressChanged,
                         [this] { copied = engine.progress().filesCopied; });
    }

    /// For the threads of the run: waits until so many items have been reported, and then until the main
    /// thread has cancelled.
    void cancelAfter(qint64 count)
    {
        while (copied < count)
            QThread::msleep(1);
        canceller.cancelAndWait();
    }

    void cancelWhileIsPrepared(const QByteArray& underWay, qint64 count)
    {
        prepare = [this, underWay, count](const QByteArray& item) -> Prepared {
            if (item == underWay)
                cancelAfter(count);
            return std::make_unique<RecordedCopy>(item, record, 1);
        };
    }

    /// Two folders with a file each.
    void runFolders()
    {
        run([this](PendingItems& pending) {
            for (const QByteArray item : {"first", "second"}) {
                pending.addCopy({nullptr, nullptr, item, EntryType::regularFile}, QString::fromUtf8(item));
                pending.addFolder(std::make_unique<RecordedFolder>(item, record));
            }
            pending.completeAll();
        });
    }

    std::atomic<qint64> copied = 0;
    Canceller canceller{*task};
};

TEST_F(CancelledItemsTest, finishTheCopyThatTheRunHasUnderWay)
{
    cancelWhileIsPrepared("f0002", 2);
    runWhole(numbered(5), 1);
    EXPECT_EQ(record.names("published"), numbered(3));
    EXPECT_EQ(engine.progress().filesCopied, 3);
    EXPECT_THAT(engine.progress().errors, IsEmpty());
}

TEST_F(CancelledItemsTest, finishTheCopyThatAWorkerHasUnderWay)
{
    waitsForOthers = "f0000";
    cancelWhileIsPrepared("f0040", 40);
    runWhole(numbered(200));
    EXPECT_EQ(record.names("published"), numbered(41));
    EXPECT_EQ(engine.progress().filesCopied, 41);
    EXPECT_THAT(engine.progress().errors, IsEmpty());
}

TEST_F(CancelledItemsTest, completeTheFoldersOfAWholeRun)
{
    runFolders();
    EXPECT_THAT(record.names("completed"), ElementsAre("first", "second"));
    EXPECT_THAT(record.names("given-up"), IsEmpty());
}

TEST_F(CancelledItemsTest, giveTheirFoldersUpInOrder)
{
    QObject::connect(&engine, &BackupEngine::progressChanged, [&] {
        if (engine.progress().filesCopied == 1)
            task->cancel();
    });
    runFolders();
    EXPECT_THAT(record.names("published"), ElementsAre("first"));
    EXPECT_THAT(record.names("completed"), IsEmpty());
    EXPECT_THAT(record.names("given-up"), ElementsAre("first", "second"));
}

TEST_F(CancelledItemsTest, touchNoFolderOnceTheProgramQuits)
{
    task->quit();
    runFolders();
    EXPECT_THAT(record.names("completed"), IsEmpty());
    EXPECT_THAT(record.names("given-up"), IsEmpty());
}

} // namespace
} // namespace keelbright

#include "KeelbrightCore/backup/PendingItems.h"

#include "KeelbrightCore/backup/BackupEngine.h"
#include "tests/support/Printing.h"

#include <QCoreApplication>
#include <gmock/gmock.h>
#include <thread>

namespace keelbright {
namespace {

using ::testing::ElementsAre;

/// A copy that only records that it is published or dropped.
class RecordedCopy : public PreparedCopy
{
public:
    RecordedCopy(QByteArray name, QByteArrayList& record, qint64 size,
                 std::expected<void, FileError> result = {})
        : m_name(std::move(name))
        , m_record(record)
        , m_size(size)
        , m_result(std::move(result))
    {}

    ~RecordedCopy() override
    {
        if (!m_isPublished)
            m_record.append("dropped " + m_name);
    }

    std::expected<void, FileError> publish() override
    {
        m_isPublished = true;
        m_record.append("published " + m_name);
        return m_result;
    }

    [[nodiscard]] qint64 sourceSize() const override { return m_size; }

private:
    QByteArray m_name;
    QByteArrayList& m_record;
    qint64 m_size;
    std::expected<void, FileError> m_result;
    bool m_isPublished = false;
};

class PendingItemsTest : public ::testing::Test
{
protected:
    /// Does the part of the run on a thread of its own while the event loop turns.
    void run(const std::function<void(PendingItems&)>& part, qsizetype maximum = 8)
    {
        std::atomic<bool> hasEnded = false;
        std::thread thread([&] {
            {
                PendingItems pending(*task, maximum);
                part(pending);
            }
            hasEnded = true;
        });
        while (!hasEnded)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        thread.join();
    }

    PendingItems::Item copy(const char* item, qint64 size = 1)
    {
        return {.copy = std::make_unique<RecordedCopy>(item, record, size),
                .name = QString::fromUtf8(item),
                .change = {}};
    }

    int argc = 1;
    char name[5] = "test";
    char* argv[1] = {name};
    QCoreApplication application{argc, argv};
    BackupEngine engine;
    std::shared_ptr<BackupTask> task = BackupTask::create(engine);
    QByteArrayList record;
};

TEST_F(PendingItemsTest, publishesAndReportsInTheOrderInWhichItemsAreAdded)
{
    QStringList files;
    QObject::connect(&engine, &BackupEngine::progressChanged, [&] {
        const QString& current = engine.progress().currentFile;
        if (!current.isEmpty() && (files.isEmpty() || files.last() != current))
            files.append(current);
    });
    run([&](PendingItems& pending) {
        for (const char* item : {"a", "b", "c"})
            pending.add(copy(item));
        pending.completeAll();
    });
    EXPECT_THAT(record, ElementsAre("published a", "published b", "published c"));
    EXPECT_THAT(files, ElementsAre(QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")));
    EXPECT_EQ(engine.progress().filesCopied, 3);
    EXPECT_EQ(engine.progress().bytesCopied, 3);
}

TEST_F(PendingItemsTest, publishesNothingBeforeThePreviousChangeHasBeenMade)
{
    // The event loop does not turn meanwhile.
    std::thread([&] {
        PendingItems pending(*task, 8);
        for (const char* item : {"a", "b", "c"})
            pending.add(copy(item));
        EXPECT_THAT(record, ElementsAre("published a"));
    }).join();
    EXPECT_THAT(record, ElementsAre("published a", "dropped b", "dropped c"));
}

TEST_F(PendingItemsTest, waitsOnceTheMaximumOfItemsIsPending)
{
    run(
        [&](PendingItems& pending) {
            for (const char* item : {"a", "b", "c"})
                pending.add(copy(item));
            EXPECT_THAT(record, ElementsAre("published a", "published b", "published c"));
        },
        1);
}

TEST_F(PendingItemsTest, waitsOnceMoreThanFourMegabytesArePending)
{
    run([&](PendingItems& pending) {
        pending.add(copy("small"));
        pending.add(copy("large", 4'000'001));
        EXPECT_THAT(record, ElementsAre("published small", "published large"));
    });
}

TEST_F(PendingItemsTest, reportsACopyThatCouldNotBePublishedAsSkipped)
{
    run([&](PendingItems& pending) {
        const auto error =
            std::unexpected(FileError::fromCode(FileError::Operation::copied, QStringLiteral("a"), ENOSPC));
        pending.add({.copy = std::make_unique<RecordedCopy>("a", record, 1, error),
                     .name = QStringLiteral("a"),
                     .change = {}});
        pending.completeAll();
    });
    EXPECT_EQ(engine.progress().filesCopied, 0);
    EXPECT_EQ(engine.progress().filesSkipped, 1);
    EXPECT_THAT(engine.progress().errors,
                ElementsAre(QStringLiteral(
                    "Skip a: “a” could not be copied: there is not enough space on the drive.")));
}

TEST_F(PendingItemsTest, dropsWhatIsPendingOnceTheUserHasCancelled)
{
    QObject::connect(&engine, &BackupEngine::progressChanged, [&] { task->cancel(); });
    run([&](PendingItems& pending) {
        pending.add(copy("a"));
        pending.add(copy("b"));
        pending.completeAll();
    });
    EXPECT_THAT(record, ElementsAre("published a", "dropped b"));
    EXPECT_EQ(engine.progress().filesCopied, 1);
}

TEST_F(PendingItemsTest, completesNothingOnceTheProgramQuits)
{
    task->quit();
    run([&](PendingItems& pending) {
        pending.add(copy("a"));
        pending.completeAll();
    });
    EXPECT_THAT(record, ElementsAre("dropped a"));
    EXPECT_EQ(engine.progress(), BackupProgress());
}

} // namespace
} // namespace keelbright

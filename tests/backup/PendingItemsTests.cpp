#include "KeelbrightCore/backup/PendingItems.h"

#include "KeelbrightCore/backup/BackupTask.h"
#include "tests/support/Printing.h"

#include <QCoreApplication>
#include <gmock/gmock.h>
#include <thread>

namespace keelbright {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A copy that only tells when it was published or dropped.
class ToldCopy : public PreparedCopy
{
public:
    ToldCopy(QByteArray name, QByteArrayList& told, qint64 size, std::expected<void, FileError> result = {})
        : m_name(std::move(name))
        , m_told(told)
        , m_size(size)
        , m_result(std::move(result))
    {}

    ~ToldCopy() override
    {
        if (!m_isPublished)
            m_told.append("dropped " + m_name);
    }

    std::expected<void, FileError> publish() override
    {
        m_isPublished = true;
        m_told.append("published " + m_name);
        return m_result;
    }

    [[nodiscard]] qint64 sourceSize() const override { return m_size; }

private:
    QByteArray m_name;
    QByteArrayList& m_told;
    qint64 m_size;
    std::expected<void, FileError> m_result;
    bool m_isPublished = false;
};

class PendingItemsTest : public ::testing::Test
{
protected:
    /// Does the run's part on a thread of its own while the main thread turns.
    void run(const std::function<void(PendingItems&)>& part, qsizetype most = 8)
    {
        std::atomic<bool> hasEnded = false;
        std::thread thread([&] {
            {
                PendingItems pending(task, most);
                part(pending);
            }
            hasEnded = true;
        });
        while (!hasEnded)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        thread.join();
    }

    PendingItems::Outcome copy(const char* item, qint64 size = 1)
    {
        return {.copy = std::make_unique<ToldCopy>(item, told, size),
                .name = QString::fromUtf8(item),
                .change = {}};
    }

    int argc = 1;
    char name[5] = "test";
    char* argv[1] = {name};
    QCoreApplication application{argc, argv};
    BackupEngine engine;
    BackupTask task{engine};
    QByteArrayList told;
};

TEST_F(PendingItemsTest, publishesAndTellsInTheOrderInWhichItemsAreAdded)
{
    QStringList files;
    QObject::connect(&engine, &BackupEngine::progressChanged, [&] {
        const QString& current = engine.progress().currentFile;
        if (!current.isEmpty() && (files.isEmpty() || files.last() != current))
            files.append(current);
    });
    bool goesOn = true;
    run([&](PendingItems& pending) {
        for (const char* item : {"a", "b", "c"})
            goesOn = goesOn && pending.add(copy(item));
        goesOn = goesOn && pending.completeAll();
    });
    EXPECT_TRUE(goesOn);
    EXPECT_THAT(told, ElementsAre("published a", "published b", "published c"));
    EXPECT_THAT(files, ElementsAre(QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")));
    EXPECT_EQ(engine.progress().filesCopied, 3);
    EXPECT_EQ(engine.progress().bytesCopied, 3);
}

TEST_F(PendingItemsTest, publishesNothingWhileTheChangeBeforeIsNotMade)
{
    // The main thread does not turn meanwhile.
    std::thread thread([&] {
        PendingItems pending(task, 8);
        for (const char* item : {"a", "b", "c"})
            EXPECT_TRUE(pending.add(copy(item)));
        EXPECT_THAT(told, ElementsAre("published a"));
    });
    thread.join();
    EXPECT_THAT(told, ElementsAre("published a", "dropped b", "dropped c"));
}

TEST_F(PendingItemsTest, waitsWhereAsManyCopiesAreAheadAsMayBe)
{
    bool goesOn = true;
    run(
        [&](PendingItems& pending) {
            for (const char* item : {"a", "b", "c"})
                goesOn = goesOn && pending.add(copy(item));
            EXPECT_EQ(told.size(), 3) << "one ahead is one too many";
        },
        1);
    EXPECT_TRUE(goesOn);
}

TEST_F(PendingItemsTest, doesNotKeepMoreThanFourMegabytesAhead)
{
    run([&](PendingItems& pending) {
        EXPECT_TRUE(pending.add(copy("small")));
        EXPECT_TRUE(pending.add(copy("large", 4'000'001)));
        EXPECT_THAT(told, ElementsAre("published small", "published large"));
    });
}

TEST_F(PendingItemsTest, tellsACopyThatCouldNotBePublishedAsSkipped)
{
    run([&](PendingItems& pending) {
        const auto error =
            std::unexpected(FileError::fromCode(FileError::Operation::copied, QStringLiteral("a"), ENOSPC));
        EXPECT_TRUE(pending.add({.copy = std::make_unique<ToldCopy>("a", told, 1, error),
                                 .name = QStringLiteral("a"),
                                 .change = {}}));
        EXPECT_TRUE(pending.completeAll());
    });
    EXPECT_EQ(engine.progress().filesSkipped, 1);
    EXPECT_THAT(engine.progress().errors,
                ElementsAre(QStringLiteral(
                    "Skip a: “a” could not be copied: there is not enough space on the drive.")));
}

TEST_F(PendingItemsTest, dropsWhatIsAheadOnceTheUserHasCancelled)
{
    bool goesOn = true;
    QObject::connect(&engine, &BackupEngine::progressChanged, [&] { task.cancel(); });
    run([&](PendingItems& pending) {
        goesOn = pending.add(copy("a")) && pending.add(copy("b")) && pending.completeAll();
    });
    EXPECT_FALSE(goesOn);
    EXPECT_THAT(told, ElementsAre("published a", "dropped b"));
}

TEST_F(PendingItemsTest, endsWhereTheEngineHasGone)
{
    bool goesOn = true;
    task.markEnded();
    EXPECT_TRUE(task.close(0));
    run([&](PendingItems& pending) { goesOn = pending.add(copy("a")); });
    EXPECT_FALSE(goesOn);
    EXPECT_THAT(told, ElementsAre("dropped a"));
    EXPECT_THAT(engine.progress().errors, IsEmpty());
}

} // namespace
} // namespace keelbright

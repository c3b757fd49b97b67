// Backups during which memory runs out, at every single `operator new` of a small run.

#include "KeelbrightCore/backup/BackupTask.h"
#include "KeelbrightCore/platform/files/DirectoryEnumerator.h"
#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/system/WaitForMemory.h"
#include "tests/memory/FailingAllocations.h"
#include "tests/support/BackgroundWork.h"
#include "tests/support/EngineRun.h"
#include "tests/support/Printing.h"

#include <QEvent>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSemaphore>
#include <QThread>
#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <thread>
#include <tuple>

namespace keelbright::testing {
namespace {

using namespace Qt::StringLiterals;

class MemoryTest : public ::testing::Test, protected EngineRun
{
protected:
    MemoryTest()
    {
        std::filesystem::create_symlink("a", (documents.nativePath() + "/link").toStdString());
        run({documents}); // what is made once is there: threads, folders, old copies
    }

    ~MemoryTest() override { waitForBackgroundWork(); }

    /// The content of a file at one run, so long that no other run's could be taken for it.
    [[nodiscard]] static QByteArray content(const QByteArray& name, long run)
    {
        return (name + " at " + QByteArray::number(static_cast<qlonglong>(run)) + '\n').repeated(100);
    }

    void makeFiles() const
    {
        for (const QByteArray& name : names)
            mac.writeFile("Users/mira/Documents/" + name, content(name, version));
    }

    void makeOldCopies()
    {
        ++version;
        makeFiles();
        run({documents});
        for (const QByteArray& name : names)
            mirroredVersions[name] = version;
    }

    [[nodiscard]] bool isMirrored(const QByteArray& name, long run) const
    {
        const auto copy = FileManager::defaultManager().contents(mirrored("Documents/" + name));
        return copy && *copy == content(name, run);
    }

    /// Runs with `count` failing allocations, then looks at the engine and at the drive. False once the run
    /// has ended without getting to the first of them.
    bool runWithout(long first, long count)
    {
        ++version;
        makeFiles();
        long failed = 0;
        {
            const FailingAllocations failing(first, count);
            run({documents});
            failed = failing.failed();
        }
        SCOPED_TRACE("allocation " + std::to_string(first));
        expectReported();
        expectNothingPartial();
        return failed > 0;
    }

    /// Each file is either counted and on the drive, or has one line and its older copy.
    void expectReported()
    {
        ASSERT_FALSE(engine.isRunning());
        ASSERT_TRUE(engine.lastReport().has_value() || engine.lastError().has_value());
        const QStringList& errors = engine.progress().errors;
        SCOPED_TRACE(errors.join(u'\n').toStdString());
        for (const QString& line : errors)
            EXPECT_EQ(errors.count(line), 1);
        // One line may stand for a whole folder.
        const bool isEachReported = !engine.lastError() && std::ranges::none_of(errors, isForFolder);
        qint64 copied = 0;
        qint64 reported = 0;
        for (const QByteArray& name : names) {
            const bool isCopied = isMirrored(name, version);
            const qint64 lines = linesOf(name);
            copied += isCopied ? 1 : 0;
            reported += lines;
            if (isCopied)
                mirroredVersions[name] = version;
            EXPECT_TRUE(isMirrored(name, mirroredVersions.value(name))) << name.constData();
            if (isEachReported) {
                EXPECT_EQ(lines, isCopied ? 0 : 1) << name.constData();
            }
        }
        if (isEachReported) {
            const qint64 linesOfLink = linesOf("link");
            EXPECT_EQ(engine.progress().filesCopied, copied + 1 - linesOfLink);
            EXPECT_EQ(engine.progress().filesSkipped, reported + linesOfLink);
        }
        expectReportOnDrive();
    }

    static bool isForFolder(const QString& line)
    {
        return line.startsWith(u"Cannot "_s) || line.startsWith(u"Dir error "_s) ||
               line.startsWith(u"Skip Documents: "_s) || line.startsWith(u"Skip Folder: "_s) ||
               line.startsWith(u"Skip Other: "_s) || line.startsWith(u"Skip Deeper: "_s) ||
               line.startsWith(u"Skip Many: "_s);
    }

    [[nodiscard]] qint64 linesOf(const QByteArray& name) const
    {
        const QString start = u"Skip %1: "_s.arg(QString::fromUtf8(name).section(u'/', -1));
        return std::ranges::count_if(engine.progress().errors,
                                     [&start](const QString& line) { return line.startsWith(start); });
    }

    void expectReportOnDrive() const
    {
        const QStringList& errors = engine.progress().errors;
        const bool isMissing = std::ranges::any_of(
            errors, [](const QString& line) { return line.startsWith(u"Report write failed: "_s); });
        if (!engine.lastReport() || isMissing)
            return;
        for (const auto& file : std::filesystem::directory_iterator(reports().nativePath().toStdString())) {
            if (file.path().extension() != ".json")
                continue;
            const auto text =
                FileManager::defaultManager().contents(FileURL::fromNativePath(file.path().c_str()));
            ASSERT_TRUE(text);
            if (QJsonDocument::fromJson(*text).object() == engine.lastReport()->toJson())
                return;
        }
        ADD_FAILURE() << "no report on the drive says what the engine says";
    }

    void expectNothingPartial() const
    {
        for (const QByteArray& path : everythingBelow(drive))
            EXPECT_FALSE(path.endsWith(".tmp")) << path.constData();
        std::filesystem::remove_all(reports().nativePath().toStdString());
        std::filesystem::create_directory(reports().nativePath().toStdString());
    }

    /// Sorted paths of everything below Documents.
    [[nodiscard]] QByteArrayList walkedWaitingForMemory() const
    {
        const auto items = waitingForMemory([this] { return DirectoryEnumerator::open(documents, {}); });
        QByteArrayList paths;
        while (waitingForMemory([&] { return (*items)->next(); })) {
            paths.append(waitingForMemory([&] {
                const QByteArray folder = (*items)->relativeFolder().toByteArray();
                return (folder.isEmpty() ? folder : folder + '/') + (*items)->name().toByteArray();
            }));
        }
        std::ranges::sort(paths);
        return paths;
    }

    FileURL documents = mac.makeFolder("Users/mira/Documents");
    QByteArrayList names = {"a", "b", "Folder/c", "Folder/d", "Other/Deeper/e"};
    QHash<QByteArray, long> mirroredVersions;
    long version = 0;
};

} // namespace

TEST_F(MemoryTest, everyAllocationOfASmallRunMayFail)
{
    makeOldCopies();
    long allocations = 0;
    while (runWithout(allocations, 1) && !HasFailure())
        ++allocations;
    EXPECT_GT(allocations, 100);
    RecordProperty("allocations", static_cast<int>(allocations));
}

TEST_F(MemoryTest, aLackOfMemoryThatLastsAWhileIsWaitedFor)
{
    makeOldCopies();
    constexpr long step = 17;
    constexpr long failures = 5;
    for (long first = 0; runWithout(first, failures) && !HasFailure(); first += step) {
    }
}

TEST_F(MemoryTest, allocationsOfManyWorkersMayFail)
{
    names.clear();
    for (int number = 0; number < 150; ++number)
        names.append("Many/f" + QByteArray::number(number));
    makeOldCopies();
    constexpr long step = 53; // no divisor of the allocations that an item takes
    for (long first = 0; runWithout(first, 1) && !HasFailure(); first += step) {
    }
}

TEST_F(MemoryTest, aRunLetsGoOfItsTaskThoughMemoryRunsOutForThat)
{
    auto task = BackupTask::create(engine);
    bool isDestroyed = false;
    QObject::connect(task.get(), &QObject::destroyed, [&isDestroyed] { isDestroyed = true; });
    QSemaphore isReady;
    QSemaphore mayGo;
    std::thread thread([&] {
        std::ignore = QThread::currentThread(); // what Qt keeps for a thread is there
        isReady.release();
        mayGo.acquire();
        task.reset();
    });
    isReady.acquire();
    long failed = 0;
    {
        const FailingAllocations failing(0, 1);
        mayGo.release();
        thread.join();
        failed = failing.failed();
    }
    EXPECT_EQ(failed, 1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(isDestroyed);
}

TEST_F(MemoryTest, aWalkGoesOnWhereMemoryWasMissing)
{
    // Deeper than there may be open folders.
    for (const int depth : {0, 1, 20, 30, 40})
        mac.writeFile("Users/mira/Documents/" + QByteArray("folder/").repeated(depth) + "file", "x");
    const QByteArrayList all = everythingBelow(documents);
    bool hasFailed = true;
    for (long first = 0; hasFailed; ++first) {
        QByteArrayList paths;
        const FailingAllocations failing(first, 1);
        std::thread([&] { paths = walkedWaitingForMemory(); }).join(); // this thread is spared
        ASSERT_EQ(paths, all) << "allocation " << first;
        hasFailed = failing.failed() > 0;
    }
}

} // namespace keelbright::testing

#include "KeelbrightCore/backup/BackupEngine.h"

#include "tests/support/EngineRun.h"
#include "tests/support/HangingSources.h"
#include "tests/support/Printing.h"
#include "tests/support/WorkTimer.h"

#include <QSemaphore>
#include <gmock/gmock.h>

namespace keelbright {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::TestMac;

class BackupEngineTest : public ::testing::Test, public testing::EngineRun
{
protected:
    void writeFiles(int count)
    {
        for (int i = 0; i < count; ++i)
            mac.writeFile("Users/mira/Documents/" + QByteArray::number(i).rightJustified(4, '0'), "12345");
    }

    FileURL documents = mac.makeFolder("Users/mira/Documents");
};

TEST_F(BackupEngineTest, beginsIdleAndEmpty)
{
    EXPECT_EQ(engine.progress(), BackupProgress());
    EXPECT_FALSE(engine.isRunning());
    EXPECT_FALSE(engine.isCancelled());
    EXPECT_EQ(engine.lastReport(), std::nullopt);
    EXPECT_EQ(engine.lastError(), std::nullopt);
}

TEST_F(BackupEngineTest, resetsItselfInOrderWhenARunStarts)
{
    engine.setLastError(QStringLiteral("old"));
    engine.appendError(QStringLiteral("old"));
    QStringList announced;
    const auto note = [&announced](const char* what) {
        return [&announced, what] { announced.append(QString::fromLatin1(what)); };
    };
    QObject::connect(&engine, &BackupEngine::isRunningChanged, note("isRunning"));
    QObject::connect(&engine, &BackupEngine::isCancelledChanged, note("isCancelled"));
    QObject::connect(&engine, &BackupEngine::lastErrorChanged, note("lastError"));
    QObject::connect(&engine, &BackupEngine::progressChanged, note("progress"));
    QObject::connect(&engine, &BackupEngine::lastReportChanged, note("lastReport"));
    engine.startBackup(job({documents}));
    EXPECT_EQ(announced.join(QLatin1Char(' ')),
              QStringLiteral("isRunning isCancelled lastError progress lastReport"));
    EXPECT_TRUE(engine.isRunning());
    EXPECT_THAT(engine.progress().errors, IsEmpty());
    EXPECT_EQ(engine.lastError(), std::nullopt);
    turnUntil([this] { return !engine.isRunning(); });
}

TEST_F(BackupEngineTest, ignoresASecondStartDuringARun)
{
    writeFiles(50);
    const BackupJob first = job({documents});
    engine.startBackup(first);
    turnUntil([this] { return engine.progress().filesCopied > 5; });
    const BackupProgress before = engine.progress();
    engine.startBackup(job({}));
    EXPECT_EQ(engine.progress(), before);
    turnUntil([this] { return !engine.isRunning(); });
    EXPECT_EQ(engine.lastReport()->jobId, first.id);
    EXPECT_EQ(engine.lastReport()->filesCopied, 50);
}

TEST_F(BackupEngineTest, announcesEachOfTheThreeCountersOfACopiedFile)
{
    int announcements = 0;
    QObject::connect(&engine, &BackupEngine::progressChanged, [&] { ++announcements; });
    engine.incrementCopied(7, QStringLiteral("a.txt"));
    EXPECT_EQ(announcements, 3);
    EXPECT_EQ(engine.progress().filesCopied, 1);
    EXPECT_EQ(engine.progress().bytesCopied, 7);
    EXPECT_EQ(engine.progress().currentFile, QStringLiteral("a.txt"));
}

TEST_F(BackupEngineTest, neverCopiesTheItemAfterTheOneOnWhichAnObserverCancels)
{
    writeFiles(100);
    const auto canceller = QObject::connect(&engine, &BackupEngine::progressChanged, [&] {
        if (engine.progress().filesCopied == 10 && !engine.isCancelled())
            engine.cancel();
    });
    run({documents});
    QObject::disconnect(canceller);
    EXPECT_TRUE(engine.isCancelled()) << "only the next start resets it";
    EXPECT_EQ(everythingBelow(mirrored("Documents")).size(), 10);
    ASSERT_TRUE(engine.lastReport().has_value());
    EXPECT_EQ(engine.lastReport()->filesCopied, 10);
    EXPECT_THAT(engine.lastReport()->errors, IsEmpty()) << "the report says nothing of the cancellation";
    EXPECT_TRUE(mac.fileManager().fileExists(latest("recovery-manifest.json")).exists);
    EXPECT_EQ(everythingBelow(reports()).size(), 2);
    run({documents});
    EXPECT_FALSE(engine.isCancelled());
    EXPECT_EQ(engine.lastReport()->filesCopied, 100);
}

TEST_F(BackupEngineTest, cancelsBetweenSourcesToo)
{
    mac.writeFile("Users/mira/Documents/only", "x");
    mac.writeFile("Users/mira/Pictures/photo", "x");
    QObject::connect(&engine, &BackupEngine::progressChanged, [&] {
        if (engine.progress().filesCopied == 1)
            engine.cancel();
    });
    run({documents, mac.home().appending(QStringLiteral("Pictures"))});
    EXPECT_EQ(engine.lastReport()->filesCopied, 1);
    EXPECT_FALSE(mac.fileManager().fileExists(mirrored("Pictures")).exists);
}

TEST_F(BackupEngineTest, aCancelIsNoticedWhileTheRunStillCounts)
{
    writeFiles(10);
    const FileURL pictures = mac.writeFile("Users/mira/Pictures/photo", "x").deletingLastPathComponent();
    testing::HangingSources sources(mac.root());
    const FileManagerGuard guard(sources);
    engine.startBackup(job({documents, pictures}));
    sources.waitUntilReached();
    engine.cancel();
    sources.letGo();
    turnUntil([this] { return !engine.isRunning(); });
    EXPECT_EQ(sources.walks(), 1) << "neither the second source is counted nor any copied";
    EXPECT_EQ(engine.progress().totalFilesEstimate, 0);
    ASSERT_TRUE(engine.lastReport().has_value());
    EXPECT_EQ(engine.lastReport()->filesCopied, 0);
    EXPECT_TRUE(mac.fileManager().fileExists(latest("recovery-manifest.json")).exists);
}

TEST_F(BackupEngineTest, isHarmlessToCancelWhenIdle)
{
    engine.cancel();
    EXPECT_TRUE(engine.isCancelled());
    mac.writeFile("Users/mira/Documents/a", "x");
    run({documents});
    EXPECT_EQ(engine.lastReport()->filesCopied, 1);
}

TEST_F(BackupEngineTest, hasItsReportInPlaceWhenTheRunEnds)
{
    bool wasInPlace = false;
    QObject::connect(&engine, &BackupEngine::isRunningChanged, [&] {
        if (!engine.isRunning())
            wasInPlace = engine.lastReport().has_value();
    });
    run({documents});
    EXPECT_TRUE(wasInPlace);
}

TEST_F(BackupEngineTest, reportsCountersInTheOrderOfItems)
{
    writeFiles(200);
    qint64 copied = 0;
    bool steady = true;
    QObject::connect(&engine, &BackupEngine::progressChanged, [&] {
        const BackupProgress& now = engine.progress();
        steady = steady && now.filesCopied >= copied && now.bytesCopied <= now.filesCopied * 5;
        copied = now.filesCopied;
    });
    run({documents});
    EXPECT_TRUE(steady);
    EXPECT_EQ(copied, 200);
    EXPECT_EQ(engine.progress().bytesCopied, 1000);
}

TEST_F(BackupEngineTest, endsCleanlyWhenItIsDestroyedInTheMiddleOfARun)
{
    writeFiles(2000);
    auto shortLived = std::make_unique<BackupEngine>();
    shortLived->startBackup(job({documents}));
    turnUntil([&] { return shortLived->progress().filesCopied > 20; });
    EXPECT_TRUE(shortLived->shutDown(60'000));
    shortLived.reset();
    QCoreApplication::processEvents();
    const QByteArrayList left = everythingBelow(mirrored("Documents"));
    EXPECT_LT(left.size(), 2000);
    for (const QByteArray& name : left)
        EXPECT_EQ(TestMac::read(mirrored("Documents/" + name)), "12345") << name.constData();
    EXPECT_FALSE(mac.fileManager().fileExists(latest("recovery-manifest.json")).exists);
}

TEST_F(BackupEngineTest, leavesNoTraceOfTheRemainingSourcesWhenTheProgramQuitsInTheMiddleOfARun)
{
    QList<FileURL> sources;
    for (const char* name : {"One", "Two", "Three", "Four", "Five", "Six"}) {
        sources.append(mac.home().appendingNative(name));
        mac.writeFile(QByteArray("Users/mira/") + name + "/file", "12345");
    }
    bool hasEnded = false;
    QObject::connect(&engine, &BackupEngine::progressChanged, [&] {
        if (engine.progress().filesCopied == 1 && !hasEnded)
            hasEnded = engine.shutDown(10'000);
    });
    engine.startBackup(job(sources));
    turnUntil([&] { return hasEnded; });
    EXPECT_THAT(everythingBelow(drive.appendingNative("Keelbright/miras Mac")),
                ElementsAre("Latest", "Latest/Personal Files", "Latest/Personal Files/One",
                            "Latest/Personal Files/One/file", "Reports"));
}

TEST_F(BackupEngineTest, doesNotGetSlowerWithTheLengthOfItsErrors)
{
    // An observer that looks at every publication, as a window does.
    qsizetype seen = 0;
    QObject::connect(&engine, &BackupEngine::progressChanged,
                     [&] { seen = engine.progress().errors.size(); });
    constexpr int block = 20'000;
    const auto timeBlock = [&] {
        const testing::WorkTimer timer;
        for (int i = 0; i < block; ++i) {
            engine.appendError(QStringLiteral("Skip a: “a” could not be read: it does not exist."));
            engine.incrementSkipped();
        }
        return timer.nanoseconds();
    };
    const qint64 first = timeBlock();
    for (int i = 0; i < 3; ++i)
        timeBlock();
    const qint64 last = timeBlock();
    EXPECT_EQ(seen, 5 * block);
    EXPECT_LT(last, first * 10 + 20'000'000) << "a list copied at each line would take minutes";
}

} // namespace
} // namespace keelbright

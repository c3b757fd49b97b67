#include "Keelbright/state/BackupTimeLeft.h"

#include "KeelbrightCore/backup/BackupEngine.h"
#include "tests/support/Printing.h"

#include <QCoreApplication>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

constexpr qint64 megabyte = 1'000'000;

class BackupTimeLeftTest : public ::testing::Test
{
protected:
    void start()
    {
        timeLeft.expect(1'000 * megabyte);
        engine.setIsRunning(true);
    }

    /// Copies 4 MB a second.
    void copy(int seconds)
    {
        for (int second = 0; second < seconds; ++second) {
            timeLeft.measure();
            now += 1s;
            progress.bytesCopied += 4 * megabyte;
            engine.setProgress(progress);
        }
    }

    int argc = 1;
    char name[5] = "test";
    char* argv[1] = {name};
    QCoreApplication application{argc, argv};
    std::chrono::milliseconds now = 0ms;
    BackupEngine engine;
    BackupProgress progress;
    BackupTimeLeft timeLeft{engine, [this] { return now; }};
};

} // namespace

TEST_F(BackupTimeLeftTest, isShownOnceItIsKnown)
{
    const QSignalSpy changes(&timeLeft, &BackupTimeLeft::changed);
    start();
    EXPECT_EQ(timeLeft.text(), QString());
    EXPECT_EQ(changes.count(), 0);
    copy(30);
    EXPECT_EQ(timeLeft.text(), u"About 4 minutes left"_s);
    EXPECT_EQ(changes.count(), 1);
    copy(60);
    EXPECT_EQ(timeLeft.text(), u"About 3 minutes left"_s);
    EXPECT_EQ(changes.count(), 2);
}

TEST_F(BackupTimeLeftTest, measuresByItselfDuringARun)
{
    start();
    copy(30);
    const QSignalSpy changes(&timeLeft, &BackupTimeLeft::changed);
    now += 60s;
    progress.bytesCopied += 240 * megabyte;
    engine.setProgress(progress);
    EXPECT_TRUE(QTest::qWaitFor([&] { return changes.count() > 0; }, 60'000));
    EXPECT_EQ(timeLeft.text(), u"About 3 minutes left"_s);
}

TEST_F(BackupTimeLeftTest, goesWithTheEndOfTheRun)
{
    start();
    copy(30);
    engine.setIsRunning(false);
    EXPECT_EQ(timeLeft.text(), QString());
    timeLeft.measure();
    EXPECT_EQ(timeLeft.text(), QString());
}

TEST_F(BackupTimeLeftTest, goesWithACancel)
{
    start();
    copy(30);
    const QSignalSpy changes(&timeLeft, &BackupTimeLeft::changed);
    engine.cancel();
    EXPECT_EQ(timeLeft.text(), QString());
    EXPECT_EQ(changes.count(), 1);
    copy(30);
    EXPECT_EQ(timeLeft.text(), QString());
}

TEST_F(BackupTimeLeftTest, goesWhereMoreIsCopiedThanWasExpected)
{
    start();
    copy(30);
    progress.bytesCopied = 1'001 * megabyte;
    engine.setProgress(progress);
    timeLeft.measure();
    EXPECT_EQ(timeLeft.text(), QString());
}

TEST_F(BackupTimeLeftTest, isNotKnownWithoutAnEstimate)
{
    engine.setIsRunning(true);
    copy(30);
    EXPECT_EQ(timeLeft.text(), QString());
}

TEST_F(BackupTimeLeftTest, beginsAgainWithTheNextRun)
{
    start();
    copy(30);
    engine.setIsRunning(false);
    progress = {};
    engine.setProgress(progress);
    start();
    timeLeft.measure();
    EXPECT_EQ(timeLeft.text(), QString());
    copy(30);
    EXPECT_EQ(timeLeft.text(), u"About 4 minutes left"_s);
}

} // namespace keelbright

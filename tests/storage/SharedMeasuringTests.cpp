#include "KeelbrightCore/storage/SharedMeasuring.h"
#include "tests/storage/StorageFixture.h"

#include <QSemaphore>
#include <QThread>
#include <QThreadPool>
#include <gmock/gmock.h>

namespace keelbright::testing {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

/// Opens no walk before as many are asked for at the same time, and remembers whether they were.
class MeetingFileManager : public SandboxFileManager
{
public:
    MeetingFileManager(FileURL root, int expected)
        : SandboxFileManager(std::move(root))
        , m_expected(expected)
    {}

    std::expected<std::unique_ptr<DirectoryEnumerator>, FileError>
    enumerator(const FileURL& url, DirectoryEnumerator::Options options) const override
    {
        if (++m_arrived == m_expected)
            m_all.release(m_expected);
        if (m_all.tryAcquire(1, 10'000))
            ++m_met;
        return SandboxFileManager::enumerator(url, options);
    }

    [[nodiscard]] int met() const { return m_met; }

private:
    int m_expected;
    mutable std::atomic<int> m_arrived = 0;
    mutable std::atomic<int> m_met = 0;
    mutable QSemaphore m_all;
};

class SharedMeasuringTest : public StorageFixture
{
protected:
    QThreadPool pool;
};

} // namespace

TEST_F(SharedMeasuringTest, sumsComeInTheOrderOfTheFolders)
{
    write("a/1", 5);
    write("b/2", 7);
    write("c/sub/3", 9);
    EXPECT_THAT(measureTogether({at("c"), at("gone"), at("a"), at("b"), at("a")}, mac.fileManager(), pool),
                ElementsAre(9, 0, 5, 7, 5));
}

TEST_F(SharedMeasuringTest, noFoldersHaveNoSums)
{
    EXPECT_THAT(measureTogether({}, mac.fileManager(), pool), IsEmpty());
}

TEST_F(SharedMeasuringTest, whereNoThreadIsIdleTheCallerDoesItAlone)
{
    for (int i = 0; i < 20; ++i)
        write("a/" + QByteArray::number(i) + "/file", 2);
    pool.setMaxThreadCount(1);
    QSemaphore end;
    pool.start([&end] { end.acquire(); });
    EXPECT_THAT(measureTogether({at("a")}, mac.fileManager(), pool), ElementsAre(40));
    end.release();
    pool.waitForDone();
}

TEST_F(SharedMeasuringTest, foldersAreMeasuredAtTheSameTime)
{
    if (QThread::idealThreadCount() < 2)
        GTEST_SKIP() << "this machine has one processor";
    write("a/1", 5);
    write("b/2", 7);
    const MeetingFileManager fm(mac.root(), 2);
    EXPECT_THAT(measureTogether({at("a"), at("b")}, fm, pool), ElementsAre(5, 7));
    EXPECT_EQ(fm.met(), 2);
}

} // namespace keelbright::testing

#include "KeelbrightCore/platform/files/TreeSums.h"

#include "tests/support/DeepTree.h"
#include "tests/support/TestMac.h"

#include <QDir>
#include <QScopeGuard>
#include <QSemaphore>
#include <QThread>
#include <atomic>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <initializer_list>
#include <limits>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace keelbright {

std::ostream& operator<<(std::ostream& stream, const TreeSum& sum)
{
    return stream << sum.entries << " entries of " << sum.bytes << " bytes";
}

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Option = DirectoryEnumerator::Option;

std::optional<qint64> sizeOf(const DirectoryEnumerator& walk)
{
    return walk.fileSize();
}

/// What one thread alone finds.
TreeSum plainSum(const FileURL& tree, DirectoryEnumerator::Options options)
{
    TreeSum sum;
    const auto walk = DirectoryEnumerator::open(tree, options);
    while (walk && (*walk)->next()) {
        if (const auto bytes = sizeOf(**walk)) {
            ++sum.entries;
            sum.bytes += *bytes;
        }
    }
    return sum;
}

qsizetype entriesOf(const QString& folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::System).size();
}

class TreeSumsTest : public ::testing::Test
{
protected:
    [[nodiscard]] QList<TreeSum> sums(const QList<FileURL>& trees, DirectoryEnumerator::Options options = {})
    {
        return sumTrees(trees, options, sizeOf, mac.fileManager());
    }

    [[nodiscard]] FileURL at(const QByteArray& path) const { return root.appendingNative(path); }

    /// Folders with as many files of one byte each.
    void makeFolders(int folders, int files) const
    {
        for (int i = 0; i < folders; ++i) {
            for (int j = 0; j < files; ++j)
                mac.writeFile("tree/folder" + QByteArray::number(i) + '/' + QByteArray::number(j), "x");
        }
    }

    testing::TestMac mac;
    FileURL root = mac.makeFolder("tree");
};

TEST_F(TreeSumsTest, noTreesHaveNoSums)
{
    EXPECT_THAT(sums({}), IsEmpty());
}

TEST_F(TreeSumsTest, sumsComeInTheOrderOfTheTrees)
{
    mac.writeFile("tree/a/1", "12345");
    mac.writeFile("tree/b/2", "1234567");
    mac.writeFile("tree/c/sub/3", "123456789");
    EXPECT_THAT(sums({at("c"), at("a"), at("b"), at("a")}),
                ElementsAre(TreeSum{1, 9}, TreeSum{1, 5}, TreeSum{1, 7}, TreeSum{1, 5}));
}

TEST_F(TreeSumsTest, aTreeThatCanNotBeOpenedHasAnEmptySum)
{
    mac.writeFile("tree/file", "x");
    EXPECT_THAT(sums({at("gone"), at("file"), root}),
                ElementsAre(TreeSum{0, 0}, TreeSum{0, 0}, TreeSum{1, 1}));
}

TEST_F(TreeSumsTest, whatIsNotCountedAddsNothing)
{
    mac.writeFile("tree/a", "12345");
    mac.writeFile("tree/b", "x");
    const auto onlyB = [](DirectoryEnumerator& walk) {
        return walk.name() == "b" ? walk.fileSize() : std::nullopt;
    };
    EXPECT_THAT(sumTrees({root}, {}, onlyB, mac.fileManager()), ElementsAre(TreeSum{1, 1}));
}

TEST_F(TreeSumsTest, aSumThatDoesNotFitStaysAtTheLargestValue)
{
    makeFolders(10, 50);
    const auto huge = [](DirectoryEnumerator& walk) {
        return walk.type() == EntryType::directory ? std::nullopt : std::optional(qint64{1} << 62);
    };
    EXPECT_THAT(sumTrees({root}, {}, huge, mac.fileManager()),
                ElementsAre(TreeSum{500, std::numeric_limits<qint64>::max()}));
}

TEST_F(TreeSumsTest, anUnevenTreeHasTheSumOfAPlainWalkEachTime)
{
    for (int i = 0; i < 1'000; ++i) {
        QByteArray path = "tree/top " + QByteArray::number(i % 7);
        for (int depth = 0; depth < i % 5; ++depth)
            path += "/sub " + QByteArray::number((i / 7) % (depth + 2));
        mac.writeFile(path + "/file " + QByteArray::number(i), QByteArray(i, 'x'));
    }
    const TreeSum expected = plainSum(root, {});
    ASSERT_EQ(expected.entries, 1'000);
    for (int round = 0; round < 50; ++round)
        ASSERT_THAT(sums({root}), ElementsAre(expected));
}

TEST_F(TreeSumsTest, severalLargeTreesAreNotMixedUp)
{
    makeFolders(20, 30);
    QList<FileURL> trees;
    for (int i = 0; i < 20; ++i)
        trees.append(at("folder" + QByteArray::number(i)));
    trees.append(root);
    const QList<TreeSum> expected = QList<TreeSum>(20, TreeSum{30, 30}) << TreeSum{600, 600};
    for (int round = 0; round < 20; ++round)
        ASSERT_EQ(sums(trees), expected);
}

TEST_F(TreeSumsTest, theOptionsHoldInEveryFolderThatIsPassedOn)
{
    makeFolders(20, 30);
    for (int i = 0; i < 20; ++i) {
        const QByteArray folder = "tree/folder" + QByteArray::number(i);
        mac.writeFile(folder + "/.hidden/file", "x");
        mac.writeFile(folder + "/sub/.hidden", "x");
        mac.writeFile(folder + "/sub/Tool.app/inside", "x");
        mac.writeFile(folder + "/sub/file", "x");
    }
    EXPECT_THAT(sums({root}, Option::skipsHiddenFiles | Option::skipsPackageDescendants),
                ElementsAre(TreeSum{20 * 31, 20 * 31}));
    EXPECT_THAT(sums({root}), ElementsAre(TreeSum{20 * 34, 20 * 34}));
}

TEST_F(TreeSumsTest, aFolderThatIsSkippedIsWalkedByNoThread)
{
    makeFolders(20, 30);
    for (int i = 0; i < 20; ++i)
        mac.writeFile("tree/folder" + QByteArray::number(i) + "/skipped/file", "x");
    const auto bytesOf = [](DirectoryEnumerator& walk) {
        if (walk.name() == "skipped")
            walk.skipDescendants();
        return walk.fileSize();
    };
    for (int round = 0; round < 20; ++round)
        ASSERT_THAT(sumTrees({root}, {}, bytesOf, mac.fileManager()), ElementsAre(TreeSum{600, 600}));
}

TEST_F(TreeSumsTest, linksAreCountedAndNeverFollowed)
{
    makeFolders(20, 30);
    for (int i = 0; i < 20; ++i) {
        const FileURL link = at("folder" + QByteArray::number(i) + "/link");
        ASSERT_EQ(::symlink("..", link.nativePath().constData()), 0);
    }
    EXPECT_THAT(sums({root}), ElementsAre(TreeSum{620, 600 + 20 * 2}));
}

TEST_F(TreeSumsTest, aLargeTreeIsWalkedBySeveralThreadsAtTheSameTime)
{
    makeFolders(20, 100);
    const QThread* const caller = QThread::currentThread();
    std::atomic<int> entriesOfCaller = 0;
    std::atomic<bool> haveMet = false;
    QSemaphore other;
    const auto bytesOf = [&](DirectoryEnumerator&) -> std::optional<qint64> {
        if (QThread::currentThread() != caller)
            other.release();
        else if (++entriesOfCaller == 500)
            haveMet = other.tryAcquire(1, 10'000);
        return 1;
    };
    EXPECT_THAT(sumTrees({root}, {}, bytesOf, mac.fileManager()), ElementsAre(TreeSum{2'020, 2'020}));
    EXPECT_TRUE(haveMet);
}

TEST_F(TreeSumsTest, aSmallTreeStartsNoThread)
{
    makeFolders(10, 10);
    const QThread* const caller = QThread::currentThread();
    std::atomic<bool> isAlone = true;
    const auto bytesOf = [&](DirectoryEnumerator&) -> std::optional<qint64> {
        if (QThread::currentThread() != caller)
            isAlone = false;
        return 1;
    };
    EXPECT_THAT(sumTrees({root}, {}, bytesOf, mac.fileManager()), ElementsAre(TreeSum{110, 110}));
    EXPECT_TRUE(isAlone);
}

TEST_F(TreeSumsTest, nothingStaysOpenAndNoThreadIsLeft)
{
    if (!QDir(QStringLiteral("/proc/self/fd")).exists())
        GTEST_SKIP() << "this system does not list the open files of a program";
    makeFolders(50, 50);
    const qsizetype openBefore = entriesOf(QStringLiteral("/proc/self/fd"));
    const qsizetype threadsBefore = entriesOf(QStringLiteral("/proc/self/task"));
    EXPECT_THAT(sums({root, at("gone")}), ElementsAre(TreeSum{2'500, 2'500}, TreeSum{0, 0}));
    EXPECT_EQ(entriesOf(QStringLiteral("/proc/self/fd")), openBefore);
    EXPECT_EQ(entriesOf(QStringLiteral("/proc/self/task")), threadsBefore);
}

TEST_F(TreeSumsTest, aDeepTreeIsSummedUpWithFewOpenFiles)
{
    constexpr int levels = 2'000;
    testing::makeLevels(root, levels);
    mac.writeFile("tree/file", "x");
    rlimit limit = {};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &limit), 0);
    const auto unlimited = qScopeGuard([&] { ::setrlimit(RLIMIT_NOFILE, &limit); });
    const auto countAll = [](DirectoryEnumerator&) { return std::optional<qint64>(1); };
    for (const rlim_t few : std::initializer_list<rlim_t>{64, 200, 256}) {
        rlimit lower = limit;
        lower.rlim_cur = few;
        ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &lower), 0);
        EXPECT_THAT(sumTrees({root}, {}, countAll, mac.fileManager()),
                    ElementsAre(TreeSum{2 * levels + 1, 2 * levels + 1}))
            << few << " open files";
    }
}

TEST_F(TreeSumsTest, theNumberOfOpenFilesIsBoundedInAWideTree)
{
    if (!QDir(QStringLiteral("/proc/self/fd")).exists())
        GTEST_SKIP() << "this system does not list the open files of a program";
    makeFolders(500, 3);
    const qsizetype before = entriesOf(QStringLiteral("/proc/self/fd"));
    std::atomic<qsizetype> maximum = 0;
    const auto bytesOf = [&](DirectoryEnumerator& walk) {
        const qsizetype open = entriesOf(QStringLiteral("/proc/self/fd"));
        qsizetype previous = maximum;
        while (open > previous && !maximum.compare_exchange_weak(previous, open)) {
        }
        return walk.fileSize();
    };
    EXPECT_THAT(sumTrees({root}, {}, bytesOf, mac.fileManager()), ElementsAre(TreeSum{1'500, 1'500}));
    // Eight threads at most, each with a root, a folder, two that wait for it, and the look itself.
    EXPECT_LE(maximum - before, 8 * 5);
}

TEST_F(TreeSumsTest, aCancelledWalkEndsWithWhatItHasCounted)
{
    makeFolders(50, 100);
    Cancellation cancellation;
    std::atomic<int> entries = 0;
    const auto bytesOf = [&](DirectoryEnumerator& walk) {
        if (++entries == 1'000)
            cancellation.cancel();
        return walk.fileSize();
    };
    const QList<TreeSum> found = sumTrees({root, root, root}, {}, bytesOf, mac.fileManager(), cancellation);
    ASSERT_EQ(found.size(), 3);
    // The other threads may each be at one more.
    EXPECT_LE(entries, 1'000 + 8);
    qint64 files = 0;
    for (const TreeSum& sum : found)
        files += sum.entries;
    EXPECT_GE(files, 1'000 - 3 * 50) << "folders are not counted";
    EXPECT_LE(files, entries);
}

TEST_F(TreeSumsTest, afterACancelNothingIsBegun)
{
    mac.writeFile("tree/file", "x");
    Cancellation cancellation;
    cancellation.cancel();
    EXPECT_THAT(sumTrees({root, root}, {}, sizeOf, mac.fileManager(), cancellation),
                ElementsAre(TreeSum{0, 0}, TreeSum{0, 0}));
}

} // namespace
} // namespace keelbright

#include "KeelbrightCore/platform/system/TaskPools.h"
#include "KeelbrightCore/storage/FolderSizeService.h"
#include "tests/storage/StorageFixture.h"

#include <QSet>
#include <QThreadPool>
#include <QtConcurrent>
#include <gmock/gmock.h>
#include <sys/stat.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

/// What a node holds, without its identity.
using Line = std::tuple<QString, qint64, bool>;

class ScanLevelTest : public StorageFixture
{
protected:
    [[nodiscard]] static QList<Line> linesOf(const QList<FolderSizeNode>& nodes)
    {
        QList<Line> lines;
        for (const FolderSizeNode& node : nodes)
            lines.append({node.name, node.totalBytes, node.isDirectory});
        return lines;
    }

    [[nodiscard]] QList<Line> scan() const { return linesOf(FolderSizeService::scanLevel(folder)); }
};

} // namespace

TEST_F(ScanLevelTest, anEmptyFolderHasNoEntries)
{
    EXPECT_THAT(scan(), IsEmpty());
}

TEST_F(ScanLevelTest, entriesComeWithTheirSizesLargestFirst)
{
    write("small.txt", 5);
    write("large.txt", 50);
    write("folder/a", 10);
    write("folder/deep/er/b", 10);
    makeFolder("empty folder");
    EXPECT_THAT(scan(), ElementsAre(Line(u"large.txt"_s, 50, false), Line(u"folder"_s, 20, true),
                                    Line(u"small.txt"_s, 5, false), Line(u"empty folder"_s, 0, true)));
}

TEST_F(ScanLevelTest, anEntryKnowsItsPlaceAndHasANewIdentityAtEachScan)
{
    write("a.txt", 1);
    write("b/c", 1);
    const QList<FolderSizeNode> first = FolderSizeService::scanLevel(folder);
    const QList<FolderSizeNode> second = FolderSizeService::scanLevel(folder);
    QSet<QUuid> ids;
    for (const FolderSizeNode& node : first + second) {
        ids.insert(node.id);
        EXPECT_EQ(node.url, folder.appending(node.name));
    }
    EXPECT_EQ(ids.size(), 4);
    EXPECT_FALSE(ids.contains(QUuid()));
}

TEST_F(ScanLevelTest, emptyFilesStayInTheList)
{
    write("empty.txt", 0);
    EXPECT_THAT(scan(), ElementsAre(Line(u"empty.txt"_s, 0, false)));
}

TEST_F(ScanLevelTest, equalSizesKeepTheOrderOfTheListing)
{
    for (int i = 0; i < 40; ++i)
        write(i % 2 == 0 ? "folder " + QByteArray::number(i) + "/a" : "file " + QByteArray::number(i), 7);
    QStringList listed;
    const auto entries =
        mac.fileManager().contentsOfDirectory(folder, DirectoryEnumerator::Option::skipsHiddenFiles);
    ASSERT_TRUE(entries.has_value());
    for (const DirectoryEntry& entry : *entries)
        listed.append(entry.url.lastPathComponent());
    QStringList scanned;
    for (const FolderSizeNode& node : FolderSizeService::scanLevel(folder))
        scanned.append(node.name);
    EXPECT_EQ(scanned, listed);
    EXPECT_EQ(scanned.size(), 40);
}

TEST_F(ScanLevelTest, aFolderThatCantBeReadHasNoEntries)
{
    write("a.txt", 1);
    const auto reopened = withMode("", 0);
    const UnprivilegedUser user;
    EXPECT_THAT(scan(), IsEmpty());
}

TEST_F(ScanLevelTest, whatIsNoFolderOrIsNotThereHasNoEntries)
{
    EXPECT_THAT(FolderSizeService::scanLevel(write("a.txt", 1)), IsEmpty());
    EXPECT_THAT(FolderSizeService::scanLevel(at("gone")), IsEmpty());
}

TEST_F(ScanLevelTest, aFolderOfHiddenEntriesHasNoEntriesAndHoldsNothing)
{
    write(".a", 1);
    write(".b/c", 10);
    EXPECT_THAT(scan(), IsEmpty());
    EXPECT_EQ(FolderSizeService::recursiveSize(folder, mac.fileManager()), 0);
}

TEST_F(ScanLevelTest, aPackageIsMeasuredInFullButAddsNothingToAFolderAroundIt)
{
    write("Tool.app/Contents/MacOS/Tool", 1000);
    write("around/Tool.app/Contents/MacOS/Tool", 1000);
    EXPECT_THAT(scan(), ElementsAre(Line(u"Tool.app"_s, 1000, true), Line(u"around"_s, 0, true)));
}

TEST_F(ScanLevelTest, linksHaveNoEntryWhereverTheyLead)
{
    write("real/a", 3);
    link("toFolder", "real");
    link("toFile", "real/a");
    link("dangling", "gone");
    EXPECT_THAT(scan(), ElementsAre(Line(u"real"_s, 3, true)));
}

TEST_F(ScanLevelTest, whatIsNeitherFileNorFolderIsAnEntryWithoutSize)
{
    ASSERT_EQ(::mkfifo(at("pipe").nativePath().constData(), 0600), 0);
    EXPECT_THAT(scan(), ElementsAre(Line(u"pipe"_s, 0, false)));
}

TEST_F(ScanLevelTest, anEntryWhoseValuesCantBeReadIsAFileOfSizeZero)
{
    write("a.txt", 10);
    // A folder that may be listed but not entered shows its names only.
    const auto reopened = withMode("", 0444);
    const UnprivilegedUser user;
    EXPECT_THAT(scan(), ElementsAre(Line(u"a.txt"_s, 0, false)));
}

TEST_F(ScanLevelTest, aSubfolderThatCantBeReadHasSizeZero)
{
    write("closed/a.txt", 10);
    write("open/a.txt", 1);
    const auto reopened = withMode("closed", 0);
    const UnprivilegedUser user;
    EXPECT_THAT(scan(), ElementsAre(Line(u"open"_s, 1, true), Line(u"closed"_s, 0, true)));
}

TEST_F(ScanLevelTest, aFolderThatIsALinkItselfIsListed)
{
    write("real/a", 3);
    link("door", "real");
    EXPECT_THAT(linesOf(FolderSizeService::scanLevel(at("door"))), ElementsAre(Line(u"a"_s, 3, false)));
}

TEST_F(ScanLevelTest, namesThatAreNotUtf8AreMeasured)
{
    write("caf\xe9/a", 3);
    const QList<FolderSizeNode> nodes = FolderSizeService::scanLevel(folder);
    ASSERT_EQ(nodes.size(), 1);
    EXPECT_EQ(nodes.first().url, at("caf\xe9"));
    EXPECT_EQ(nodes.first().name, u"caf\xfffd"_s);
    EXPECT_EQ(nodes.first().totalBytes, 3);
}

TEST_F(ScanLevelTest, oneHugeFolderAmongSmallOnesIsMeasuredExactly)
{
    for (int i = 0; i < 60; ++i) {
        for (int j = 0; j < 10; ++j)
            write("huge/" + QByteArray::number(i) + "/deep/" + QByteArray::number(j), 1 + i);
    }
    write("huge/Tool.app/inside", 1000);
    for (int i = 0; i < 5; ++i)
        write("small " + QByteArray::number(i) + "/a", 10 - i);
    const qint64 huge = 10 * (60 * 61 / 2);
    for (int round = 0; round < 50; ++round) {
        ASSERT_THAT(scan(), ElementsAre(Line(u"huge"_s, huge, true), Line(u"small 0"_s, 10, true),
                                        Line(u"small 1"_s, 9, true), Line(u"small 2"_s, 8, true),
                                        Line(u"small 3"_s, 7, true), Line(u"small 4"_s, 6, true)));
    }
}

TEST_F(ScanLevelTest, everyFolderOfAnUnevenTreeHasTheSizeThatItHasAlone)
{
    for (int i = 0; i < 400; ++i) {
        QByteArray path = "top " + QByteArray::number(i % 7);
        for (int depth = 0; depth < i % 5; ++depth)
            path += "/sub " + QByteArray::number((i / 7) % (depth + 2));
        write(path + "/file " + QByteArray::number(i), i);
    }
    for (int round = 0; round < 20; ++round) {
        for (const FolderSizeNode& node : FolderSizeService::scanLevel(folder))
            ASSERT_EQ(node.totalBytes, FolderSizeService::recursiveSize(node.url, mac.fileManager()));
    }
}

TEST_F(ScanLevelTest, severalScansAtOnceOnThePoolItselfAllEnd)
{
    for (int i = 0; i < 30; ++i)
        write("folder " + QByteArray::number(i) + "/a/b", 30 - i);
    const QList<Line> expected = scan();
    QList<QFuture<QList<FolderSizeNode>>> scans;
    const int more = TaskPools::userInitiated().maxThreadCount() + 10;
    for (int i = 0; i < more; ++i) {
        scans.append(QtConcurrent::run(&TaskPools::userInitiated(),
                                       [url = folder] { return FolderSizeService::scanLevel(url); }));
    }
    for (const auto& running : scans)
        EXPECT_EQ(linesOf(running.result()), expected);
}

} // namespace keelbright::testing

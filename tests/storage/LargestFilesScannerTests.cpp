#include "KeelbrightCore/storage/LargestFilesScanner.h"
#include "tests/storage/StorageFixture.h"

#include <QRandomGenerator>
#include <QSet>
#include <gmock/gmock.h>
#include <sys/stat.h>

#include <algorithm>

namespace keelbright::testing {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

using Line = std::pair<QString, qint64>;

class LargestFilesScannerTest : public StorageFixture
{
protected:
    [[nodiscard]] static QList<Line> scan(const FileURL& root, qsizetype limit)
    {
        QList<Line> lines;
        for (const LargeFileItem& item : LargestFilesScanner::scan(root, limit))
            lines.append({item.name(), item.sizeBytes});
        return lines;
    }

    [[nodiscard]] QList<Line> scan(qsizetype limit) const { return scan(folder, limit); }

    /// The files below the folder in the order in which a walk finds them.
    [[nodiscard]] QList<FileURL> foundFiles()
    {
        QList<FileURL> files;
        const auto walk = mac.fileManager().enumerator(folder, {});
        while ((*walk)->next()) {
            if ((*walk)->type() == EntryType::regularFile)
                files.append((*walk)->url());
        }
        return files;
    }
};

} // namespace

TEST_F(LargestFilesScannerTest, anEmptyFolderHasNone)
{
    EXPECT_THAT(scan(10), IsEmpty());
}

TEST_F(LargestFilesScannerTest, aWalkThatIsCancelledEnds)
{
    write("a", 1);
    Cancellation cancellation;
    EXPECT_EQ(LargestFilesScanner::scan(folder, 10, cancellation).size(), 1);
    cancellation.cancel();
    EXPECT_THAT(LargestFilesScanner::scan(folder, 10, cancellation), IsEmpty());
}

TEST_F(LargestFilesScannerTest, withFewerFilesThanTheLimitAllComeLargestFirst)
{
    write("a", 1);
    write("sub/b", 30);
    write("sub/deep/c", 2);
    EXPECT_THAT(scan(4), ElementsAre(Line(u"b"_s, 30), Line(u"c"_s, 2), Line(u"a"_s, 1)));
    EXPECT_THAT(scan(3), ElementsAre(Line(u"b"_s, 30), Line(u"c"_s, 2), Line(u"a"_s, 1)));
}

TEST_F(LargestFilesScannerTest, withMoreFilesThanTheLimitTheSmallestStayOut)
{
    for (int size = 1; size <= 20; ++size)
        write("sub " + QByteArray::number(size % 3) + "/" + QByteArray::number(size), size);
    EXPECT_THAT(scan(3), ElementsAre(Line(u"20"_s, 20), Line(u"19"_s, 19), Line(u"18"_s, 18)));
    EXPECT_THAT(scan(1), ElementsAre(Line(u"20"_s, 20)));
}

TEST_F(LargestFilesScannerTest, ofEqualSizesTheOneFoundFirstStays)
{
    for (const char* name : {"v", "w", "x", "y", "z"})
        write(name, 1);
    // The file system decides which comes first, so the sizes follow its order.
    const QList<FileURL> found = foundFiles();
    ASSERT_EQ(found.size(), 5);
    const QList<int> sizes{1, 5, 5, 9, 7};
    for (qsizetype i = 0; i < found.size(); ++i)
        std::filesystem::resize_file(standardPath(found[i]), static_cast<std::uintmax_t>(sizes[i]));
    ASSERT_EQ(foundFiles(), found);
    const QList<LargeFileItem> items = LargestFilesScanner::scan(folder, 3);
    ASSERT_EQ(items.size(), 3);
    EXPECT_EQ(items[0].url, found[3]);
    EXPECT_EQ(items[0].sizeBytes, 9);
    EXPECT_EQ(items[1].url, found[4]);
    EXPECT_EQ(items[1].sizeBytes, 7);
    EXPECT_EQ(items[2].url, found[1]);
    EXPECT_EQ(items[2].sizeBytes, 5);
}

TEST_F(LargestFilesScannerTest, theResultIsTheHeadOfAllFilesSortedInTheOrderFound)
{
    QRandomGenerator random(7);
    for (int i = 0; i < 200; ++i)
        write("sub " + QByteArray::number(i % 9) + "/" + QByteArray::number(i), random.bounded(1, 40));

    struct Found
    {
        FileURL url;
        std::uintmax_t size;
    };

    QList<Found> sorted;
    for (const FileURL& url : foundFiles())
        sorted.append({url, std::filesystem::file_size(standardPath(url))});
    std::ranges::stable_sort(sorted, std::ranges::greater(), &Found::size);
    for (const qsizetype limit : {1, 2, 3, 10, 50, 199, 200, 201}) {
        const QList<LargeFileItem> items = LargestFilesScanner::scan(folder, limit);
        ASSERT_EQ(items.size(), std::min<qsizetype>(limit, 200));
        for (qsizetype i = 0; i < items.size(); ++i)
            ASSERT_EQ(items[i].url, sorted[i].url) << "limit " << limit << ", place " << i;
    }
}

TEST_F(LargestFilesScannerTest, emptyFilesNeverCome)
{
    write("empty", 0);
    write("one", 1);
    EXPECT_THAT(scan(5), ElementsAre(Line(u"one"_s, 1)));
}

TEST_F(LargestFilesScannerTest, onlyRegularFilesCome)
{
    write("file", 3);
    makeFolder("folder");
    link("toFile", "a/long/text/that/is/longer/than/the/file");
    ASSERT_EQ(::mkfifo(at("pipe").nativePath().constData(), 0600), 0);
    EXPECT_THAT(scan(5), ElementsAre(Line(u"file"_s, 3)));
}

TEST_F(LargestFilesScannerTest, hiddenEntriesAndWhatPackagesHoldStayOut)
{
    write(".hidden", 100);
    write(".folder/file", 100);
    write("Tool.app/inside", 100);
    write("seen", 1);
    EXPECT_THAT(scan(5), ElementsAre(Line(u"seen"_s, 1)));
    EXPECT_THAT(scan(at("Tool.app"), 5), ElementsAre(Line(u"inside"_s, 100)));
}

TEST_F(LargestFilesScannerTest, foldersBehindLinksStayOutUnlessTheRootIsTheLink)
{
    mac.writeFile("Users/mira/Outside/big", QByteArray(100, 'x'));
    link("door", "../Outside");
    EXPECT_THAT(scan(5), IsEmpty());
    EXPECT_THAT(scan(at("door"), 5), ElementsAre(Line(u"big"_s, 100)));
}

TEST_F(LargestFilesScannerTest, whatCantBeReadCostsOnlyItself)
{
    write("open/a", 1);
    write("closed/b", 20);
    const auto reopened = withMode("closed", 0);
    const UnprivilegedUser user;
    EXPECT_THAT(scan(5), ElementsAre(Line(u"a"_s, 1)));
}

TEST_F(LargestFilesScannerTest, aFileWhoseSizeCantBeReadStaysOut)
{
    write("open/a", 1);
    write("listed/b", 20);
    const auto reopened = withMode("listed", 0444);
    const UnprivilegedUser user;
    EXPECT_THAT(scan(5), ElementsAre(Line(u"a"_s, 1)));
}

TEST_F(LargestFilesScannerTest, aRootThatIsNoFolderOrNotThereHasNone)
{
    EXPECT_THAT(scan(write("file", 3), 5), IsEmpty());
    EXPECT_THAT(scan(at("gone"), 5), IsEmpty());
}

TEST_F(LargestFilesScannerTest, aLimitBelowOneKeepsNothing)
{
    write("file", 3);
    EXPECT_THAT(scan(0), IsEmpty());
    EXPECT_THAT(scan(-1), IsEmpty());
    EXPECT_EQ(scan(1).size(), 1);
}

TEST_F(LargestFilesScannerTest, everyItemHasANewIdentity)
{
    write("a", 1);
    write("b", 2);
    QSet<QUuid> ids;
    for (int round = 0; round < 2; ++round) {
        for (const LargeFileItem& item : LargestFilesScanner::scan(folder, 5))
            ids.insert(item.id);
    }
    EXPECT_EQ(ids.size(), 4);
    EXPECT_FALSE(ids.contains(QUuid()));
}

TEST_F(LargestFilesScannerTest, namesThatAreNotUtf8AreFound)
{
    write("caf\xe9.mov", 3);
    const QList<LargeFileItem> items = LargestFilesScanner::scan(folder, 5);
    ASSERT_EQ(items.size(), 1);
    EXPECT_EQ(items.first().url, at("caf\xe9.mov"));
}

} // namespace keelbright::testing

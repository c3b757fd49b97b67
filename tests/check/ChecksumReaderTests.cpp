#include "KeelbrightCore/check/ChecksumReader.h"

#include "tests/support/TestMac.h"

#include <gmock/gmock.h>
#include <unistd.h>

namespace keelbright {
namespace {

using ::testing::ElementsAre;

class ChecksumReaderTests : public ::testing::Test
{
protected:
    [[nodiscard]] QByteArrayList pathsIn(const QByteArray& list)
    {
        auto reader = ChecksumReader::open(mac.writeFile("list.sha256", list));
        EXPECT_TRUE(reader.has_value());
        QByteArrayList paths;
        while (const auto line = reader->next())
            paths.append(line->path);
        unknownLines = reader->unknownLines();
        EXPECT_EQ(reader->code(), 0);
        return paths;
    }

    [[nodiscard]] static QByteArray line(const QByteArray& path)
    {
        return ChecksumLine{QByteArray(32, 'x'), path}.text();
    }

    testing::TestMac mac;
    qint64 unknownLines = 0;
};

TEST_F(ChecksumReaderTests, givesTheLinesInTheirOrder)
{
    EXPECT_THAT(pathsIn(line("a") + line("b/c") + line("d\ne")), ElementsAre("a", "b/c", "d\ne"));
    EXPECT_EQ(unknownLines, 0);
}

TEST_F(ChecksumReaderTests, readsALastLineWithoutABreakAndPassesEmptyOnesOver)
{
    QByteArray list = line("a") + "\n" + line("b");
    list.chop(1);
    EXPECT_THAT(pathsIn(list), ElementsAre("a", "b"));
    EXPECT_EQ(unknownLines, 0);
}

TEST_F(ChecksumReaderTests, readsTheListThatALinkLeadsTo)
{
    mac.writeFile("drive/list.sha256", line("a"));
    const FileURL link = mac.root().appendingNative("link.sha256");
    ASSERT_EQ(::symlink("drive/list.sha256", link.nativePath().constData()), 0);
    auto reader = ChecksumReader::open(link);
    ASSERT_TRUE(reader.has_value());
    const auto first = reader->next();
    ASSERT_TRUE(first.has_value());
    EXPECT_EQ(first->path, "a");
}

TEST_F(ChecksumReaderTests, countsLinesThatAreNoneOfAList)
{
    EXPECT_THAT(pathsIn("a remark\n" + line("a") + "0123  short\n"), ElementsAre("a"));
    EXPECT_EQ(unknownLines, 2);
}

TEST_F(ChecksumReaderTests, refusesPathsThatLeadOutOfTheFolder)
{
    EXPECT_THAT(pathsIn(line("../a") + line("/etc/passwd") + line("b/../../c") + line("./d") + line("e//f") +
                        line("g/") + line("h..i")),
                ElementsAre("h..i"));
    EXPECT_EQ(unknownLines, 6);
}

TEST_F(ChecksumReaderTests, readsListsThatAreLongerThanAPiece)
{
    QByteArray list;
    const qsizetype count = 20'000;
    for (qsizetype i = 0; i < count; ++i)
        list += line("folder/file " + QByteArray::number(i));
    ASSERT_GT(list.size(), PieceBuffer::size);
    const QByteArrayList paths = pathsIn(list);
    ASSERT_EQ(paths.size(), count);
    for (qsizetype i = 0; i < count; ++i)
        ASSERT_EQ(paths.at(i), "folder/file " + QByteArray::number(i));
}

TEST_F(ChecksumReaderTests, saysWhyAListCantBeOpened)
{
    const auto reader = ChecksumReader::open(mac.root().appending(QStringLiteral("missing.sha256")));
    ASSERT_FALSE(reader.has_value());
    EXPECT_EQ(reader.error().localizedDescription(),
              QStringLiteral("“missing.sha256” could not be opened: it does not exist."));
}

} // namespace
} // namespace keelbright

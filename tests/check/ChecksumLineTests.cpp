#include "KeelbrightCore/check/ChecksumLine.h"

#include <gtest/gtest.h>

namespace keelbright {

namespace {

const QByteArray digest =
    QByteArray::fromHex("ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
const QByteArray hex = digest.toHex();

} // namespace

TEST(ChecksumLineTests, isTheLineOfTheUsualTool)
{
    EXPECT_EQ((ChecksumLine{digest, "Latest/a file.txt"}.text()), hex + "  Latest/a file.txt\n");
}

TEST(ChecksumLineTests, marksALineWhosePathIsEscaped)
{
    EXPECT_EQ((ChecksumLine{digest, "a\\b\nc\rd"}.text()), "\\" + hex + "  a\\\\b\\nc\\rd\n");
}

TEST(ChecksumLineTests, readsWhatItWritesForAnyBytes)
{
    for (const QByteArray& path :
         {QByteArray("plain"), QByteArray(" two blanks first"), QByteArray("a\\nb"),
          QByteArray("line\nbreak"), QByteArray("\r\\\n"), QByteArray("\xff\xfe\x80"), QByteArray("*star")}) {
        QByteArray line = ChecksumLine{digest, path}.text();
        ASSERT_TRUE(line.endsWith('\n'));
        line.chop(1);
        EXPECT_FALSE(line.contains('\n'));
        EXPECT_EQ(ChecksumLine::fromText(line), (ChecksumLine{digest, path})) << path.toStdString();
    }
}

TEST(ChecksumLineTests, readsTheBinaryFormAndUpperCase)
{
    EXPECT_EQ(ChecksumLine::fromText(hex.toUpper() + " *name"), (ChecksumLine{digest, "name"}));
}

TEST(ChecksumLineTests, refusesWhatIsNoLineOfAList)
{
    for (const QByteArray& line : {QByteArray(), QByteArray("name"), hex, hex + "  ", hex + " name",
                                   hex.first(63) + "g  name", hex.first(40) + "  name", "\\" + hex + "  a\\",
                                   "\\" + hex + "  a\\x", hex + "  a" + QByteArray(1, '\0')})
        EXPECT_EQ(ChecksumLine::fromText(line), std::nullopt) << line.toStdString();
}

} // namespace keelbright

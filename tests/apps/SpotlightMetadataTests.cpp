#include "KeelbrightCore/apps/SpotlightMetadata.h"

#include "KeelbrightCore/platform/text/UtcZone.h"
#include "tests/support/MadeUpFiles.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <future>
#include <gtest/gtest.h>
#include <limits>

namespace keelbright::testing {

using namespace Qt::StringLiterals;
using AppScanner::metadataFromOutput;
using AppScanner::parseDate;
using AppScanner::parseMdls;
using AppScanner::SpotlightMeta;

namespace {

using Values = QMap<QString, QString>;

QDateTime utc(int year, int month, int day, int hour = 0, int minute = 0, int second = 0, int millisecond = 0)
{
    return {QDate(year, month, day), QTime(hour, minute, second, millisecond), utcZone};
}

qint64 useCount(const QByteArray& value)
{
    return metadataFromOutput("kMDItemUseCount = " + value + '\n').useCount;
}

const QByteArray goodOutput = "kMDItemDateAdded    = 2025-01-02 03:04:05 +0000\n"
                              "kMDItemLastUsedDate = 2026-03-01 09:05:00 +0100\n"
                              "kMDItemUseCount     = 42\n";

const SpotlightMeta goodMetadata{
    .lastUsed = utc(2026, 3, 1, 8, 5), .useCount = 42, .dateAdded = utc(2025, 1, 2, 3, 4, 5)};

class MetadataToolTests : public ::testing::Test
{
protected:
    /// What is known with a metadata tool made of these shell lines.
    SpotlightMeta metadata(const QByteArray& lines) const
    {
        m_files.program("usr/bin/mdls", "#!/bin/sh\n" + lines + '\n');
        return metadata();
    }

    /// What is known with the tool that there is.
    [[nodiscard]] SpotlightMeta metadata() const
    {
        std::promise<SpotlightMeta> answer;
        auto metadata = answer.get_future();
        AppScanner::spotlightMetadata(
            m_bundle,
            [answer = std::move(answer)](const SpotlightMeta& known) mutable { answer.set_value(known); });
        return metadata.get();
    }

    [[nodiscard]] static QByteArray printing(const QByteArray& output)
    {
        return "printf '" + QByteArray(output).replace("\n", "\\n") + '\'';
    }

    TestMac m_mac;
    MadeUpFiles m_files{m_mac.root(), m_mac.clock()()};
    FileURL m_bundle = m_mac.root().appendingNative("Applications/It's \"my\" \xFF Ink.app");
};

} // namespace

TEST(ParseMdls, aLineIsAKeyAndAValue)
{
    EXPECT_EQ(parseMdls(u"a = 1\nb = two words"_s), (Values{{u"a"_s, u"1"_s}, {u"b"_s, u"two words"_s}}));
}

TEST(ParseMdls, keyAndValueAreTrimmedOfBlanksAndTabs)
{
    EXPECT_EQ(parseMdls(u"\t a \t =  \t1\u00A0\u2003\t \n"_s), (Values{{u"a"_s, u"1"_s}}));
}

TEST(ParseMdls, aCarriageReturnIsNoBlank)
{
    EXPECT_EQ(parseMdls(u"a = 1\r\nb = 2\v"_s), (Values{{u"a"_s, u"1\r"_s}, {u"b"_s, u"2\v"_s}}));
}

TEST(ParseMdls, theFirstEqualsSignBetweenBlanksParts)
{
    EXPECT_EQ(parseMdls(u"a=b = c = d"_s), (Values{{u"a=b"_s, u"c = d"_s}}));
    EXPECT_EQ(parseMdls(u" = 1\na = "_s), (Values{{u""_s, u"1"_s}, {u"a"_s, u""_s}}));
}

TEST(ParseMdls, aLineWithoutOneIsSkipped)
{
    EXPECT_EQ(parseMdls(u"a=1\nb =2\nc= 3\n/Applications/Ink.app: could not find it.\n\n="_s), Values());
    EXPECT_EQ(parseMdls(u""_s), Values());
}

TEST(ParseMdls, anAttributeWithoutAValueIsLeftOut)
{
    EXPECT_EQ(parseMdls(u"a = (null)\nb =  (null) \nc = (NULL)\nd = \"(null)\""_s),
              (Values{{u"c"_s, u"(NULL)"_s}, {u"d"_s, u"\"(null)\""_s}}));
}

TEST(ParseMdls, ofTwoEqualKeysTheLastOneHolds)
{
    EXPECT_EQ(parseMdls(u"a = 1\na = 2\na = (null)"_s), (Values{{u"a"_s, u"2"_s}}));
}

TEST(ParseMdls, quotesStayAndLinesAreNotJoined)
{
    EXPECT_EQ(parseMdls(u"a = \"x\"\nb = (\n    \"y\"\n)"_s),
              (Values{{u"a"_s, u"\"x\""_s}, {u"b"_s, u"("_s}}));
}

TEST(ParseDate, noTextIsNoDate)
{
    EXPECT_EQ(parseDate(std::nullopt), std::nullopt);
}

TEST(ParseDate, wholeSecondsWithAnOffset)
{
    EXPECT_EQ(parseDate(u"2026-03-01 09:05:00 +0000"_s), utc(2026, 3, 1, 9, 5));
    EXPECT_EQ(parseDate(u"2026-03-01 09:05:07 -0530"_s), utc(2026, 3, 1, 14, 35, 7));
}

TEST(ParseDate, sixFractionalDigitsAndNoOtherNumberOfThem)
{
    EXPECT_EQ(parseDate(u"2026-03-01 09:05:00.250000 +0000"_s), utc(2026, 3, 1, 9, 5, 0, 250));
    for (const QString& digits : {u""_s, u"2"_s, u"250"_s, u"25000"_s, u"2500000"_s})
        EXPECT_EQ(parseDate(u"2026-03-01 09:05:00."_s + digits + u" +0000"_s), std::nullopt);
}

TEST(ParseDate, nothingElseIsADate)
{
    for (const QString& text :
         {u""_s, u"(null)"_s, u"2026-03-01"_s, u"2026-03-01 09:05:00"_s, u"2026-3-1 9:5:0 +0000"_s,
          u"2026-03-01 09:05:00 +0000\r"_s, u"\"2026-03-01 09:05:00 +0000\""_s,
          u"2026-02-30 09:05:00 +0000"_s, u"2026-03-01 24:05:00 +0000"_s, u"2026-03-01T09:05:00 +0000"_s,
          u"2026-03-01 09:05:00 +00:00"_s, u"2026-03-01 09:05:00 CET"_s})
        EXPECT_EQ(parseDate(text), std::nullopt) << text.toStdString();
}

TEST(MetadataOutput, theThreeValuesAreRead)
{
    EXPECT_EQ(metadataFromOutput(goodOutput), goodMetadata);
}

TEST(MetadataOutput, allThreeWithoutAValueAreNothing)
{
    EXPECT_EQ(metadataFromOutput("kMDItemDateAdded    = (null)\nkMDItemLastUsedDate = (null)\n"
                                 "kMDItemUseCount     = (null)\n"),
              SpotlightMeta());
}

TEST(MetadataOutput, aBadValueCostsTheOthersNothing)
{
    EXPECT_EQ(metadataFromOutput("kMDItemDateAdded = yesterday\nkMDItemUseCount = many\n"
                                 "kMDItemLastUsedDate = 2026-03-01 09:05:00 +0000\n"),
              (SpotlightMeta{.lastUsed = utc(2026, 3, 1, 9, 5), .useCount = 0, .dateAdded = std::nullopt}));
}

TEST(MetadataOutput, theUseCountIsADecimalIntegerWithASign)
{
    EXPECT_EQ(useCount("0"), 0);
    EXPECT_EQ(useCount("+7"), 7);
    EXPECT_EQ(useCount("-7"), -7);
    EXPECT_EQ(useCount("007"), 7);
    EXPECT_EQ(useCount("9223372036854775807"), std::numeric_limits<qint64>::max());
    EXPECT_EQ(useCount("-9223372036854775808"), std::numeric_limits<qint64>::min());
}

TEST(MetadataOutput, anythingElseIsAUseCountOfZero)
{
    for (const char* value :
         {"", "+", "-", "+-7", "7.0", "7e3", "0x10", "7 8", "7\r", "1,000", "\"7\"", "(7)", "\xD9\xA7",
          "9223372036854775808", "-9223372036854775809", "99999999999999999999999999"})
        EXPECT_EQ(useCount(value), 0) << value;
}

TEST(MetadataOutput, bytesThatAreNotUtf8AreNothingWhereverTheyStand)
{
    EXPECT_EQ(metadataFromOutput(goodOutput + "caf\xE9\n"), SpotlightMeta());
    EXPECT_EQ(metadataFromOutput("\xFF" + goodOutput), SpotlightMeta());
    EXPECT_EQ(metadataFromOutput(goodOutput + "\xC3"), SpotlightMeta()) << "a character cut at the end";
    EXPECT_EQ(metadataFromOutput(goodOutput + "\xED\xA0\x80"), SpotlightMeta()) << "half a pair";
    EXPECT_EQ(metadataFromOutput(goodOutput + "\xC0\x80"), SpotlightMeta()) << "longer than needed";
    EXPECT_EQ(metadataFromOutput(goodOutput + "kMDItemX = ü🙂\n"), goodMetadata);
}

TEST(MetadataOutput, cutAnywhereItIsReadWithoutHarm)
{
    for (qsizetype size = 0; size < goodOutput.size() - 1; ++size) {
        const SpotlightMeta metadata = metadataFromOutput(goodOutput.first(size));
        EXPECT_TRUE(metadata.dateAdded == std::nullopt || metadata.dateAdded == goodMetadata.dateAdded);
        EXPECT_TRUE(metadata.lastUsed == std::nullopt || metadata.lastUsed == goodMetadata.lastUsed);
        EXPECT_TRUE(metadata.useCount == 0 || metadata.useCount == 4) << metadata.useCount;
    }
}

TEST_F(MetadataToolTests, theToolIsAskedWithExactlySevenArguments)
{
    metadata("printf '%s\\0' \"$@\" > \"${0%/usr/bin/mdls}/arguments\"");
    EXPECT_EQ(TestMac::read(m_mac.root().appending(u"arguments"_s)).split('\0'),
              (QByteArrayList{"-name", "kMDItemLastUsedDate", "-name", "kMDItemUseCount", "-name",
                              "kMDItemDateAdded", m_bundle.nativePath(), ""}));
}

TEST_F(MetadataToolTests, whatItPrintsIsRead)
{
    EXPECT_EQ(metadata(printing(goodOutput)), goodMetadata);
}

TEST_F(MetadataToolTests, theExitStatusIsNotLookedAt)
{
    EXPECT_EQ(metadata(printing(goodOutput) + "; exit 9"), goodMetadata);
    EXPECT_EQ(metadata(printing(goodOutput) + "; kill -SEGV $$"), goodMetadata);
}

TEST_F(MetadataToolTests, aToolThatDiesBeforeItPrintsGivesNothing)
{
    EXPECT_EQ(metadata("kill -KILL $$"), SpotlightMeta());
    EXPECT_EQ(metadata("exit 1"), SpotlightMeta());
}

TEST_F(MetadataToolTests, aToolThatPrintsNothingOrNoTextGivesNothing)
{
    EXPECT_EQ(metadata(":"), SpotlightMeta());
    EXPECT_EQ(metadata(printing(goodOutput) + "; printf '\\377'"), SpotlightMeta());
    EXPECT_EQ(metadata("head -c 100000 /dev/urandom"), SpotlightMeta());
}

TEST_F(MetadataToolTests, megabytesOnEitherStreamDoNotBlockIt)
{
    EXPECT_EQ(metadata("head -c 5000000 /dev/zero | tr '\\0' x >&2\n" + printing(goodOutput)), goodMetadata);
    EXPECT_EQ(metadata("head -c 5000000 /dev/zero | tr '\\0' x\necho\n" + printing(goodOutput)),
              goodMetadata);
}

TEST_F(MetadataToolTests, aToolThatPrintsWithoutEndGivesNothing)
{
    EXPECT_EQ(metadata(printing(goodOutput) + "; exec yes"), SpotlightMeta());
    EXPECT_EQ(metadata(printing(goodOutput)), goodMetadata) << "the next one is asked as ever";
}

TEST_F(MetadataToolTests, whatItWritesToStandardErrorIsIgnored)
{
    EXPECT_EQ(metadata(printing(goodOutput) + " >&2"), SpotlightMeta());
}

TEST_F(MetadataToolTests, withoutTheToolNothingIsKnown)
{
    EXPECT_EQ(metadata(), SpotlightMeta());
}

TEST_F(MetadataToolTests, aToolThatCanNotBeLaunchedGivesNothing)
{
    m_mac.writeFile("usr/bin/mdls", "#!/bin/sh\n" + printing(goodOutput));
    EXPECT_EQ(metadata(), SpotlightMeta());
}

} // namespace keelbright::testing

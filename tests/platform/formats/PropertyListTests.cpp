#include "KeelbrightCore/platform/formats/PropertyList.h"

#include "tests/platform/formats/PropertyListFixtures.h"
#include "tests/support/TestMac.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace keelbright {

namespace {

using PropertyList::dictionary;
using namespace testing;

const QByteArray smallXml =
    entry("<array><integer>1</integer><data>AAE=</data><string>a&amp;<![CDATA[<b>]]></string>"
          "<date>2026-03-01T09:05:00Z</date><true/><!-- c --><dict/></array>");

QByteArray nestedXml(int levels)
{
    return xml("<dict><key>v</key>" + QByteArray("<array>").repeated(levels - 1) +
               QByteArray("</array>").repeated(levels - 1) + "</dict>");
}

QByteArray nestedBinary(int levels)
{
    BinaryList list;
    const int key = list.addText("v");
    int inner = list.addArray({});
    for (int level = 2; level < levels; ++level)
        inner = list.addArray({inner});
    return list.written(list.addDictionary(key, inner));
}

} // namespace

TEST(PropertyListTests, nestingIsReadUpToTheMaximumDepthAndNoDeeper)
{
    for (const auto& nested : {nestedXml, nestedBinary}) {
        EXPECT_TRUE(dictionary(nested(PropertyList::maximumDepth)).has_value());
        EXPECT_EQ(dictionary(nested(PropertyList::maximumDepth + 1)), std::nullopt);
        EXPECT_EQ(dictionary(nested(10'000)), std::nullopt);
    }
}

TEST(PropertyListTests, tooManyValuesAreRefused)
{
    const auto array = [](qint64 count) {
        return entry("<array>" + QByteArray("<true/>").repeated(count) + "</array>");
    };
    EXPECT_TRUE(dictionary(array(PropertyList::maximumValues - 2)).has_value());
    EXPECT_EQ(dictionary(array(PropertyList::maximumValues - 1)), std::nullopt);
}

TEST(PropertyListTests, dataAboveTheMaximumSizeIsRefused)
{
    const QByteArray valid = entry("<true/>");
    QByteArray padded = valid;
    padded.insert(padded.indexOf("<dict>"), QByteArray(PropertyList::maximumBytes - valid.size(), ' '));
    ASSERT_EQ(padded.size(), PropertyList::maximumBytes);
    EXPECT_TRUE(dictionary(padded).has_value());
    EXPECT_EQ(dictionary(padded + '\n'), std::nullopt);
}

TEST(PropertyListTests, dataCutAtAnyByteIsReadAsItWasOrRefused)
{
    for (const QByteArray& whole : {smallXml, foreignBinary}) {
        const auto expected = dictionary(whole);
        ASSERT_TRUE(expected.has_value());
        for (qsizetype size = 0; size < whole.size(); ++size) {
            // A copy of its own, so that a read beyond its end is one beyond the heap block.
            const QByteArray cut(whole.constData(), size);
            const auto read = dictionary(cut);
            EXPECT_TRUE(!read || read == expected) << "cut at " << size;
        }
    }
}

TEST(PropertyListTests, dataWithAnyByteChangedIsReadOrRefused)
{
    for (const QByteArray& whole : {smallXml, foreignBinary}) {
        int refused = 0;
        for (qsizetype position = 0; position < whole.size(); ++position) {
            for (const char byte : {'\x00', '\x01', '\x0F', '\x7F', '\x80', '\xFF', '<', '&'}) {
                QByteArray changed = whole;
                changed[position] = byte;
                refused += dictionary(changed).has_value() ? 0 : 1;
            }
        }
        EXPECT_GT(refused, 0);
    }
}

TEST(PropertyListTests, aFileIsReadInEitherForm)
{
    const testing::TestMac mac;
    EXPECT_EQ(PropertyList::dictionaryAt(mac.writeFile("a/Info.plist", entry("<true/>"))),
              (QVariantMap{{text("v"), true}}));
    EXPECT_EQ(PropertyList::dictionaryAt(mac.writeFile("\xFF/Info.plist", foreignBinary)), foreignContent);
}

TEST(PropertyListTests, whatIsNoRegularFileIsNothing)
{
    const testing::TestMac mac;
    const FileURL fifo = mac.makeFolder("a").appending(text("fifo"));
    ASSERT_EQ(::mkfifo(fifo.nativePath().constData(), 0600), 0);
    EXPECT_EQ(PropertyList::dictionaryAt(fifo), std::nullopt);
    EXPECT_EQ(PropertyList::dictionaryAt(mac.makeFolder("folder.plist")), std::nullopt);
    EXPECT_EQ(PropertyList::dictionaryAt(mac.root().appending(text("missing.plist"))), std::nullopt);
    EXPECT_EQ(PropertyList::dictionaryAt(FileURL::fromPath(text("/dev/zero"))), std::nullopt);
}

TEST(PropertyListTests, aFileAboveTheMaximumSizeIsNotRead)
{
    const testing::TestMac mac;
    const FileURL large = mac.writeFile("large.plist", entry("<true/>"));
    ASSERT_EQ(::truncate(large.nativePath().constData(), qint64{1} << 40), 0); // a hole of a terabyte
    EXPECT_EQ(PropertyList::dictionaryAt(large), std::nullopt);
}

} // namespace keelbright

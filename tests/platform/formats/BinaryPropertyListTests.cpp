#include "KeelbrightCore/platform/text/UtcZone.h"
#include "tests/platform/formats/PropertyListFixtures.h"

#include <QRandomGenerator>
#include <bit>
#include <cmath>
#include <gtest/gtest.h>

namespace keelbright {

namespace {

using PropertyList::dictionary;
using namespace testing;

/// The value of a binary object that stands alone in a dictionary; invalid where it is refused.
QVariant binaryValue(const QByteArray& object)
{
    BinaryList list;
    const int key = list.addText("v");
    const int value = list.add(object);
    const auto read = dictionary(list.written(list.addDictionary(key, value)));
    return read ? read->value(text("v")) : QVariant();
}

} // namespace

TEST(BinaryPropertyListTests, aBinaryListOfAnotherProgramIsReadWhole)
{
    EXPECT_EQ(dictionary(foreignBinary), foreignContent);
}

TEST(BinaryPropertyListTests, everyKindOfBinaryValueIsRead)
{
    EXPECT_EQ(binaryValue("\x08"), QVariant(false));
    EXPECT_EQ(binaryValue("\x09"), QVariant(true));
    EXPECT_EQ(binaryValue("\x10\xFF"), QVariant(qint64{255}));
    EXPECT_EQ(binaryValue("\x11\xFF\xFE"), QVariant(qint64{65534}));
    EXPECT_EQ(binaryValue("\x12\xFF\xFF\xFF\xFF"), QVariant(qint64{4294967295}));
    EXPECT_EQ(binaryValue("\x13" + bigEndian(static_cast<quint64>(-2), 8)), QVariant(qint64{-2}));
    EXPECT_EQ(binaryValue("\x14" + bigEndian(0, 8) + bigEndian(5, 8)), QVariant(qint64{5}));
    EXPECT_EQ(binaryValue("\x14" + QByteArray(16, '\xFF')), QVariant(qint64{-1}));
    EXPECT_EQ(binaryValue("\x14" + bigEndian(1, 8) + bigEndian(0, 8)), QVariant(18446744073709551616.0));
    EXPECT_EQ(binaryValue(QByteArray("\x22\x3F\xC0\x00\x00", 5)), QVariant(1.5));
    EXPECT_EQ(binaryValue("\x23" + bigEndian(0xC000'0000'0000'0000U, 8)), QVariant(-2.0));
    EXPECT_EQ(binaryValue(QByteArray("\x42\x00\xFF", 3)), QVariant(QByteArray("\x00\xFF", 2)));
    EXPECT_EQ(binaryValue(QByteArray("\x53"
                                     "a\0b",
                                     4)),
              QVariant(QString(QLatin1String("a\0b", 3))));
    EXPECT_EQ(binaryValue("\x62\xD8\x3D\xDE\x42"), QVariant(text("🙂")));
    EXPECT_EQ(binaryValue("\x81\x01\x02"), QVariant(qint64{258}));
    EXPECT_EQ(binaryValue("\xA0"), QVariant(QVariantList()));
    EXPECT_EQ(binaryValue("\xD0"), QVariant(QVariantMap()));
}

TEST(BinaryPropertyListTests, binaryDatesExceed32Bits)
{
    EXPECT_EQ(binaryValue("\x33" + bigEndian(0, 8)),
              QVariant(QDateTime(QDate(2001, 1, 1), QTime(), utcZone)));
    const QDateTime far(QDate(4001, 1, 1), QTime(0, 0), utcZone);
    EXPECT_EQ(binaryValue("\x33" + bigEndian(std::bit_cast<quint64>(63113904000.0), 8)), QVariant(far));
}

TEST(BinaryPropertyListTests, whatIsNoBinaryValueIsRefused)
{
    const QList<QByteArray> objects = {
        QByteArray(1, '\x00'),                                       // null
        "\x0F",                                                      // filler
        QByteArray("\x15") + QByteArray(32, '\0'),                   // 32-byte integer
        "\x21\x01\x02",                                              // 2-byte real
        "\x32\x01\x02\x03\x04",                                      // 4-byte date
        "\x33" + bigEndian(std::bit_cast<quint64>(std::nan("")), 8), // no moment
        "\x33" + bigEndian(std::bit_cast<quint64>(1e300), 8),        // no calendar goes there
        "\x70",                                                      // unknown kind
        "\xF0",                                                      // unknown kind
        "\x5F\x13\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF",                  // text of 2^64 - 1 bytes
        QByteArray("\x6F\x13\x7F\xFF\xFF\xFF\xFF\xFF\xFF\xFF", 10),  // twice that overflows
        QByteArray("\xAF\x13\x20\x00\x00\x00\x00\x00\x00\x01", 10),  // times 8 overflows
        QByteArray("\xDF\x13\x80\x00\x00\x00\x00\x00\x00\x00", 10),  // times 2 overflows
        "\x5F\x15" + QByteArray(32, '\x01'),                         // a length of 32 bytes
        "\x5F\x50",                                                  // a length that is a text
        "\xA1\xFF\xFF",                                              // there is no such object
        QByteArray("\xD1\x00\x01\x00\x00", 5),                       // the key is no text
    };
    for (const QByteArray& object : objects)
        EXPECT_FALSE(binaryValue(object).isValid()) << object.toHex(' ').toStdString();
}

TEST(BinaryPropertyListTests, aBinaryListNeedsADictionaryAtItsTop)
{
    BinaryList list;
    const int top = list.addArray({list.addText("a")});
    EXPECT_EQ(dictionary(list.written(top)), std::nullopt);
    EXPECT_EQ(dictionary(list.written(7)), std::nullopt);
    EXPECT_EQ(dictionary(BinaryList().written(0)), std::nullopt);
    EXPECT_EQ(dictionary("bplist00"), std::nullopt);
    EXPECT_EQ(dictionary("bplist01" + foreignBinary.mid(8)), std::nullopt);
}

TEST(BinaryPropertyListTests, nestingThatIsReusedCountsWhereItIsUsed)
{
    BinaryList list;
    const int key = list.addText("v");
    int inner = list.addArray({});
    for (int level = 1; level < 300; ++level)
        inner = list.addArray({inner});
    // The first element makes the deep part known, the second one hangs it 300 levels down.
    int outer = inner;
    for (int level = 0; level < 300; ++level)
        outer = list.addArray({inner, outer});
    EXPECT_EQ(dictionary(list.written(list.addDictionary(key, outer))), std::nullopt);
}

TEST(BinaryPropertyListTests, aBinaryContainerWithinItselfIsRefused)
{
    BinaryList list;
    const int key = list.addText("v");
    const int own = list.addArray({1});
    EXPECT_EQ(dictionary(list.written(list.addDictionary(key, own))), std::nullopt);

    BinaryList circle;
    const int circleKey = circle.addText("v");
    circle.addArray({2});
    circle.addArray({3});
    const int top = circle.addDictionary(circleKey, 1);
    EXPECT_EQ(dictionary(circle.written(top)), std::nullopt);

    BinaryList ownKey;
    EXPECT_EQ(dictionary(ownKey.written(ownKey.addDictionary(0, 0))), std::nullopt);
}

TEST(BinaryPropertyListTests, aBinaryListThatUnfoldsWithoutEndIsRefused)
{
    BinaryList list;
    const int key = list.addText("v");
    int inner = list.addArray({});
    for (int level = 0; level < 60; ++level)
        inner = list.addArray({inner, inner}); // 2^60 values
    EXPECT_EQ(dictionary(list.written(list.addDictionary(key, inner))), std::nullopt);
}

TEST(BinaryPropertyListTests, aBinaryListWhoseObjectsLieOnTopOfEachOtherIsRefused)
{
    // 60,000 texts that all begin at the same 1 MB: 60 GB when read one by one.
    constexpr int count = 60'000;
    constexpr quint64 length = 1'000'000;
    QByteArray data = "bplist00" + QByteArray("\x5F\x12") + bigEndian(length, 4) + QByteArray(length, 'x');
    const auto arrayOffset = static_cast<quint64>(data.size());
    data += QByteArray("\xAF\x12") + bigEndian(count, 4);
    for (quint64 i = 0; i < count; ++i)
        data += bigEndian(i, 2);
    const auto dictionaryOffset = static_cast<quint64>(data.size());
    data += '\xD1' + bigEndian(0, 2) + bigEndian(count, 2);
    const auto table = static_cast<quint64>(data.size());
    for (quint64 i = 0; i < count; ++i)
        data += bigEndian(8, 4);
    data += bigEndian(arrayOffset, 4) + bigEndian(dictionaryOffset, 4) + QByteArray(6, '\0') +
            bigEndian(4, 1) + bigEndian(2, 1) + bigEndian(count + 2, 8) + bigEndian(count + 1, 8) +
            bigEndian(table, 8);
    EXPECT_EQ(dictionary(data), std::nullopt);
}

TEST(BinaryPropertyListTests, aTextThatIsReferredToOftenIsReadOnce)
{
    BinaryList list;
    const int key = list.addText("v");
    const int shared =
        list.add(QByteArray("\x5F\x12") + bigEndian(1'000'000, 4) + QByteArray(1'000'000, 'x'));
    const auto read =
        dictionary(list.written(list.addDictionary(key, list.addArray(QList<int>(60'000, shared)))));
    ASSERT_TRUE(read.has_value());
    EXPECT_EQ(read->value(text("v")).toList().size(), 60'000);
}

TEST(BinaryPropertyListTests, randomBytesBehindAGoodHeaderAreReadOrRefused)
{
    QRandomGenerator random(20260302);
    int refused = 0;
    constexpr int rounds = 2'000;
    for (int round = 0; round < rounds; ++round) {
        QByteArray data(random.bounded(1, 200), '\0');
        for (char& byte : data)
            byte = static_cast<char>(random.bounded(256));
        const auto table = static_cast<quint64>(random.bounded(8, 16 + static_cast<int>(data.size())));
        data = "bplist00" + data + QByteArray(6, '\0') + bigEndian(1, 1) + bigEndian(1, 1) +
               bigEndian(static_cast<quint64>(random.bounded(1, 60)), 8) + bigEndian(0, 8) +
               bigEndian(table, 8);
        refused += dictionary(data).has_value() ? 0 : 1;
    }
    EXPECT_GT(refused, rounds / 2);
}

} // namespace keelbright

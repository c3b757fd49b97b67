#include "KeelbrightCore/platform/text/UtcZone.h"
#include "tests/platform/formats/PropertyListFixtures.h"

#include <gtest/gtest.h>
#include <limits>

namespace keelbright {

namespace {

using PropertyList::dictionary;
using namespace testing;

/// The value of an XML element that stands alone in a dictionary; invalid where it is refused.
QVariant xmlValue(const QByteArray& element)
{
    const auto read = dictionary(entry(element));
    return read ? read->value(text("v")) : QVariant();
}

} // namespace

TEST(XmlPropertyListTests, everyKindOfXmlValueIsRead)
{
    EXPECT_EQ(xmlValue("<string>Mail &amp; &#x1F642; <![CDATA[<x>]]></string>"), text("Mail & 🙂 <x>"));
    EXPECT_EQ(xmlValue("<string/>"), text(""));
    EXPECT_EQ(xmlValue("<string> \n </string>"), text(" \n "));
    EXPECT_EQ(xmlValue("<integer>42</integer>"), QVariant(qint64{42}));
    EXPECT_EQ(xmlValue("<integer> -7 </integer>"), QVariant(qint64{-7}));
    EXPECT_EQ(xmlValue("<integer>0x1F</integer>"), QVariant(qint64{31}));
    EXPECT_EQ(xmlValue("<integer>010</integer>"), QVariant(qint64{10}));
    EXPECT_EQ(xmlValue("<integer>-9223372036854775808</integer>"),
              QVariant(std::numeric_limits<qint64>::min()));
    EXPECT_EQ(xmlValue("<integer>18446744073709551615</integer>"), QVariant(18446744073709551615.0));
    EXPECT_EQ(xmlValue("<real>-1.25e3</real>"), QVariant(-1250.0));
    EXPECT_EQ(xmlValue("<true/>"), QVariant(true));
    EXPECT_EQ(xmlValue("<false></false>"), QVariant(false));
    EXPECT_EQ(xmlValue("<date>2026-03-01T09:05:00Z</date>"),
              QVariant(QDateTime(QDate(2026, 3, 1), QTime(9, 5), utcZone)));
    EXPECT_EQ(xmlValue("<data>\n\tAAEC\n\t/w==\n</data>"), QVariant(QByteArray("\x00\x01\x02\xFF", 4)));
    EXPECT_EQ(xmlValue("<array><string>a</string><integer>1</integer></array>"),
              QVariant(QVariantList{text("a"), qint64{1}}));
    EXPECT_EQ(xmlValue("<dict><key>k</key><true/></dict>"), QVariant(QVariantMap{{text("k"), true}}));
}

TEST(XmlPropertyListTests, aValueKeepsItsType)
{
    EXPECT_EQ(xmlValue("<integer>1</integer>").typeId(), QMetaType::LongLong);
    EXPECT_EQ(xmlValue("<string>1</string>").typeId(), QMetaType::QString);
    EXPECT_EQ(xmlValue("<real>1</real>").typeId(), QMetaType::Double);
}

TEST(XmlPropertyListTests, whatIsNoXmlValueIsRefused)
{
    for (const char* element : {"<integer></integer>",
                                "<integer>1.5</integer>",
                                "<integer>--1</integer>",
                                "<integer>0x</integer>",
                                "<integer>99999999999999999999</integer>",
                                "<real>one</real>",
                                "<real>1,5</real>",
                                "<true>no</true>",
                                "<date>yesterday</date>",
                                "<data>?</data>",
                                "<unknown/>",
                                "<string><b/></string>",
                                "<dict><key>k</key></dict>",
                                "<dict><string>k</string></dict>",
                                "<array><key>k</key></array>",
                                "<dict><key>a</key><key>b</key><true/></dict>",
                                "<array>text</array>",
                                "<array>&unknown;</array>",
                                "<plist><true/></plist>",
                                ""})
        EXPECT_EQ(dictionary(entry(element)), std::nullopt) << element;
}

TEST(XmlPropertyListTests, anXmlListNeedsADictionaryAtItsTop)
{
    EXPECT_EQ(dictionary(xml("<dict/>")), QVariantMap());
    EXPECT_EQ(dictionary("<dict><key>v</key><true/></dict>"), (QVariantMap{{text("v"), true}}));
    for (const QByteArray& data :
         {xml("<array/>"), xml("<string>x</string>"), xml(""), xml("<dict/><dict/>"), QByteArray("<html/>"),
          QByteArray(""), QByteArray("plain text"), QByteArray("{ a = b; }"), xml("<dict/>") + "<dict/>",
          QByteArray("\0\0\0\0\0\0\0\0\0", 9)})
        EXPECT_EQ(dictionary(data), std::nullopt) << data.toStdString();
}

TEST(XmlPropertyListTests, theLastOfTwoEqualKeysHolds)
{
    const auto read = dictionary(xml("<dict><key>a</key><integer>1</integer><key>a</key><true/></dict>"));
    EXPECT_EQ(read, (QVariantMap{{text("a"), true}}));
}

TEST(XmlPropertyListTests, blanksBeforeTheDeclarationArePassedOver)
{
    const QByteArray list = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist><dict><key>v</key><string>ü"
                            "</string></dict></plist>";
    const QVariantMap content{{text("v"), text("ü")}};
    for (const QByteArray& blanks : {QByteArray("\n"), QByteArray("\r\n\r\n"), QByteArray(" \t\n"),
                                     QByteArray(100'000, '\n'), QByteArray("\xEF\xBB\xBF\n\n")})
        EXPECT_EQ(dictionary(blanks + list), content) << blanks.left(10).toPercentEncoding().toStdString();
    EXPECT_EQ(dictionary("x\n" + list), std::nullopt);
    EXPECT_EQ(dictionary("\n\n"), std::nullopt);
}

TEST(XmlPropertyListTests, otherXmlEncodingsAreRead)
{
    const QString source =
        text("<?xml version=\"1.0\" encoding=\"UTF-16\"?><plist><dict><key>v</key><string>ü"
             "</string></dict></plist>");
    const QByteArray utf16 =
        "\xFF\xFE" + QByteArray(reinterpret_cast<const char*>(source.utf16()), source.size() * 2);
    EXPECT_EQ(dictionary(utf16), (QVariantMap{{text("v"), text("ü")}}));
    EXPECT_EQ(dictionary("\xEF\xBB\xBF" + entry("<true/>")), (QVariantMap{{text("v"), true}}));
}

TEST(XmlPropertyListTests, aListWithEntitiesOfItsOwnIsRefused)
{
    QByteArray bomb = "<?xml version=\"1.0\"?><!DOCTYPE plist [<!ENTITY a0 \"ha\">";
    for (int i = 1; i < 30; ++i) {
        const QByteArray inner = "&a" + QByteArray::number(i - 1) + ";";
        bomb += "<!ENTITY a" + QByteArray::number(i) + " \"" + inner + inner + "\">";
    }
    bomb += "]><plist><dict><key>v</key><string>&a29;</string></dict></plist>";
    EXPECT_EQ(dictionary(bomb), std::nullopt);
    EXPECT_EQ(dictionary("<!DOCTYPE plist [<!ENTITY x SYSTEM \"file:///etc/passwd\">]>"
                         "<plist><dict><key>v</key><string>&x;</string></dict></plist>"),
              std::nullopt);
}

TEST(XmlPropertyListTests, tenThousandLevelsWithoutAnEndAreRefused)
{
    EXPECT_EQ(dictionary("<plist>" + QByteArray("<dict><key>k</key>").repeated(10'000)), std::nullopt);
    EXPECT_EQ(dictionary("<plist><dict>" + QByteArray("<string>").repeated(10'000)), std::nullopt);
    EXPECT_EQ(
        dictionary("<plist>" + QByteArray("<array><string><![CDATA[</array>]]></string>").repeated(10'000)),
        std::nullopt);
}

} // namespace keelbright

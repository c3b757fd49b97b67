#include "KeelbrightCore/platform/formats/JsonWriter.h"
#include "tests/support/Printing.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <gtest/gtest.h>
#include <limits>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

QByteArray byTheLibrary(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Indented);
}

QByteArray written(const QJsonObject& object)
{
    JsonWriter writer;
    writer.value(object);
    return writer.take() + '\n';
}

QByteArray written(const QStringList& texts)
{
    JsonWriter writer;
    writer.value(texts);
    return writer.take() + '\n';
}

} // namespace

TEST(JsonWriter, writesEveryKindOfValueAsTheLibraryDoes)
{
    const QJsonObject object{
        {u"nothing"_s, QJsonValue::Null},
        {u"yes"_s, true},
        {u"no"_s, false},
        {u"zero"_s, 0},
        {u"large"_s, std::numeric_limits<qint64>::max()},
        {u"small"_s, std::numeric_limits<qint64>::min()},
        {u"fraction"_s, 0.1},
        {u"text"_s, u"Desktop"_s},
        {u"list"_s, QJsonArray{1, u"two"_s, QJsonArray{}, QJsonObject{}, QJsonArray{3, QJsonArray{4}}}},
        {u"object"_s, QJsonObject{{u"a \"key\""_s, QJsonObject{{u"é"_s, u"ü"_s}}}}},
    };
    EXPECT_EQ(written(object), byTheLibrary(object));
    EXPECT_EQ(written(QJsonObject()), byTheLibrary(QJsonObject()));
}

TEST(JsonWriter, writesEveryCharacterAsTheLibraryDoes)
{
    for (int first = 0; first < 0x10000; first += 0x100) {
        QString text;
        for (int character = first; character < first + 0x100; ++character)
            text.append(QChar(static_cast<char16_t>(character))).append(u'.');
        ASSERT_EQ(written(QJsonObject{{u"text"_s, text}}), byTheLibrary({{u"text"_s, text}})) << first;
    }
}

TEST(JsonWriter, writesPairsOfSurrogatesAndTheirHalvesAsTheLibraryDoes)
{
    const QChar high(0xd834);
    const QChar low(0xdd1e);
    for (const QString& text :
         {QString(high) + low, QString(low) + high, QString(high) + high + low, QString(high) + low + low,
          u"a"_s + high, low + u"a"_s, QString::fromUcs4(U"\U00010000\U0010ffff")}) {
        EXPECT_EQ(written(QJsonObject{{u"text"_s, text}}), byTheLibrary({{u"text"_s, text}}));
    }
}

TEST(JsonWriter, writesAListOfTextsWithoutMakingAnArrayOfThem)
{
    for (const QStringList& texts :
         {QStringList(), QStringList{QString()}, QStringList{u"one"_s, u"two\nlines"_s, u"“é” 𝄞"_s}}) {
        EXPECT_EQ(written(texts),
                  QJsonDocument(QJsonArray::fromStringList(texts)).toJson(QJsonDocument::Indented));
    }
}

TEST(JsonWriter, writesAnObjectMemberByMember)
{
    const QStringList lines{u"first"_s, u"second"_s};
    JsonWriter report(1);
    report.beginObject();
    report.key(u"errors"_s);
    report.value(lines);
    report.key(u"filesCopied"_s);
    report.value(QJsonValue(3));
    report.endObject();

    JsonWriter writer;
    writer.beginObject();
    writer.key(u"empty"_s);
    writer.beginObject();
    writer.endObject();
    writer.key(u"report"_s);
    writer.writtenValue(report.take());
    writer.key(u"time"_s);
    writer.value(QJsonValue(u"now"_s));
    writer.endObject();

    EXPECT_EQ(writer.take() + '\n',
              byTheLibrary({{u"empty"_s, QJsonObject()},
                            {u"report"_s, QJsonObject{{u"errors"_s, QJsonArray::fromStringList(lines)},
                                                      {u"filesCopied"_s, 3}}},
                            {u"time"_s, u"now"_s}}));
}

} // namespace keelbright::testing

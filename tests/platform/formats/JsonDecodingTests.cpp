#include "KeelbrightCore/platform/formats/JsonDecoding.h"
#include "KeelbrightCore/platform/text/UtcZone.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

#include <limits>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

JsonDecoder objectFrom(const QByteArray& text)
{
    const Decoded<JsonDecoder> decoder = decodeJsonObject(text);
    if (!decoder) {
        ADD_FAILURE() << decoder.error().localizedDescription().toStdString();
        return JsonDecoder({});
    }
    return *decoder;
}

template <typename T> void expectError(const Decoded<T>& decoded, const QString& key, const QString& reason)
{
    ASSERT_FALSE(decoded.has_value());
    EXPECT_EQ(decoded.error().key, key);
    EXPECT_EQ(decoded.error().reason, reason);
}

struct Pair
{
    qint64 number = 0;
    QString text;

    static Decoded<Pair> fromJson(const JsonDecoder& json)
    {
        const auto number = json.integer(u"number"_s);
        const auto text = json.string(u"text"_s);
        if (const auto error = firstError(number, text))
            return std::unexpected(*error);
        return Pair{*number, *text};
    }
};

} // namespace

TEST(JsonDecoding, readsEveryType)
{
    const JsonDecoder json = objectFrom(R"({
        "text": "Ümläut \u00e9 \ud83d\udcf7",
        "yes": true,
        "count": -42,
        "id": "E621E1F8-C36C-495A-93FC-0C247A3E6E5F",
        "url": "file:///Users/mira/My%20Files/",
        "date": "2026-03-01T09:05:00Z",
        "texts": ["a", "", "b"],
        "inner": {"x": 1},
        "list": [{"x": 1}, {"x": 2}]
    })");
    EXPECT_EQ(json.string(u"text"_s).value(), u"Ümläut é 📷"_s);
    EXPECT_TRUE(json.boolean(u"yes"_s).value());
    EXPECT_EQ(json.integer(u"count"_s).value(), -42);
    EXPECT_EQ(json.uuid(u"id"_s).value(), QUuid(u"{e621e1f8-c36c-495a-93fc-0c247a3e6e5f}"_s));
    EXPECT_EQ(json.url(u"url"_s).value(), FileURL::fromPath(u"/Users/mira/My Files"_s));
    EXPECT_EQ(json.date(u"date"_s).value(), QDateTime(QDate(2026, 3, 1), QTime(9, 5), utcZone));
    EXPECT_EQ(json.strings(u"texts"_s).value(), (QStringList{u"a"_s, QString(), u"b"_s}));
    EXPECT_EQ(json.object(u"inner"_s).value().integer(u"x"_s).value(), 1);
    EXPECT_EQ(json.objects(u"list"_s).value().at(1).integer(u"x"_s).value(), 2);
}

TEST(JsonDecoding, keysAreThoseOfTheObject)
{
    EXPECT_EQ(objectFrom(R"({"b": 1, "a": null})").keys(), (QStringList{u"a"_s, u"b"_s}));
}

TEST(JsonDecoding, aMissingKeyIsNamed)
{
    const JsonDecoder json = objectFrom("{}");
    expectError(json.string(u"a"_s), u"a"_s, u"is missing"_s);
    expectError(json.boolean(u"b"_s), u"b"_s, u"is missing"_s);
    expectError(json.integer(u"c"_s), u"c"_s, u"is missing"_s);
    expectError(json.uuid(u"d"_s), u"d"_s, u"is missing"_s);
    expectError(json.url(u"e"_s), u"e"_s, u"is missing"_s);
    expectError(json.date(u"f"_s), u"f"_s, u"is missing"_s);
    expectError(json.strings(u"g"_s), u"g"_s, u"is missing"_s);
    expectError(json.object(u"h"_s), u"h"_s, u"is missing"_s);
    expectError(json.objects(u"i"_s), u"i"_s, u"is missing"_s);
}

TEST(JsonDecoding, aValueOfAnotherTypeIsNamed)
{
    const JsonDecoder json =
        objectFrom(R"({"text": "1", "number": 1, "yes": true, "list": [], "object": {}})");
    expectError(json.string(u"number"_s), u"number"_s, u"is not a text"_s);
    expectError(json.boolean(u"number"_s), u"number"_s, u"is not true or false"_s);
    expectError(json.integer(u"text"_s), u"text"_s, u"is not a whole number of 64 bits"_s);
    expectError(json.integer(u"yes"_s), u"yes"_s, u"is not a whole number of 64 bits"_s);
    expectError(json.uuid(u"number"_s), u"number"_s, u"is not a text"_s);
    expectError(json.url(u"number"_s), u"number"_s, u"is not a text"_s);
    expectError(json.date(u"number"_s), u"number"_s, u"is not a text"_s);
    expectError(json.strings(u"object"_s), u"object"_s, u"is not a list"_s);
    expectError(json.object(u"list"_s), u"list"_s, u"is not an object"_s);
    expectError(json.objects(u"object"_s), u"object"_s, u"is not a list"_s);
}

TEST(JsonDecoding, aNullIsNoValueOfARequiredKey)
{
    const JsonDecoder json = objectFrom(R"({"a": null})");
    expectError(json.string(u"a"_s), u"a"_s, u"is not a text"_s);
    expectError(json.boolean(u"a"_s), u"a"_s, u"is not true or false"_s);
    expectError(json.integer(u"a"_s), u"a"_s, u"is not a whole number of 64 bits"_s);
    expectError(json.date(u"a"_s), u"a"_s, u"is not a text"_s);
    expectError(json.strings(u"a"_s), u"a"_s, u"is not a list"_s);
    expectError(json.object(u"a"_s), u"a"_s, u"is not an object"_s);
}

TEST(JsonDecoding, aNullCountsAsAbsent)
{
    const JsonDecoder json = objectFrom(R"({"nothing": null, "no": false, "zero": 0, "empty": ""})");
    EXPECT_FALSE(json.has(u"nothing"_s));
    EXPECT_FALSE(json.has(u"unknown"_s));
    EXPECT_TRUE(json.has(u"no"_s));
    EXPECT_TRUE(json.has(u"zero"_s));
    EXPECT_TRUE(json.has(u"empty"_s));
}

TEST(JsonDecoding, integersAreExactOverTheWhole64Bits)
{
    const JsonDecoder json = objectFrom(R"({
        "max": 9223372036854775807, "min": -9223372036854775808,
        "beyondDouble": 9007199254740993, "negative": -9007199254740993, "zero": 0, "minusZero": -0
    })");
    EXPECT_EQ(json.integer(u"max"_s).value(), std::numeric_limits<qint64>::max());
    EXPECT_EQ(json.integer(u"min"_s).value(), std::numeric_limits<qint64>::min());
    EXPECT_EQ(json.integer(u"beyondDouble"_s).value(), 9'007'199'254'740'993);
    EXPECT_EQ(json.integer(u"negative"_s).value(), -9'007'199'254'740'993);
    EXPECT_EQ(json.integer(u"zero"_s).value(), 0);
    EXPECT_EQ(json.integer(u"minusZero"_s).value(), 0);
}

TEST(JsonDecoding, aNumberThatIsNotWholeOrTooLargeIsNoInteger)
{
    const JsonDecoder json =
        objectFrom(R"({"half": 1.5, "tooLarge": 9223372036854775808, "huge": 1e300, "tiny": -1e-300})");
    const QString reason = u"is not a whole number of 64 bits"_s;
    expectError(json.integer(u"half"_s), u"half"_s, reason);
    expectError(json.integer(u"tooLarge"_s), u"tooLarge"_s, reason);
    expectError(json.integer(u"huge"_s), u"huge"_s, reason);
    expectError(json.integer(u"tiny"_s), u"tiny"_s, reason);
}

TEST(JsonDecoding, aWholeNumberMayBeWrittenWithAFractionOrExponent)
{
    const JsonDecoder json = objectFrom(R"({"fraction": 3.0, "exponent": 1e3})");
    EXPECT_EQ(json.integer(u"fraction"_s).value(), 3);
    EXPECT_EQ(json.integer(u"exponent"_s).value(), 1000);
}

TEST(JsonDecoding, aNumberMayBeWholeOrNot)
{
    const JsonDecoder json = objectFrom(R"({"whole": 4, "broken": -4.25, "text": "4", "yes": true})");
    EXPECT_EQ(json.number(u"whole"_s), 4.0);
    EXPECT_EQ(json.number(u"broken"_s), -4.25);
    expectError(json.number(u"text"_s), u"text"_s, u"is not a number"_s);
    expectError(json.number(u"yes"_s), u"yes"_s, u"is not a number"_s);
    expectError(json.number(u"none"_s), u"none"_s, u"is missing"_s);
}

TEST(JsonDecoding, aUuidMayBeInLowerCase)
{
    const JsonDecoder json = objectFrom(R"({"id": "e621e1f8-c36c-495a-93fc-0c247a3e6e5f"})");
    EXPECT_EQ(json.uuid(u"id"_s).value(), QUuid(u"{E621E1F8-C36C-495A-93FC-0C247A3E6E5F}"_s));
}

TEST(JsonDecoding, aUuidHasExactlyItsTextForm)
{
    for (const char* text :
         {"", "E621E1F8", "{E621E1F8-C36C-495A-93FC-0C247A3E6E5F}", "E621E1F8C36C495A93FC0C247A3E6E5F",
          "E621E1F8-C36C-495A-93FC-0C247A3E6E5", "E621E1F8-C36C-495A-93FC-0C247A3E6E5F0",
          "E621E1F8-C36C-495A-93FC-0C247A3E6E5G", "E621E1F8C-36C-495A-93FC-0C247A3E6E5F",
          " 621E1F8-C36C-495A-93FC-0C247A3E6E5F"}) {
        SCOPED_TRACE(text);
        const JsonDecoder json(QJsonObject{{u"id"_s, QString::fromLatin1(text)}});
        expectError(json.uuid(u"id"_s), u"id"_s, u"is not a UUID"_s);
    }
}

TEST(JsonDecoding, aUrlThatIsNoFileUrlIsNamed)
{
    for (const char* text :
         {"", "/Users/mira", "https://example.org/a", "file://server/share", "file:///a%2"}) {
        SCOPED_TRACE(text);
        const JsonDecoder json(QJsonObject{{u"url"_s, QString::fromLatin1(text)}});
        expectError(json.url(u"url"_s), u"url"_s, u"is not a file URL"_s);
    }
}

TEST(JsonDecoding, aDateThatIsNoIsoDateIsNamed)
{
    for (const char* text : {"", "yesterday", "2026-03-01", "2026-13-01T00:00:00Z", "2026-02-30T00:00:00Z"}) {
        SCOPED_TRACE(text);
        const JsonDecoder json(QJsonObject{{u"date"_s, QString::fromLatin1(text)}});
        expectError(json.date(u"date"_s), u"date"_s, u"is not an ISO 8601 date"_s);
    }
}

TEST(JsonDecoding, theErrorNamesTheParentsOfTheKey)
{
    const JsonDecoder json = objectFrom(R"({
        "lastReport": {"startedAt": "soon", "errors": ["a", 2]},
        "sources": [{"url": "file:///a"}, {"url": 7}], "mixed": [{}, 3]
    })");
    const JsonDecoder report = json.object(u"lastReport"_s).value();
    expectError(report.date(u"startedAt"_s), u"lastReport.startedAt"_s, u"is not an ISO 8601 date"_s);
    expectError(report.string(u"jobId"_s), u"lastReport.jobId"_s, u"is missing"_s);
    expectError(report.strings(u"errors"_s), u"lastReport.errors[1]"_s, u"is not a text"_s);
    expectError(json.objects(u"sources"_s).value().at(1).url(u"url"_s), u"sources[1].url"_s,
                u"is not a text"_s);
    expectError(json.objects(u"mixed"_s), u"mixed[1]"_s, u"is not an object"_s);
}

TEST(JsonDecoding, theErrorOfARecordNamesItsPlaceInTheList)
{
    const auto objects = decodeJsonArray(R"([{"number": 1, "text": "a"}, {"number": 2}])");
    ASSERT_TRUE(objects.has_value());
    expectError(recordsFromJson<Pair>(*objects), u"[1].text"_s, u"is missing"_s);
}

TEST(JsonDecoding, recordsComeInTheOrderOfTheList)
{
    const auto objects = decodeJsonArray(R"([{"number": 2, "text": "b"}, {"number": 1, "text": "a"}])");
    ASSERT_TRUE(objects.has_value());
    const auto records = recordsFromJson<Pair>(*objects);
    ASSERT_TRUE(records.has_value());
    ASSERT_EQ(records->size(), 2);
    EXPECT_EQ(records->at(0).number, 2);
    EXPECT_EQ(records->at(1).text, u"a"_s);
}

TEST(JsonDecoding, theFirstOfSeveralErrorsIsReported)
{
    const JsonDecoder json = objectFrom(R"({"a": 1})");
    const auto error = firstError(json.integer(u"a"_s), json.string(u"a"_s), json.string(u"b"_s));
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(*error, (JsonError{u"a"_s, u"is not a text"_s}));
    EXPECT_FALSE(firstError(json.integer(u"a"_s)).has_value());
}

TEST(JsonDecoding, unknownKeysAreIgnored)
{
    const auto objects = decodeJsonArray(R"([{"number": 1, "text": "a", "colour": "red"}])");
    ASSERT_TRUE(objects.has_value());
    EXPECT_TRUE(recordsFromJson<Pair>(*objects).has_value());
}

TEST(JsonDecoding, theErrorOfAValueThatMakesNoSenseCarriesItsPath)
{
    const JsonDecoder json = objectFrom(R"({"inner": {"kind": "Nap"}})");
    EXPECT_EQ(json.object(u"inner"_s).value().error(u"kind"_s, u"is not a known kind"_s),
              (JsonError{u"inner.kind"_s, u"is not a known kind"_s}));
}

TEST(JsonDecoding, anErrorReadsAsASentence)
{
    EXPECT_EQ((JsonError{u"lastReport.startedAt"_s, u"is missing"_s}).localizedDescription(),
              u"The value \"lastReport.startedAt\" is missing."_s);
    EXPECT_EQ((JsonError{{}, u"is not an object"_s}).localizedDescription(),
              u"The JSON text is not an object."_s);
}

TEST(JsonDecoding, aTextThatIsNoJsonIsAnErrorWithItsPosition)
{
    expectError(decodeJsonObject(""), {}, u"is not valid at byte 0: illegal value"_s);
    expectError(decodeJsonObject(R"({"a": "b)"), {}, u"is not valid at byte 9: unterminated string"_s);
    expectError(decodeJsonObject("{} x"), {},
                u"is not valid at byte 3: garbage at the end of the document"_s);
    expectError(decodeJsonObject("{\"a\": \"\xff\"}"), {}, u"is not valid at byte 7: invalid UTF8 string"_s);
}

TEST(JsonDecoding, theTopMustBeOfTheExpectedType)
{
    expectError(decodeJsonObject("[]"), {}, u"is not an object"_s);
    expectError(decodeJsonArray("{}"), {}, u"is not a list"_s);
    expectError(decodeJsonArray("[{}, 1]"), u"[1]"_s, u"is not an object"_s);
    EXPECT_FALSE(decodeJsonObject("null").has_value());
    EXPECT_FALSE(decodeJsonArray("7").has_value());
}

TEST(JsonDecoding, anEmptyListIsAList)
{
    const auto objects = decodeJsonArray("[]");
    ASSERT_TRUE(objects.has_value());
    EXPECT_TRUE(objects->isEmpty());
}

TEST(JsonDecoding, tenThousandNestedListsAreAnErrorAndNoCrash)
{
    const QByteArray nested = QByteArray(10'000, '[') + QByteArray(10'000, ']');
    expectError(decodeJsonArray(nested), {}, u"is not valid at byte 1025: too deeply nested document"_s);
    expectError(decodeJsonObject("{\"a\": " + nested + "}"), {},
                u"is not valid at byte 1030: too deeply nested document"_s);
}

TEST(JsonDecoding, aUuidIsWrittenInUpperCaseWithHyphens)
{
    EXPECT_EQ(uuidText(QUuid(u"{e621e1f8-c36c-495a-93fc-0c247a3e6e5f}"_s)),
              u"E621E1F8-C36C-495A-93FC-0C247A3E6E5F"_s);
}

} // namespace keelbright::testing

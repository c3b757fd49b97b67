#include "KeelbrightCore/apps/iTunesAppInfo.h"

#include "tests/support/Printing.h"

#include <gtest/gtest.h>
#include <limits>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

std::optional<iTunesAppInfo> found(const QByteArray& body, const QString& name = u"Ink"_s)
{
    return iTunesAppInfo::fromSearchResults(body, name);
}

/// A body with these elements in its list of results.
QByteArray results(const QByteArray& elements)
{
    return R"({"resultCount": 1, "results": [)" + elements + "]}";
}

/// The description of what is chosen for a name among results that are described by their number.
QString chosen(const QStringList& trackNames, const QString& name)
{
    QByteArrayList elements;
    for (const QString& trackName : trackNames)
        elements.append("{\"trackName\": \"" + trackName.toUtf8() + "\", \"description\": \"" +
                        QByteArray::number(elements.size() + 1) + "\"}");
    const auto info = found(results(elements.join(", ")), name);
    return info ? info->description : u"nothing"_s;
}

} // namespace

TEST(iTunesAppInfo, everyKeyIsRead)
{
    const auto info = found(results(R"({"trackName": "Ink", "description": "Draws.\nAnd paints.",
        "sellerName": "Mira’s Software", "primaryGenreName": "Graphics", "averageUserRating": 4.5,
        "userRatingCount": 1204, "releaseNotes": "Faster.", "price": 3.99, "screenshotUrls": []})"));
    EXPECT_EQ(info, (iTunesAppInfo{.appName = u"Ink"_s,
                                   .description = u"Draws.\nAnd paints."_s,
                                   .sellerName = u"Mira’s Software"_s,
                                   .genre = u"Graphics"_s,
                                   .averageRating = 4.5,
                                   .ratingCount = 1204,
                                   .releaseNotes = u"Faster."_s}));
}

TEST(iTunesAppInfo, whatIsMissingIsEmptyAbsentOrTheSearchedName)
{
    const auto info = found(results(R"({"description": "Draws."})"), u"My Ink"_s);
    EXPECT_EQ(info, (iTunesAppInfo{.appName = u"My Ink"_s,
                                   .description = u"Draws."_s,
                                   .sellerName = u""_s,
                                   .genre = u""_s,
                                   .averageRating = std::nullopt,
                                   .ratingCount = std::nullopt,
                                   .releaseNotes = std::nullopt}));
}

TEST(iTunesAppInfo, aValueOfAnotherTypeIsAsGoodAsMissing)
{
    const auto info = found(results(R"({"trackName": 7, "description": "Draws.", "sellerName": null,
        "primaryGenreName": ["Graphics"], "averageUserRating": "4.5", "userRatingCount": 12.5,
        "releaseNotes": {}})"));
    EXPECT_EQ(info, (iTunesAppInfo{.appName = u"Ink"_s,
                                   .description = u"Draws."_s,
                                   .sellerName = {},
                                   .genre = {},
                                   .averageRating = std::nullopt,
                                   .ratingCount = std::nullopt,
                                   .releaseNotes = std::nullopt}));
}

TEST(iTunesAppInfo, anAverageRatingGivenAsAnIntegerIsADoubleAllTheSame)
{
    const auto info = found(results(R"({"description": "Draws.", "averageUserRating": 4})"));
    ASSERT_TRUE(info.has_value());
    EXPECT_EQ(info->averageRating, 4.0);
}

TEST(iTunesAppInfo, theRatingCountIsAWholeNumberOf64Bits)
{
    const auto count = [](const QByteArray& number) {
        const auto info = found(results(R"({"description": "Draws.", "userRatingCount": )" + number + "}"));
        return info ? info->ratingCount : std::nullopt;
    };
    EXPECT_EQ(count("0"), 0);
    EXPECT_EQ(count("9223372036854775807"), std::numeric_limits<qint64>::max());
    EXPECT_EQ(count("9223372036854775808"), std::nullopt);
    EXPECT_EQ(count("0.5"), std::nullopt);
    EXPECT_EQ(count("true"), std::nullopt);
}

TEST(iTunesAppInfo, theSecondResultIsChosenWhereItIsTheNameInAnotherCase)
{
    EXPECT_EQ(chosen({u"Ink Pro"_s, u"INK"_s}, u"Ink"_s), u"2"_s);
    EXPECT_EQ(chosen({u"Ink Pro"_s, u"ÄRGER"_s}, u"Ärger"_s), u"2"_s);
}

TEST(iTunesAppInfo, ofTwoExactMatchesTheFirstIsChosen)
{
    EXPECT_EQ(chosen({u"Other"_s, u"ink"_s, u"Ink"_s}, u"Ink"_s), u"2"_s);
}

TEST(iTunesAppInfo, anAccentMayBeACharacterOfItsOwn)
{
    EXPECT_EQ(chosen({u"Other"_s, u"M\u00FCsli"_s}, u"Mu\u0308sli"_s), u"2"_s);
}

TEST(iTunesAppInfo, withoutAnExactMatchTheFirstResultComesUnderItsOwnName)
{
    EXPECT_EQ(chosen({u"Ink Pro"_s, u"Inkling"_s}, u"Ink"_s), u"1"_s);
    const auto info = found(results(R"({"trackName": "Ink Pro", "description": "Draws."})"));
    ASSERT_TRUE(info.has_value());
    EXPECT_EQ(info->appName, u"Ink Pro"_s);
}

TEST(iTunesAppInfo, aNameThatIsNoTextIsNoMatch)
{
    const auto info = found(results(R"({"trackName": 1, "description": "1"},
                                       {"trackName": "Ink", "description": "2"})"));
    ASSERT_TRUE(info.has_value());
    EXPECT_EQ(info->description, u"2"_s);
}

TEST(iTunesAppInfo, aChosenResultWithoutADescriptionIsNothingThoughAnotherHasOne)
{
    for (const char* description : {R"(, "description": "")", R"(, "description": 7)", ""}) {
        const QByteArray others = R"({"trackName": "Other", "description": "Paints."}, )";
        EXPECT_EQ(found(results(others + R"({"trackName": "ink")" + description + "}")), std::nullopt)
            << description;
    }
}

TEST(iTunesAppInfo, anEmptyListOfResultsIsNothing)
{
    EXPECT_EQ(found(results("")), std::nullopt);
}

TEST(iTunesAppInfo, resultsThatAreNoListOfObjectsAreNothing)
{
    const QByteArray good = R"({"trackName": "Ink", "description": "Draws."})";
    ASSERT_NE(found(results(good)), std::nullopt);
    EXPECT_EQ(found(results(good + ", 7")), std::nullopt);
    EXPECT_EQ(found(results(good + ", null")), std::nullopt);
    EXPECT_EQ(found(results("[" + good + "]")), std::nullopt);
    EXPECT_EQ(found(R"({"results": )" + good + "}"), std::nullopt);
    EXPECT_EQ(found(R"({"results": "Ink"})"), std::nullopt);
    EXPECT_EQ(found(R"({"Results": []})"), std::nullopt);
}

TEST(iTunesAppInfo, aBodyThatIsNoObjectIsNothing)
{
    for (const QByteArray& body :
         {QByteArray(), QByteArray("{"), QByteArray("null"), QByteArray("7"), QByteArray("<html>"),
          QByteArray("\xFF\xFE"), QByteArray(R"([{"trackName": "Ink", "description": "Draws."}])")})
        EXPECT_EQ(found(body), std::nullopt) << body.toStdString();
}

TEST(iTunesAppInfo, aBodyCutAnywhereIsNothing)
{
    const QByteArray whole = results(R"({"trackName": "Ink", "description": "Draws ä."})");
    ASSERT_NE(found(whole), std::nullopt);
    for (qsizetype size = 0; size < whole.size(); ++size)
        EXPECT_EQ(found(whole.first(size)), std::nullopt) << size;
}

TEST(iTunesAppInfo, tenThousandLevelsAreNothingAndNoCrash)
{
    const QByteArray deep = QByteArray(10'000, '[') + QByteArray(10'000, ']');
    EXPECT_EQ(found(results(R"({"trackName": "Ink", "description": "Draws.", "deep": )" + deep + "}")),
              std::nullopt);
    EXPECT_EQ(found(deep), std::nullopt);
}

} // namespace keelbright::testing

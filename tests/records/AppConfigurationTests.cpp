#include "KeelbrightCore/records/AppConfiguration.h"
#include "tests/records/SampleConfiguration.h"
#include "tests/support/Printing.h"

#include <QJsonDocument>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

JsonError errorOf(const QByteArray& text)
{
    const auto configuration = AppConfiguration::fromJson(decodeJsonObject(text).value());
    return configuration ? JsonError() : configuration.error();
}

} // namespace

TEST(AppConfiguration, anEmptyOneIsWrittenWithItsTwoRequiredKeysOnly)
{
    EXPECT_EQ(QJsonDocument(AppConfiguration().toJson()).toJson(QJsonDocument::Compact),
              R"({"customSources":[],"enabledRecommendedFolders":[]})");
}

TEST(AppConfiguration, anEmptyOneComesBackEqualFromJson)
{
    EXPECT_EQ(AppConfiguration::fromJson(JsonDecoder(AppConfiguration().toJson())).value(),
              AppConfiguration());
}

TEST(AppConfiguration, comesBackEqualFromJson)
{
    const AppConfiguration configuration = sampleConfiguration();
    EXPECT_EQ(AppConfiguration::fromJson(JsonDecoder(configuration.toJson())).value(), configuration);
}

TEST(AppConfiguration, theSourcesAndTheEnabledFoldersAreRequired)
{
    EXPECT_EQ(errorOf("{}"), (JsonError{u"customSources"_s, u"is missing"_s}));
    EXPECT_EQ(errorOf(R"({"customSources":[]})"),
              (JsonError{u"enabledRecommendedFolders"_s, u"is missing"_s}));
    EXPECT_EQ(errorOf(R"({"enabledRecommendedFolders":[]})"),
              (JsonError{u"customSources"_s, u"is missing"_s}));
    EXPECT_EQ(errorOf(R"({"customSources":null,"enabledRecommendedFolders":[]})"),
              (JsonError{u"customSources"_s, u"is not a list"_s}));
}

TEST(AppConfiguration, aNullCountsAsAbsentForTheOptionalKeys)
{
    EXPECT_EQ(AppConfiguration::fromJson(
                  decodeJsonObject(R"({"customSources":[],"enabledRecommendedFolders":[],)"
                                   R"("selectedDestination":null,"lastReport":null,"lastBackupTime":null})")
                      .value())
                  .value(),
              AppConfiguration());
}

TEST(AppConfiguration, anErrorInsideARecordNamesItsPlace)
{
    QJsonObject json = sampleConfiguration().toJson();
    QJsonObject report = sampleReport().toJson();
    report.insert(u"startedAt"_s, u"soon"_s);
    json.insert(u"lastReport"_s, report);
    EXPECT_EQ(errorOf(QJsonDocument(json).toJson()),
              (JsonError{u"lastReport.startedAt"_s, u"is not an ISO 8601 date"_s}));
    EXPECT_EQ(errorOf(R"({"customSources":[],"enabledRecommendedFolders":[],"selectedDestination":{}})"),
              (JsonError{u"selectedDestination.id"_s, u"is missing"_s}));
    EXPECT_EQ(errorOf(R"({"customSources":[{}],"enabledRecommendedFolders":[]})"),
              (JsonError{u"customSources[0].id"_s, u"is missing"_s}));
    EXPECT_EQ(errorOf(R"({"customSources":[],"enabledRecommendedFolders":["a",1]})"),
              (JsonError{u"enabledRecommendedFolders[1]"_s, u"is not a text"_s}));
    EXPECT_EQ(errorOf(R"({"customSources":[],"enabledRecommendedFolders":[],"lastBackupTime":12})"),
              (JsonError{u"lastBackupTime"_s, u"is not a text"_s}));
    EXPECT_EQ(errorOf(R"({"customSources":[],"enabledRecommendedFolders":[],"lastReport":[]})"),
              (JsonError{u"lastReport"_s, u"is not an object"_s}));
}

} // namespace keelbright::testing

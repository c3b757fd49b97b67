#include "KeelbrightCore/records/AppConfiguration.h"
#include "tests/support/Printing.h"
#include "tests/support/SampleReport.h"

#include <QJsonDocument>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

AppConfiguration sampleConfiguration()
{
    return {
        .selectedDestination =
            BackupDestination{QUuid::createUuid(), FileURL::fromPath(u"/Volumes/Anchor"_s)},
        .customSources = {{QUuid::createUuid(), FileURL::fromPath(u"/Users/mira/Code"_s), true},
                          {QUuid::createUuid(), FileURL::fromNativePath("/Users/mira/caf\xe9"), false}},
        .enabledRecommendedFolders = {u"Desktop"_s, u"Photos Library"_s},
        .lastReport = sampleReport(),
        .lastBackupTime = sampleReport().completedAt,
    };
}

QByteArray indented(const AppConfiguration& configuration)
{
    return QJsonDocument(configuration.toJson()).toJson(QJsonDocument::Indented);
}

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

TEST(AppConfiguration, itsTextIsItsJsonWithAndWithoutWhatMayBeAbsent)
{
    EXPECT_EQ(AppConfiguration().toJsonText(), indented(AppConfiguration()));
    AppConfiguration configuration = sampleConfiguration();
    EXPECT_EQ(configuration.toJsonText(), indented(configuration));
    configuration.lastBackupTime.reset();
    configuration.selectedDestination.reset();
    EXPECT_EQ(configuration.toJsonText(), indented(configuration));
    configuration.lastReport.reset();
    EXPECT_EQ(configuration.toJsonText(), indented(configuration));
    configuration = {};
    configuration.lastReport = sampleReport();
    EXPECT_EQ(configuration.toJsonText(), indented(configuration));
}

TEST(AppConfiguration, noTextWithinItIsTakenForThePlaceOfTheReport)
{
    const QString lookalike = u"\n    \"lastReport\": null"_s;
    AppConfiguration configuration = sampleConfiguration();
    configuration.customSources.first().url = FileURL::fromPath(u"/Users"_s).appending(lookalike);
    configuration.enabledRecommendedFolders = {lookalike, u"lastReport"_s, u"null"_s};
    configuration.lastReport->sourcePaths = {lookalike};
    configuration.lastReport->errors = {lookalike, QString(), u"    }\n}\n"_s, u"“é”\r\b\f\0"_s,
                                        QString(QChar(0xdc00))};
    EXPECT_EQ(configuration.toJsonText(), indented(configuration));
}

TEST(AppConfiguration, aHundredThousandErrorLinesAreInItsTextAsInItsJson)
{
    AppConfiguration configuration = sampleConfiguration();
    for (int i = 0; i < 100'000; ++i)
        configuration.lastReport->errors.append(u"Skip “IMG_%1.heic”."_s.arg(i));
    EXPECT_TRUE(configuration.toJsonText() == indented(configuration));
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

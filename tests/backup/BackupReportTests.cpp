#include "KeelbrightCore/backup/BackupReport.h"
#include "tests/support/Printing.h"
#include "tests/support/SampleReport.h"
#include "tests/support/TestMac.h"

#include <QJsonDocument>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

TEST(BackupReport, durationIsTheTimeBetweenStartAndEnd)
{
    BackupReport report = sampleReport();
    EXPECT_EQ(report.durationSeconds(), 42.0);
    report.completedAt = report.startedAt.addMSecs(40);
    EXPECT_EQ(report.durationSeconds(), 0.04);
    report.completedAt = report.startedAt.addSecs(-1);
    EXPECT_EQ(report.durationSeconds(), -1.0);
}

TEST(BackupReport, copiedSizeIsFormattedForPeople)
{
    const TestMac mac;
    EXPECT_EQ(sampleReport().copiedSizeFormatted(), u"2.5 MB"_s);
}

TEST(BackupReport, isWrittenWithTwelveKeys)
{
    EXPECT_EQ(sampleReport().toJson().keys(),
              (QStringList{u"bytesCopied"_s, u"completedAt"_s, u"destinationPath"_s, u"errors"_s,
                           u"filesCopied"_s, u"filesSkipped"_s, u"id"_s, u"jobId"_s, u"manifestPath"_s,
                           u"personalFilesPath"_s, u"sourcePaths"_s, u"startedAt"_s}));
}

TEST(BackupReport, comesBackEqualFromJson)
{
    const BackupReport report = sampleReport();
    EXPECT_EQ(BackupReport::fromJson(JsonDecoder(report.toJson())).value(), report);
}

TEST(BackupReport, aFractionOfASecondIsCutByJson)
{
    BackupReport report = sampleReport();
    report.completedAt = report.completedAt.addMSecs(999);
    const auto back = BackupReport::fromJson(JsonDecoder(report.toJson()));
    ASSERT_TRUE(back.has_value());
    EXPECT_EQ(back->completedAt, report.startedAt.addSecs(42));
}

TEST(BackupReport, countsOf64BitsComeBackExactlyFromJson)
{
    BackupReport report = sampleReport();
    report.bytesCopied = 9'223'372'036'854'775'807;
    report.filesCopied = 9'007'199'254'740'993;
    const QByteArray text = QJsonDocument(report.toJson()).toJson();
    EXPECT_EQ(BackupReport::fromJson(decodeJsonObject(text).value()).value(), report);
}

TEST(BackupReport, aHundredThousandErrorLinesComeBackFromJson)
{
    BackupReport report = sampleReport();
    for (int i = 0; i < 100'000; ++i)
        report.errors.append(u"Skip IMG_%1.heic: “IMG_%1.heic” could not be copied."_s.arg(i));
    const QByteArray text = QJsonDocument(report.toJson()).toJson();
    const auto back = BackupReport::fromJson(decodeJsonObject(text).value());
    ASSERT_TRUE(back.has_value());
    EXPECT_EQ(back->errors.size(), 100'000);
    EXPECT_EQ(*back, report);
}

TEST(BackupReport, everyKeyIsRequired)
{
    const QJsonObject whole = sampleReport().toJson();
    for (const QString& key : whole.keys()) {
        SCOPED_TRACE(key.toStdString());
        QJsonObject json = whole;
        json.remove(key);
        const auto report = BackupReport::fromJson(JsonDecoder(json, u"lastReport"_s));
        ASSERT_FALSE(report.has_value());
        EXPECT_EQ(report.error(), (JsonError{u"lastReport."_s + key, u"is missing"_s}));
    }
}

TEST(BackupReport, aNullIsNoValueOfAnyKey)
{
    const QJsonObject whole = sampleReport().toJson();
    for (const QString& key : whole.keys()) {
        SCOPED_TRACE(key.toStdString());
        QJsonObject json = whole;
        json.insert(key, QJsonValue::Null);
        const auto report = BackupReport::fromJson(JsonDecoder(json));
        ASSERT_FALSE(report.has_value());
        EXPECT_EQ(report.error().key, key);
    }
}

} // namespace keelbright::testing

#include "KeelbrightCore/backup/BackupReport.h"
#include "tests/support/Printing.h"
#include "tests/support/SampleReport.h"
#include "tests/support/TestMac.h"

#include <QJsonDocument>
#include <gtest/gtest.h>
#include <thread>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

QByteArray indented(const BackupReport& report)
{
    return QJsonDocument(report.toJson()).toJson(QJsonDocument::Indented);
}

} // namespace

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

TEST(BackupReport, itsTextIsItsJson)
{
    BackupReport report = sampleReport();
    EXPECT_EQ(report.toJsonText(), indented(report));
    report.errors = {QString(), u"a \"quote\" and a \\"_s, u"two\nlines\tand a \1"_s, u"“é” 𝄞"_s,
                     QString(QChar(0xd834))};
    EXPECT_EQ(report.toJsonText(), indented(report));
}

TEST(BackupReport, theTextOfAnUnchangedReportIsMadeOnce)
{
    const BackupReport report = sampleReport();
    const QByteArray text = report.toJsonText();
    EXPECT_TRUE(report.toJsonText().isSharedWith(text));
    EXPECT_TRUE(BackupReport(report).toJsonText().isSharedWith(text));
}

TEST(BackupReport, theTextMadeWhileTheRunEndsServesTheMainThread)
{
    const BackupReport report = sampleReport();
    QByteArray text;
    std::thread([&] { text = report.toJsonText(); }).join();
    EXPECT_TRUE(report.toJsonText().isSharedWith(text));
}

TEST(BackupReport, aChangeOfAnyFieldIsInTheNextText)
{
    const QList<void (*)(BackupReport&)> changes{
        [](BackupReport& report) { report.id = QUuid::createUuid(); },
        [](BackupReport& report) { report.jobId = QUuid::createUuid(); },
        [](BackupReport& report) { report.startedAt = report.startedAt.addSecs(1); },
        [](BackupReport& report) { report.completedAt = report.completedAt.addSecs(1); },
        [](BackupReport& report) { report.sourcePaths.append(u"/Users/mira/Music"_s); },
        [](BackupReport& report) { report.destinationPath += u'2'; },
        [](BackupReport& report) { report.personalFilesPath += u'2'; },
        [](BackupReport& report) { ++report.filesCopied; },
        [](BackupReport& report) { ++report.filesSkipped; },
        [](BackupReport& report) { ++report.bytesCopied; },
        [](BackupReport& report) { report.errors.append(u"Skip a"_s); },
        [](BackupReport& report) { report.errors.last() = u"Skip b"_s; },
        [](BackupReport& report) { report.manifestPath = u"Failed"_s; },
    };
    BackupReport report = sampleReport();
    for (const auto change : changes) {
        const QByteArray before = report.toJsonText();
        change(report);
        EXPECT_NE(report.toJsonText(), before);
        EXPECT_EQ(report.toJsonText(), indented(report));
    }
}

TEST(BackupReport, severalThreadsEachGetTheTextOfTheirReport)
{
    const auto work = [](qint64 number) {
        BackupReport report = sampleReport();
        report.filesCopied = number;
        const QByteArray expected = indented(report);
        for (int i = 0; i < 1000; ++i)
            ASSERT_EQ(report.toJsonText(), expected);
    };
    std::thread other(work, 1);
    work(2);
    other.join();
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

#include "KeelbrightCore/backup/BackupManifest.h"
#include "KeelbrightCore/platform/text/UtcZone.h"
#include "tests/support/Printing.h"

#include <QJsonDocument>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

BackupManifest sampleManifest()
{
    return {
        .appVersion = u"1.0.0-mvp"_s,
        .deviceName = u"Mira's Mac"_s,
        .macOSVersion = u"Version 12.7 (Build 21G816)"_s,
        .backupDate = QDateTime(QDate(2026, 3, 1), QTime(23, 30), utcZone),
        .sourceFolders = {u"/Users/mira/Desktop"_s, u"/Users/mira/Ünterlagen"_s},
        .destinationPath = u"/Volumes/Anchor"_s,
        .installedApps = {u"Alpha"_s, u"beta.us"_s},
        .shellInfo = u"/bin/zsh"_s,
        .dotfilesPresent = {{u".zshrc"_s, true}, {u".ssh"_s, false}},
        .notes = u"n"_s,
    };
}

} // namespace

TEST(BackupManifest, isWrittenWithSortedKeys)
{
    const QByteArray expected = R"json({
    "appVersion": "1.0.0-mvp",
    "backupDate": "2026-03-01T23:30:00Z",
    "destinationPath": "/Volumes/Anchor",
    "deviceName": "Mira's Mac",
    "dotfilesPresent": {
        ".ssh": false,
        ".zshrc": true
    },
    "installedApps": [
        "Alpha",
        "beta.us"
    ],
    "macOSVersion": "Version 12.7 (Build 21G816)",
    "notes": "n",
    "shellInfo": "/bin/zsh",
    "sourceFolders": [
        "/Users/mira/Desktop",
        "/Users/mira/Ünterlagen"
    ]
}
)json";
    EXPECT_EQ(QJsonDocument(sampleManifest().toJson()).toJson(QJsonDocument::Indented), expected);
}

TEST(BackupManifest, comesBackEqualFromJson)
{
    const BackupManifest manifest = sampleManifest();
    EXPECT_EQ(BackupManifest::fromJson(JsonDecoder(manifest.toJson())).value(), manifest);
}

TEST(BackupManifest, anEmptyOneComesBackEqualFromJson)
{
    BackupManifest manifest;
    manifest.backupDate = QDateTime(QDate(2026, 3, 1), QTime(0, 0), utcZone);
    EXPECT_EQ(BackupManifest::fromJson(JsonDecoder(manifest.toJson())).value(), manifest);
}

TEST(BackupManifest, everyKeyIsRequired)
{
    const QJsonObject whole = sampleManifest().toJson();
    EXPECT_EQ(whole.size(), 10);
    for (const QString& key : whole.keys()) {
        SCOPED_TRACE(key.toStdString());
        QJsonObject json = whole;
        json.remove(key);
        const auto manifest = BackupManifest::fromJson(JsonDecoder(json));
        ASSERT_FALSE(manifest.has_value());
        EXPECT_EQ(manifest.error(), (JsonError{key, u"is missing"_s}));
    }
}

TEST(BackupManifest, aDotfileWhoseFlagIsNotABooleanIsNamedInTheError)
{
    QJsonObject json = sampleManifest().toJson();
    json.insert(u"dotfilesPresent"_s, QJsonObject{{u".zshrc"_s, u"yes"_s}});
    const auto manifest = BackupManifest::fromJson(JsonDecoder(json));
    ASSERT_FALSE(manifest.has_value());
    EXPECT_EQ(manifest.error(), (JsonError{u"dotfilesPresent..zshrc"_s, u"is not true or false"_s}));
}

} // namespace keelbright::testing

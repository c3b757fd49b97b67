#include "KeelbrightCore/backup/BackupSource.h"
#include "tests/support/Printing.h"

#include <QJsonDocument>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

const QUuid sourceId(u"{0a4ba8c1-57b2-4e0f-9c43-5e5f2a9d6b10}"_s);

BackupSource sourceAt(const QString& path)
{
    return {sourceId, FileURL::fromPath(path), true};
}

JsonError errorOf(const QByteArray& json)
{
    const auto source = BackupSource::fromJson(decodeJsonObject(json).value());
    return source ? JsonError() : source.error();
}

} // namespace

TEST(BackupSource, isShownByItsLastPathComponent)
{
    EXPECT_EQ(sourceAt(u"/Users/mira/Photo Albums"_s).displayName(), u"Photo Albums"_s);
}

TEST(BackupSource, iconFollowsTheNameInAnyLetterCase)
{
    EXPECT_EQ(sourceAt(u"/Users/mira/Documents"_s).icon(), u"doc.fill"_s);
    EXPECT_EQ(sourceAt(u"/Users/mira/DESKTOP"_s).icon(), u"menubar.rectangle"_s);
    EXPECT_EQ(sourceAt(u"/Users/mira/pictures"_s).icon(), u"photo.fill"_s);
    EXPECT_EQ(sourceAt(u"/Users/mira/Pictures/Wedding"_s).icon(), u"folder.fill"_s);
    EXPECT_EQ(sourceAt(u"/"_s).icon(), u"folder.fill"_s);
}

TEST(BackupSource, isWrittenWithItsThreeKeys)
{
    BackupSource source = sourceAt(u"/Users/mira/My Files"_s);
    source.isEnabled = false;
    EXPECT_EQ(QJsonDocument(source.toJson()).toJson(QJsonDocument::Compact),
              R"({"id":"0A4BA8C1-57B2-4E0F-9C43-5E5F2A9D6B10","isEnabled":false,)"
              R"("url":"file:///Users/mira/My%20Files"})");
}

TEST(BackupSource, comesBackEqualFromJson)
{
    const BackupSource source = sourceAt(u"/Users/mira/Ärger & \"Quotes\"/100%"_s);
    EXPECT_EQ(BackupSource::fromJson(JsonDecoder(source.toJson())).value(), source);
}

TEST(BackupSource, aFolderWhoseNameIsNotUtf8ComesBackExactlyFromJson)
{
    const BackupSource source{sourceId, FileURL::fromNativePath("/Users/mira/caf\xe9\n"), true};
    const auto back = BackupSource::fromJson(JsonDecoder(source.toJson()));
    ASSERT_TRUE(back.has_value());
    EXPECT_EQ(back->url.nativePath(), QByteArray("/Users/mira/caf\xe9\n"));
}

TEST(BackupSource, aTrailingSlashInTheUrlIsDropped)
{
    const auto source = BackupSource::fromJson(
        decodeJsonObject(R"({"id":"0A4BA8C1-57B2-4E0F-9C43-5E5F2A9D6B10","isEnabled":true,)"
                         R"("url":"file:///Users/mira/Music/"})")
            .value());
    ASSERT_TRUE(source.has_value());
    EXPECT_EQ(source->url.path(), u"/Users/mira/Music"_s);
}

TEST(BackupSource, everyKeyIsRequired)
{
    EXPECT_EQ(errorOf(R"({"url":"file:///a","isEnabled":true})"), (JsonError{u"id"_s, u"is missing"_s}));
    EXPECT_EQ(errorOf(R"({"id":"0A4BA8C1-57B2-4E0F-9C43-5E5F2A9D6B10","isEnabled":true})"),
              (JsonError{u"url"_s, u"is missing"_s}));
    EXPECT_EQ(errorOf(R"({"id":"0A4BA8C1-57B2-4E0F-9C43-5E5F2A9D6B10","url":"file:///a"})"),
              (JsonError{u"isEnabled"_s, u"is missing"_s}));
    EXPECT_EQ(errorOf(R"({"id":"0A4BA8C1-57B2-4E0F-9C43-5E5F2A9D6B10","url":"file:///a","isEnabled":1})"),
              (JsonError{u"isEnabled"_s, u"is not true or false"_s}));
}

} // namespace keelbright::testing

#include "KeelbrightCore/backup/BackupDestination.h"
#include "tests/support/Printing.h"

#include <QJsonDocument>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

const BackupDestination drive{QUuid(u"{0a4ba8c1-57b2-4e0f-9c43-5e5f2a9d6b10}"_s),
                              FileURL::fromPath(u"/Volumes/Blue Drive"_s)};

} // namespace

TEST(BackupDestination, isShownByItsLastPathComponentAndItsPath)
{
    EXPECT_EQ(drive.displayName(), u"Blue Drive"_s);
    EXPECT_EQ(drive.path(), u"/Volumes/Blue Drive"_s);
}

TEST(BackupDestination, isWrittenWithItsTwoKeys)
{
    EXPECT_EQ(QJsonDocument(drive.toJson()).toJson(QJsonDocument::Compact),
              R"({"id":"0A4BA8C1-57B2-4E0F-9C43-5E5F2A9D6B10","url":"file:///Volumes/Blue%20Drive"})");
}

TEST(BackupDestination, comesBackEqualFromJson)
{
    EXPECT_EQ(BackupDestination::fromJson(JsonDecoder(drive.toJson())).value(), drive);
}

TEST(BackupDestination, everyKeyIsRequired)
{
    const auto withoutId = BackupDestination::fromJson(decodeJsonObject(R"({"url":"file:///a"})").value());
    ASSERT_FALSE(withoutId.has_value());
    EXPECT_EQ(withoutId.error(), (JsonError{u"id"_s, u"is missing"_s}));
    const auto withoutUrl = BackupDestination::fromJson(
        decodeJsonObject(R"({"id":"0A4BA8C1-57B2-4E0F-9C43-5E5F2A9D6B10"})").value());
    ASSERT_FALSE(withoutUrl.has_value());
    EXPECT_EQ(withoutUrl.error(), (JsonError{u"url"_s, u"is missing"_s}));
}

} // namespace keelbright::testing

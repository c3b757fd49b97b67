#include "KeelbrightCore/platform/text/UtcZone.h"
#include "KeelbrightCore/records/ActivityEntry.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <QJsonDocument>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

using Kind = ActivityEntry::Kind;

const QDateTime now(QDate(2026, 3, 10), QTime(12, 0), utcZone);

ActivityEntry sampleEntry()
{
    return {
        .id = QUuid(u"{0a4ba8c1-57b2-4e0f-9c43-5e5f2a9d6b10}"_s),
        .timestamp = QDateTime(QDate(2026, 3, 1), QTime(9, 5, 0), utcZone),
        .kind = Kind::clean,
        .title = u"Junk files moved to Trash"_s,
        .detail = u"3 items across 2 categories"_s,
        .bytesAffected = 2'500'000,
        .itemCount = 3,
    };
}

QString timeOf(qint64 milliseconds)
{
    ActivityEntry entry = sampleEntry();
    entry.timestamp = now.addMSecs(-milliseconds);
    return entry.relativeTime(now);
}

constexpr qint64 second = 1000;
constexpr qint64 minute = 60 * second;
constexpr qint64 hour = 60 * minute;
constexpr qint64 day = 24 * hour;

} // namespace

TEST(ActivityEntry, kindsComeInTheirOrderWithRawValueIconAndColor)
{
    QStringList lines;
    for (const Kind kind : ActivityEntry::allKinds())
        lines.append(
            QStringList{ActivityEntry::rawValue(kind), ActivityEntry::icon(kind), ActivityEntry::color(kind)}
                .join(u' '));
    EXPECT_EQ(lines,
              (QStringList{u"Backup arrow.clockwise.circle.fill blue"_s, u"Junk Clean trash.fill orange"_s,
                           u"Organise folder.badge.gearshape teal"_s, u"App Removed app.badge.minus purple"_s,
                           u"Full Scan magnifyingglass.circle.fill green"_s}));
}

TEST(ActivityEntry, aKindComesBackFromItsRawValueOnly)
{
    for (const Kind kind : ActivityEntry::allKinds())
        EXPECT_EQ(ActivityEntry::kindFromRawValue(ActivityEntry::rawValue(kind)), kind);
    for (const QString& text : {QString(), u"backup"_s, u"Backup "_s, u"Organize"_s})
        EXPECT_FALSE(ActivityEntry::kindFromRawValue(text).has_value()) << text.toStdString();
}

TEST(ActivityEntry, bytesAreFormattedForPeople)
{
    const TestMac mac;
    EXPECT_EQ(sampleEntry().formattedBytes(), u"2.5 MB"_s);
}

TEST(ActivityEntry, withoutASizeThereIsNoText)
{
    const TestMac mac;
    ActivityEntry entry = sampleEntry();
    entry.bytesAffected = 0;
    EXPECT_EQ(entry.formattedBytes(), QString());
    entry.bytesAffected = -1;
    EXPECT_EQ(entry.formattedBytes(), QString());
    entry.bytesAffected = 1;
    EXPECT_EQ(entry.formattedBytes(), u"1 byte"_s);
}

TEST(ActivityEntry, underAMinuteIsJustNow)
{
    EXPECT_EQ(timeOf(0), u"Just now"_s);
    EXPECT_EQ(timeOf(minute - 1), u"Just now"_s);
}

TEST(ActivityEntry, aTimestampInTheFutureIsJustNow)
{
    EXPECT_EQ(timeOf(-minute), u"Just now"_s);
    EXPECT_EQ(timeOf(-400 * day), u"Just now"_s);
}

TEST(ActivityEntry, underAnHourCountsWholeMinutes)
{
    EXPECT_EQ(timeOf(minute), u"1m ago"_s);
    EXPECT_EQ(timeOf(2 * minute - 1), u"1m ago"_s);
    EXPECT_EQ(timeOf(hour - 1), u"59m ago"_s);
}

TEST(ActivityEntry, underADayCountsWholeHours)
{
    EXPECT_EQ(timeOf(hour), u"1h ago"_s);
    EXPECT_EQ(timeOf(day - 1), u"23h ago"_s);
}

TEST(ActivityEntry, from24To48HoursIsYesterday)
{
    EXPECT_EQ(timeOf(day), u"Yesterday"_s);
    EXPECT_EQ(timeOf(2 * day - 1), u"Yesterday"_s);
}

TEST(ActivityEntry, upToSixWholeDaysAreCounted)
{
    EXPECT_EQ(timeOf(2 * day), u"2 days ago"_s);
    EXPECT_EQ(timeOf(7 * day - 1), u"6 days ago"_s);
}

TEST(ActivityEntry, fromSevenDaysOnItIsTheMediumDate)
{
    TestMac mac;
    EXPECT_EQ(timeOf(7 * day), u"Mar 3, 2026"_s);
    EXPECT_EQ(timeOf(400 * day), u"Feb 3, 2025"_s);
    mac.setLocale(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(timeOf(7 * day), u"03.03.2026"_s);
}

TEST(ActivityEntry, theMediumDateIsLocal)
{
    TestMac mac;
    ActivityEntry entry = sampleEntry();
    entry.timestamp = QDateTime(QDate(2026, 3, 1), QTime(23, 30), utcZone);
    EXPECT_EQ(entry.relativeTime(now), u"Mar 2, 2026"_s);
    mac.setTimeZone("America/New_York");
    EXPECT_EQ(entry.relativeTime(now), u"Mar 1, 2026"_s);
}

TEST(ActivityEntry, isWrittenWithItsSevenKeys)
{
    EXPECT_EQ(QJsonDocument(sampleEntry().toJson()).toJson(QJsonDocument::Compact),
              R"({"bytesAffected":2500000,"detail":"3 items across 2 categories",)"
              R"("id":"0A4BA8C1-57B2-4E0F-9C43-5E5F2A9D6B10","itemCount":3,"kind":"Junk Clean",)"
              R"("timestamp":"2026-03-01T09:05:00Z","title":"Junk files moved to Trash"})");
}

TEST(ActivityEntry, comesBackEqualFromJson)
{
    ActivityEntry entry = sampleEntry();
    for (const Kind kind : ActivityEntry::allKinds()) {
        entry.kind = kind;
        EXPECT_EQ(ActivityEntry::fromJson(JsonDecoder(entry.toJson())).value(), entry);
    }
}

TEST(ActivityEntry, aFractionOfASecondIsCutByJson)
{
    ActivityEntry entry = sampleEntry();
    entry.timestamp = entry.timestamp.addMSecs(999);
    EXPECT_EQ(ActivityEntry::fromJson(JsonDecoder(entry.toJson())).value(), sampleEntry());
}

TEST(ActivityEntry, everyKeyIsRequired)
{
    const QJsonObject whole = sampleEntry().toJson();
    for (const QString& key : whole.keys()) {
        QJsonObject json = whole;
        json.remove(key);
        const auto entry = ActivityEntry::fromJson(JsonDecoder(json));
        ASSERT_FALSE(entry.has_value()) << key.toStdString();
        EXPECT_EQ(entry.error(), (JsonError{key, u"is missing"_s}));
    }
}

TEST(ActivityEntry, anUnknownKindIsNamed)
{
    QJsonObject json = sampleEntry().toJson();
    json.insert(u"kind"_s, u"Nap"_s);
    const auto entry = ActivityEntry::fromJson(JsonDecoder(json, u"[4]"_s));
    ASSERT_FALSE(entry.has_value());
    EXPECT_EQ(entry.error(), (JsonError{u"[4].kind"_s, u"is not a known kind"_s}));
}

} // namespace keelbright::testing

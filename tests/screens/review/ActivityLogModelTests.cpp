#include "Keelbright/screens/review/ActivityLogModel.h"

#include "KeelbrightCore/platform/text/UtcZone.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"
#include "tests/support/WorkTimer.h"

#include <QAbstractItemModelTester>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

using Kind = ActivityEntry::Kind;

class ActivityLogModelTests : public ::testing::Test
{
protected:
    [[nodiscard]] static QDateTime local(const QDate& day, const QTime& time)
    {
        return QDateTime(day, time).toUTC();
    }

    [[nodiscard]] static ActivityEntry entryAt(const QDateTime& timestamp, const QString& title = u"Done"_s)
    {
        return {.id = QUuid::createUuid(),
                .timestamp = timestamp,
                .kind = Kind::clean,
                .title = title,
                .detail = u"3 items across 2 categories"_s,
                .bytesAffected = 2'500'000,
                .itemCount = 3};
    }

    [[nodiscard]] static QStringList labels(const QList<ActivityEntry>& entries, const QDateTime& now)
    {
        QStringList found;
        for (const ActivityDay& day : grouped(entries, now))
            found.append(day.label);
        return found;
    }

    /// The headers and titles from top to bottom.
    [[nodiscard]] QStringList rows() const
    {
        QStringList texts;
        for (int row = 0; row < model.rowCount(); ++row) {
            const QString header = model.headerAt(row);
            texts.append(header.isEmpty() ? model.rowAt(row).title : header);
        }
        return texts;
    }

    TestMac mac; ///< in Berlin
    ActivityLogModel model;
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

} // namespace

TEST_F(ActivityLogModelTests, anEntryOfTwoMinutesAgoCanBeYesterdays)
{
    const ActivityEntry entry = entryAt(local({2026, 3, 1}, {23, 59}));
    const QDateTime now = local({2026, 3, 2}, {0, 1});
    EXPECT_EQ(labels({entry}, now), QStringList{u"Yesterday"_s});
    model.setEntries({entry}, now);
    EXPECT_EQ(model.rowAt(1).aside, u"2m ago"_s);
    model.setEntries({entryAt(local({2026, 3, 1}, {23, 59, 30}))}, local({2026, 3, 2}, {0, 0, 1}));
    EXPECT_EQ(model.headerAt(0), u"Yesterday"_s);
    EXPECT_EQ(model.rowAt(1).aside, u"Just now"_s);
}

TEST_F(ActivityLogModelTests, theFirstAndTheLastMomentOfADayBelongToIt)
{
    const QDateTime now = local({2026, 3, 2}, {12, 0});
    EXPECT_EQ(labels({entryAt(local({2026, 3, 2}, {23, 59, 59}))}, now), QStringList{u"Today"_s});
    EXPECT_EQ(labels({entryAt(local({2026, 3, 2}, {0, 0}))}, now), QStringList{u"Today"_s});
    EXPECT_EQ(labels({entryAt(local({2026, 3, 1}, {23, 59, 59}))}, now), QStringList{u"Yesterday"_s});
    EXPECT_EQ(labels({entryAt(local({2026, 3, 1}, {0, 0}))}, now), QStringList{u"Yesterday"_s});
    EXPECT_EQ(labels({entryAt(local({2026, 2, 28}, {23, 59, 59}))}, now), QStringList{u"Feb 28, 2026"_s});
}

TEST_F(ActivityLogModelTests, anEntryOfTomorrowIsUnderItsDate)
{
    EXPECT_EQ(labels({entryAt(local({2026, 3, 3}, {0, 0}))}, local({2026, 3, 2}, {23, 59})),
              QStringList{u"Mar 3, 2026"_s});
}

TEST_F(ActivityLogModelTests, aDayOfTwentyThreeHoursIsOneDay)
{
    // Clocks in Berlin go from 2:00 to 3:00 on that Sunday.
    const QDateTime now = local({2026, 3, 30}, {0, 30});
    EXPECT_EQ(labels({entryAt(local({2026, 3, 29}, {0, 0})), entryAt(local({2026, 3, 28}, {23, 59}))}, now),
              (QStringList{u"Yesterday"_s, u"Mar 28, 2026"_s}));
    // 24 hours before is the day before that one.
    EXPECT_EQ(labels({entryAt(now.addSecs(-24 * 3600))}, now), QStringList{u"Mar 28, 2026"_s});
}

TEST_F(ActivityLogModelTests, aDayOfTwentyFiveHoursIsOneDay)
{
    const QDateTime now = local({2026, 10, 25}, {23, 30});
    EXPECT_EQ(labels({entryAt(now.addSecs(-24 * 3600))}, now), QStringList{u"Today"_s});
    EXPECT_EQ(labels({entryAt(local({2026, 10, 24}, {23, 59}))}, now), QStringList{u"Yesterday"_s});
}

TEST_F(ActivityLogModelTests, theDayIsThatOfTheLocalZone)
{
    const QDateTime now(QDate(2026, 3, 2), QTime(12, 0), utcZone);
    const ActivityEntry entry = entryAt(QDateTime(QDate(2026, 3, 1), QTime(23, 30), utcZone));
    EXPECT_EQ(labels({entry}, now), QStringList{u"Today"_s});
    mac.setTimeZone("America/Los_Angeles");
    EXPECT_EQ(labels({entry}, now), QStringList{u"Yesterday"_s});
}

TEST_F(ActivityLogModelTests, daysAndEntriesKeepTheirOrder)
{
    const QDateTime now = local({2026, 3, 2}, {12, 0});
    model.setEntries({entryAt(now.addSecs(-60), u"First"_s), entryAt(now.addSecs(-120), u"Second"_s),
                      entryAt(now.addDays(-1), u"Third"_s), entryAt(now.addDays(-40), u"Fourth"_s)},
                     now);
    EXPECT_EQ(rows(), (QStringList{u"Today"_s, u"First"_s, u"Second"_s, u"Yesterday"_s, u"Third"_s,
                                   u"Jan 21, 2026"_s, u"Fourth"_s}));
}

TEST_F(ActivityLogModelTests, anEntryOutOfOrderJoinsTheDayThatIsThere)
{
    const QDateTime now = local({2026, 3, 2}, {12, 0});
    model.setEntries({entryAt(now, u"First"_s), entryAt(now.addDays(-1), u"Second"_s),
                      entryAt(now.addSecs(-60), u"Third"_s)},
                     now);
    EXPECT_EQ(rows(), (QStringList{u"Today"_s, u"First"_s, u"Third"_s, u"Yesterday"_s, u"Second"_s}));
}

TEST_F(ActivityLogModelTests, aRowShowsKindTimeTextsAndSize)
{
    const QDateTime now = local({2026, 3, 2}, {12, 0});
    model.setEntries({entryAt(now.addSecs(-3600), u"Junk files moved to Trash"_s)}, now);
    const ListRow row = model.rowAt(1);
    EXPECT_EQ(row.picture, ListRow::Picture::disc);
    EXPECT_EQ(row.symbol, u"trash.fill"_s);
    EXPECT_EQ(row.symbolColor, Role::orange);
    EXPECT_EQ(row.title, u"Junk files moved to Trash"_s);
    EXPECT_EQ(row.aside, u"1h ago"_s);
    EXPECT_EQ(row.detail, u"3 items across 2 categories"_s);
    EXPECT_EQ(row.capsule, u"2.5 MB"_s);
    EXPECT_EQ(row.capsuleColor, Role::orange);
    EXPECT_TRUE(row.actions.isEmpty());
}

TEST_F(ActivityLogModelTests, eachKindHasItsColor)
{
    const QList<std::pair<Kind, Role>> colors{{Kind::backup, Role::accent},
                                              {Kind::clean, Role::orange},
                                              {Kind::organise, Role::teal},
                                              {Kind::appRemove, Role::purple},
                                              {Kind::scan, Role::green}};
    for (const auto& [kind, color] : colors) {
        ActivityEntry entry = entryAt(mac.clock()());
        entry.kind = kind;
        model.setEntries({entry}, mac.clock()());
        EXPECT_EQ(model.rowAt(1).symbolColor, color) << ActivityEntry::rawValue(kind).toStdString();
        EXPECT_EQ(model.rowAt(1).symbol, ActivityEntry::icon(kind));
    }
}

TEST_F(ActivityLogModelTests, withoutBytesThereIsNoCapsule)
{
    ActivityEntry entry = entryAt(mac.clock()());
    for (const qint64 bytes : {0, -1}) {
        entry.bytesAffected = bytes;
        model.setEntries({entry}, mac.clock()());
        EXPECT_EQ(model.rowAt(1).capsule, QString());
    }
    entry.bytesAffected = 1;
    model.setEntries({entry}, mac.clock()());
    EXPECT_EQ(model.rowAt(1).capsule, u"1 byte"_s);
}

TEST_F(ActivityLogModelTests, aHundredThousandEntriesAreShownAtOnce)
{
    QList<ActivityEntry> entries;
    const QDateTime now = mac.clock()();
    for (int i = 0; i < 100'000; ++i)
        entries.append(entryAt(now.addSecs(-60 * i)));
    const WorkTimer timer;
    model.setEntries(entries, now);
    const qint64 milliseconds = timer.milliseconds();
    // 100,000 minutes are 69.4 days; as they end in the morning, they fall on 71 calendar days.
    EXPECT_EQ(model.rowCount(), 100'000 + 71);
    EXPECT_EQ(model.headerAt(0), u"Today"_s);
    RecordProperty("milliseconds", static_cast<int>(milliseconds));
    EXPECT_LT(milliseconds, 1000) << "including the checks of the model and of the sanitizers";
}

} // namespace keelbright::testing

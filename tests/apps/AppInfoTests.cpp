#include "KeelbrightCore/apps/AppInfo.h"

#include "KeelbrightCore/platform/text/UtcZone.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <QSet>
#include <gtest/gtest.h>
#include <limits>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

const QDateTime now(QDate(2026, 3, 10), QTime(12, 0), utcZone);
constexpr qint64 day = qint64{24} * 60 * 60 * 1000;

std::optional<QDateTime> daysAgo(std::optional<qint64> count)
{
    return count ? std::optional(now.addMSecs(-*count * day)) : std::nullopt;
}

struct Life
{
    std::optional<qint64> added = {};
    std::optional<qint64> used = {};
    qint64 uses = 0;
};

AppInfo app(const Life& life)
{
    return AppInfo(
        {.lastUsedDate = daysAgo(life.used), .useCount = life.uses, .dateAdded = daysAgo(life.added)}, now);
}

void expectVerdict(const Life& life, UsageCategory category, const QString& description)
{
    const AppInfo judged = app(life);
    EXPECT_EQ(rawValue(judged.usageCategory), rawValue(category));
    EXPECT_EQ(judged.usageDescription, description);
}

QString lastUsed(qint64 milliseconds)
{
    return AppInfo({.lastUsedDate = now.addMSecs(-milliseconds)}, now).lastUsedFormatted(now);
}

} // namespace

TEST(UsageCategory, casesComeInTheirOrderWithRawValueAndPriority)
{
    QStringList lines;
    for (const UsageCategory category : allUsageCategories())
        lines.append(u"%1 %2"_s.arg(rawValue(category)).arg(sortPriority(category)));
    EXPECT_EQ(lines, (QStringList{u"Active 5"_s, u"Was Important 2"_s, u"Occasional 1"_s, u"Rarely Used 0"_s,
                                  u"New 4"_s, u"Unknown 3"_s}));
}

TEST(AppInfo, withoutAnyRecordOfItsUseItIsUnknownUnlessItIsNew)
{
    const AppInfo old({.dateAdded = daysAgo(400), .hasUsageRecord = false}, now);
    EXPECT_EQ(old.usageCategory, UsageCategory::unknown);
    EXPECT_EQ(old.usageDescription, u"Opened 0 times — usage timing unknown."_s);
    EXPECT_EQ(old.lastUsedFormatted(now), u"Unknown"_s);
    EXPECT_EQ(AppInfo({.dateAdded = daysAgo(3), .hasUsageRecord = false}, now).usageCategory,
              UsageCategory::new_);
}

TEST(AppInfo, theFactsAreKeptAsTheyAre)
{
    const QUuid id = QUuid::createUuid();
    const AppInfo kept({.id = id,
                        .name = u"Ink"_s,
                        .bundleID = u"org.example.ink"_s,
                        .url = FileURL::fromPath(u"/Applications/Ink.app"_s),
                        .version = u"2.1"_s,
                        .lastUsedDate = daysAgo(3),
                        .useCount = 12,
                        .dateAdded = daysAgo(300)},
                       now);
    EXPECT_EQ(kept.id, id);
    EXPECT_EQ(kept.name, u"Ink"_s);
    EXPECT_EQ(kept.bundleID, u"org.example.ink"_s);
    EXPECT_EQ(kept.url, FileURL::fromPath(u"/Applications/Ink.app"_s));
    EXPECT_EQ(kept.version, u"2.1"_s);
    EXPECT_EQ(kept.lastUsedDate, now.addDays(-3));
    EXPECT_EQ(kept.useCount, 12);
    EXPECT_EQ(kept.dateAdded, now.addDays(-300));
}

TEST(AppInfo, theIdAloneDecidesOnEqualityAndHash)
{
    const AppInfo first({.name = u"Ink"_s}, now);
    const AppInfo sameName({.name = u"Ink"_s}, now);
    const AppInfo sameId({.id = first.id, .name = u"Pencil"_s, .useCount = 7}, now);
    EXPECT_FALSE(first.id.isNull());
    EXPECT_NE(first, sameName);
    EXPECT_EQ(first, sameId);
    EXPECT_EQ(qHash(first), qHash(sameId));
    const QSet<AppInfo> set{first, sameName, sameId};
    EXPECT_EQ(set.size(), 2);
}

// Rule 1

TEST(AppInfo, addedAtMost29DaysAgoIsNew)
{
    expectVerdict({.added = 29, .used = 0, .uses = 500}, UsageCategory::new_,
                  u"Installed 29 days ago — too early to judge."_s);
    expectVerdict({.added = 30, .used = 0, .uses = 500}, UsageCategory::dailyDriver,
                  u"Used 500 times — last opened today."_s);
}

TEST(AppInfo, theDaysSinceItWasAddedHaveASingular)
{
    expectVerdict({.added = 1}, UsageCategory::new_, u"Installed 1 day ago — too early to judge."_s);
    expectVerdict({.added = 0}, UsageCategory::new_, u"Installed 0 days ago — too early to judge."_s);
    expectVerdict({.added = 2}, UsageCategory::new_, u"Installed 2 days ago — too early to judge."_s);
}

TEST(AppInfo, addedInTheFutureIsNewWithTheNegativeCount)
{
    expectVerdict({.added = -1, .uses = 5}, UsageCategory::new_,
                  u"Installed -1 days ago — too early to judge."_s);
    expectVerdict({.added = -40, .uses = 5}, UsageCategory::new_,
                  u"Installed -40 days ago — too early to judge."_s);
}

TEST(AppInfo, aRestoredApplicationIsNewThoughItsLastUseIsLongAgo)
{
    expectVerdict({.added = 10, .used = 200, .uses = 80}, UsageCategory::new_,
                  u"Installed 10 days ago — too early to judge."_s);
}

TEST(AppInfo, daysAreWholeAndCutTowardsZero)
{
    const auto added = [](qint64 milliseconds) {
        return AppInfo({.dateAdded = now.addMSecs(-milliseconds)}, now).usageDescription;
    };
    EXPECT_EQ(added(30 * day - 1), u"Installed 29 days ago — too early to judge."_s);
    EXPECT_EQ(added(30 * day), u"Never opened."_s);
    EXPECT_EQ(added(day - 1), u"Installed 0 days ago — too early to judge."_s);
    EXPECT_EQ(added(1 - day), u"Installed 0 days ago — too early to judge."_s);
    EXPECT_EQ(added(-day), u"Installed -1 days ago — too early to judge."_s);
}

// Rule 2

TEST(AppInfo, added30DaysAgoAndNeverUsedIsForgotten)
{
    expectVerdict({.added = 30}, UsageCategory::forgotten, u"Never opened."_s);
}

TEST(AppInfo, withNothingKnownItIsForgottenNotUnknown)
{
    expectVerdict({}, UsageCategory::forgotten, u"Never opened."_s);
}

TEST(AppInfo, aLastUseWithoutACountIsIgnored)
{
    expectVerdict({.added = 100, .used = 2}, UsageCategory::forgotten, u"Never opened."_s);
}

// Rule 3

TEST(AppInfo, openedOnceOrTwiceIsForgotten)
{
    expectVerdict({.added = 100, .used = 50, .uses = 1}, UsageCategory::forgotten,
                  u"Opened only once, last 50 days ago."_s);
    expectVerdict({.added = 100, .used = 1, .uses = 2}, UsageCategory::forgotten,
                  u"Opened only twice, last 1 day ago."_s);
    expectVerdict({.added = 100, .used = 1, .uses = 3}, UsageCategory::dailyDriver,
                  u"Used 3 times — last opened 1 day ago."_s);
}

TEST(AppInfo, openedOnceWithoutADateWasAWhileAgo)
{
    expectVerdict({.added = 100, .uses = 1}, UsageCategory::forgotten,
                  u"Opened only once, last a while ago."_s);
    expectVerdict({.uses = 2}, UsageCategory::forgotten, u"Opened only twice, last a while ago."_s);
}

TEST(AppInfo, openedTwiceTodaySaysZeroDays)
{
    expectVerdict({.added = 100, .used = 0, .uses = 2}, UsageCategory::forgotten,
                  u"Opened only twice, last 0 days ago."_s);
    expectVerdict({.added = 100, .used = -3, .uses = 1}, UsageCategory::forgotten,
                  u"Opened only once, last -3 days ago."_s);
}

TEST(AppInfo, aNegativeCountReadsTwice)
{
    expectVerdict({.added = 100, .used = 5, .uses = -1}, UsageCategory::forgotten,
                  u"Opened only twice, last 5 days ago."_s);
    expectVerdict({.uses = std::numeric_limits<qint64>::min()}, UsageCategory::forgotten,
                  u"Opened only twice, last a while ago."_s);
}

// Rule 4

TEST(AppInfo, usesWithoutADateAreUnknownFromTheThirdOn)
{
    expectVerdict({.added = 100, .uses = 3}, UsageCategory::unknown,
                  u"Opened 3 times — usage timing unknown."_s);
    expectVerdict({.uses = 1234567}, UsageCategory::unknown,
                  u"Opened 1234567 times — usage timing unknown."_s);
}

// Rule 5

TEST(AppInfo, used13DaysAgoIsADailyDriverUsed14DaysAgoIsNot)
{
    expectVerdict({.added = 400, .used = 13, .uses = 3}, UsageCategory::dailyDriver,
                  u"Used 3 times — last opened 13 days ago."_s);
    expectVerdict({.added = 400, .used = 14, .uses = 3}, UsageCategory::occasional,
                  u"Opened 3 times. Last used 14 days ago."_s);
}

TEST(AppInfo, aDailyDriverUsedTodaySaysSo)
{
    expectVerdict({.added = 400, .used = 0, .uses = 900}, UsageCategory::dailyDriver,
                  u"Used 900 times — last opened today."_s);
}

TEST(AppInfo, aLastUseInTheFutureIsADailyDriver)
{
    expectVerdict({.added = 400, .used = -2, .uses = 9}, UsageCategory::dailyDriver,
                  u"Used 9 times — last opened -2 days ago."_s);
}

// Rule 6

TEST(AppInfo, heavyUseThatEnded61DaysAgoIsSeasonal)
{
    // 300 days are 10 months, 40 uses exactly 4 a month.
    expectVerdict({.added = 300, .used = 61, .uses = 40}, UsageCategory::seasonal,
                  u"Used heavily before (40 times, ~4/mo). Dormant for 2 months."_s);
    expectVerdict({.added = 300, .used = 61, .uses = 39}, UsageCategory::occasional,
                  u"Opened 39 times total. Last used 61 days ago."_s);
}

TEST(AppInfo, used60DaysAgoIsOccasionalHoweverHeavyTheUse)
{
    expectVerdict({.added = 300, .used = 60, .uses = 40}, UsageCategory::occasional,
                  u"Opened 40 times total. Last used 60 days ago."_s);
    expectVerdict({.added = 300, .used = 60, .uses = 1'000'000}, UsageCategory::occasional,
                  u"Opened 1000000 times total. Last used 60 days ago."_s);
}

TEST(AppInfo, theUsesPerMonthAreRoundedWithHalvesUp)
{
    expectVerdict({.added = 300, .used = 120, .uses = 45}, UsageCategory::seasonal,
                  u"Used heavily before (45 times, ~5/mo). Dormant for 4 months."_s);
    expectVerdict({.added = 300, .used = 119, .uses = 44}, UsageCategory::seasonal,
                  u"Used heavily before (44 times, ~4/mo). Dormant for 3 months."_s);
}

TEST(AppInfo, theLargestCountIsWrittenWhole)
{
    expectVerdict({.added = 30, .used = 91, .uses = std::numeric_limits<qint64>::max()},
                  UsageCategory::seasonal,
                  u"Used heavily before (9223372036854775807 times, ~9223372036854775808/mo). "
                  "Dormant for 3 months."_s);
}

// Rule 7

TEST(AppInfo, regularUseThatEnded91DaysAgoIsSeasonal)
{
    // 39 uses in 10 months are 3.9 a month.
    expectVerdict({.added = 300, .used = 90, .uses = 39}, UsageCategory::occasional,
                  u"Opened 39 times total. Last used 90 days ago."_s);
    expectVerdict({.added = 300, .used = 91, .uses = 39}, UsageCategory::seasonal,
                  u"Used regularly (39 times total). Dormant for 3 months."_s);
}

TEST(AppInfo, oneAndAHalfUsesAMonthAreRegular)
{
    expectVerdict({.added = 300, .used = 91, .uses = 15}, UsageCategory::seasonal,
                  u"Used regularly (15 times total). Dormant for 3 months."_s);
}

// Rule 8

TEST(AppInfo, lessThanOneAndAHalfUsesAMonthAreForgotten)
{
    // 149 uses in 100 months are 1.49 a month.
    expectVerdict({.added = 3000, .used = 91, .uses = 149}, UsageCategory::forgotten,
                  u"Opened 149 times in 100 months. Last used 3 months ago."_s);
    expectVerdict({.added = 3000, .used = 91, .uses = 150}, UsageCategory::seasonal,
                  u"Used regularly (150 times total). Dormant for 3 months."_s);
}

TEST(AppInfo, withoutADateAddedTheMonthsAre333)
{
    expectVerdict({.used = 400, .uses = 20}, UsageCategory::forgotten,
                  u"Opened 20 times in 333 months. Last used 13 months ago."_s);
    expectVerdict({.used = 91, .uses = 499}, UsageCategory::forgotten,
                  u"Opened 499 times in 333 months. Last used 3 months ago."_s);
    expectVerdict({.used = 91, .uses = 500}, UsageCategory::seasonal,
                  u"Used regularly (500 times total). Dormant for 3 months."_s);
}

// In less than two months three uses are more than one and a half a month, so that the singular of
// the sentence above is never seen.
TEST(AppInfo, threeUsesAreRegularUpToTwoMonthsAndForgottenAfterThat)
{
    expectVerdict({.added = 59, .used = 91, .uses = 3}, UsageCategory::seasonal,
                  u"Used regularly (3 times total). Dormant for 3 months."_s);
    expectVerdict({.added = 60, .used = 91, .uses = 3}, UsageCategory::seasonal,
                  u"Used regularly (3 times total). Dormant for 3 months."_s);
    expectVerdict({.added = 61, .used = 91, .uses = 3}, UsageCategory::forgotten,
                  u"Opened 3 times in 2 months. Last used 3 months ago."_s);
}

TEST(AppInfo, theMonthsInstalledAreRoundedWithHalvesUp)
{
    expectVerdict({.added = 74, .used = 91, .uses = 3}, UsageCategory::forgotten,
                  u"Opened 3 times in 2 months. Last used 3 months ago."_s);
    expectVerdict({.added = 75, .used = 91, .uses = 3}, UsageCategory::forgotten,
                  u"Opened 3 times in 3 months. Last used 3 months ago."_s);
}

// Rules 9 and 10

TEST(AppInfo, used30DaysAgoHasNoTotalUsed31DaysAgoHas)
{
    expectVerdict({.added = 400, .used = 30, .uses = 6}, UsageCategory::occasional,
                  u"Opened 6 times. Last used 30 days ago."_s);
    expectVerdict({.added = 400, .used = 31, .uses = 6}, UsageCategory::occasional,
                  u"Opened 6 times total. Last used 31 days ago."_s);
}

// Texts

TEST(AppInfo, lastUsedIsGivenInDays)
{
    EXPECT_EQ(lastUsed(0), u"Today"_s);
    EXPECT_EQ(lastUsed(day - 1), u"Today"_s);
    EXPECT_EQ(lastUsed(1 - day), u"Today"_s);
    EXPECT_EQ(lastUsed(day), u"Yesterday"_s);
    EXPECT_EQ(lastUsed(2 * day - 1), u"Yesterday"_s);
    EXPECT_EQ(lastUsed(2 * day), u"2 days ago"_s);
    EXPECT_EQ(lastUsed(29 * day), u"29 days ago"_s);
}

TEST(AppInfo, lastUsedInTheFutureIsANegativeNumberOfDays)
{
    EXPECT_EQ(lastUsed(-day), u"-1 days ago"_s);
    EXPECT_EQ(lastUsed(-400 * day), u"-400 days ago"_s);
}

TEST(AppInfo, lastUsedIsGivenInMonthsFrom30DaysOn)
{
    EXPECT_EQ(lastUsed(30 * day), u"1 month ago"_s);
    EXPECT_EQ(lastUsed(59 * day), u"1 month ago"_s);
    EXPECT_EQ(lastUsed(60 * day), u"2 months ago"_s);
    EXPECT_EQ(lastUsed(364 * day), u"12 months ago"_s);
}

TEST(AppInfo, lastUsedIsGivenInYearsFrom365DaysOn)
{
    EXPECT_EQ(lastUsed(365 * day), u"1 year ago"_s);
    EXPECT_EQ(lastUsed(729 * day), u"1 year ago"_s);
    EXPECT_EQ(lastUsed(730 * day), u"2 years ago"_s);
    EXPECT_EQ(lastUsed(3650 * day), u"10 years ago"_s);
}

TEST(AppInfo, lastUsedIsNeverWithoutADate)
{
    EXPECT_EQ(app({.uses = 7}).lastUsedFormatted(now), u"Never"_s);
}

TEST(AppInfo, installedIsTheDayInTheUsersLocaleAndTimeZone)
{
    TestMac mac; // Berlin
    const AppInfo installed({.dateAdded = QDateTime(QDate(2026, 3, 1), QTime(23, 30), utcZone)}, now);
    EXPECT_EQ(installed.installedFormatted(), u"Mar 2, 2026"_s);
    mac.setLocale(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(installed.installedFormatted(), u"02.03.2026"_s);
}

TEST(AppInfo, installedIsUnknownWithoutADate)
{
    EXPECT_EQ(app({}).installedFormatted(), u"Unknown"_s);
}

} // namespace keelbright::testing

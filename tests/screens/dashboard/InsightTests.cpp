#include "Keelbright/screens/dashboard/Insight.h"

#include "KeelbrightCore/platform/text/UtcZone.h"
#include "tests/support/EnglishNumbers.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

const QDateTime now(QDate(2026, 3, 2), QTime(9, 5, 7), utcZone);
constexpr qint64 day = 86'400'000;

HealthScore scoreWithDisk(qint64 used, qint64 total)
{
    return {HealthScore::Grade::a, 90, u"Fine."_s, used, total, 412'600'000, 40, 25, 25};
}

Insight lastBackupAgo(qint64 milliseconds)
{
    return Insights::lastBackup(now.addMSecs(-milliseconds), true, now);
}

QList<AppInfo> appsOf(const QList<UsageCategory>& categories)
{
    QList<AppInfo> apps;
    for (const UsageCategory category : categories) {
        AppInfo app(AppFacts{.name = u"Some App"_s}, now);
        app.usageCategory = category;
        apps.append(app);
    }
    return apps;
}

} // namespace

TEST(Insights, storageShowsUsedAndTotal)
{
    const testing::EnglishNumbers english;
    const Insight insight = Insights::storage(scoreWithDisk(312'400'000'000, 494'380'000'000));
    EXPECT_EQ(insight.title, u"Storage"_s);
    EXPECT_EQ(insight.value, u"312.4 GB used"_s);
    EXPECT_EQ(insight.subtitle, u"of 494.38 GB total"_s);
    EXPECT_EQ(insight.icon, u"internaldrive.fill"_s);
    EXPECT_EQ(insight.color, Role::accent);
    EXPECT_EQ(insight.screen, Screen::storageBrowser);
}

TEST(Insights, storageIsScanningWithoutAScore)
{
    const Insight insight = Insights::storage(std::nullopt);
    EXPECT_EQ(insight.value, u"—"_s);
    EXPECT_EQ(insight.subtitle, u"Scanning…"_s);
    EXPECT_EQ(insight.color, Role::accent);
}

TEST(Insights, storageIsRedOnlyAboveEightyFivePercent)
{
    EXPECT_EQ(Insights::storage(scoreWithDisk(850'001, 1'000'000)).color, Role::red);
    EXPECT_EQ(Insights::storage(scoreWithDisk(850'000, 1'000'000)).color, Role::orange);
    EXPECT_EQ(Insights::storage(scoreWithDisk(849'999, 1'000'000)).color, Role::orange);
}

TEST(Insights, storageIsOrangeOnlyAboveSeventyPercent)
{
    EXPECT_EQ(Insights::storage(scoreWithDisk(700'001, 1'000'000)).color, Role::orange);
    EXPECT_EQ(Insights::storage(scoreWithDisk(700'000, 1'000'000)).color, Role::accent);
    EXPECT_EQ(Insights::storage(scoreWithDisk(699'999, 1'000'000)).color, Role::accent);
}

TEST(Insights, storageOfUnknownSizeIsInTheAccentColor)
{
    const Insight insight = Insights::storage(scoreWithDisk(0, 0));
    EXPECT_EQ(insight.color, Role::accent);
    EXPECT_EQ(insight.value, u"Zero KB used"_s);
    EXPECT_EQ(insight.subtitle, u"of Zero KB total"_s);
}

TEST(Insights, lastBackupIsNeverAndRedWithoutADate)
{
    const Insight insight = Insights::lastBackup(std::nullopt, false, now);
    EXPECT_EQ(insight.title, u"Last Backup"_s);
    EXPECT_EQ(insight.value, u"Never"_s);
    EXPECT_EQ(insight.subtitle, u"No backup yet"_s);
    EXPECT_EQ(insight.icon, u"arrow.clockwise.circle.fill"_s);
    EXPECT_EQ(insight.color, Role::red);
    EXPECT_EQ(insight.screen, Screen::backupReport);
}

TEST(Insights, lastBackupOffersItsReport)
{
    EXPECT_EQ(Insights::lastBackup(now, true, now).subtitle, u"Tap to view report"_s);
    EXPECT_EQ(Insights::lastBackup(now, false, now).subtitle, u"No backup yet"_s);
}

TEST(Insights, lastBackupCountsWholeDaysElapsed)
{
    EXPECT_EQ(lastBackupAgo(0).value, u"Today"_s);
    EXPECT_EQ(lastBackupAgo(day - 1).value, u"Today"_s);
    EXPECT_EQ(lastBackupAgo(day).value, u"Yesterday"_s);
    EXPECT_EQ(lastBackupAgo(2 * day - 1).value, u"Yesterday"_s);
    EXPECT_EQ(lastBackupAgo(2 * day).value, u"2 days ago"_s);
    EXPECT_EQ(lastBackupAgo(400 * day).value, u"400 days ago"_s);
}

TEST(Insights, aLastBackupInTheFutureIsOfToday)
{
    EXPECT_EQ(lastBackupAgo(-day + 1).value, u"Today"_s);
    EXPECT_EQ(lastBackupAgo(-day + 1).color, Role::green);
}

TEST(Insights, lastBackupTurnsOrangeAtThreeDays)
{
    EXPECT_EQ(lastBackupAgo(3 * day - 1).color, Role::green);
    EXPECT_EQ(lastBackupAgo(3 * day - 1).value, u"2 days ago"_s);
    EXPECT_EQ(lastBackupAgo(3 * day).color, Role::orange);
    EXPECT_EQ(lastBackupAgo(3 * day).value, u"3 days ago"_s);
}

TEST(Insights, lastBackupTurnsRedAtSevenDays)
{
    EXPECT_EQ(lastBackupAgo(7 * day - 1).color, Role::orange);
    EXPECT_EQ(lastBackupAgo(7 * day - 1).value, u"6 days ago"_s);
    EXPECT_EQ(lastBackupAgo(7 * day).color, Role::red);
    EXPECT_EQ(lastBackupAgo(7 * day).value, u"7 days ago"_s);
}

TEST(Insights, junkShowsItsSize)
{
    const testing::EnglishNumbers english;
    const Insight insight = Insights::junk(scoreWithDisk(1, 2));
    EXPECT_EQ(insight.title, u"Junk"_s);
    EXPECT_EQ(insight.value, u"412.6 MB"_s);
    EXPECT_EQ(insight.subtitle, u"cached files found"_s);
    EXPECT_EQ(insight.icon, u"trash.fill"_s);
    EXPECT_EQ(insight.color, Role::orange);
    EXPECT_EQ(insight.screen, Screen::junkCleaner);
}

TEST(Insights, junkIsUnknownWithoutAScore)
{
    EXPECT_EQ(Insights::junk(std::nullopt).value, u"—"_s);
    EXPECT_EQ(Insights::junk(std::nullopt).subtitle, u"cached files found"_s);
}

TEST(Insights, appsAreCounted)
{
    const Insight insight =
        Insights::apps(appsOf({UsageCategory::dailyDriver, UsageCategory::unknown}), false);
    EXPECT_EQ(insight.title, u"Apps"_s);
    EXPECT_EQ(insight.value, u"2 apps"_s);
    EXPECT_EQ(insight.subtitle, u"No cleanup recommended"_s);
    EXPECT_EQ(insight.icon, u"app.badge.checkmark"_s);
    EXPECT_EQ(insight.color, Role::purple);
    EXPECT_EQ(insight.screen, Screen::appManager);
}

TEST(Insights, appsRarelyUsedAreSingularOnlyForOne)
{
    EXPECT_EQ(Insights::apps(appsOf({UsageCategory::forgotten, UsageCategory::seasonal}), false).subtitle,
              u"1 rarely used app found"_s);
    EXPECT_EQ(Insights::apps(appsOf({UsageCategory::forgotten, UsageCategory::forgotten}), false).subtitle,
              u"2 rarely used apps found"_s);
}

TEST(Insights, appsCanBeAnalysedWhileNoneAreKnown)
{
    EXPECT_EQ(Insights::apps({}, false).value, u"—"_s);
    EXPECT_EQ(Insights::apps({}, false).subtitle, u"Tap to analyse"_s);
}

TEST(Insights, aScanOfAppsIsShownEvenIfAppsAreKnown)
{
    for (const QList<AppInfo>& known : {QList<AppInfo>(), appsOf({UsageCategory::forgotten})}) {
        EXPECT_EQ(Insights::apps(known, true).value, u"Scanning…"_s);
        EXPECT_EQ(Insights::apps(known, true).subtitle, u"Analysing usage…"_s);
    }
}

} // namespace keelbright

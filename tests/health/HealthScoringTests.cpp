#include "KeelbrightCore/health/HealthScoring.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <gtest/gtest.h>
#include <limits>

namespace keelbright::testing {

using namespace Qt::StringLiterals;
using Grade = HealthScore::Grade;

namespace {

constexpr qint64 gibibyte = 1'073'741'824;
constexpr qint64 day = 86'400'000;
constexpr qint64 hour = 3'600'000;

class HealthScoringTest : public ::testing::Test
{
protected:
    /// A backup that long ago, in milliseconds.
    [[nodiscard]] QDateTime ago(qint64 milliseconds) const { return now.addMSecs(-milliseconds); }

    [[nodiscard]] int backupScore(qint64 millisecondsAgo) const
    {
        return HealthScoring::backupScore(ago(millisecondsAgo), now);
    }

    /// The sentence on a backup that long ago, of a machine with nothing else to mention.
    [[nodiscard]] QString backupText(qint64 millisecondsAgo) const
    {
        return HealthScoring::detailText(Grade::a, 0, ago(millisecondsAgo), 0, 0, now);
    }

    /// The text for junk and disk, without the sentence on the backup.
    [[nodiscard]] QString junkAndDiskText(qint64 junk, qint64 used, qint64 total) const
    {
        const QString text = HealthScoring::detailText(Grade::a, junk, std::nullopt, used, total, now);
        const QString backup = u"No backup on record."_s;
        EXPECT_TRUE(text.startsWith(backup));
        return text.mid(backup.size());
    }

    TestMac mac;
    QDateTime now = mac.clock()();
};

} // namespace

TEST_F(HealthScoringTest, withoutABackupThereAreNoPointsForIt)
{
    EXPECT_EQ(HealthScoring::backupScore(std::nullopt, now), 0);
}

TEST_F(HealthScoringTest, theBackupsPointsFallAtEachLimitOfDays)
{
    EXPECT_EQ(backupScore(0), 40);
    EXPECT_EQ(backupScore(1 * day - 1), 40);
    EXPECT_EQ(backupScore(1 * day), 35);
    EXPECT_EQ(backupScore(3 * day - 1), 35);
    EXPECT_EQ(backupScore(3 * day), 25);
    EXPECT_EQ(backupScore(7 * day - 1), 25);
    EXPECT_EQ(backupScore(7 * day), 15);
    EXPECT_EQ(backupScore(14 * day - 1), 15);
    EXPECT_EQ(backupScore(14 * day), 8);
    EXPECT_EQ(backupScore(30 * day - 1), 8);
    EXPECT_EQ(backupScore(30 * day), 0);
    EXPECT_EQ(backupScore(4'000 * day), 0);
}

TEST_F(HealthScoringTest, aBackupInTheFutureHasAllPoints)
{
    EXPECT_EQ(backupScore(-5 * day), 40);
}

TEST_F(HealthScoringTest, theDisksPointsFallAtEachLimitOfUse)
{
    EXPECT_EQ(HealthScoring::diskScore(0, 10'000), 30);
    EXPECT_EQ(HealthScoring::diskScore(4'999, 10'000), 30);
    EXPECT_EQ(HealthScoring::diskScore(5'000, 10'000), 24);
    EXPECT_EQ(HealthScoring::diskScore(6'499, 10'000), 24);
    EXPECT_EQ(HealthScoring::diskScore(6'500, 10'000), 18);
    EXPECT_EQ(HealthScoring::diskScore(7'499, 10'000), 18);
    EXPECT_EQ(HealthScoring::diskScore(7'500, 10'000), 10);
    EXPECT_EQ(HealthScoring::diskScore(8'499, 10'000), 10);
    EXPECT_EQ(HealthScoring::diskScore(8'500, 10'000), 4);
    EXPECT_EQ(HealthScoring::diskScore(9'199, 10'000), 4);
    EXPECT_EQ(HealthScoring::diskScore(9'200, 10'000), 0);
    EXPECT_EQ(HealthScoring::diskScore(10'000, 10'000), 0);
}

TEST_F(HealthScoringTest, theLimitsOfUseHoldForRealDisks)
{
    constexpr qint64 terabyte = 1'000'000'000'000;
    EXPECT_EQ(HealthScoring::diskScore(850'000'000'000 - 1'000, terabyte), 10);
    EXPECT_EQ(HealthScoring::diskScore(850'000'000'000, terabyte), 4);
}

TEST_F(HealthScoringTest, aDiskOfUnknownSizeScoresInTheMiddle)
{
    EXPECT_EQ(HealthScoring::diskScore(0, 0), 15);
    EXPECT_EQ(HealthScoring::diskScore(0, -1), 15);
    EXPECT_EQ(HealthScoring::diskScore(0, 1), 30);
}

TEST_F(HealthScoringTest, theJunksPointsFallAtEachLimit)
{
    EXPECT_EQ(HealthScoring::junkScore(0), 30);
    EXPECT_EQ(HealthScoring::junkScore(gibibyte / 4 - 1), 30);
    EXPECT_EQ(HealthScoring::junkScore(gibibyte / 4), 25);
    EXPECT_EQ(HealthScoring::junkScore(gibibyte / 2 - 1), 25);
    EXPECT_EQ(HealthScoring::junkScore(gibibyte / 2), 20);
    EXPECT_EQ(HealthScoring::junkScore(gibibyte - 1), 20);
    EXPECT_EQ(HealthScoring::junkScore(gibibyte), 14);
    EXPECT_EQ(HealthScoring::junkScore(2 * gibibyte - 1), 14);
    EXPECT_EQ(HealthScoring::junkScore(2 * gibibyte), 8);
    EXPECT_EQ(HealthScoring::junkScore(5 * gibibyte - 1), 8);
    EXPECT_EQ(HealthScoring::junkScore(5 * gibibyte), 3);
    EXPECT_EQ(HealthScoring::junkScore(10 * gibibyte - 1), 3);
    EXPECT_EQ(HealthScoring::junkScore(10 * gibibyte), 0);
    EXPECT_EQ(HealthScoring::junkScore(std::numeric_limits<qint64>::max()), 0);
}

TEST_F(HealthScoringTest, theGradeFallsAtEachLimitOfPoints)
{
    EXPECT_EQ(HealthScoring::gradeFor(100), Grade::a);
    EXPECT_EQ(HealthScoring::gradeFor(85), Grade::a);
    EXPECT_EQ(HealthScoring::gradeFor(84), Grade::b);
    EXPECT_EQ(HealthScoring::gradeFor(70), Grade::b);
    EXPECT_EQ(HealthScoring::gradeFor(69), Grade::c);
    EXPECT_EQ(HealthScoring::gradeFor(55), Grade::c);
    EXPECT_EQ(HealthScoring::gradeFor(54), Grade::d);
    EXPECT_EQ(HealthScoring::gradeFor(40), Grade::d);
    EXPECT_EQ(HealthScoring::gradeFor(39), Grade::f);
    EXPECT_EQ(HealthScoring::gradeFor(0), Grade::f);
}

TEST_F(HealthScoringTest, withoutABackupTheTextSaysSo)
{
    EXPECT_EQ(HealthScoring::detailText(Grade::a, 0, std::nullopt, 0, 0, now), u"No backup on record."_s);
}

TEST_F(HealthScoringTest, theTextGoesBySpansOfTwentyFourHours)
{
    EXPECT_EQ(backupText(0), u"Backed up today."_s);
    EXPECT_EQ(backupText(day - 1), u"Backed up today."_s);
    EXPECT_EQ(backupText(day), u"Backed up yesterday."_s);
    EXPECT_EQ(backupText(2 * day - 1), u"Backed up yesterday."_s);
    EXPECT_EQ(backupText(2 * day), u"Last backup 2 days ago."_s);
    EXPECT_EQ(backupText(7 * day - 1), u"Last backup 6 days ago."_s);
    EXPECT_EQ(backupText(7 * day), u"No backup in 7 days — consider backing up soon."_s);
    EXPECT_EQ(backupText(1'234 * day), u"No backup in 1234 days — consider backing up soon."_s);
}

TEST_F(HealthScoringTest, aBackupOfTwentyThreeHoursIsOfToday)
{
    EXPECT_EQ(backupScore(23 * hour), 40);
    EXPECT_EQ(backupText(23 * hour), u"Backed up today."_s);
}

TEST_F(HealthScoringTest, aBackupExactlyOneDayOldIsOfYesterday)
{
    EXPECT_EQ(backupScore(day), 35);
    EXPECT_EQ(backupText(day), u"Backed up yesterday."_s);
}

TEST_F(HealthScoringTest, aBackupExactlySevenDaysOldIsOverdue)
{
    EXPECT_EQ(backupScore(7 * day), 15);
    EXPECT_EQ(backupText(7 * day), u"No backup in 7 days — consider backing up soon."_s);
}

TEST_F(HealthScoringTest, aBackupMoreThanADayAheadHasAllPointsAndANegativeNumber)
{
    EXPECT_EQ(backupScore(-2 * day), 40);
    EXPECT_EQ(backupText(-2 * day), u"Last backup -2 days ago."_s);
    EXPECT_EQ(backupText(-day), u"Last backup -1 days ago."_s);
    EXPECT_EQ(backupText(-400 * day), u"Last backup -400 days ago."_s);
}

TEST_F(HealthScoringTest, aBackupLessThanADayAheadIsOfToday)
{
    EXPECT_EQ(backupText(1 - day), u"Backed up today."_s);
}

TEST_F(HealthScoringTest, junkIsMentionedFromATenthOfAGibibyte)
{
    constexpr qint64 lastUnmentioned = 107'374'182;       // 0.0999999998 GiB
    EXPECT_EQ(junkAndDiskText(107'266'808, 0, 0), u""_s); // 0.0999 GiB
    EXPECT_EQ(junkAndDiskText(lastUnmentioned, 0, 0), u""_s);
    EXPECT_EQ(junkAndDiskText(lastUnmentioned + 1, 0, 0), u" 107.4 MB of cached junk found."_s);
}

TEST_F(HealthScoringTest, aDiskIsMentionedFromEightyFiveWholePercent)
{
    EXPECT_EQ(junkAndDiskText(0, 8'499, 10'000), u""_s);
    EXPECT_EQ(junkAndDiskText(0, 8'500, 10'000), u" Disk is 85% full — freeing space is recommended."_s);
    EXPECT_EQ(junkAndDiskText(0, 8'599, 10'000), u" Disk is 85% full — freeing space is recommended."_s);
    EXPECT_EQ(junkAndDiskText(0, 10'000, 10'000), u" Disk is 100% full — freeing space is recommended."_s);
}

TEST_F(HealthScoringTest, aDiskOfUnknownSizeIsNotMentioned)
{
    EXPECT_EQ(junkAndDiskText(0, 10'000, 0), u""_s);
}

TEST_F(HealthScoringTest, theSentencesStandInTheOrderBackupJunkDisk)
{
    EXPECT_EQ(HealthScoring::detailText(Grade::f, 2'500'000'000, ago(3 * day), 93, 100, now),
              u"Last backup 3 days ago. 2.5 GB of cached junk found. "
              "Disk is 93% full — freeing space is recommended."_s);
}

TEST_F(HealthScoringTest, theGradePlaysNoPartInTheText)
{
    for (const Grade grade : HealthScore::allGrades())
        EXPECT_EQ(HealthScoring::detailText(grade, 0, ago(0), 1, 2, now), u"Backed up today."_s);
}

TEST_F(HealthScoringTest, withoutABackupAnEmptyDiskWithoutJunkScoresSixty)
{
    EXPECT_EQ(HealthScoring::score({.diskTotalBytes = 1'000, .diskFreeBytes = 1'000}, now),
              (HealthScore{.grade = Grade::c,
                           .points = 60,
                           .detail = u"No backup on record."_s,
                           .diskUsedBytes = 0,
                           .diskTotalBytes = 1'000,
                           .junkEstimateBytes = 0,
                           .backupPoints = 0,
                           .diskPoints = 30,
                           .junkPoints = 30}));
}

TEST_F(HealthScoringTest, theBestCaseScoresAHundred)
{
    const HealthScore score =
        HealthScoring::score({.diskTotalBytes = 1'000, .diskFreeBytes = 501, .lastBackup = now}, now);
    EXPECT_EQ(score.points, 100);
    EXPECT_EQ(score.grade, Grade::a);
    EXPECT_EQ(score.detail, u"Backed up today."_s);
}

TEST_F(HealthScoringTest, theWorstCaseScoresNothing)
{
    const HealthScore score =
        HealthScoring::score({.diskTotalBytes = 1'000, .diskFreeBytes = 0, .junkBytes = 10 * gibibyte}, now);
    EXPECT_EQ(score, (HealthScore{.grade = Grade::f,
                                  .points = 0,
                                  .detail = u"No backup on record. 10.74 GB of cached junk found. "
                                            "Disk is 100% full — freeing space is recommended."_s,
                                  .diskUsedBytes = 1'000,
                                  .diskTotalBytes = 1'000,
                                  .junkEstimateBytes = 10 * gibibyte,
                                  .backupPoints = 0,
                                  .diskPoints = 0,
                                  .junkPoints = 0}));
}

TEST_F(HealthScoringTest, moreFreeThanInAllIsAnEmptyDisk)
{
    const HealthScore score = HealthScoring::score({.diskTotalBytes = 1'000, .diskFreeBytes = 1'001}, now);
    EXPECT_EQ(score.diskUsedBytes, 0);
    EXPECT_EQ(score.diskTotalBytes, 1'000);
    EXPECT_EQ(score.diskUsedFraction(), 0.0);
    EXPECT_EQ(score.diskPoints, 30);
}

TEST_F(HealthScoringTest, withNothingKnownOfTheDiskItIsNeitherUsedNorMentioned)
{
    const HealthScore score = HealthScoring::score({.lastBackup = now}, now);
    EXPECT_EQ(score.diskUsedBytes, 0);
    EXPECT_EQ(score.diskTotalBytes, 0);
    EXPECT_EQ(score.diskPoints, 15);
    EXPECT_EQ(score.points, 85);
    EXPECT_EQ(score.grade, Grade::a);
    EXPECT_EQ(score.detail, u"Backed up today."_s);
}

} // namespace keelbright::testing

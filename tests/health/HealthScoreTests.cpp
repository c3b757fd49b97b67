#include "KeelbrightCore/health/HealthScore.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

HealthScore scoreOfDisk(qint64 used, qint64 total)
{
    return {.grade = HealthScore::Grade::c,
            .points = 60,
            .detail = u"No backup on record."_s,
            .diskUsedBytes = used,
            .diskTotalBytes = total,
            .junkEstimateBytes = 1'500'000,
            .backupPoints = 0,
            .diskPoints = 30,
            .junkPoints = 30};
}

} // namespace

TEST(HealthScoreTest, theGradesComeInOrderWithLetterAndHeadline)
{
    QStringList texts;
    for (const HealthScore::Grade grade : HealthScore::allGrades())
        texts.append(HealthScore::rawValue(grade) + u": "_s + HealthScore::headline(grade));
    EXPECT_EQ(texts, (QStringList{
                         u"A: Your Mac is in great shape."_s,
                         u"B: Your Mac is in good shape."_s,
                         u"C: Your Mac could use some attention."_s,
                         u"D: Your Mac needs a cleanup."_s,
                         u"F: Your Mac needs immediate attention."_s,
                     }));
}

TEST(HealthScoreTest, whatIsFreeIsTheTotalWithoutWhatIsUsed)
{
    EXPECT_EQ(scoreOfDisk(300, 1'000).diskFreeBytes(), 700);
}

TEST(HealthScoreTest, theUsedFractionIsUsedOverTotal)
{
    EXPECT_EQ(scoreOfDisk(250, 1'000).diskUsedFraction(), 0.25);
}

TEST(HealthScoreTest, theUsedFractionOfAnUnknownDiskIsZero)
{
    EXPECT_EQ(scoreOfDisk(0, 0).diskUsedFraction(), 0.0);
    EXPECT_EQ(scoreOfDisk(5, 0).diskUsedFraction(), 0.0);
    EXPECT_EQ(scoreOfDisk(5, -1).diskUsedFraction(), 0.0);
}

TEST(HealthScoreTest, sizesAreWrittenInTheFileStyle)
{
    const TestMac mac;
    const HealthScore score = scoreOfDisk(250'000'000'000, 1'000'000'000'000);
    EXPECT_EQ(score.diskUsedFormatted(), u"250 GB"_s);
    EXPECT_EQ(score.diskTotalFormatted(), u"1 TB"_s);
    EXPECT_EQ(score.diskFreeFormatted(), u"750 GB"_s);
    EXPECT_EQ(score.junkFormatted(), u"1.5 MB"_s);
}

} // namespace keelbright::testing

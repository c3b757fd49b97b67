#include "KeelbrightCore/backup/BackupProgress.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <gtest/gtest.h>

#include <limits>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

double fraction(qint64 copied, qint64 skipped, qint64 estimate)
{
    BackupProgress progress;
    progress.filesCopied = copied;
    progress.filesSkipped = skipped;
    progress.totalFilesEstimate = estimate;
    return progress.fractionCompleted();
}

} // namespace

TEST(BackupProgress, isEmptyAtFirst)
{
    const BackupProgress progress;
    EXPECT_TRUE(progress.currentFile.isEmpty());
    EXPECT_EQ(progress.filesCopied, 0);
    EXPECT_EQ(progress.filesSkipped, 0);
    EXPECT_EQ(progress.totalFilesEstimate, 0);
    EXPECT_EQ(progress.bytesCopied, 0);
    EXPECT_TRUE(progress.errors.isEmpty());
    EXPECT_EQ(progress.fractionCompleted(), 0.0);
}

TEST(BackupProgress, withoutAnEstimateTheFractionIsZero)
{
    EXPECT_EQ(fraction(5, 5, 0), 0.0);
    EXPECT_EQ(fraction(5, 5, -1), 0.0);
}

TEST(BackupProgress, copiedAndSkippedCountAlike)
{
    EXPECT_EQ(fraction(1, 0, 4), 0.25);
    EXPECT_EQ(fraction(1, 2, 4), 0.75);
    EXPECT_EQ(fraction(4, 0, 4), 1.0);
}

TEST(BackupProgress, moreThanTheEstimateIsExactlyOne)
{
    EXPECT_EQ(fraction(4, 1, 4), 1.0);
    EXPECT_EQ(fraction(std::numeric_limits<qint64>::max(), std::numeric_limits<qint64>::max(), 1), 1.0);
}

TEST(BackupProgress, copiedSizeIsFormattedForPeople)
{
    const TestMac mac;
    BackupProgress progress;
    EXPECT_EQ(progress.copiedSizeFormatted(), u"Zero KB"_s);
    progress.bytesCopied = 2'500'000;
    EXPECT_EQ(progress.copiedSizeFormatted(), u"2.5 MB"_s);
}

} // namespace keelbright::testing

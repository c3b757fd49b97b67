#include "KeelbrightCore/check/CheckProgress.h"

#include <gtest/gtest.h>

namespace keelbright {

TEST(CheckProgressTests, beginsWithCountingAndNothing)
{
    const CheckProgress progress;
    const CheckProgressValues values = progress.values();
    EXPECT_EQ(values.phase, CheckProgressValues::Phase::counting);
    EXPECT_EQ(values.files, 0);
    EXPECT_EQ(values.fraction(), 0);
    EXPECT_TRUE(values.currentFile.isEmpty());
}

TEST(CheckProgressTests, givesWhatWasWritten)
{
    CheckProgress progress;
    progress.setTotal(3, 400);
    progress.setPhase(CheckProgressValues::Phase::reading);
    progress.beginFile("a.txt");
    progress.addBytes(100);
    progress.endFile();
    progress.beginFile("b.txt");
    progress.addFault();
    const CheckProgressValues values = progress.values();
    EXPECT_EQ(values.phase, CheckProgressValues::Phase::reading);
    EXPECT_EQ(values.files, 3);
    EXPECT_EQ(values.bytes, 400);
    EXPECT_EQ(values.checkedFiles, 1);
    EXPECT_EQ(values.readBytes, 100);
    EXPECT_EQ(values.faults, 1);
    EXPECT_EQ(values.currentFile, "b.txt");
    EXPECT_EQ(values.fraction(), 0.25);
}

TEST(CheckProgressTests, goesByFilesWhereNoneHasBytesAndNeverPastTheEnd)
{
    CheckProgress progress;
    progress.setTotal(2, 0);
    progress.endFile();
    EXPECT_EQ(progress.values().fraction(), 0.5);
    progress.setTotal(2, 10);
    progress.addBytes(20);
    EXPECT_EQ(progress.values().fraction(), 1);
}

} // namespace keelbright

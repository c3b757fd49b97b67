#include "KeelbrightCore/check/ChecksumSpool.h"

#include "tests/support/EngineRun.h"
#include "tests/support/TestMac.h"

#include <gtest/gtest.h>

namespace keelbright {

TEST(ChecksumSpoolTests, givesBackWhatWasAddedAsOftenAsItIsAsked)
{
    const testing::TestMac mac;
    const auto spool = ChecksumSpool::create();
    ASSERT_NE(spool, nullptr);
    QByteArray expected;
    for (int i = 0; i < 10'000; ++i) {
        const ChecksumLine line{QByteArray(32, 'x'), "file " + QByteArray::number(i)};
        spool->add(line);
        expected += line.text();
    }
    EXPECT_EQ(spool->count(), 10'000);
    for (int round = 0; round < 2; ++round) {
        QByteArray list;
        spool->rewind();
        for (QByteArray piece = spool->nextPiece(); !piece.isEmpty(); piece = spool->nextPiece())
            list += piece;
        EXPECT_EQ(list, expected);
        EXPECT_TRUE(spool->isWhole());
    }
}

TEST(ChecksumSpoolTests, leavesNothingBehind)
{
    const testing::TestMac mac;
    {
        const auto spool = ChecksumSpool::create();
        ASSERT_NE(spool, nullptr);
        spool->add({QByteArray(32, 'x'), "file"});
    }
    const FileURL folder =
        FileManager::defaultManager().applicationSupportDirectory().appending(QStringLiteral("Keelbright"));
    EXPECT_TRUE(testing::EngineRun::everythingBelow(folder).isEmpty());
}

} // namespace keelbright

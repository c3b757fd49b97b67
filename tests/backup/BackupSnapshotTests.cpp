#include "KeelbrightCore/backup/BackupSnapshot.h"
#include "KeelbrightCore/platform/text/UtcZone.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

const BackupSnapshot snapshot{QUuid(), QDateTime(QDate(2026, 3, 1), QTime(23, 30), utcZone),
                              FileURL::fromPath(u"/Volumes/Anchor/Snapshots/2026-03-01"_s)};

} // namespace

TEST(BackupSnapshot, labelIsTheLocalDateAndTime)
{
    TestMac mac;
    EXPECT_EQ(snapshot.label(), u"Mar 2, 2026, 12:30\u202fAM"_s);
    mac.setTimeZone("America/New_York");
    EXPECT_EQ(snapshot.label(), u"Mar 1, 2026, 6:30\u202fPM"_s);
}

TEST(BackupSnapshot, labelChangesWithTheLocale)
{
    TestMac mac;
    mac.setLocale(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(snapshot.label(), u"02.03.2026, 00:30"_s);
}

} // namespace keelbright::testing

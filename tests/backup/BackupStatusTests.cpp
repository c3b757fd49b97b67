#include "KeelbrightCore/backup/BackupStatus.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

QStringList rawValues()
{
    QStringList texts;
    for (const BackupStatus status : allBackupStatuses())
        texts.append(rawValue(status));
    return texts;
}

const QStringList expectedRawValues{u"Idle"_s, u"Backing Up..."_s, u"Completed"_s, u"Failed"_s,
                                    u"Action Required"_s};

} // namespace

TEST(BackupStatus, rawTextsComeInTheirOrder)
{
    EXPECT_EQ(rawValues(), expectedRawValues);
}

TEST(BackupStatus, rawTextsNeverChangeWithTheLocale)
{
    TestMac mac;
    mac.setLocale(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(rawValues(), expectedRawValues);
}

TEST(BackupStatus, comesBackFromItsRawText)
{
    for (const BackupStatus status : allBackupStatuses())
        EXPECT_EQ(backupStatusFromRawValue(rawValue(status)), status);
    EXPECT_FALSE(backupStatusFromRawValue(u"idle"_s).has_value());
    EXPECT_FALSE(backupStatusFromRawValue(QString()).has_value());
}

TEST(BackupStatus, eachHasItsIcon)
{
    EXPECT_EQ(icon(BackupStatus::idle), u"checkmark.circle.fill"_s);
    EXPECT_EQ(icon(BackupStatus::backingUp), u"arrow.clockwise.circle.fill"_s);
    EXPECT_EQ(icon(BackupStatus::completed), u"checkmark.circle.fill"_s);
    EXPECT_EQ(icon(BackupStatus::failed), u"exclamationmark.circle.fill"_s);
    EXPECT_EQ(icon(BackupStatus::warning), u"exclamationmark.triangle.fill"_s);
}

} // namespace keelbright::testing

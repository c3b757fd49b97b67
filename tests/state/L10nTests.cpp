#include "Keelbright/state/L10n.h"
#include "KeelbrightCore/platform/text/UtcZone.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

TEST(L10n, theDashboardHasItsTexts)
{
    EXPECT_EQ(L10n::Dashboard::title(), u"Dashboard"_s);
    EXPECT_EQ(L10n::Dashboard::neverBackedUp(), u"Never Backed Up"_s);
    EXPECT_EQ(L10n::Dashboard::backingUp(), u"Backing Up..."_s);
    EXPECT_EQ(L10n::Dashboard::completed(), u"Backup Completed"_s);
    EXPECT_EQ(L10n::Dashboard::attentionNeeded(), u"Attention Needed"_s);
    EXPECT_EQ(L10n::Dashboard::overdue(), u"Overdue"_s);
    EXPECT_EQ(L10n::Dashboard::noDestination(), u"No Destination"_s);
    EXPECT_EQ(L10n::Dashboard::noFolders(), u"No Folders Selected"_s);
    EXPECT_EQ(L10n::Dashboard::ready(), u"Ready to Back Up"_s);
    EXPECT_EQ(L10n::Dashboard::nextBackup(), u"Next Backup"_s);
    EXPECT_EQ(L10n::Dashboard::manualOnly(), u"Manual Only"_s);
    EXPECT_EQ(L10n::Dashboard::latestBackup(), u"Latest Backup"_s);
    EXPECT_EQ(L10n::Dashboard::setupDestination(), u"Setup Destination"_s);
    EXPECT_EQ(L10n::Dashboard::selectItems(), u"Select Items"_s);
    EXPECT_EQ(L10n::Dashboard::runBackupNow(), u"Run Backup Now"_s);
}

TEST(L10n, thePreflightHasItsTexts)
{
    EXPECT_EQ(L10n::Preflight::title(), u"Preflight Check"_s);
    EXPECT_EQ(L10n::Preflight::analyzing(), u"Analyzing selected folders..."_s);
    EXPECT_EQ(L10n::Preflight::estimateTitle(), u"Backup Estimate"_s);
    EXPECT_EQ(L10n::Preflight::totalFiles(), u"Estimated Files:"_s);
    EXPECT_EQ(L10n::Preflight::totalSize(), u"Estimated Size:"_s);
    EXPECT_EQ(L10n::Preflight::destinationFree(), u"Destination Free Space:"_s);
    EXPECT_EQ(L10n::Preflight::warningTitle(), u"Warnings"_s);
    EXPECT_EQ(L10n::Preflight::errorTitle(), u"Errors"_s);
    EXPECT_EQ(L10n::Preflight::notEnoughSpace(), u"Not enough free space on the destination drive."_s);
    EXPECT_EQ(L10n::Preflight::confirmBackup(), u"Confirm & Start"_s);
    EXPECT_EQ(L10n::Preflight::cancel(), u"Cancel"_s);
    EXPECT_EQ(L10n::Preflight::resolveErrors(), u"Please resolve errors before continuing."_s);
}

TEST(L10n, aTextIsLookedUpOnce)
{
    EXPECT_EQ(&L10n::Dashboard::title(), &L10n::Dashboard::title());
    EXPECT_EQ(&L10n::Preflight::title(), &L10n::Preflight::title());
}

TEST(L10n, bytesAreInDecimalUnits)
{
    TestMac mac;
    EXPECT_EQ(L10n::Formatters::bytes(0), u"Zero KB"_s);
    EXPECT_EQ(L10n::Formatters::bytes(2'500'000), u"2.5 MB"_s);
    mac.setLocale(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(L10n::Formatters::bytes(2'500'000), u"2,5 MB"_s);
}

TEST(L10n, aDateHasItsMediumDayAndItsShortTime)
{
    TestMac mac;
    const QDateTime date(QDate(2026, 3, 1), QTime(23, 30), utcZone);
    EXPECT_EQ(L10n::Formatters::date(date), u"Mar 2, 2026, 12:30\u202fAM"_s);
    mac.setTimeZone("America/New_York");
    mac.setLocale(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(L10n::Formatters::date(date), u"01.03.2026, 18:30"_s);
}

} // namespace keelbright::testing

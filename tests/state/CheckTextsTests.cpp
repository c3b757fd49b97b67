#include "Keelbright/state/CheckTexts.h"

#include "tests/support/FakeCopyCheck.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;
using CheckTexts::details;
using CheckTexts::headline;

namespace {

/// In American English.
class CheckTextsTests : public ::testing::Test
{
protected:
    TestMac mac;
};

} // namespace

TEST_F(CheckTextsTests, aSoundDriveHasOneSentenceThatAPersonCanRelyOn)
{
    CheckReport report = sampleCheck(41'230);
    EXPECT_EQ(headline(report), u"All 41,230 copies on Anchor are readable and equal to their originals."_s);
    EXPECT_EQ(details(report), QStringList());
    EXPECT_EQ(headline(sampleCheck(1)), u"The only copy on Anchor is readable and equal to its original."_s);
    EXPECT_EQ(headline(sampleCheck(0)), u"There are no copies on Anchor yet."_s);
    report.isAgainstList = true;
    EXPECT_EQ(headline(report), u"All 41,230 copies on Anchor are readable and equal to their checksums."_s);
}

TEST_F(CheckTextsTests, changesAreNoFaults)
{
    CheckReport report = sampleCheck(1'000);
    report.add(CopyVerdict::same, -3);
    report.add(CopyVerdict::changedSince, 1);
    report.add(CopyVerdict::onlyOnDrive, 2);
    report.add(CopyVerdict::notBackedUp, 1'234);
    EXPECT_EQ(headline(report),
              u"All 1,000 copies on Anchor are readable, and 997 of them are equal to their originals."_s);
    EXPECT_EQ(details(report), QStringList({u"1 original has changed since it was copied."_s,
                                            u"2 copies have no original any more."_s,
                                            u"1,234 files are not backed up yet."_s}));
}

TEST_F(CheckTextsTests, whatHadNothingToBeComparedWithIsNotCalledSound)
{
    CheckReport report = sampleCheck(1'000);
    report.add(CopyVerdict::same, -999);
    report.add(CopyVerdict::onlyOnDrive, 999);
    EXPECT_EQ(headline(report),
              u"All 1,000 copies on Anchor are readable, and 1 of them is equal to its original."_s);
    report.add(CopyVerdict::same, -1);
    report.add(CopyVerdict::changedSince, 1);
    EXPECT_EQ(headline(report),
              u"All 1,000 copies on Anchor are readable, but none could be compared with an "
              "unchanged original."_s);
    CheckReport only = sampleCheck(1);
    only.add(CopyVerdict::same, -1);
    only.add(CopyVerdict::onlyOnDrive, 1);
    EXPECT_EQ(headline(only), u"The only copy on Anchor is readable."_s);
}

TEST_F(CheckTextsTests, aFolderThatCantBeReadIsNotCountedAsACopy)
{
    CheckReport report = sampleCheck(0);
    const auto addFolder = [&report] {
        report.add(CopyVerdict::unreadable);
        ++report.unreadableFolders;
    };
    addFolder();
    EXPECT_EQ(headline(report), u"1 folder of copies on Anchor can't be read."_s);
    addFolder();
    EXPECT_EQ(headline(report), u"2 folders of copies on Anchor can't be read."_s);
    report.checked = 1;
    report.add(CopyVerdict::differs);
    EXPECT_EQ(headline(report), u"1 copy on Anchor is damaged or can't be read. 2 folders of copies on "
                                "Anchor can't be read."_s);
    report.checked = 1'000;
    report.add(CopyVerdict::differs);
    EXPECT_EQ(headline(report), u"2 of 1,000 copies on Anchor are damaged or can't be read. 2 folders of "
                                "copies on Anchor can't be read."_s);
}

TEST_F(CheckTextsTests, faultsAreSaidWithWhatHelps)
{
    CheckReport report = sampleCheck(41'230);
    addDamaged(report, u"Pictures/a.jpg"_s);
    EXPECT_EQ(headline(report), u"1 of 41,230 copies on Anchor is damaged or can't be read."_s);
    addUnreadable(report, u"Pictures/b.jpg"_s);
    EXPECT_EQ(headline(report), u"2 of 41,230 copies on Anchor are damaged or can't be read."_s);
    EXPECT_EQ(details(report),
              QStringList(
                  {u"The next backup replaces damaged copies by new ones wherever there is an original."_s}));
    EXPECT_EQ(CheckTexts::place(report.findings.first(), report), u"Pictures/a.jpg"_s);
    EXPECT_EQ(CheckTexts::reason(report.findings.first()),
              u"It differs from its original, which has not changed since the backup."_s);
    EXPECT_EQ(CheckTexts::reason(report.findings.last()),
              u"“b.jpg” could not be read: the drive reported an error."_s);
    EXPECT_EQ(CheckTexts::listOf(report),
              u"/Volumes/Anchor/Keelbright/Mira/Latest/Personal Files/Pictures/a.jpg\tIt differs from its "
              "original, which has not changed since the backup.\n"
              "/Volumes/Anchor/Keelbright/Mira/Latest/Personal Files/Pictures/b.jpg\t“b.jpg” could not be "
              "read: the drive reported an error.\n"_s);
}

TEST_F(CheckTextsTests, theOnlyCopyCanBeTheDamagedOne)
{
    CheckReport report = sampleCheck(1);
    addDamaged(report, u"a"_s);
    EXPECT_EQ(headline(report), u"The only copy on Anchor is damaged or can't be read."_s);
}

TEST_F(CheckTextsTests, aCheckThatWasNotFinishedSaysHowFarItCame)
{
    CheckReport report = sampleCheck(1'234);
    report.copies = 41'230;
    report.end = CheckReport::End::cancelled;
    EXPECT_EQ(headline(report),
              u"The check of Anchor was cancelled after 1,234 of 41,230 copies. No fault was "
              "found until then."_s);
    addDamaged(report, u"a"_s);
    EXPECT_EQ(headline(report),
              u"The check of Anchor was cancelled after 1,234 of 41,230 copies. 1 of them is "
              "damaged or can't be read."_s);
    report.end = CheckReport::End::driveGone;
    EXPECT_EQ(headline(report),
              u"Anchor was removed after 1,234 of 41,230 copies had been checked. 1 of them "
              "is damaged or can't be read."_s);
}

TEST_F(CheckTextsTests, aCheckThatCouldNotBeginSaysWhy)
{
    CheckReport report;
    report.end = CheckReport::End::failed;
    report.error = FileError::fromCode(FileError::Operation::opened, u"Anchor"_s, ENOENT);
    EXPECT_EQ(headline(report),
              u"The copies can't be checked: “Anchor” could not be opened: it does not exist."_s);
    EXPECT_EQ(details(report), QStringList());
}

TEST_F(CheckTextsTests, saysWhereADriveCouldNotBeReadPastMemory)
{
    CheckReport report = sampleCheck(2);
    report.isFromDrive = false;
    EXPECT_EQ(details(report),
              QStringList({u"This drive can't be read past a computer's memory, so copies may have been read "
                           "from there."_s}));
}

TEST_F(CheckTextsTests, ofAListItSaysWhatTheListDoesNotKnow)
{
    CheckReport report = sampleCheck(4);
    report.isAgainstList = true;
    report.add(CopyVerdict::same, -1);
    report.add(CopyVerdict::changedSince, 1);
    report.add(CopyVerdict::onlyOnDrive, 5);
    report.unknownLines = 1;
    EXPECT_EQ(headline(report), u"3 of 9 copies on Anchor are readable and equal to their checksums."_s);
    EXPECT_EQ(details(report), QStringList({u"1 copy was written after the list, so it was only read."_s,
                                            u"5 copies are not in the list, so they were not read."_s,
                                            u"1 line of the list can't be understood."_s}));
}

TEST_F(CheckTextsTests, aListOfAPartOfTheCopiesProvesNoMore)
{
    CheckReport report = sampleCheck(2);
    report.isAgainstList = true;
    report.add(CopyVerdict::onlyOnDrive, 1);
    EXPECT_EQ(headline(report), u"2 of 3 copies on Anchor are readable and equal to their checksums."_s);
    report.add(CopyVerdict::same, -1);
    report.add(CopyVerdict::changedSince, 1);
    EXPECT_EQ(headline(report), u"1 of 3 copies on Anchor is readable and equal to its checksum."_s);
    report.add(CopyVerdict::same, -1);
    report.add(CopyVerdict::changedSince, 1);
    EXPECT_EQ(headline(report), u"None of the 3 copies on Anchor could be compared with its checksum."_s);
    CheckReport only = sampleCheck(1);
    only.isAgainstList = true;
    EXPECT_EQ(headline(only), u"The only copy on Anchor is readable and equal to its checksum."_s);
    only.add(CopyVerdict::same, -1);
    only.add(CopyVerdict::changedSince, 1);
    EXPECT_EQ(headline(only), u"The only copy on Anchor is readable."_s);
}

TEST_F(CheckTextsTests, namesTheDriveOfADevice)
{
    const auto nameOf = [](const QString& path) { return CheckTexts::driveName(FileURL::fromPath(path)); };
    EXPECT_EQ(nameOf(u"/Volumes/Backup Drive/Keelbright/Mira"_s), u"Backup Drive"_s);
    EXPECT_EQ(nameOf(u"/Volumes/Backup Drive/Keelbright"_s), u"Backup Drive"_s);
    EXPECT_EQ(nameOf(u"/Volumes/Backup Drive/Mira"_s), u"Backup Drive"_s);
}

} // namespace keelbright::testing

#include "tests/backup/PreflightServiceTest.h"
#include "tests/support/UnprivilegedUser.h"

namespace keelbright::testing {

using namespace Qt::StringLiterals;

TEST_F(PreflightServiceTest, withoutADestinationNothingElseIsLookedAt)
{
    const PreflightResult result = PreflightService::run({source("Users/mira/Gone")}, std::nullopt);
    EXPECT_EQ(result, (PreflightResult{0, 0, 0, {u"No destination selected."_s}, {}}));
    EXPECT_FALSE(result.canProceed());
}

TEST_F(PreflightServiceTest, aGoodSourceOnAGoodDestinationCanProceed)
{
    mac.writeFile("Users/mira/Desktop/a.txt", "12345");
    mac.writeFile("Users/mira/Desktop/build/b.txt", "12345");
    const PreflightResult result = run({source("Users/mira/Desktop")});
    EXPECT_EQ(result, (PreflightResult{1, 5, 500'000'000'000, {}, {}}));
    EXPECT_TRUE(result.canProceed());
}

TEST_F(PreflightServiceTest, anEmptyListOfSourcesIsTheOnlyError)
{
    EXPECT_EQ(run({}), (PreflightResult{0, 0, 500'000'000'000, {noValidSource}, {}}));
}

TEST_F(PreflightServiceTest, everyMissingSourceGivesAWarningAndThenThereIsNoValidOne)
{
    const PreflightResult result = run({source("Users/mira/Gone"), source("Users/mira/Lost & Found")});
    EXPECT_EQ(result.warnings,
              (QStringList{u"Source folder missing: Gone"_s, u"Source folder missing: Lost & Found"_s}));
    EXPECT_EQ(result.errors, QStringList{noValidSource});
    EXPECT_FALSE(result.canProceed());
}

TEST_F(PreflightServiceTest, aMissingSourceBesideAValidOneIsOnlyAWarning)
{
    mac.writeFile("Users/mira/Desktop/a.txt", "12345");
    const PreflightResult result = run({source("Users/mira/Gone"), source("Users/mira/Desktop")});
    EXPECT_EQ(result.warnings, QStringList{u"Source folder missing: Gone"_s});
    EXPECT_TRUE(result.canProceed());
    EXPECT_EQ(result.estimatedFileCount, 1);
    EXPECT_EQ(result.estimatedBytes, 5);
}

TEST_F(PreflightServiceTest, aDisabledSourceThatDoesNotExistGivesNoWarning)
{
    mac.makeFolder("Users/mira/Desktop");
    const PreflightResult result = run({source("Users/mira/Gone", false), source("Users/mira/Desktop")});
    EXPECT_EQ(result, (PreflightResult{0, 0, 500'000'000'000, {}, {}}));
}

TEST_F(PreflightServiceTest, disabledSourcesAloneAreNoValidSource)
{
    mac.makeFolder("Users/mira/Desktop");
    EXPECT_EQ(run({source("Users/mira/Desktop", false)}).errors, QStringList{noValidSource});
}

TEST_F(PreflightServiceTest, aLinkToNowhereIsAMissingSource)
{
    std::filesystem::create_symlink("/nowhere", standardPath(mac.home().appending(u"Door"_s)));
    EXPECT_EQ(run({source("Users/mira/Door")}).warnings, QStringList{u"Source folder missing: Door"_s});
}

TEST_F(PreflightServiceTest, anUnreadableSourceIsAWarning)
{
    const FileURL locked = mac.makeFolder("Users/mira/Locked");
    std::filesystem::permissions(standardPath(mac.root()), std::filesystem::perms(0755));
    std::filesystem::permissions(standardPath(locked), std::filesystem::perms(0));
    std::filesystem::permissions(standardPath(destination), std::filesystem::perms(0777));
    const UnprivilegedUser user;
    const PreflightResult result = run({source("Users/mira/Locked")});
    EXPECT_EQ(result.warnings, QStringList{u"Source folder not readable: Locked"_s});
    EXPECT_EQ(result.errors, QStringList{noValidSource});
}

TEST_F(PreflightServiceTest, aMissingDestinationIsAnErrorBesideTheEstimate)
{
    mac.writeFile("Users/mira/Desktop/a.txt", "12345");
    destination = mac.root().appending(u"Volumes/Gone"_s);
    const PreflightResult result = run({source("Users/mira/Desktop")});
    EXPECT_EQ(result.errors, QStringList{u"Destination folder does not exist or is not a directory."_s});
    EXPECT_EQ(result.estimatedFileCount, 1);
    EXPECT_EQ(result.estimatedBytes, 5);
}

TEST_F(PreflightServiceTest, onAMissingDestinationTheRealFreeSpaceIsUnknown)
{
    mac.makeFolder("Users/mira/Desktop");
    destination = mac.root().appending(u"Volumes/Gone"_s);
    const FileManagerGuard real(mac.fileManager());
    const PreflightResult result = run({source("Users/mira/Desktop")});
    EXPECT_EQ(result.errors, QStringList{u"Destination folder does not exist or is not a directory."_s});
    EXPECT_EQ(result.warnings, QStringList{u"Could not determine free space on destination."_s});
    EXPECT_EQ(result.destinationFreeSpace, 0);
}

TEST_F(PreflightServiceTest, theRealFreeSpaceOfTheDestinationIsMeasured)
{
    mac.makeFolder("Users/mira/Desktop");
    const FileManagerGuard real(mac.fileManager());
    const PreflightResult result = run({source("Users/mira/Desktop")});
    EXPECT_GT(result.destinationFreeSpace, 0);
    EXPECT_EQ(result.warnings, QStringList());
}

TEST_F(PreflightServiceTest, aDestinationThatIsAFileIsAnError)
{
    mac.makeFolder("Users/mira/Desktop");
    destination = mac.writeFile("Volumes/file", "");
    EXPECT_EQ(run({source("Users/mira/Desktop")}).errors,
              QStringList{u"Destination folder does not exist or is not a directory."_s});
}

TEST_F(PreflightServiceTest, aDestinationThatCantBeWrittenIsAnErrorBesideTheEstimate)
{
    mac.writeFile("Users/mira/Desktop/a.txt", "12345");
    std::filesystem::permissions(standardPath(mac.root()), std::filesystem::perms(0755));
    std::filesystem::permissions(standardPath(destination), std::filesystem::perms(0555));
    const UnprivilegedUser user;
    const PreflightResult result = run({source("Users/mira/Desktop")});
    EXPECT_EQ(result.errors, QStringList{u"Destination folder is not writable."_s});
    EXPECT_EQ(result.estimatedFileCount, 1);
}

TEST_F(PreflightServiceTest, theRootIsDangerousAndNeverReachesThePrefixTests)
{
    const PreflightResult result = run({source("")});
    EXPECT_EQ(result.errors,
              (QStringList{u"Dangerous system folder selected: "_s + mac.root().path(), noValidSource}));
}

TEST_F(PreflightServiceTest, theSystemFoldersAreDangerous)
{
    const FileURL system = mac.makeFolder("System");
    const FileURL library = mac.makeFolder("Library");
    const PreflightResult result = run({source("System"), source("Library")});
    EXPECT_EQ(result.errors,
              (QStringList{u"Dangerous system folder selected: "_s + system.path(),
                           u"Dangerous system folder selected: "_s + library.path(), noValidSource}));
}

TEST_F(PreflightServiceTest, aFolderBelowASystemFolderIsNotDangerous)
{
    mac.makeFolder("Library/Fonts");
    mac.makeFolder("Users/mira/Library");
    EXPECT_TRUE(run({source("Library/Fonts"), source("Users/mira/Library")}).canProceed());
}

TEST_F(PreflightServiceTest, aDestinationInsideASourceIsRefused)
{
    destination = mac.makeFolder("Users/mira/Desktop/Backups");
    EXPECT_EQ(run({source("Users/mira/Desktop")}).errors,
              (QStringList{u"Destination is inside source folder Desktop, causing an infinite loop."_s,
                           noValidSource}));
}

TEST_F(PreflightServiceTest, aDestinationThatIsTheSourceCountsAsInside)
{
    destination = mac.makeFolder("Users/mira/Desktop");
    EXPECT_EQ(run({source("Users/mira/Desktop")}).errors,
              (QStringList{u"Destination is inside source folder Desktop, causing an infinite loop."_s,
                           noValidSource}));
}

TEST_F(PreflightServiceTest, aDestinationThatOnlySharesATextPrefixIsRefusedToo)
{
    mac.makeFolder("Users/mira/Doc");
    destination = mac.makeFolder("Users/mira/Documents");
    EXPECT_EQ(run({source("Users/mira/Doc")}).errors,
              (QStringList{u"Destination is inside source folder Doc, causing an infinite loop."_s,
                           noValidSource}));
}

TEST_F(PreflightServiceTest, aSourceInsideTheDestinationIsRefused)
{
    mac.makeFolder("Volumes/Anchor/Photos");
    EXPECT_EQ(run({source("Volumes/Anchor/Photos")}).errors,
              (QStringList{u"Source folder Photos is already inside the destination."_s, noValidSource}));
}

TEST_F(PreflightServiceTest, aSourceThatOnlySharesTheDestinationsTextPrefixIsRefusedToo)
{
    mac.makeFolder("Volumes/Anchorage");
    EXPECT_EQ(run({source("Volumes/Anchorage")}).errors,
              (QStringList{u"Source folder Anchorage is already inside the destination."_s, noValidSource}));
}

TEST_F(PreflightServiceTest, prefixesCompareByteForByte)
{
    // Shown as texts both bytes look alike.
    destination = mac.makeFolder("Users/mira/\xe9");
    mac.makeFolder("Users/mira/\xe8");
    EXPECT_EQ(run({source("Users/mira/\xe8")}).errors, QStringList());
}

TEST_F(PreflightServiceTest, aRefusedSourceBesideAValidOneStillBlocks)
{
    mac.writeFile("Users/mira/Desktop/a.txt", "12345");
    mac.makeFolder("System");
    const PreflightResult result = run({source("System"), source("Users/mira/Desktop")});
    EXPECT_EQ(result.errors.size(), 1);
    EXPECT_FALSE(result.canProceed());
    EXPECT_EQ(result.estimatedFileCount, 1);
}

TEST_F(PreflightServiceTest, aNameThatLooksLikeAPlaceholderStandsAsItIs)
{
    EXPECT_EQ(run({source("Users/mira/%1 %2")}).warnings, QStringList{u"Source folder missing: %1 %2"_s});
}

TEST_F(PreflightServiceTest, aSmallBackupNeedsABillionBytesMoreThanItsSize)
{
    drive.freeBytes = 900'000'000;
    const QList sources{sourceOfSize("Users/mira/Desktop", 100)};
    EXPECT_EQ(run(sources).errors, QStringList{u"Not enough space. Required: ~1 GB, Available: 900 MB."_s});
    drive.freeBytes = 1'000'000'099;
    EXPECT_EQ(run(sources).errors, QStringList{u"Not enough space. Required: ~1 GB, Available: 1 GB."_s});
}

TEST_F(PreflightServiceTest, atEqualityThereIsEnoughSpace)
{
    drive.freeBytes = 1'000'000'100;
    EXPECT_TRUE(run({sourceOfSize("Users/mira/Desktop", 100)}).canProceed());
}

TEST_F(PreflightServiceTest, aLargeBackupNeedsATenthMoreThanItsSize)
{
    const QList sources{sourceOfSize("Users/mira/Movies", 20'000'000'000)};
    drive.freeBytes = 22'000'000'000;
    EXPECT_EQ(run(sources).errors, QStringList());
    drive.freeBytes = 21'999'999'999;
    EXPECT_EQ(run(sources).errors, QStringList{u"Not enough space. Required: ~22 GB, Available: 22 GB."_s});
}

TEST_F(PreflightServiceTest, theMarginIsCutToWholeBytes)
{
    const QList sources{sourceOfSize("Users/mira/Movies", 20'000'000'009)};
    drive.freeBytes = 22'000'000'009;
    EXPECT_TRUE(run(sources).canProceed());
    drive.freeBytes = 22'000'000'008;
    EXPECT_FALSE(run(sources).canProceed());
}

TEST_F(PreflightServiceTest, theSpaceErrorUsesTheLocalesSeparators)
{
    mac.setLocale(QLocale(QLocale::German, QLocale::Germany));
    drive.freeBytes = 1'500'000'000;
    EXPECT_EQ(run({sourceOfSize("Users/mira/Movies", 2'000'000'000)}).errors,
              QStringList{u"Not enough space. Required: ~3 GB, Available: 1,5 GB."_s});
}

TEST_F(PreflightServiceTest, aFreeSpaceThatCantBeReadIsAWarningAndNoError)
{
    drive.fails = true;
    const PreflightResult result = run({sourceOfSize("Users/mira/Movies", 20'000'000'000)});
    EXPECT_EQ(result.warnings, QStringList{u"Could not determine free space on destination."_s});
    EXPECT_EQ(result.destinationFreeSpace, 0);
    EXPECT_TRUE(result.canProceed());
}

TEST_F(PreflightServiceTest, anUnknownOrZeroFreeSpaceGivesNoErrorAndNoWarning)
{
    const QList sources{sourceOfSize("Users/mira/Movies", 20'000'000'000)};
    drive.freeBytes = std::nullopt;
    EXPECT_EQ(run(sources), (PreflightResult{1, 20'000'000'000, 0, {}, {}}));
    drive.freeBytes = 0;
    EXPECT_EQ(run(sources), (PreflightResult{1, 20'000'000'000, 0, {}, {}}));
}

TEST_F(PreflightServiceTest, nothingOnDiskChanges)
{
    mac.writeFile("Users/mira/Desktop/a.txt", "12345");
    const auto before = std::filesystem::last_write_time(standardPath(destination));
    std::ignore = run({source("Users/mira/Desktop")});
    EXPECT_TRUE(std::filesystem::is_empty(standardPath(destination)));
    EXPECT_EQ(std::filesystem::last_write_time(standardPath(destination)), before);
}

} // namespace keelbright::testing

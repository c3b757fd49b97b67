#include "KeelbrightCore/platform/files/FolderPlace.h"

#include "tests/support/TemporaryVolume.h"
#include "tests/support/TestMac.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace keelbright::testing {

namespace {

class FolderPlaceTest : public ::testing::Test
{
protected:
    void listDrive(const QByteArray& place) const
    {
        mac.writeFile("etc/fstab", "# device place type options\n"
                                   "UUID=1234 / ext4 defaults 0 1\n"
                                   "UUID=2345 none swap sw 0 0\n"
                                   "\n"
                                   "UUID=3456\t" +
                                       place + "\text4 noauto 0 2\n");
    }

    TestMac mac;
    FileURL drive = mac.makeFolder("Volumes/Anchor");
    FileURL folder = mac.makeFolder("Volumes/Anchor/Backups");
};

} // namespace

TEST_F(FolderPlaceTest, aFolderLiesOnTheDriveOfTheMachineByDefault)
{
    const FolderPlace place = placeOf(folder);
    EXPECT_TRUE(place.isFolder);
    EXPECT_FALSE(place.isWithoutItsDrive);
    EXPECT_NE(place.mountPoint, drive);
}

TEST_F(FolderPlaceTest, whatIsMissingOrAFileIsNoFolder)
{
    EXPECT_FALSE(placeOf(mac.root().appendingNative("Volumes/None")).isFolder);
    EXPECT_FALSE(placeOf(mac.writeFile("Volumes/Anchor/a.txt", "1")).isFolder);
}

TEST_F(FolderPlaceTest, knowsTheMountPointAboveAFolder)
{
    const TemporaryVolume volume(drive);
    if (!volume.isMounted())
        GTEST_SKIP() << "needs the right to mount";
    mac.makeFolder("Volumes/Anchor/Backups");
    EXPECT_EQ(placeOf(drive).mountPoint, drive);
    EXPECT_EQ(placeOf(folder).mountPoint, drive);
    // A name that only begins in the same way is another place.
    EXPECT_NE(placeOf(mac.makeFolder("Volumes/Anchor 2")).mountPoint, drive);
}

TEST_F(FolderPlaceTest, knowsTheMountPointBehindALink)
{
    const TemporaryVolume volume(drive);
    if (!volume.isMounted())
        GTEST_SKIP() << "needs the right to mount";
    const FileURL link = mac.root().appendingNative("Link");
    std::filesystem::create_directory_symlink(drive.nativePath().toStdString(),
                                              link.nativePath().toStdString());
    EXPECT_EQ(placeOf(link).mountPoint, drive);
}

TEST_F(FolderPlaceTest, aListedMountPointWithoutItsDriveIsKnown)
{
    listDrive("/Volumes/Anchor");
    EXPECT_TRUE(placeOf(drive).isWithoutItsDrive);
    EXPECT_TRUE(placeOf(folder).isWithoutItsDrive);
    EXPECT_FALSE(placeOf(mac.makeFolder("Volumes/Anchor 2")).isWithoutItsDrive);
    EXPECT_FALSE(placeOf(mac.home()).isWithoutItsDrive);
    const TemporaryVolume volume(drive);
    if (!volume.isMounted())
        GTEST_SKIP() << "needs the right to mount";
    EXPECT_FALSE(placeOf(drive).isWithoutItsDrive);
}

TEST_F(FolderPlaceTest, aListedMountPointBehindALinkIsKnown)
{
    const FileURL link = mac.root().appendingNative("Link");
    std::filesystem::create_directory_symlink(
        mac.root().appendingNative("Volumes").nativePath().toStdString(), link.nativePath().toStdString());
    listDrive("/Link/Anchor");
    EXPECT_TRUE(placeOf(link.appendingNative("Anchor")).isWithoutItsDrive);
    const TemporaryVolume volume(drive);
    if (!volume.isMounted())
        GTEST_SKIP() << "needs the right to mount";
    EXPECT_FALSE(placeOf(link.appendingNative("Anchor")).isWithoutItsDrive);
}

TEST_F(FolderPlaceTest, anEmptyFolderOfADesktopsIsWhatADriveHasLeftBehind)
{
    for (const QByteArray above : {"media/mira", "run/media/mira"}) {
        const FileURL left = mac.makeFolder(above + "/Backup");
        EXPECT_TRUE(placeOf(left).isWithoutItsDrive) << above.toStdString();
        EXPECT_TRUE(placeOf(left).isFolder) << above.toStdString();
        const TemporaryVolume volume(left);
        if (!volume.isMounted())
            GTEST_SKIP() << "needs the right to mount";
        EXPECT_FALSE(placeOf(left).isWithoutItsDrive) << above.toStdString();
    }
}

TEST_F(FolderPlaceTest, anEmptyFolderOfADesktopsIsLeftBehindAlsoBelowAListedPlaceThatIsThere)
{
    const FileURL left = mac.makeFolder("run/media/mira/Backup");
    listDrive("/run");
    const TemporaryVolume volume(mac.root().appendingNative("run"));
    if (!volume.isMounted())
        GTEST_SKIP() << "needs the right to mount";
    mac.makeFolder("run/media/mira/Backup");
    EXPECT_TRUE(placeOf(left).isWithoutItsDrive);
}

TEST_F(FolderPlaceTest, anEmptyFolderOfADesktopsBehindALinkIsKnown)
{
    const FileURL left = mac.makeFolder("run/media/mira/Backup");
    std::filesystem::create_directory_symlink(
        mac.root().appendingNative("run/media").nativePath().toStdString(),
        mac.root().appendingNative("media").nativePath().toStdString());
    EXPECT_TRUE(placeOf(mac.root().appendingNative("media/mira/Backup")).isWithoutItsDrive);
    EXPECT_TRUE(placeOf(left).isWithoutItsDrive);
}

TEST_F(FolderPlaceTest, aFolderThatNoDriveHasLeftBehindIsThere)
{
    const FileURL full = mac.writeFile("media/mira/Shared/a.txt", "1").deletingLastPathComponent();
    EXPECT_FALSE(placeOf(full).isWithoutItsDrive) << "something lies in it";
    EXPECT_FALSE(placeOf(mac.makeFolder("media/mira/Shared/Backups")).isWithoutItsDrive)
        << "no desktop makes it";
    EXPECT_FALSE(placeOf(mac.makeFolder("media/anna/Backup")).isWithoutItsDrive) << "another user's";
    EXPECT_FALSE(placeOf(mac.makeFolder("media/Backup")).isWithoutItsDrive) << "made by hand";
    EXPECT_FALSE(placeOf(mac.makeFolder("mnt/Backup")).isWithoutItsDrive) << "made by hand";
    EXPECT_FALSE(placeOf(mac.root().appendingNative("media/mira/None")).isWithoutItsDrive) << "missing";
    EXPECT_FALSE(placeOf(mac.writeFile("media/mira/a.txt", "1")).isWithoutItsDrive) << "a file";
}

TEST_F(FolderPlaceTest, aDriveIsAwayWhereItsFolderLiesOnTheOneAbove)
{
    const FolderPlace without = placeOf(folder);
    EXPECT_FALSE(lacksItsDrive(without, FileURL())) << "no drive has been seen there";
    EXPECT_TRUE(lacksItsDrive(without, drive));
    EXPECT_TRUE(lacksItsDrive({.isFolder = true, .mountPoint = {}, .isWithoutItsDrive = true}, FileURL()));
    const TemporaryVolume volume(drive);
    if (!volume.isMounted())
        GTEST_SKIP() << "needs the right to mount";
    EXPECT_FALSE(lacksItsDrive(placeOf(drive), drive));
}

TEST_F(FolderPlaceTest, aBlankInTheListIsReadAsItIsWritten)
{
    listDrive("/Volumes/My\\040Drive");
    EXPECT_TRUE(placeOf(mac.makeFolder("Volumes/My Drive")).isWithoutItsDrive);
}

} // namespace keelbright::testing

#include "KeelbrightCore/platform/files/MountedVolumes.h"

#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <QFile>
#include <algorithm>
#include <gtest/gtest.h>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

class MountedVolumesTest : public ::testing::Test
{
protected:
    [[nodiscard]] DeviceMount mount(const QByteArray& device, const QString& point) const
    {
        return {device, mac.root().appending(point)};
    }

    /// Gives the device a label as the system does: a link to it, named by the label.
    void addLabel(const QByteArray& label, const QByteArray& device)
    {
        const FileURL file = mac.writeFile(device, {});
        const FileURL link = mac.makeFolder("dev/disk/by-label").appendingNative(label);
        ASSERT_TRUE(QFile::link(file.path(), link.path()));
    }

    [[nodiscard]] QList<MountedVolume> volumes(const QList<DeviceMount>& mounts)
    {
        return volumesAmong(mounts, mac.fileManager());
    }

    testing::TestMac mac;
};

} // namespace

TEST_F(MountedVolumesTest, areNamedByTheirLabels)
{
    addLabel("Backup\\x20Drive", "dev/sdb1");
    addLabel("Caf\\xc3\\xa9", "dev/sdc1");
    const auto found = volumes(
        {mount("/dev/sdc1", u"run/media/mira/3F2A-11"_s), mount("/dev/sdb1", u"media/mira/9C33-6BBD"_s)});
    EXPECT_EQ(found,
              (QList<MountedVolume>{{mac.root().appending(u"media/mira/9C33-6BBD"_s), u"Backup Drive"_s},
                                    {mac.root().appending(u"run/media/mira/3F2A-11"_s), u"Café"_s}}));
}

TEST_F(MountedVolumesTest, theTopsAreThoseOfAllDevicesWhereverTheyAreMounted)
{
    const auto at = [](const char* path) { return FileURL::fromNativePath(path); };
    EXPECT_EQ(topsAmong({{"proc", at("/proc"), at("/")},
                         {"/dev/sda2", at("/"), at("/")},
                         {"tmpfs", at("/run"), at("/")},
                         {"/dev/sdb1", at("/srv/photos"), at("/")},
                         {"server:/export", at("/net"), at("/")}}),
              (QList{at("/"), at("/srv/photos")}));
}

TEST_F(MountedVolumesTest, aFileSystemThatIsShownTwiceHasOneTop)
{
    const auto at = [](const char* path) { return FileURL::fromNativePath(path); };
    EXPECT_EQ(topsAmong({{"/dev/sda2", at("/"), at("/@root")},
                         {"/dev/sda2", at("/home"), at("/@home")},
                         {"/dev/sdb1", at("/data"), at("/")},
                         {"/dev/sdb1", at("/home/mira/data"), at("/")},
                         {"/dev/sdc1", at("/data"), at("/")}}),
              (QList{at("/"), at("/home"), at("/data")}));
}

TEST_F(MountedVolumesTest, theTopsOfThisMachineAreThoseOfItsMounts)
{
    EXPECT_EQ(SystemFileManager().volumeTops(), topsAmong(deviceMounts()));
}

TEST_F(MountedVolumesTest, oneWithoutALabelIsNamedByItsFolder)
{
    addLabel("Backup\\x20Drive", "dev/sdb1");
    const auto found = volumes({mount("/dev/sdd1", u"mnt/photos"_s)});
    ASSERT_EQ(found.size(), 1);
    EXPECT_EQ(found.first().label, u"photos"_s);
}

TEST_F(MountedVolumesTest, whatIsMountedElsewhereBelongsToTheSystem)
{
    EXPECT_TRUE(volumes({mount("/dev/sda1", QString()), mount("/dev/sda2", u"home"_s),
                         mount("/dev/loop3", u"snap/core/1"_s), mount("/dev/sda3", u"mnt"_s),
                         mount("/dev/sda4", u"mediathek/films"_s)})
                    .isEmpty());
}

TEST_F(MountedVolumesTest, whatIsBehindANetworkIsLeftOut)
{
    EXPECT_TRUE(volumes({mount("//server/films", u"mnt/films"_s), mount("server:/films", u"mnt/nfs"_s),
                         mount("tmpfs", u"mnt/memory"_s)})
                    .isEmpty());
}

TEST(MountPoints, knowTheDeviceOfEachFileSystem)
{
    if (!QFile::exists(u"/proc/self/mountinfo"_s))
        GTEST_SKIP() << "this system has no /proc";
    const QList<DeviceMount> mounts = deviceMounts();
    const auto root = std::ranges::find(mounts, FileURL::fromPath(u"/"_s), &DeviceMount::point);
    ASSERT_NE(root, mounts.end());
    EXPECT_FALSE(root->device.isEmpty());
    const auto processes = std::ranges::find(mounts, FileURL::fromPath(u"/proc"_s), &DeviceMount::point);
    ASSERT_NE(processes, mounts.end());
    EXPECT_EQ(processes->device, "proc");
}

} // namespace keelbright

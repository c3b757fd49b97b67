#include "tests/platform/files/TrashTestCase.h"
#include "tests/support/TemporaryVolume.h"

#include <fcntl.h>

namespace keelbright {

using namespace testing;

namespace {

class VolumeTrashTests : public TrashTestCase
{
protected:
    void SetUp() override
    {
        if (!m_volume.isMounted())
            GTEST_SKIP() << "a second volume needs the right to mount";
    }

    FileURL item(const QByteArray& path, const QByteArray& content = "x") const
    {
        return m_mac.writeFile("Volumes/Stick/" + path, content);
    }

    FileURL own(const QByteArray& path = "") const
    {
        return m_volume.location().appendingNative(".Trash-" + user).appendingNative(path);
    }

    FileURL makeSharedTrash(mode_t mode) const
    {
        const FileURL shared = m_mac.makeFolder("Volumes/Stick/.Trash");
        EXPECT_EQ(::chmod(shared.nativePath().constData(), mode), 0);
        return shared;
    }

    TemporaryVolume m_volume{m_mac.makeFolder("Volumes/Stick")};
};

} // namespace

TEST_F(VolumeTrashTests, anItemStaysOnItsVolumeInATrashOfTheUsersOwn)
{
    const FileURL file = item("Pictures/Ä 1.jpg");
    const FileURL place = trashed(file);
    EXPECT_EQ(place, own("files/Ä 1.jpg"));
    EXPECT_FALSE(exists(file));
    EXPECT_FALSE(exists(m_trash)) << "the home's Trash has nothing to do with it";
    EXPECT_EQ(permissions(own()), 0700U);
    EXPECT_EQ(permissions(own("files")), 0700U);
    EXPECT_EQ(permissions(own("info")), 0700U);
    EXPECT_EQ(recordWithoutDate(place), "[Trash Info]\nPath=Pictures/%C3%84%201.jpg\nDeletionDate=\n");
}

TEST_F(VolumeTrashTests, anItemReachedThroughALinkStaysOnItsOwnVolume)
{
    item("a");
    const FileURL alias = m_mac.home().appendingNative("stick");
    ASSERT_EQ(::symlink(m_volume.location().nativePath().constData(), alias.nativePath().constData()), 0);
    const FileURL place = trashed(alias.appendingNative("a"));
    EXPECT_EQ(place, own("files/a"));
    EXPECT_EQ(recordWithoutDate(place), "[Trash Info]\nPath=a\nDeletionDate=\n");
}

TEST_F(VolumeTrashTests, aLinkToAnotherVolumeGoesToTheTrashWhereItLies)
{
    item("a");
    const FileURL link = m_mac.home().appendingNative("link");
    ASSERT_EQ(::symlink(m_volume.location().appendingNative("a").nativePath().constData(),
                        link.nativePath().constData()),
              0);
    EXPECT_EQ(trashed(link), m_trash.appendingNative("files/link"));
}

TEST_F(VolumeTrashTests, theSharedTrashIsTakenWhereItIsSafe)
{
    const FileURL shared = makeSharedTrash(01777);
    const FileURL place = trashed(item("a"));
    EXPECT_EQ(place, shared.appendingNative(user).appendingNative("files/a"));
    EXPECT_EQ(permissions(shared.appendingNative(user)), 0700U);
    EXPECT_FALSE(exists(own()));
    EXPECT_EQ(recordWithoutDate(place), "[Trash Info]\nPath=a\nDeletionDate=\n");
}

TEST_F(VolumeTrashTests, aSharedTrashWithoutTheStickyBitIsPassedOver)
{
    const FileURL shared = makeSharedTrash(0777);
    EXPECT_EQ(trashed(item("a")), own("files/a"));
    EXPECT_FALSE(exists(shared.appendingNative(user)));
}

TEST_F(VolumeTrashTests, aSharedTrashThatIsALinkIsPassedOver)
{
    m_mac.makeFolder("Volumes/Stick/real");
    ASSERT_EQ(::chmod(m_volume.location().appendingNative("real").nativePath().constData(), 01777), 0);
    ASSERT_EQ(::symlink("real", m_volume.location().appendingNative(".Trash").nativePath().constData()), 0);
    EXPECT_EQ(trashed(item("a")), own("files/a"));
    EXPECT_FALSE(exists(m_volume.location().appendingNative("real").appendingNative(user)));
}

TEST_F(VolumeTrashTests, aFileInTheUsersPlaceOfTheSharedTrashLeavesTheUsersOwn)
{
    makeSharedTrash(01777);
    m_mac.writeFile("Volumes/Stick/.Trash/" + user, "a file in the way");
    EXPECT_EQ(trashed(item("a")), own("files/a"));
}

TEST_F(VolumeTrashTests, aTrashThatIsALinkIsRefusedAndTheItemStays)
{
    m_mac.makeFolder("Volumes/Stick/planted");
    ASSERT_EQ(::symlink("planted", own().nativePath().constData()), 0);
    const FileURL file = item("a");
    EXPECT_EQ(refused(moveToTrash(file)), systemError(file, ENOTDIR));
    EXPECT_TRUE(exists(file));
    EXPECT_FALSE(exists(m_volume.location().appendingNative("planted/files")));
}

TEST_F(VolumeTrashTests, aTrashThatSomebodyElseMadeInTheUsersNameIsRefused)
{
    m_mac.makeFolder("Volumes/Stick/.Trash-" + user);
    ASSERT_EQ(::lchown(own().nativePath().constData(), 12345, 12345), 0);
    const FileURL file = item("a");
    EXPECT_EQ(refused(moveToTrash(file)).reason, FileError::Reason::trashOpenToOthers);
    EXPECT_TRUE(exists(file));
}

TEST_F(VolumeTrashTests, whatLiesInATrashOfTheVolumeIsRefused)
{
    const FileURL mine = trashed(item("a"));
    const FileURL others = item(".Trash-4242/files/b");
    const FileURL inShared = item(".Trash/4242/files/c");
    for (const FileURL& url : {mine, others, inShared}) {
        EXPECT_EQ(refused(moveToTrash(url)).reason, FileError::Reason::alreadyInTrash);
        EXPECT_TRUE(exists(url));
    }
}

TEST_F(VolumeTrashTests, theTrashesOfTheVolumeStay)
{
    trashed(item("a"));
    item(".Trash/4242/files/c");
    for (const char* path : {".Trash", ".Trash/4242", ".Trash/4242/files", ".Trash-4242"}) {
        m_mac.makeFolder(QByteArray("Volumes/Stick/") + path);
        const FileURL trash = m_volume.location().appendingNative(path);
        EXPECT_EQ(refused(moveToTrash(trash)).reason, FileError::Reason::neededInItsPlace) << path;
    }
    EXPECT_EQ(refused(moveToTrash(own())).reason, FileError::Reason::neededInItsPlace);
}

TEST_F(VolumeTrashTests, foldersWithSimilarNamesAreMoved)
{
    for (const char* path : {".Trash-old", ".Trash-", "sub/.Trash-4242", "Trash", ".Trashes"}) {
        const FileURL file = item(QByteArray(path) + "/a");
        EXPECT_TRUE(exists(trashed(file))) << path;
        EXPECT_FALSE(exists(file)) << path;
    }
}

TEST_F(VolumeTrashTests, theRootOfAVolumeStays)
{
    item("a");
    EXPECT_EQ(refused(moveToTrash(m_volume.location())).reason, FileError::Reason::driveMounted);
    EXPECT_TRUE(exists(m_volume.location().appendingNative("a")));
}

TEST_F(VolumeTrashTests, aReadOnlyVolumeIsAnErrorAndTheItemStays)
{
    const FileURL file = item("a");
    ASSERT_TRUE(m_volume.makeReadOnly());
    EXPECT_EQ(refused(moveToTrash(file)), systemError(file, EROFS));
    EXPECT_TRUE(exists(file));
}

TEST_F(VolumeTrashTests, aFullVolumeLeavesTheItemAndNoHalfRecord)
{
    const FileURL file = item("a");
    m_mac.makeFolder("Volumes/Stick/.Trash-" + user + "/files");
    m_mac.makeFolder("Volumes/Stick/.Trash-" + user + "/info");
    const FileURL filler = m_volume.location().appendingNative("filler");
    const int descriptor = ::open(filler.nativePath().constData(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    const QByteArray block(qsizetype{64} * 1024, 'x');
    while (::write(descriptor, block.constData(), static_cast<size_t>(block.size())) > 0) {
    }
    ::close(descriptor);
    EXPECT_EQ(refused(moveToTrash(file)), systemError(file, ENOSPC));
    EXPECT_TRUE(exists(file));
    EXPECT_FALSE(exists(own("info/a.trashinfo")));
    EXPECT_FALSE(exists(own("files/a")));
}

} // namespace keelbright

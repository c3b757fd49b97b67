#include "tests/platform/files/TrashTestCase.h"
#include "tests/support/ImageDrive.h"
#include "tests/support/TemporaryVolume.h"

namespace keelbright {

using namespace testing;

namespace {

constexpr uid_t stranger = 12'345;

/// A volume that another user could write to before. `user` stands for whoever runs the tests.
class TrashPrivacyTests : public TrashTestCase
{
protected:
    void SetUp() override
    {
        if (!m_volume.isMounted())
            GTEST_SKIP() << "a second volume needs the right to mount";
    }

    FileURL onVolume(const QByteArray& path) const { return m_volume.location().appendingNative(path); }

    FileURL item() const { return m_mac.writeFile("Volumes/Stick/Tool.app/inside", "x"); }

    FileURL makeFolder(const QByteArray& path, uid_t owner, mode_t mode) const
    {
        const FileURL folder = m_mac.makeFolder("Volumes/Stick/" + path);
        EXPECT_EQ(::chown(folder.nativePath().constData(), owner, owner), 0);
        EXPECT_EQ(::chmod(folder.nativePath().constData(), mode), 0);
        return folder;
    }

    /// A Trash at that place, with its two folders.
    void makeTrash(const QByteArray& place, uid_t owner, mode_t mode) const
    {
        for (const char* part : {"", "/files", "/info"})
            makeFolder(place + part, owner, mode);
    }

    void giveTopAway() const
    {
        ASSERT_EQ(::chown(m_volume.location().nativePath().constData(), stranger, stranger), 0);
        ASSERT_EQ(::chmod(m_volume.location().nativePath().constData(), 0777), 0);
    }

    void expectStays(const FileURL& bundle) const
    {
        const FileURL folder = bundle.deletingLastPathComponent();
        EXPECT_EQ(refused(moveToTrash(folder)),
                  (FileError{FileError::Operation::trashed, QStringLiteral("Tool.app"),
                             FileError::Reason::trashOpenToOthers}));
        EXPECT_EQ(TestMac::read(bundle), "x");
    }

    TemporaryVolume m_volume{m_mac.makeFolder("Volumes/Stick")};
    QByteArray m_own = ".Trash-" + user;
};

} // namespace

TEST_F(TrashPrivacyTests, aTrashThatTheOwnerOfTheVolumePreparedIsRefused)
{
    giveTopAway();
    makeTrash(m_own, stranger, 0777);
    expectStays(item());
    EXPECT_EQ(refused(moveToTrash(onVolume("Tool.app"))).localizedDescription(),
              QStringLiteral("“Tool.app” could not be moved to the Trash: the Trash of its drive is not safe "
                             "from other users."));
}

TEST_F(TrashPrivacyTests, aTrashOfTheUsersOwnIsNotTakenWithAFolderOfAnother)
{
    giveTopAway();
    for (const char* part : {"files", "info"}) {
        makeTrash(m_own, ::getuid(), 0700);
        makeFolder(m_own + '/' + part, stranger, 0777);
        expectStays(item());
    }
}

TEST_F(TrashPrivacyTests, aTrashThatOthersMayWriteToIsRefused)
{
    for (const mode_t mode : {0770U, 0702U}) {
        for (const char* part : {"", "/files", "/info"}) {
            makeTrash(m_own, ::getuid(), 0700);
            makeFolder(m_own + part, ::getuid(), mode);
            expectStays(item());
        }
    }
}

TEST_F(TrashPrivacyTests, anUnsafePlaceInTheSharedTrashLeadsToTheNextOne)
{
    giveTopAway();
    makeFolder(".Trash", 0, 01777);
    makeTrash(".Trash/" + user, stranger, 0777);
    item();
    EXPECT_EQ(trashed(onVolume("Tool.app")), onVolume(m_own + "/files/Tool.app"));
    EXPECT_EQ(permissions(onVolume(m_own)), 0700U);
}

TEST_F(TrashPrivacyTests, anItemStaysWhereBothPlacesAreUnsafe)
{
    giveTopAway();
    makeFolder(".Trash", 0, 01777);
    makeTrash(".Trash/" + user, stranger, 0777);
    makeTrash(m_own, stranger, 0777);
    expectStays(item());
}

TEST_F(TrashPrivacyTests, noFileIsLeftInATrashThatIsRefused)
{
    giveTopAway();
    makeTrash(m_own, stranger, 0777);
    expectStays(item());
    const auto entries = m_mac.fileManager().contentsOfDirectory(onVolume(m_own), {});
    ASSERT_TRUE(entries);
    EXPECT_EQ(entries->size(), 2) << "files and info alone";
}

TEST_F(TrashPrivacyTests, aTrashThatOthersMayReadIsClosed)
{
    makeTrash(m_own, ::getuid(), 0755);
    item();
    trashed(onVolume("Tool.app"));
    EXPECT_EQ(permissions(onVolume(m_own + "/files")), 0700U);
    EXPECT_EQ(permissions(onVolume(m_own + "/info")), 0700U);
}

TEST_F(TrashPrivacyTests, whatWasPrivateStaysPrivateInTheTrash)
{
    makeTrash(m_own, ::getuid(), 0755);
    makeFolder("private", ::getuid(), 0700);
    const FileURL file = m_mac.writeFile("Volumes/Stick/private/diary", "x");
    ASSERT_EQ(::chmod(file.nativePath().constData(), 0644), 0);
    ASSERT_EQ(::chmod(m_mac.root().nativePath().constData(), 0755), 0);
    const FileURL place = trashed(file);
    EXPECT_TRUE(m_mac.fileManager().isReadable(place));
    const UnprivilegedUser other;
    EXPECT_FALSE(m_mac.fileManager().isReadable(place));
}

TEST_F(TrashPrivacyTests, whatWasPrivateStaysPrivateInTheTrashOfTheHome)
{
    for (const char* part : {"", "/files", "/info"}) {
        const FileURL folder = m_mac.makeFolder(QByteArray("Users/mira/.local/share/Trash") + part);
        ASSERT_EQ(::chmod(folder.nativePath().constData(), 0755), 0);
    }
    trashed(m_mac.writeFile("Users/mira/private/diary", "x"));
    EXPECT_EQ(permissions(m_trash.appendingNative("files")), 0700U);
    EXPECT_EQ(permissions(m_trash.appendingNative("info")), 0700U);
}

// There every file shows the same owner and the same mode, and nobody is kept from anything.
TEST_F(TrashPrivacyTests, aDriveWithoutOwnersAndModesHasATrashAllTheSame)
{
    for (const ImageDrive::Kind kind : {ImageDrive::Kind::exFat, ImageDrive::Kind::ntfs}) {
        const ImageDrive drive(kind, 50'331'648);
        if (!drive.reasonMissing().empty())
            GTEST_SKIP() << drive.reasonMissing();
        for (const char* name : {"first", "second"}) {
            const FileURL file = drive.root().appendingNative(name);
            ASSERT_TRUE(m_mac.fileManager().writeAtomically(file, name));
            const FileURL place = trashed(file);
            EXPECT_EQ(place, drive.root().appendingNative(m_own + "/files/" + name));
            EXPECT_TRUE(recordWithoutDate(place).contains(QByteArray("Path=") + name));
        }
    }
}

} // namespace keelbright

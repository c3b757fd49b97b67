#include "KeelbrightCore/platform/files/ProtectedPlaces.h"

#include "tests/platform/files/TrashTestCase.h"
#include "tests/support/TemporaryVolume.h"

namespace keelbright {

using namespace testing;

namespace {

/// Moves items with the file manager's own knowledge of what has to stay.
class ProtectedPlacesTests : public TrashTestCase
{
protected:
    std::expected<FileURL, FileError> trashItem(const FileURL& item) const
    {
        return placeOf(m_mac.fileManager().trashItem(item));
    }

    FileURL atHome(const QByteArray& path) const { return m_mac.makeFolder("Users/mira/" + path); }

    void expectStays(const FileURL& item, FileError::Reason reason) const
    {
        EXPECT_EQ(refused(trashItem(item)),
                  (FileError{FileError::Operation::trashed, item.lastPathComponent(), reason}))
            << item.nativePath().toStdString();
        EXPECT_TRUE(exists(item)) << item.nativePath().toStdString();
    }

    void expectIsNeeded(const FileURL& item) const { expectStays(item, FileError::Reason::neededInItsPlace); }

    void expectGoes(const FileURL& item) const
    {
        const auto place = trashItem(item);
        ASSERT_TRUE(place) << place.error().localizedDescription().toStdString();
        EXPECT_FALSE(exists(item));
        EXPECT_TRUE(exists(*place));
    }

    void link(const QByteArray& target, const FileURL& place) const
    {
        ASSERT_EQ(::symlink(target.constData(), place.nativePath().constData()), 0);
    }
};

} // namespace

TEST_F(ProtectedPlacesTests, theRefusalIsAClearSentence)
{
    EXPECT_EQ(refused(trashItem(atHome("Library/Caches"))).localizedDescription(),
              QStringLiteral("“Caches” could not be moved to the Trash: the computer needs it where it is."));
}

TEST_F(ProtectedPlacesTests, theHomeAndAllAboveItStay)
{
    for (FileURL place = m_mac.home(); place != FileURL(); place = place.deletingLastPathComponent())
        expectIsNeeded(place);
    EXPECT_EQ(refused(trashItem(FileURL())).reason, FileError::Reason::neededInItsPlace);
}

TEST_F(ProtectedPlacesTests, theLibraryAndItsStandardFoldersStay)
{
    expectIsNeeded(atHome("Library"));
    for (const char* name :
         {"Application Scripts", "Application Support", "Caches", "Containers", "Group Containers",
          "HTTPStorages", "LaunchAgents", "Logs", "Preferences", "Saved Application State", "WebKit"})
        expectIsNeeded(atHome(QByteArray("Library/") + name));
    for (const char* path : {"Library", "Library/LaunchAgents", "Library/LaunchDaemons", "Applications",
                             "Applications/Utilities"})
        expectIsNeeded(m_mac.makeFolder(path));
}

TEST_F(ProtectedPlacesTests, theStandardFoldersOfTheHomeStay)
{
    for (const char* name : {"Desktop", "Documents", "Downloads", "Movies", "Music", "Pictures", "Public",
                             "Templates", "Videos", ".config", ".cache", ".local", ".local/share"})
        expectIsNeeded(atHome(name));
}

TEST_F(ProtectedPlacesTests, whatLiesInThemGoes)
{
    for (const char* path : {"Library/Caches/org.example.ink", "Library/Application Support/Ink",
                             "Library/Preferences/org.example.ink.plist", "Library/Logs/Ink",
                             "Library/Developer/Xcode/DerivedData", "Documents/Old", "Desktop/Caches",
                             "Projects", ".config/ink"})
        expectGoes(atHome(path));
    expectGoes(m_mac.makeFolder("Applications/Ink.app"));
    expectGoes(m_mac.writeFile("Library/LaunchAgents/org.example.ink.plist", "x"));
}

TEST_F(ProtectedPlacesTests, theFoldersThatTheUserChoseStay)
{
    m_mac.writeFile("Users/mira/.config/user-dirs.dirs",
                    "# written by the desktop\n"
                    "XDG_DESKTOP_DIR=\"$HOME/Schreibtisch\"\n"
                    "  XDG_PICTURES_DIR=\"$HOME/Media/My \\\"best\\\" pictures\"  \n"
                    "XDG_MUSIC_DIR=\"" +
                        m_mac.root().nativePath() +
                        "/srv/music\"\n"
                        "XDG_VIDEOS_DIR=\"$HOME/\"\n"
                        "OTHER_DIR=\"$HOME/Projects\"\n"
                        "XDG_PUBLICSHARE_DIR=\"relative\"\n");
    expectIsNeeded(atHome("Schreibtisch"));
    expectIsNeeded(atHome("Media/My \"best\" pictures"));
    expectIsNeeded(atHome("Media"));
    expectIsNeeded(m_mac.makeFolder("srv/music"));
    expectIsNeeded(m_mac.root().appendingNative("srv"));
    expectGoes(atHome("Schreibtisch/Folder"));
    expectGoes(atHome("Projects"));
    expectGoes(atHome("relative"));
}

TEST_F(ProtectedPlacesTests, aStandardFolderThatIsALinkStaysAndSoDoesWhereItLeads)
{
    const FileURL real = m_mac.makeFolder("data/Pictures of Mira");
    const FileURL place = m_mac.home().appendingNative("Pictures");
    m_mac.makeFolder("Users/mira");
    link(real.nativePath(), place);
    expectIsNeeded(place);
    expectIsNeeded(real);
    expectIsNeeded(real.deletingLastPathComponent());
}

TEST_F(ProtectedPlacesTests, anotherLinkToAStandardFolderGoesAlone)
{
    const FileURL pictures = atHome("Pictures");
    const FileURL alias = m_mac.home().appendingNative("alias");
    link(pictures.nativePath(), alias);
    expectGoes(alias);
    EXPECT_TRUE(exists(pictures));
}

TEST_F(ProtectedPlacesTests, aStandardFolderStaysOnAPathWithLinksToo)
{
    const FileURL caches = atHome("Library/Caches");
    const FileURL alias = m_mac.home().appendingNative("alias");
    link("Library", alias);
    expectIsNeeded(alias.appendingNative("Caches"));
    EXPECT_TRUE(exists(caches));
}

TEST_F(ProtectedPlacesTests, aStandardFolderStaysUnderTheSecondPathOfAMount)
{
    const FileURL documents = atHome("Documents");
    const TemporaryVolume bind(m_mac.makeFolder("bind"), m_mac.home());
    if (!bind.isMounted())
        GTEST_SKIP() << "a second mount needs the right to mount";
    expectIsNeeded(bind.location().appendingNative("Documents"));
    EXPECT_TRUE(exists(documents));
}

TEST_F(ProtectedPlacesTests, aMountPointAndWhatHoldsOneStay)
{
    const TemporaryVolume volume(m_mac.makeFolder("Users/mira/net work/my\\drive"));
    if (!volume.isMounted())
        GTEST_SKIP() << "a volume of its own needs the right to mount";
    m_mac.makeFolder("Users/mira/net");
    expectStays(volume.location(), FileError::Reason::driveMounted);
    expectStays(volume.location().deletingLastPathComponent(), FileError::Reason::driveMounted);
    expectGoes(m_mac.home().appendingNative("net"));
    EXPECT_EQ(refused(trashItem(volume.location())).localizedDescription(),
              QStringLiteral("“my\\drive” could not be moved to the Trash: a drive is mounted there."));
}

TEST_F(ProtectedPlacesTests, aSecondMountOfTheSameVolumeStays)
{
    m_mac.makeFolder("source");
    const TemporaryVolume bind(m_mac.makeFolder("Users/mira/bind"), m_mac.root().appendingNative("source"));
    if (!bind.isMounted())
        GTEST_SKIP() << "a second mount needs the right to mount";
    expectStays(bind.location(), FileError::Reason::driveMounted);
}

} // namespace keelbright

#include "KeelbrightCore/platform/files/MachinePlaces.h"

#include "tests/support/Printing.h"
#include "tests/support/TestLinux.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace keelbright::testing {

namespace {

constexpr UserFolder allUserFolders[] = {UserFolder::desktop,   UserFolder::documents, UserFolder::pictures,
                                         UserFolder::downloads, UserFolder::movies,    UserFolder::music};

class MachinePlacesTests : public ::testing::Test
{
protected:
    [[nodiscard]] MachinePlaces places() { return MachinePlaces(linuxMachine.fileManager()); }

    /// All of them below the home, in the order of `allUserFolders`.
    [[nodiscard]] QByteArrayList userFolders()
    {
        QByteArrayList paths;
        for (const UserFolder folder : allUserFolders) {
            QByteArray path = places().userFolder(folder).nativePath();
            const QByteArray start = linuxMachine.home().nativePath() + '/';
            paths.append(path.startsWith(start) ? path.sliced(start.size()) : path);
        }
        return paths;
    }

    void writeList(const QByteArray& list)
    {
        linuxMachine.files().text("home/mira/.config/user-dirs.dirs", list);
    }

    TestLinux linuxMachine;
};

const QByteArrayList englishFolders{"Desktop", "Documents", "Pictures", "Downloads", "Videos", "Music"};

} // namespace

TEST_F(MachinePlacesTests, aMacHasItsOwnWhateverTheDesktopsSettingsSay)
{
    TestMac mac;
    mac.writeFile("Users/mira/.config/user-dirs.dirs", "XDG_DESKTOP_DIR=\"$HOME/Schreibtisch\"\n");
    const MachinePlaces macPlaces(mac.fileManager());
    EXPECT_TRUE(macPlaces.isMac());
    EXPECT_EQ(macPlaces.userFolder(UserFolder::desktop), mac.home().appendingNative("Desktop"));
    EXPECT_EQ(macPlaces.userFolder(UserFolder::movies), mac.home().appendingNative("Movies"));
    EXPECT_FALSE(macPlaces.isSwitchedOff(UserFolder::desktop));
    EXPECT_EQ(macPlaces.bundleFolders(), (QList{mac.root().appendingNative("Applications"),
                                                mac.root().appendingNative("Applications/Utilities"),
                                                mac.home().appendingNative("Applications")}));
}

TEST_F(MachinePlacesTests, aHomeWithALibraryHasThePlacesOfAMac)
{
    linuxMachine.madeUp(MadeUpLinux::Desktop::gnome, MadeUpLinux::Language::german).addUserFolders();
    linuxMachine.files().folder("home/mira/Library");
    EXPECT_TRUE(places().isMac());
    EXPECT_EQ(userFolders(),
              (QByteArrayList{"Desktop", "Documents", "Pictures", "Downloads", "Movies", "Music"}));
}

TEST_F(MachinePlacesTests, aFileThatIsCalledLibraryMakesNoMac)
{
    linuxMachine.files().text("home/mira/Library", "books that I own");
    EXPECT_FALSE(places().isMac());
    EXPECT_TRUE(places().bundleFolders().isEmpty());
}

TEST_F(MachinePlacesTests, gnomeAndPlasmaNameTheFoldersInTheUsersLanguage)
{
    for (const auto desktop : {MadeUpLinux::Desktop::gnome, MadeUpLinux::Desktop::plasma}) {
        linuxMachine.madeUp(desktop, MadeUpLinux::Language::english).addUserFolders();
        EXPECT_EQ(userFolders(), englishFolders);
        linuxMachine.madeUp(desktop, MadeUpLinux::Language::german).addUserFolders();
        EXPECT_EQ(userFolders(),
                  (QByteArrayList{"Schreibtisch", "Dokumente", "Bilder", "Downloads", "Videos", "Musik"}));
    }
}

TEST_F(MachinePlacesTests, withoutAListTheFoldersHaveTheirEnglishNames)
{
    linuxMachine.madeUp(MadeUpLinux::Desktop::windowManager).addUserFolders();
    EXPECT_EQ(userFolders(), englishFolders);
    for (const UserFolder folder : allUserFolders)
        EXPECT_FALSE(places().isSwitchedOff(folder));
}

TEST_F(MachinePlacesTests, aFolderThatTheListLeavesOutHasItsEnglishName)
{
    writeList("XDG_DOCUMENTS_DIR=\"$HOME/Dokumente\"\n");
    EXPECT_EQ(userFolders(),
              (QByteArrayList{"Desktop", "Dokumente", "Pictures", "Downloads", "Videos", "Music"}));
}

TEST_F(MachinePlacesTests, aFolderMayLieOutsideTheHome)
{
    writeList("XDG_PICTURES_DIR=\"/data/Photos of Mira/\"\nXDG_MUSIC_DIR=\"music\"\n");
    EXPECT_EQ(places().userFolder(UserFolder::pictures), FileURL::fromNativePath("/data/Photos of Mira"));
    EXPECT_EQ(places().userFolder(UserFolder::music), linuxMachine.atHome("Music")) << "no relative path";
}

TEST_F(MachinePlacesTests, commentsBlanksAndEscapesAreReadAsTheDesktopReadsThem)
{
    writeList("# XDG_DESKTOP_DIR=\"$HOME/Commented\"\n"
              "  XDG_DESKTOP_DIR = \"$HOME/My \\\"desk\\\"\"  # with a comment \"behind\" it\n"
              "XDG_DOCUMENTS_DIR=\"$HOME/a\\\\b\\$c\"\n"
              "XDG_PICTURES_DIR=$HOME/unquoted\n"
              "XDG_DOWNLOAD_DIR=\"$HOME/never closed\n"
              "XDG_VIDEOS_DIR=\"$HOMEWARD/film\"\n"
              "XDG_MUSIC_DIR=\"$HOME/first\"\n"
              "XDG_MUSIC_DIR=\"$HOME/last\"\r\n");
    EXPECT_EQ(userFolders(),
              (QByteArrayList{"My \"desk\"", "a\\b$c", "Pictures", "Downloads", "Videos", "last"}));
}

TEST_F(MachinePlacesTests, aNameThatIsNoTextIsCarriedExactly)
{
    writeList("XDG_DOCUMENTS_DIR=\"$HOME/Br\xFC"
              "der\"\n");
    EXPECT_EQ(places().userFolder(UserFolder::documents), linuxMachine.atHome("Br\xFC"
                                                                              "der"));
}

TEST_F(MachinePlacesTests, aFolderThatIsTheHomeItselfIsSwitchedOffAndNeverTheWholeHome)
{
    writeList("XDG_DESKTOP_DIR=\"$HOME/\"\nXDG_MUSIC_DIR=\"$HOME\"\nXDG_VIDEOS_DIR=\"" +
              linuxMachine.home().nativePath() + "/\"\n");
    for (const UserFolder folder : {UserFolder::desktop, UserFolder::music, UserFolder::movies})
        EXPECT_TRUE(places().isSwitchedOff(folder));
    EXPECT_FALSE(places().isSwitchedOff(UserFolder::documents));
    EXPECT_EQ(userFolders(), englishFolders);
}

TEST_F(MachinePlacesTests, theListLiesWhereTheEnvironmentPutsTheSettings)
{
    const EnvironmentVariable configurationHome("XDG_CONFIG_HOME");
    configurationHome.set(linuxMachine.atHome("settings").nativePath());
    linuxMachine.files().text("home/mira/settings/user-dirs.dirs", "XDG_DESKTOP_DIR=\"$HOME/Elsewhere\"\n");
    EXPECT_EQ(places().userFolder(UserFolder::desktop), linuxMachine.atHome("Elsewhere"));
    configurationHome.set("settings");
    EXPECT_EQ(places().userFolder(UserFolder::desktop), linuxMachine.atHome("Desktop"))
        << "a relative path is ignored";
}

TEST_F(MachinePlacesTests, aListThatIsNoneOrTooLargeIsIgnored)
{
    linuxMachine.files().folder("home/mira/.config/user-dirs.dirs");
    EXPECT_EQ(userFolders(), englishFolders);
    std::filesystem::remove(linuxMachine.atHome(".config/user-dirs.dirs").nativePath().toStdString());
    writeList("XDG_DESKTOP_DIR=\"$HOME/Elsewhere\"\n" + QByteArray(100'000, '#'));
    EXPECT_EQ(userFolders(), englishFolders);
}

TEST_F(MachinePlacesTests, drivesLieBelowTheFoldersOfEachSystem)
{
    const auto at = [this](const QByteArray& path) { return linuxMachine.root().appendingNative(path); };
    EXPECT_EQ(MachinePlaces::volumeFolders(linuxMachine.fileManager()),
              (QList{at("Volumes"), at("media"), at("run/media"), at("mnt")}));
    EXPECT_EQ(MachinePlaces::ownVolumeFolders(linuxMachine.fileManager()),
              (QList{at("Volumes"), at("media/mira"), at("run/media/mira"), at("mnt")}));
    EXPECT_EQ(MachinePlaces::desktopVolumeFolders(linuxMachine.fileManager()),
              (QList{at("media/mira"), at("run/media/mira")}));
}

} // namespace keelbright::testing

#include "Keelbright/state/DefaultFolders.h"

#include "tests/support/Printing.h"
#include "tests/support/TestLinux.h"

#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

/// Each folder as "name: place below the home", the enabled ones with a tick.
QStringList linesOf(const FileURL& home)
{
    QStringList lines;
    for (const RecommendedFolder& folder : defaultRecommendedFolders()) {
        const QString place = folder.url().path().mid(home.path().size() + 1);
        lines.append(folder.name + u": "_s + place + (folder.isEnabled ? u" ✓"_s : QString()));
    }
    return lines;
}

} // namespace

TEST(DefaultFolders, ofAMacLieBelowItsHomeUnderTheirNames)
{
    const TestMac mac;
    EXPECT_EQ(linesOf(mac.home()),
              (QStringList{u"Desktop: Desktop ✓"_s, u"Documents: Documents ✓"_s, u"Pictures: Pictures ✓"_s,
                           u"Downloads: Downloads"_s, u"Movies: Movies"_s, u"Music: Music"_s,
                           u"Photos Library: Pictures/Photos Library.photoslibrary"_s}));
}

TEST(DefaultFolders, ofAnotherDesktopLieWhereTheUserHasThemUnderTheSameTitles)
{
    const TestLinux linuxMachine;
    linuxMachine.madeUp(MadeUpLinux::Desktop::gnome, MadeUpLinux::Language::german).addUserFolders();
    EXPECT_EQ(linesOf(linuxMachine.home()),
              (QStringList{u"Desktop: Schreibtisch ✓"_s, u"Documents: Dokumente ✓"_s, u"Pictures: Bilder ✓"_s,
                           u"Downloads: Downloads"_s, u"Movies: Videos"_s, u"Music: Musik"_s,
                           u"Photos Library: Bilder/Photos Library.photoslibrary"_s}));
    for (const RecommendedFolder& folder : defaultRecommendedFolders().first(6))
        EXPECT_TRUE(folder.exists()) << folder.name.toStdString();
}

TEST(DefaultFolders, ofABareWindowManagerHaveTheirEnglishNames)
{
    const TestLinux linuxMachine;
    linuxMachine.madeUp(MadeUpLinux::Desktop::windowManager).addUserFolders();
    QStringList existing;
    for (const RecommendedFolder& folder : defaultRecommendedFolders()) {
        if (folder.exists())
            existing.append(folder.name);
    }
    EXPECT_EQ(existing, (QStringList{u"Documents"_s, u"Pictures"_s}));
}

TEST(DefaultFolders, aFolderThatTheUserHasSwitchedOffIsNotEnabledAndNeverTheWholeHome)
{
    const TestLinux linuxMachine;
    linuxMachine.files().text("home/mira/.config/user-dirs.dirs", "XDG_DESKTOP_DIR=\"$HOME/\"\n");
    EXPECT_EQ(linesOf(linuxMachine.home()).first(2),
              (QStringList{u"Desktop: Desktop"_s, u"Documents: Documents ✓"_s}));
}

TEST(DefaultFolders, asASourceAFolderOutsideTheHomeIsThatFolder)
{
    const TestLinux linuxMachine;
    linuxMachine.files().text("home/mira/.config/user-dirs.dirs", "XDG_DESKTOP_DIR=\"/data/desk\"\n");
    EXPECT_EQ(defaultRecommendedFolders().first().asBackupSource().url, FileURL::fromPath(u"/data/desk"_s));
}

} // namespace keelbright::testing

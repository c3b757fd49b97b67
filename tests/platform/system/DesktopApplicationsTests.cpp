#include "KeelbrightCore/platform/system/DesktopApplications.h"

#include "tests/support/DataElsewhere.h"
#include "tests/support/Printing.h"
#include "tests/support/TestLinux.h"

#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

class DesktopApplicationsTests : public ::testing::Test
{
protected:
    /// An entry below the folder of data that is given from the root.
    void add(const QByteArray& path, const QByteArray& name, const QByteArray& more = {}) const
    {
        machine.files().text(path, "[Desktop Entry]\nType=Application\nName=" + name + '\n' + more);
    }

    /// Each as "id: name", in alphabetical order.
    QStringList shown(Menu menu = Menu::ofThisDesktop)
    {
        QStringList lines;
        for (const DesktopApplication& application : desktopApplications(machine.fileManager(), menu))
            lines.append(application.id + u": "_s + application.entry.name);
        lines.sort();
        return lines;
    }

    TestLinux machine;
};

} // namespace

TEST_F(DesktopApplicationsTests, aMachineWithoutEntriesHasNone)
{
    EXPECT_EQ(shown(), QStringList());
}

TEST_F(DesktopApplicationsTests, aMacHasNone)
{
    add("usr/share/applications/a.desktop", "A");
    machine.files().folder("home/mira/Library");
    EXPECT_EQ(shown(), QStringList());
}

TEST_F(DesktopApplicationsTests, theyLieInTheUsersFolderThoseOfTheSystemAndThoseOfFlatpakAndSnap)
{
    add("home/mira/.local/share/applications/own.desktop", "Own");
    add("usr/local/share/applications/local.desktop", "Local");
    add("usr/share/applications/package.desktop", "Package");
    add("var/lib/flatpak/exports/share/applications/org.example.App.desktop", "Flatpak");
    add("home/mira/.local/share/flatpak/exports/share/applications/org.example.Mine.desktop", "Mine");
    add("var/lib/snapd/desktop/applications/hello_hello.desktop", "Snap");
    EXPECT_EQ(shown(), (QStringList{u"hello_hello: Snap"_s, u"local: Local"_s, u"org.example.App: Flatpak"_s,
                                    u"org.example.Mine: Mine"_s, u"own: Own"_s, u"package: Package"_s}));
}

TEST_F(DesktopApplicationsTests, theEnvironmentNamesTheFoldersOfTheSystem)
{
    const EnvironmentVariable folders("XDG_DATA_DIRS");
    folders.set("/opt/share:relative:/usr/share/");
    add("opt/share/applications/a.desktop", "First");
    add("usr/share/applications/a.desktop", "Second");
    add("usr/local/share/applications/b.desktop", "Not named");
    EXPECT_EQ(shown(), QStringList{u"a: First"_s});
}

TEST_F(DesktopApplicationsTests, anEntryInAFolderHasTheFoldersNameInItsId)
{
    add("usr/share/applications/kde/konsole.desktop", "Konsole");
    add("home/mira/.local/share/applications/kde-konsole.desktop", "My Konsole");
    EXPECT_EQ(shown(), QStringList{u"kde-konsole: My Konsole"_s});
}

TEST_F(DesktopApplicationsTests, theFirstEntryOfAnIdHidesTheOthers)
{
    add("usr/share/applications/a.desktop", "A");
    add("usr/share/applications/b.desktop", "B");
    add("usr/share/applications/c.desktop", "C");
    add("home/mira/.local/share/applications/a.desktop", "Hidden", "Hidden=true\n");
    add("home/mira/.local/share/applications/b.desktop", "Not in the menu", "NoDisplay=true\n");
    EXPECT_EQ(shown(), QStringList{u"c: C"_s});
}

TEST_F(DesktopApplicationsTests, anApplicationKnowsWhichEntriesItsOwnHides)
{
    add("home/mira/.local/share/applications/a.desktop", "My copy");
    add("usr/local/share/applications/a.desktop", "Of the administrator");
    add("usr/share/applications/a.desktop", "Of a package", "X-SnapInstanceName=a\n");
    add("usr/share/applications/b.desktop", "B");
    const QList<DesktopApplication> all = desktopApplications(machine.fileManager());
    ASSERT_EQ(all.size(), 2);
    ASSERT_EQ(all[0].hidden.size(), 2);
    EXPECT_EQ(all[0].hidden[0].file, machine.root().appending(u"usr/local/share/applications/a.desktop"_s));
    const DesktopApplication package = hiddenApplication(all[0], all[0].hidden[1], machine.fileManager());
    EXPECT_EQ(package.id, u"a"_s);
    EXPECT_EQ(package.file, machine.root().appending(u"usr/share/applications/a.desktop"_s));
    EXPECT_EQ(package.dataFolder, machine.root().appending(u"usr/share"_s));
    EXPECT_EQ(package.entry.name, u"Of a package"_s);
    EXPECT_EQ(package.entry.snap, u"a"_s);
    EXPECT_TRUE(all[1].hidden.isEmpty());
}

TEST_F(DesktopApplicationsTests, aHiddenEntryThatCanNotBeReadIsEmpty)
{
    add("home/mira/.local/share/applications/a.desktop", "My copy");
    machine.files().text("usr/share/applications/a.desktop", "no entry");
    const QList<DesktopApplication> all = desktopApplications(machine.fileManager());
    ASSERT_EQ(all.size(), 1);
    ASSERT_EQ(all[0].hidden.size(), 1);
    EXPECT_EQ(hiddenApplication(all[0], all[0].hidden[0], machine.fileManager()).entry.name, QString());
}

TEST_F(DesktopApplicationsTests, theMenuOfAnyDesktopHasThoseOfOthersButNothingThatNoMenuShows)
{
    const EnvironmentVariable desktop("XDG_CURRENT_DESKTOP");
    desktop.set("KDE");
    add("usr/share/applications/a.desktop", "A", "OnlyShowIn=GNOME;\n");
    add("usr/share/applications/b.desktop", "B", "NotShowIn=KDE;\n");
    add("usr/share/applications/c.desktop", "C", "NoDisplay=true\n");
    add("usr/share/applications/d.desktop", "D", "Hidden=true\n");
    EXPECT_EQ(shown(), QStringList());
    EXPECT_EQ(shown(Menu::ofAnyDesktop), (QStringList{u"a: A"_s, u"b: B"_s}));
}

TEST_F(DesktopApplicationsTests, theHomeAndTheFolderOfDataOutsideItAreTheUsersOwn)
{
    const DataElsewhere files(machine.root());
    const auto isOwn = [&](const char* path) {
        return isUsersOwn(machine.root().appendingNative(path), files);
    };
    EXPECT_TRUE(isOwn("home/mira/.local/share/applications/a.desktop"));
    EXPECT_TRUE(isOwn("data/mira/applications/a.desktop"));
    EXPECT_FALSE(isOwn("data/mirabel/applications/a.desktop"));
    EXPECT_FALSE(isOwn("usr/share/applications/a.desktop"));
}

TEST_F(DesktopApplicationsTests, onlyApplicationsThatTheMenuShowsAreListed)
{
    add("usr/share/applications/a.desktop", "A");
    machine.files().text("usr/share/applications/link.desktop", "[Desktop Entry]\nType=Link\nName=Link\n");
    machine.files().text("usr/share/applications/broken.desktop", "no entry");
    machine.files().text("usr/share/applications/mimeinfo.cache", "[MIME Cache]\n");
    machine.files().folder("usr/share/applications/folder.desktop");
    add("usr/share/applications/gnome.desktop", "GNOME's", "OnlyShowIn=GNOME;\n");
    EXPECT_EQ(shown(), QStringList{u"a: A"_s});
    const EnvironmentVariable desktop("XDG_CURRENT_DESKTOP");
    desktop.set("ubuntu:GNOME");
    EXPECT_EQ(shown(), (QStringList{u"a: A"_s, u"gnome: GNOME's"_s}));
}

TEST_F(DesktopApplicationsTests, aProgramThatIsToBeTriedHasToBeThere)
{
    const EnvironmentVariable path("PATH");
    path.set("/usr/games:/usr/bin");
    machine.files().program("usr/bin/there", "#!/bin/sh\n");
    machine.files().text("usr/bin/no-program", "");
    machine.files().program("opt/editor", "#!/bin/sh\n");
    add("usr/share/applications/a.desktop", "A", "TryExec=there\n");
    add("usr/share/applications/b.desktop", "B", "TryExec=gone\n");
    add("usr/share/applications/c.desktop", "C", "TryExec=no-program\n");
    add("usr/share/applications/d.desktop", "D", "TryExec=/opt/editor\n");
    add("usr/share/applications/e.desktop", "E", "TryExec=/opt/gone\n");
    EXPECT_EQ(shown(), (QStringList{u"a: A"_s, u"d: D"_s}));
}

TEST_F(DesktopApplicationsTests, theirNamesAreInTheUsersLanguage)
{
    const EnvironmentVariable language("LC_ALL");
    language.set("de_DE.UTF-8");
    add("usr/share/applications/a.desktop", "Files", "Name[de]=Dateien\n");
    EXPECT_EQ(shown(), QStringList{u"a: Dateien"_s});
}

TEST_F(DesktopApplicationsTests, aLinkToAnEntryIsAnEntry)
{
    add("var/lib/flatpak/app/org.example.App/x.desktop", "Linked");
    machine.files().link("var/lib/flatpak/exports/share/applications/org.example.App.desktop",
                         "../../../app/org.example.App/x.desktop");
    EXPECT_EQ(shown(), QStringList{u"org.example.App: Linked"_s});
}

} // namespace keelbright::testing

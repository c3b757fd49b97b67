#include "KeelbrightCore/apps/LinuxApps.h"

#include "tests/support/DataElsewhere.h"
#include "tests/support/Printing.h"
#include "tests/support/TestLinux.h"

#include <QCoreApplication>
#include <algorithm>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

class LinuxAppsTests : public ::testing::Test
{
protected:
    LinuxAppsTests() { language.set("de_DE.UTF-8"); }

    [[nodiscard]] AppFacts named(const QString& name)
    {
        const QList<AppFacts> all = LinuxApps::installed(machine.fileManager());
        const auto found = std::ranges::find(all, name, &AppFacts::name);
        EXPECT_TRUE(found != all.end()) << name.toStdString();
        return found == all.end() ? AppFacts() : *found;
    }

    /// As a menu editor leaves it: an entry of the user's with the id of another.
    void addOwnCopy(const QByteArray& id, const QByteArray& more) const
    {
        machine.files().text("home/mira/.local/share/applications/" + id + ".desktop",
                             "[Desktop Entry]\nType=Application\n" + more);
    }

    [[nodiscard]] QDateTime daysAgo(int days) const { return machine.clock()().addDays(-days); }

    int argc = 1;
    char programName[5] = "test";
    char* argv[1] = {programName};
    QCoreApplication application{argc, argv};
    EnvironmentVariable language{"LC_ALL"};
    TestLinux machine;
    MadeUpLinux home = machine.madeUp(MadeUpLinux::Desktop::gnome, MadeUpLinux::Language::german);
};

} // namespace

TEST_F(LinuxAppsTests, aMachineWithoutApplicationsHasNone)
{
    EXPECT_TRUE(LinuxApps::installed(machine.fileManager()).isEmpty());
}

TEST_F(LinuxAppsTests, anApplicationOfAPackageHasWhatThePackageKnows)
{
    home.addApplications();
    const AppFacts files = named(u"Dateien"_s);
    EXPECT_EQ(files.bundleID, u"org.gnome.Nautilus"_s);
    EXPECT_EQ(files.url, machine.root().appending(u"usr/share/applications/org.gnome.Nautilus.desktop"_s));
    EXPECT_EQ(files.version, u"43.2-1"_s);
    EXPECT_EQ(files.sizeBytes, 3'900 * 1'024);
    EXPECT_EQ(files.dateAdded, daysAgo(700));
    EXPECT_EQ(files.removalCommand, u"sudo apt remove nautilus"_s);
    EXPECT_EQ(files.themeIcon, u"org.gnome.Nautilus"_s);
}

TEST_F(LinuxAppsTests, aFlatpakAndASnapHaveTheirOwn)
{
    home.addApplications();
    const AppFacts maps = named(u"Maps"_s);
    EXPECT_EQ(maps.version, u"45.2"_s);
    EXPECT_EQ(maps.sizeBytes, 12'345'678);
    EXPECT_EQ(maps.removalCommand, u"flatpak uninstall org.gnome.Maps"_s);
    const AppFacts firefox = named(u"Firefox"_s);
    EXPECT_EQ(firefox.bundleID, u"firefox_firefox"_s);
    EXPECT_EQ(firefox.version, u"121.0-1"_s);
    EXPECT_EQ(firefox.removalCommand, u"sudo snap remove firefox"_s);
}

TEST_F(LinuxAppsTests, theUsersCopyOfAnEntryOfAPackageIsStillThePackages)
{
    home.addApplications();
    addOwnCopy("org.gnome.Nautilus", "Name=My files\nExec=nautilus\nIcon=folder\n");
    EXPECT_EQ(LinuxApps::installed(machine.fileManager()).size(), 4);
    const AppFacts files = named(u"My files"_s);
    EXPECT_EQ(files.bundleID, u"org.gnome.Nautilus"_s);
    EXPECT_EQ(files.url, machine.root().appending(u"usr/share/applications/org.gnome.Nautilus.desktop"_s));
    EXPECT_EQ(files.version, u"43.2-1"_s);
    EXPECT_EQ(files.sizeBytes, 3'900 * 1'024);
    EXPECT_EQ(files.dateAdded, daysAgo(700));
    EXPECT_EQ(files.removalCommand, u"sudo apt remove nautilus"_s);
    EXPECT_EQ(files.themeIcon, u"folder"_s);
    EXPECT_TRUE(files.isForAllUsers);
}

TEST_F(LinuxAppsTests, theUsersCopyOfAnEntryOfAFlatpakIsStillTheFlatpaks)
{
    home.addApplications();
    addOwnCopy("org.gnome.Maps", "Name=My maps\nExec=/usr/bin/flatpak run org.gnome.Maps\n"
                                 "X-Flatpak=org.gnome.Maps\n");
    const AppFacts maps = named(u"My maps"_s);
    EXPECT_EQ(maps.url, machine.root().appending(
                            u"var/lib/flatpak/exports/share/applications/org.gnome.Maps.desktop"_s));
    EXPECT_EQ(maps.version, u"45.2"_s);
    EXPECT_EQ(maps.sizeBytes, 12'345'678);
    EXPECT_EQ(maps.dateAdded, daysAgo(200));
    EXPECT_EQ(maps.removalCommand, u"flatpak uninstall org.gnome.Maps"_s);
    EXPECT_TRUE(maps.isForAllUsers);
}

TEST_F(LinuxAppsTests, theUsersCopyOfAnEntryOfASnapIsStillTheSnaps)
{
    home.addApplications();
    addOwnCopy("firefox_firefox", "Name=My browser\nExec=/snap/bin/firefox %u\n");
    const AppFacts firefox = named(u"My browser"_s);
    EXPECT_EQ(firefox.url,
              machine.root().appending(u"var/lib/snapd/desktop/applications/firefox_firefox.desktop"_s));
    EXPECT_EQ(firefox.version, u"121.0-1"_s);
    EXPECT_EQ(firefox.sizeBytes, 250'000);
    EXPECT_EQ(firefox.dateAdded, daysAgo(90));
    EXPECT_EQ(firefox.removalCommand, u"sudo snap remove firefox"_s);
    EXPECT_TRUE(firefox.isForAllUsers);
}

TEST_F(LinuxAppsTests, theUsersCopyOfAnEntryOfNoPackageIsStillForAllUsers)
{
    machine.files().text("usr/local/share/applications/a.desktop",
                         "[Desktop Entry]\nType=Application\nName=Shared\n", 50);
    addOwnCopy("a", "Name=My copy\n");
    const AppFacts facts = named(u"My copy"_s);
    EXPECT_EQ(facts.url, machine.root().appending(u"usr/local/share/applications/a.desktop"_s));
    EXPECT_EQ(facts.dateAdded, daysAgo(50));
    EXPECT_EQ(facts.removalCommand, QString());
    EXPECT_TRUE(facts.isForAllUsers);
}

TEST_F(LinuxAppsTests, aPackageIsNotListedWhereTheUsersCopyHidesItsEntry)
{
    home.addApplications();
    addOwnCopy("org.gnome.Nautilus", "Name=Files\nHidden=true\n");
    addOwnCopy("org.gnome.Maps", "Name=Maps\nNoDisplay=true\n");
    QStringList names;
    for (const AppFacts& app : LinuxApps::installed(machine.fileManager()))
        names.append(app.name);
    names.sort();
    EXPECT_EQ(names, (QStringList{u"Firefox"_s, u"Krita"_s}));
}

TEST_F(LinuxAppsTests, anAppImageInThePlaceOfAPackageIsTheUsersOwn)
{
    home.addApplications();
    home.addAppImage("Applications/Files-50.0.AppImage", 2'000, 3);
    addOwnCopy("org.gnome.Nautilus", "Name=My files\nExec=/home/mira/Applications/Files-50.0.AppImage\n");
    const AppFacts files = named(u"My files"_s);
    EXPECT_EQ(files.url, machine.atHome("Applications/Files-50.0.AppImage"));
    EXPECT_EQ(files.version, u"50.0"_s);
    EXPECT_EQ(files.removalCommand, QString());
    EXPECT_FALSE(files.isForAllUsers);
}

TEST_F(LinuxAppsTests, anAppImageThatTwoFoldersLeadToIsListedOnce)
{
    machine.files().link("home/mira/bin", ".local/bin");
    home.addAppImage(".local/bin/ink-2.0.AppImage", 1'000, 5);
    addOwnCopy("ink", "Name=Ink\nExec=/home/mira/.local/bin/ink-2.0.AppImage\n");
    const QList<AppFacts> all = LinuxApps::installed(machine.fileManager());
    ASSERT_EQ(all.size(), 1);
    EXPECT_EQ(all.first().name, u"Ink"_s);
    EXPECT_EQ(all.first().version, u"2.0"_s);
}

TEST_F(LinuxAppsTests, anAppImageWithAnEntryIsOneApplicationAndItsFileIsWhatCanGo)
{
    home.addApplications();
    EXPECT_EQ(LinuxApps::installed(machine.fileManager()).size(), 4);
    const AppFacts krita = named(u"Krita"_s);
    EXPECT_EQ(krita.url, machine.atHome("Applications/krita-5.2.2-x86_64.appimage"));
    EXPECT_EQ(krita.version, u"5.2.2"_s);
    EXPECT_EQ(krita.sizeBytes, 300'000);
    EXPECT_EQ(krita.dateAdded, daysAgo(60));
    EXPECT_EQ(krita.removalCommand, QString());
    EXPECT_EQ(krita.themeIcon, u"krita"_s);
}

TEST_F(LinuxAppsTests, anAppImageWithoutAnEntryIsListedByItsFile)
{
    home.addAppImage("Downloads/KeePassXC-2.7.6-x86_64.AppImage", 1'000, 5);
    const AppFacts keys = named(u"KeePassXC"_s);
    EXPECT_EQ(keys.version, u"2.7.6"_s);
    EXPECT_EQ(keys.bundleID, u"KeePassXC-2.7.6-x86_64.AppImage"_s);
    EXPECT_FALSE(keys.hasUsageRecord);
}

TEST_F(LinuxAppsTests, onlyWhatLiesInTheUsersOwnFolderOfDataIsTheUsersOwn)
{
    const QByteArray entry = "[Desktop Entry]\nType=Application\nName=";
    machine.files().text("usr/local/share/applications/a.desktop", entry + "Shared\n");
    machine.files().text("home/mira/.local/share/applications/b.desktop", entry + "Own\n");
    home.addAppImage("Downloads/Own-1.0.AppImage", 1'000, 5);
    EXPECT_TRUE(named(u"Shared"_s).isForAllUsers);
    EXPECT_EQ(named(u"Shared"_s).removalCommand, QString());
    for (const AppFacts& app : LinuxApps::installed(machine.fileManager()))
        EXPECT_EQ(app.isForAllUsers, app.name == u"Shared"_s) << app.name.toStdString();
}

TEST_F(LinuxAppsTests, theUsersOwnFolderOfDataMayLieOutsideTheHome)
{
    machine.files().text("data/mira/applications/b.desktop", "[Desktop Entry]\nType=Application\nName=Own\n");
    const QList<AppFacts> all = LinuxApps::installed(DataElsewhere(machine.root()));
    ASSERT_EQ(all.size(), 1);
    EXPECT_FALSE(all.first().isForAllUsers);
}

} // namespace keelbright::testing

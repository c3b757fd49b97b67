#include "KeelbrightCore/apps/LinuxApps.h"

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

} // namespace keelbright::testing

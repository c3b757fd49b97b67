#include "KeelbrightCore/apps/LinuxLeftovers.h"

#include "KeelbrightCore/apps/AppLeftoversScanner.h"
#include "tests/support/DataElsewhere.h"
#include "tests/support/Printing.h"
#include "tests/support/TestLinux.h"

#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

/// The leftovers on a machine that is no Mac.
class LinuxLeftoversTests : public ::testing::Test
{
protected:
    void addEntry(const QByteArray& id, const QByteArray& exec, const QByteArray& more = {}) const
    {
        machine.files().text("usr/share/applications/" + id + ".desktop",
                             "[Desktop Entry]\nType=Application\nName=" + id + "\nExec=" + exec + '\n' +
                                 more);
    }

    void write(const QByteArray& path, qint64 bytes) const
    {
        machine.files().noise("home/mira/" + path, bytes);
    }

    /// Below the home, as "path kind size", in their order.
    [[nodiscard]] QStringList found(const QString& id) const
    {
        QStringList lines;
        for (const AppLeftover& leftover : AppLeftoversScanner::scan(id, u"Name of it"_s)) {
            lines.append(u"%1 %2 %3"_s.arg(leftover.url.path().mid(machine.home().path().size() + 1),
                                           AppLeftover::rawValue(leftover.kind),
                                           QString::number(leftover.sizeBytes)));
        }
        return lines;
    }

    TestLinux machine;
};

} // namespace

TEST_F(LinuxLeftoversTests, anApplicationThatIsNotInstalledHasNone)
{
    write(".config/org.example.Ink/settings", 10);
    EXPECT_EQ(found(u"org.example.Ink"_s), QStringList());
}

TEST_F(LinuxLeftoversTests, theFoldersOfItsIdentifierAndOfItsProgramAreFound)
{
    addEntry("org.example.Ink", "/usr/bin/ink %U");
    write(".config/org.example.Ink/settings", 50);
    write(".config/ink/old", 40);
    write(".local/share/ink/brushes", 30);
    write(".local/state/ink/history", 20);
    write(".cache/ink/previews", 10);
    EXPECT_EQ(found(u"org.example.Ink"_s),
              (QStringList{u".config/org.example.Ink Preferences 50"_s, u".config/ink Preferences 40"_s,
                           u".local/share/ink App Support 30"_s, u".local/state/ink Saved State 20"_s,
                           u".cache/ink Cache 10"_s}));
}

TEST_F(LinuxLeftoversTests, onlyTheExactNameCounts)
{
    addEntry("org.example.Ink", "ink");
    write(".config/inkscape/settings", 10);
    write(".config/Ink/settings", 10);
    write(".config/org.example.Ink.plugin/settings", 10);
    write(".config/Name of it/settings", 10);
    machine.files().text("home/mira/.cache/ink", "a file");
    EXPECT_EQ(found(u"org.example.Ink"_s), QStringList());
}

TEST_F(LinuxLeftoversTests, aFolderThatAnotherApplicationSharesIsNotFound)
{
    addEntry("libreoffice-writer", "libreoffice --writer %U");
    addEntry("libreoffice-calc", "libreoffice --calc %U");
    write(".config/libreoffice/registry", 10);
    EXPECT_EQ(found(u"libreoffice-writer"_s), QStringList());
    addEntry("other", "/opt/other");
    addEntry("org.example.Other", "ink", "X-Flatpak=other\n");
    write(".config/other/a", 10);
    EXPECT_EQ(found(u"other"_s), QStringList()) << "it is the other one's identifier";
}

TEST_F(LinuxLeftoversTests, theFoldersOfTheDesktopAndOfProgramsThatRunOthersAreNotFound)
{
    addEntry("org.example.A", "applications");
    addEntry("org.example.B", "python3 /opt/b.py");
    addEntry("org.example.C", "../Documents");
    write(".local/share/applications/a.desktop", 10);
    write(".config/python3/a", 10);
    write(".local/Documents/a", 10);
    for (const QString& id : {u"org.example.A"_s, u"org.example.B"_s, u"org.example.C"_s})
        EXPECT_EQ(found(id), QStringList()) << id.toStdString();
}

TEST_F(LinuxLeftoversTests, whatTheDesktopUsesWithoutTheProgramIsNotFound)
{
    addEntry("org.gnome.Evolution", "evolution %U");
    write(".local/share/evolution/calendar/system/calendar.ics", 10);
    write(".config/evolution/sources/account.source", 10);
    write(".cache/evolution/addressbook/cache.db", 10);
    write(".config/org.gnome.Evolution/own", 30);
    EXPECT_EQ(found(u"org.gnome.Evolution"_s), QStringList{u".config/org.gnome.Evolution Preferences 30"_s});
    addEntry("org.kde.konsole", "konsole");
    write(".local/share/konsole/Shell.profile", 10);
    EXPECT_EQ(found(u"org.kde.konsole"_s), QStringList());
}

TEST_F(LinuxLeftoversTests, aFolderIsSharedAlsoWithAnApplicationThatOnlyAnotherDesktopShows)
{
    const EnvironmentVariable desktop("XDG_CURRENT_DESKTOP");
    desktop.set("KDE");
    addEntry("org.example.Ink", "ink");
    write(".config/ink/settings", 10);
    addEntry("org.example.Helper", "ink --open", "NoDisplay=true\n");
    addEntry("org.example.Old", "ink", "Hidden=true\n");
    EXPECT_EQ(found(u"org.example.Ink"_s), QStringList{u".config/ink Preferences 10"_s})
        << "what no menu shows is a part of the application";
    addEntry("org.example.InkForGnome", "ink --gnome", "OnlyShowIn=GNOME;\n");
    EXPECT_EQ(found(u"org.example.Ink"_s), QStringList());
    addEntry("org.example.InkForGnome", "ink --gnome", "NotShowIn=KDE;\n");
    EXPECT_EQ(found(u"org.example.Ink"_s), QStringList());
}

TEST_F(LinuxLeftoversTests, aFolderIsSharedAlsoWithAnotherProgramWhoseEntryIsHidden)
{
    const MadeUpLinux mira = machine.madeUp(MadeUpLinux::Desktop::gnome);
    mira.addAppImage("Applications/Ink-2.0.AppImage", 100, 1);
    machine.files().text("home/mira/.local/share/applications/org.example.Ink.desktop",
                         "[Desktop Entry]\nType=Application\nName=Ink\n"
                         "Exec=/home/mira/Applications/Ink-2.0.AppImage\n");
    write(".config/org.example.Ink/settings", 100'000);
    EXPECT_EQ(found(u"org.example.Ink"_s).value(0), u".config/org.example.Ink Preferences 100000"_s);
    addEntry("org.example.Ink", "ink");
    const QStringList lines = found(u"org.example.Ink"_s);
    ASSERT_EQ(lines.size(), 1) << "the package's program stays and keeps its settings";
    EXPECT_TRUE(lines.first().startsWith(u".local/share/applications/org.example.Ink.desktop Other "_s))
        << lines.first().toStdString();
}

TEST_F(LinuxLeftoversTests, aCopyOfAnEntryOfTheSameProgramSharesNothing)
{
    addEntry("org.example.Ink", "/usr/bin/ink %U");
    machine.files().text("home/mira/.local/share/applications/org.example.Ink.desktop",
                         "[Desktop Entry]\nType=Application\nName=My Ink\nExec=env A=1 ink %U\n");
    write(".config/ink/settings", 10);
    EXPECT_EQ(found(u"org.example.Ink"_s), QStringList{u".config/ink Preferences 10"_s});
}

TEST_F(LinuxLeftoversTests, aFlatpakHasAFolderOfItsOwn)
{
    machine.madeUp(MadeUpLinux::Desktop::gnome).addFlatpak("org.gnome.Maps", "Maps", "45.2", 1, 1);
    write(".var/app/org.gnome.Maps/config/maps.json", 25);
    EXPECT_EQ(found(u"org.gnome.Maps"_s), QStringList{u".var/app/org.gnome.Maps Container 25"_s});
}

TEST_F(LinuxLeftoversTests, theEntryOfAnAppImageGoesWithIt)
{
    machine.madeUp(MadeUpLinux::Desktop::gnome).addApplications();
    const QStringList lines = found(u"appimagekit_0a1b-Krita"_s);
    ASSERT_EQ(lines.size(), 1);
    EXPECT_TRUE(
        lines.first().startsWith(u".local/share/applications/appimagekit_0a1b-Krita.desktop Other "_s))
        << lines.first().toStdString();
}

TEST_F(LinuxLeftoversTests, theEntryOfAnAppImageMayLieOutsideTheHome)
{
    const MadeUpLinux mira = machine.madeUp(MadeUpLinux::Desktop::gnome);
    mira.addAppImage("Applications/Ink-2.0.AppImage", 100, 1);
    machine.files().text("data/mira/applications/ink.desktop",
                         "[Desktop Entry]\nType=Application\nName=Ink\n"
                         "Exec=/home/mira/Applications/Ink-2.0.AppImage\n");
    const QList<AppLeftover> leftovers =
        LinuxLeftovers::scan(u"ink"_s, DataElsewhere(machine.root()), Cancellation());
    ASSERT_EQ(leftovers.size(), 1);
    EXPECT_EQ(leftovers.first().url, machine.root().appending(u"data/mira/applications/ink.desktop"_s));
    EXPECT_EQ(leftovers.first().kind, AppLeftover::Kind::other);
}

TEST_F(LinuxLeftoversTests, theHomeAsAFolderOfTheEnvironmentIsNotSearched)
{
    const EnvironmentVariable configurationHome("XDG_CONFIG_HOME");
    configurationHome.set(machine.home().nativePath());
    addEntry("Documents", "docs");
    write("Documents/novel.odt", 10);
    EXPECT_EQ(found(u"Documents"_s), QStringList());
}

} // namespace keelbright::testing

#include "KeelbrightCore/platform/system/AppImages.h"

#include "tests/support/Printing.h"
#include "tests/support/TestLinux.h"

#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

QString parts(const QString& fileName)
{
    const AppImage image = appImageNamed(FileURL::fromPath(u"/home/mira/"_s + fileName));
    return image.name + u'|' + image.version;
}

} // namespace

TEST(AppImages, areFoundWherePeopleKeepThem)
{
    TestLinux machine;
    const MadeUpLinux home = machine.madeUp(MadeUpLinux::Desktop::gnome, MadeUpLinux::Language::german);
    home.addUserFolders();
    const QByteArrayList paths{
        "Applications/a.AppImage", "AppImages/b.AppImage",    "bin/c.AppImage", ".local/bin/d.appimage",
        "Downloads/e.AppImage",    "Schreibtisch/f.AppImage", "g.AppImage"};
    for (const QByteArray& path : paths)
        home.addAppImage(path, 100, 1);
    home.addAppImage("Dokumente/elsewhere.AppImage", 100, 1);
    home.addAppImage("Downloads/.hidden.AppImage", 100, 1);
    QByteArrayList found;
    for (const AppImage& image : appImages(machine.fileManager()))
        found.append(image.file.nativePath().sliced(machine.home().nativePath().size() + 1));
    EXPECT_EQ(found, paths);
}

TEST(AppImages, aFileThatIsOnlyCalledSoIsNone)
{
    TestLinux machine;
    machine.files().text("home/mira/Downloads/text.AppImage", "not a program");
    machine.files().text("home/mira/Downloads/short.AppImage", "\x7F"
                                                               "ELF");
    machine.files().text("home/mira/Downloads/plain.AppImage", QByteArray("\x7F"
                                                                          "ELF\x02\x01\x01\x00\x00\x00\x00",
                                                                          11));
    machine.files().folder("home/mira/Downloads/folder.AppImage");
    EXPECT_TRUE(appImages(machine.fileManager()).isEmpty());
}

TEST(AppImages, aFolderIsSearchedOnceWhereAnotherIsALinkToItOrIsTheSame)
{
    TestLinux machine;
    const MadeUpLinux home = machine.madeUp(MadeUpLinux::Desktop::gnome);
    machine.files().text("home/mira/.config/user-dirs.dirs",
                         "XDG_DESKTOP_DIR=\"$HOME/Downloads\"\nXDG_DOWNLOAD_DIR=\"$HOME/Downloads\"\n");
    machine.files().link("home/mira/bin", ".local/bin");
    home.addAppImage(".local/bin/a.AppImage", 100, 1);
    home.addAppImage("Downloads/b.AppImage", 100, 1);
    const QList<AppImage> images = appImages(machine.fileManager());
    ASSERT_EQ(images.size(), 2);
    EXPECT_EQ(images[0].file, machine.atHome("bin/a.AppImage"));
    EXPECT_EQ(images[0].place,
              machine.fileManager().resolvingSymlinks(machine.atHome(".local/bin/a.AppImage")));
    EXPECT_EQ(images[1].file, machine.atHome("Downloads/b.AppImage"));
}

TEST(AppImages, anEntryRunsThemByTheirPathOrThroughLinks)
{
    TestLinux machine;
    const MadeUpLinux home = machine.madeUp(MadeUpLinux::Desktop::gnome);
    machine.files().link("home/mira/bin", ".local/bin");
    home.addAppImage("Downloads/other.AppImage", 100, 1);
    home.addAppImage(".local/bin/ink.AppImage", 100, 1);
    machine.files().link("home/mira/.local/bin/ink", "ink.AppImage");
    machine.files().link("home/mira/.local/bin/gone", "gone.AppImage");
    const QList<AppImage> images = appImages(machine.fileManager());
    const auto runBy = [&](const QString& exec) {
        DesktopApplication application;
        application.entry.exec = exec;
        const AppImage* image = imageOf(application, images, machine.fileManager());
        return image == nullptr ? QString() : image->name;
    };
    EXPECT_EQ(runBy(u"/home/mira/bin/ink.AppImage %F"_s), u"ink"_s);
    EXPECT_EQ(runBy(u"/home/mira/.local/bin/ink.AppImage"_s), u"ink"_s);
    EXPECT_EQ(runBy(u"env A=1 /home/mira/bin/ink"_s), u"ink"_s);
    EXPECT_EQ(runBy(u"/home/mira/bin/gone"_s), QString());
    EXPECT_EQ(runBy(u"/home/mira/Downloads/ink.AppImage"_s), QString());
    EXPECT_EQ(runBy(u"ink.AppImage"_s), QString()) << "not a path";
    EXPECT_EQ(runBy(QString()), QString());
}

TEST(AppImages, theNameOfTheFileSaysNameAndVersion)
{
    EXPECT_EQ(parts(u"krita-5.2.2-x86_64.appimage"_s), u"krita|5.2.2"_s);
    EXPECT_EQ(parts(u"KeePassXC-2.7.6-x86_64.AppImage"_s), u"KeePassXC|2.7.6"_s);
    EXPECT_EQ(parts(u"Joplin-v2.13.15.AppImage"_s), u"Joplin|2.13.15"_s);
    EXPECT_EQ(parts(u"nvim.appimage"_s), u"nvim|"_s);
    EXPECT_EQ(parts(u"My_Editor_1.0_linux_amd64.AppImage"_s), u"My Editor|1.0"_s);
    EXPECT_EQ(parts(u"OpenSCAD-2021.01-x86_64.AppImage"_s), u"OpenSCAD|2021.01"_s);
    EXPECT_EQ(parts(u"7zip.AppImage"_s), u"7zip|"_s);
    EXPECT_EQ(parts(u"krita-5.2.2-x86_64_0123456789abcdef0123456789abcdef.AppImage"_s), u"krita|5.2.2"_s);
    EXPECT_EQ(parts(u"nvim_0123456789abcdef0123456789abcdef.appimage"_s), u"nvim|"_s);
    EXPECT_EQ(parts(u"nvim_0123456789abcdef.appimage"_s), u"nvim 0123456789abcdef|"_s) << "too short";
}

} // namespace keelbright::testing

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

TEST(AppImages, theNameOfTheFileSaysNameAndVersion)
{
    EXPECT_EQ(parts(u"krita-5.2.2-x86_64.appimage"_s), u"krita|5.2.2"_s);
    EXPECT_EQ(parts(u"KeePassXC-2.7.6-x86_64.AppImage"_s), u"KeePassXC|2.7.6"_s);
    EXPECT_EQ(parts(u"Joplin-v2.13.15.AppImage"_s), u"Joplin|2.13.15"_s);
    EXPECT_EQ(parts(u"nvim.appimage"_s), u"nvim|"_s);
    EXPECT_EQ(parts(u"My_Editor_1.0_linux_amd64.AppImage"_s), u"My Editor|1.0"_s);
    EXPECT_EQ(parts(u"OpenSCAD-2021.01-x86_64.AppImage"_s), u"OpenSCAD|2021.01"_s);
    EXPECT_EQ(parts(u"7zip.AppImage"_s), u"7zip|"_s);
}

} // namespace keelbright::testing

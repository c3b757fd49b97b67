#include "KeelbrightCore/apps/DpkgPackages.h"

#include "tests/support/Printing.h"
#include "tests/support/TestLinux.h"

#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

const QByteArray editor = "/usr/share/applications/editor.desktop";

class DpkgPackagesTests : public ::testing::Test
{
protected:
    [[nodiscard]] DpkgPackages read(const QSet<QByteArray>& paths) { return {paths, machine.fileManager()}; }

    TestLinux machine;
    MadeUpLinux home = machine.madeUp(MadeUpLinux::Desktop::gnome);
};

} // namespace

TEST_F(DpkgPackagesTests, thePackageOfAnEntryIsKnown)
{
    home.addPackage("gedit", "43.2-1", 2'048, {"/.", "/usr/bin/gedit", editor}, 400);
    home.addPackage("vim", "9.0", 3'000, {"/.", "/usr/bin/vim"}, 10);
    const DpkgPackages packages = read({editor});
    const PackageFacts* facts = packages.ownerOf(editor);
    ASSERT_NE(facts, nullptr);
    EXPECT_EQ(facts->version, u"43.2-1"_s);
    EXPECT_EQ(facts->sizeBytes, 2'097'152);
    EXPECT_EQ(facts->installed, machine.clock()().addDays(-400));
    EXPECT_EQ(facts->removalCommand, u"sudo apt remove gedit"_s);
    EXPECT_EQ(packages.ownerOf("/usr/bin/vim"), nullptr) << "nobody asked for it";
}

TEST_F(DpkgPackagesTests, aMachineWithoutTheDatabaseKnowsNothing)
{
    EXPECT_EQ(read({editor}).ownerOf(editor), nullptr);
}

TEST_F(DpkgPackagesTests, anArchitectureInTheNameOfAListIsNoPartOfThePackage)
{
    home.addPackage("gedit", "43.2-1", 1, {"/."}, 1);
    machine.files().text("var/lib/dpkg/info/gedit:amd64.list", "/.\n" + editor + '\n');
    const DpkgPackages packages = read({editor});
    ASSERT_NE(packages.ownerOf(editor), nullptr);
    EXPECT_EQ(packages.ownerOf(editor)->removalCommand, u"sudo apt remove gedit"_s);
}

TEST_F(DpkgPackagesTests, aPackageOfWhichOnlySettingsAreLeftOwnsNothing)
{
    machine.files().text("var/lib/dpkg/status",
                         "Package: gedit\nStatus: deinstall ok config-files\nVersion: 1\n\n");
    machine.files().text("var/lib/dpkg/info/gedit.list", editor + '\n');
    EXPECT_EQ(read({editor}).ownerOf(editor), nullptr);
}

TEST_F(DpkgPackagesTests, theLastParagraphNeedsNoEmptyLine)
{
    machine.files().text("var/lib/dpkg/status",
                         "Package: gedit\nStatus: install ok installed\nVersion: 1\nInstalled-Size: x");
    machine.files().text("var/lib/dpkg/info/gedit.list", editor + '\n');
    const DpkgPackages packages = read({editor});
    ASSERT_NE(packages.ownerOf(editor), nullptr);
    EXPECT_EQ(packages.ownerOf(editor)->version, u"1"_s);
    EXPECT_EQ(packages.ownerOf(editor)->sizeBytes, std::nullopt) << "that is no number";
}

TEST_F(DpkgPackagesTests, onlyAWholePathIsTheFile)
{
    home.addPackage("gedit", "1", 1, {editor + ".bak.desktop", "/opt" + editor}, 1);
    EXPECT_EQ(read({editor}).ownerOf(editor), nullptr);
}

} // namespace keelbright::testing

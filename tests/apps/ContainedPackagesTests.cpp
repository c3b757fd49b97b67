#include "KeelbrightCore/apps/ContainedPackages.h"

#include "tests/support/DataElsewhere.h"
#include "tests/support/Printing.h"
#include "tests/support/TestLinux.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

class ContainedPackagesTests : public ::testing::Test
{
protected:
    [[nodiscard]] DesktopApplication only()
    {
        const QList<DesktopApplication> all = desktopApplications(machine.fileManager());
        EXPECT_EQ(all.size(), 1);
        return all.value(0);
    }

    TestLinux machine;
    MadeUpLinux home = machine.madeUp(MadeUpLinux::Desktop::gnome);
};

} // namespace

TEST_F(ContainedPackagesTests, aFlatpakHasWhatFlatpakWroteDown)
{
    home.addFlatpak("org.gnome.Maps", "Maps", "45.2", 12'345'678, 200);
    const auto facts = ContainedPackages::flatpak(only(), machine.fileManager());
    EXPECT_EQ(facts, (PackageFacts{.version = u"45.2"_s,
                                   .sizeBytes = 12'345'678,
                                   .installed = machine.clock()().addDays(-200),
                                   .removalCommand = u"flatpak uninstall org.gnome.Maps"_s}));
    EXPECT_EQ(ContainedPackages::snap(only(), machine.fileManager()), std::nullopt);
}

TEST_F(ContainedPackagesTests, aFlatpakOfTheUserIsRemovedAsTheUsers)
{
    machine.files().text("home/mira/.local/share/flatpak/exports/share/applications/org.example.A.desktop",
                         "[Desktop Entry]\nType=Application\nName=A\nX-Flatpak=org.example.A\n");
    const auto facts = ContainedPackages::flatpak(only(), machine.fileManager());
    ASSERT_TRUE(facts);
    EXPECT_EQ(facts->removalCommand, u"flatpak uninstall --user org.example.A"_s);
    EXPECT_EQ(facts->sizeBytes, std::nullopt);
    EXPECT_EQ(facts->version, QString());
}

TEST_F(ContainedPackagesTests, aFlatpakOfTheUserMayLieOutsideTheHome)
{
    machine.files().text("data/mira/flatpak/exports/share/applications/org.example.A.desktop",
                         "[Desktop Entry]\nType=Application\nName=A\nX-Flatpak=org.example.A\n");
    const DataElsewhere files(machine.root());
    const QList<DesktopApplication> all = desktopApplications(files);
    ASSERT_EQ(all.size(), 1);
    const auto facts = ContainedPackages::flatpak(all.first(), files);
    ASSERT_TRUE(facts);
    EXPECT_EQ(facts->removalCommand, u"flatpak uninstall --user org.example.A"_s);
}

TEST_F(ContainedPackagesTests, anEntryElsewhereThatOnlySaysSoIsNoFlatpak)
{
    machine.files().text("usr/share/applications/a.desktop",
                         "[Desktop Entry]\nType=Application\nName=A\nX-Flatpak=org.example.A\n");
    EXPECT_EQ(ContainedPackages::flatpak(only(), machine.fileManager()), std::nullopt);
}

TEST_F(ContainedPackagesTests, anIdentifierThatLeadsElsewhereIsNone)
{
    machine.files().text("var/lib/flatpak/exports/share/applications/a.desktop",
                         "[Desktop Entry]\nType=Application\nName=A\nX-Flatpak=../../../etc\n"
                         "X-SnapInstanceName=../x\n");
    EXPECT_EQ(ContainedPackages::flatpak(only(), machine.fileManager()), std::nullopt);
    EXPECT_EQ(ContainedPackages::snap(only(), machine.fileManager()), std::nullopt);
}

TEST_F(ContainedPackagesTests, aSnapHasWhatIsInItAndTheSizeOfItsFile)
{
    home.addSnap("firefox", "Firefox", "121.0-1", 90);
    const auto facts = ContainedPackages::snap(only(), machine.fileManager());
    EXPECT_EQ(facts, (PackageFacts{.version = u"121.0-1"_s,
                                   .sizeBytes = 250'000,
                                   .installed = machine.clock()().addDays(-90),
                                   .removalCommand = u"sudo snap remove firefox"_s}));
    EXPECT_EQ(ContainedPackages::flatpak(only(), machine.fileManager()), std::nullopt);
}

TEST_F(ContainedPackagesTests, aSnapIsKnownAlsoWhereSnapsAreMountedElsewhere)
{
    home.addSnap("firefox", "Firefox", "121.0-1", 90);
    const auto at = [this](const QByteArray& path) {
        return machine.root().appendingNative(path).nativePath().toStdString();
    };
    std::filesystem::rename(at("snap"), at("var/lib/snapd/snap"));
    const auto facts = ContainedPackages::snap(only(), machine.fileManager());
    ASSERT_TRUE(facts);
    EXPECT_EQ(facts->version, u"121.0-1"_s);
    EXPECT_EQ(facts->sizeBytes, 250'000);
}

TEST_F(ContainedPackagesTests, aSnapThatIsNotMountedHasItsCommandAlone)
{
    home.addSnap("firefox", "Firefox", "121.0-1", 90);
    std::filesystem::remove_all(machine.root().appendingNative("snap").nativePath().toStdString());
    const auto facts = ContainedPackages::snap(only(), machine.fileManager());
    EXPECT_EQ(facts, (PackageFacts{.version = {},
                                   .sizeBytes = {},
                                   .installed = {},
                                   .removalCommand = u"sudo snap remove firefox"_s}));
}

TEST_F(ContainedPackagesTests, deployDataOfAnyLengthIsRead)
{
    // The width of the ends grows with the whole; 300 bytes of a commit take two bytes each.
    QByteArray data = QByteArray("o") + '\0' + QByteArray(300, 'c') + '\0';
    const qsizetype listEnd = data.size();
    while (data.size() % 8 != 0)
        data += '\0';
    data += QByteArray("\0\0\0\0\0\0\x12\x34", 8);
    for (const qsizetype end : {listEnd, listEnd, qsizetype{2}}) {
        data += static_cast<char>(end & 0xFF);
        data += static_cast<char>(end >> 8);
    }
    EXPECT_EQ(ContainedPackages::sizeInDeployData(data), 0x1234);
}

TEST_F(ContainedPackagesTests, whatIsNoDeployDataHasNoSize)
{
    EXPECT_EQ(ContainedPackages::sizeInDeployData({}), std::nullopt);
    EXPECT_EQ(ContainedPackages::sizeInDeployData("ab"), std::nullopt);
    EXPECT_EQ(ContainedPackages::sizeInDeployData(QByteArray(20, '\0')), std::nullopt) << "a size of 0";
    EXPECT_EQ(ContainedPackages::sizeInDeployData(QByteArray(20, '\xFF')), std::nullopt)
        << "outside the data";
    EXPECT_EQ(ContainedPackages::sizeInDeployData(QByteArray(70'000, '\xFF')), std::nullopt);
}

} // namespace keelbright::testing

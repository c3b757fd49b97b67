#include "KeelbrightCore/backup/ManifestGenerator.h"
#include "KeelbrightCore/platform/system/Host.h"
#include "KeelbrightCore/platform/text/UtcZone.h"
#include "tests/support/Printing.h"
#include "tests/support/TestLinux.h"

#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

class ManifestGeneratorTest : public ::testing::Test
{
protected:
    [[nodiscard]] BackupManifest generate() const { return ManifestGenerator::generate(job); }

    TestMac mac;
    BackupJob job{QUuid::createUuid(),
                  {{QUuid::createUuid(), FileURL::fromPath(u"/Users/mira/Desktop"_s), true},
                   {QUuid::createUuid(), FileURL::fromPath(u"/Users/mira/Secret Plans"_s), false}},
                  {QUuid::createUuid(), FileURL::fromPath(u"/Volumes/Anchor"_s)},
                  QDateTime(QDate(2026, 3, 1), QTime(9, 5, 7, 250), utcZone)};
};

} // namespace

TEST_F(ManifestGeneratorTest, theFixedTextsStandAsTheyAre)
{
    const BackupManifest manifest = generate();
    EXPECT_EQ(manifest.appVersion, u"1.0.0-mvp"_s);
    EXPECT_EQ(
        manifest.notes,
        u"Application binaries are NOT backed up. This manifest only captures metadata and file presence."_s);
}

TEST_F(ManifestGeneratorTest, theJobGivesItsDateAndItsPlaces)
{
    const BackupManifest manifest = generate();
    EXPECT_EQ(manifest.backupDate, job.startedAt);
    EXPECT_EQ(manifest.destinationPath, u"/Volumes/Anchor"_s);
}

TEST_F(ManifestGeneratorTest, aDisabledSourceIsListedToo)
{
    EXPECT_EQ(generate().sourceFolders,
              (QStringList{u"/Users/mira/Desktop"_s, u"/Users/mira/Secret Plans"_s}));
}

TEST_F(ManifestGeneratorTest, theMachineNamesItselfAndItsSystem)
{
    const BackupManifest manifest = generate();
    EXPECT_EQ(manifest.deviceName, Host::localizedName().value_or(u"Unknown Mac"_s));
    EXPECT_FALSE(manifest.deviceName.isEmpty());
    EXPECT_EQ(manifest.macOSVersion, Host::operatingSystemVersionString());
    EXPECT_FALSE(manifest.macOSVersion.isEmpty());
}

TEST_F(ManifestGeneratorTest, applicationsAreListedWithoutTheirExtensionAndFoldersAreNot)
{
    mac.makeFolder("Applications/Alpha.app/Contents");
    mac.makeFolder("Applications/beta.us.app");
    mac.makeFolder("Applications/Utilities/Terminal.app");
    mac.makeFolder("Users/mira/Applications/Mine.app");
    EXPECT_EQ(generate().installedApps, (QStringList{u"Alpha"_s, u"beta.us"_s}));
}

TEST_F(ManifestGeneratorTest, upperCaseNamesSortBeforeLowerCaseOnes)
{
    for (const char* name : {"zeta.app", "alpha.app", "Zulu.app", "Bravo.app", "Ärger.app"})
        mac.makeFolder(QByteArray("Applications/") + name);
    EXPECT_EQ(generate().installedApps,
              (QStringList{u"Bravo"_s, u"Zulu"_s, u"alpha"_s, u"zeta"_s, u"Ärger"_s}));
}

TEST_F(ManifestGeneratorTest, everyAppInANameIsRemoved)
{
    mac.makeFolder("Applications/Note.application.app");
    EXPECT_EQ(generate().installedApps, (QStringList{u"Notelication"_s}));
}

TEST_F(ManifestGeneratorTest, theExtensionComparesWithLetterCase)
{
    mac.makeFolder("Applications/Loud.APP");
    mac.makeFolder("Applications/Quiet.app");
    EXPECT_EQ(generate().installedApps, (QStringList{u"Quiet"_s}));
}

TEST_F(ManifestGeneratorTest, namesSortAsTheyAreListed)
{
    // "a" sorts before "a.b", although "a.app" comes behind "a.b.app" with their extensions.
    mac.makeFolder("Applications/a.b.app");
    mac.makeFolder("Applications/a.app");
    EXPECT_EQ(generate().installedApps, (QStringList{u"a"_s, u"a.b"_s}));
}

TEST_F(ManifestGeneratorTest, withoutAnApplicationsFolderTheListIsEmpty)
{
    EXPECT_EQ(generate().installedApps, QStringList());
    mac.writeFile("Applications", "a file in its place");
    EXPECT_EQ(generate().installedApps, QStringList());
}

TEST_F(ManifestGeneratorTest, theShellComesFromTheEnvironment)
{
    EXPECT_EQ(generate().shellInfo, u"/bin/zsh"_s);
    const EnvironmentVariable shell("SHELL");
    shell.set("");
    EXPECT_EQ(generate().shellInfo, QString());
    shell.unset();
    EXPECT_EQ(generate().shellInfo, u"unknown"_s);
}

TEST_F(ManifestGeneratorTest, aHomeWithoutDotfilesHasAllFourKeys)
{
    EXPECT_EQ(generate().dotfilesPresent, (QMap<QString, bool>{{u".bash_profile"_s, false},
                                                               {u".gitconfig"_s, false},
                                                               {u".ssh"_s, false},
                                                               {u".zshrc"_s, false}}));
}

TEST_F(ManifestGeneratorTest, filesAndFoldersOfTheHomeArePresent)
{
    mac.writeFile("Users/mira/.zshrc", "");
    mac.writeFile("Users/mira/.bash_profile", "");
    mac.writeFile("Users/mira/.gitconfig", "[user]");
    EXPECT_EQ(
        generate().dotfilesPresent,
        (QMap<QString, bool>{
            {u".bash_profile"_s, true}, {u".gitconfig"_s, true}, {u".ssh"_s, false}, {u".zshrc"_s, true}}));
    mac.makeFolder("Users/mira/.ssh");
    EXPECT_TRUE(generate().dotfilesPresent.value(u".ssh"_s));
}

TEST_F(ManifestGeneratorTest, ofAnotherDesktopTheApplicationsAreThoseOfItsMenuAndTheOtherAppImages)
{
    const TestLinux linuxMachine;
    const EnvironmentVariable language("LC_ALL");
    language.set("de_DE.UTF-8");
    const MadeUpLinux home = linuxMachine.madeUp(MadeUpLinux::Desktop::gnome);
    home.addApplications();
    home.addAppImage("Downloads/KeePassXC-2.7.6-x86_64.AppImage", 1'000, 5);
    linuxMachine.files().text("usr/share/applications/second.desktop",
                              "[Desktop Entry]\nType=Application\nName=Maps\n");
    linuxMachine.files().text("usr/share/applications/hidden.desktop",
                              "[Desktop Entry]\nType=Application\nName=Hidden\nNoDisplay=true\n");
    linuxMachine.files().folder("home/mira/.ssh");
    const BackupManifest manifest = generate();
    EXPECT_EQ(manifest.installedApps,
              (QStringList{u"Dateien"_s, u"Firefox"_s, u"KeePassXC"_s, u"Krita"_s, u"Maps"_s}));
    EXPECT_EQ(manifest.shellInfo, u"/bin/zsh"_s);
    EXPECT_EQ(
        manifest.dotfilesPresent,
        (QMap<QString, bool>{
            {u".bash_profile"_s, false}, {u".gitconfig"_s, false}, {u".ssh"_s, true}, {u".zshrc"_s, false}}));
}

} // namespace keelbright::testing

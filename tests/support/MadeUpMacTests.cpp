#include "tests/support/MadeUpMac.h"

#include "KeelbrightCore/platform/formats/PropertyList.h"
#include "tests/support/TestMac.h"

#include <QProcess>
#include <gmock/gmock.h>

namespace keelbright {
namespace {

class MadeUpMacTest : public ::testing::Test
{
protected:
    testing::TestMac mac;
    testing::MadeUpMac madeUp{mac.root(), mac.clock()()};

    QByteArray metadataOf(const QByteArray& bundle) const
    {
        QProcess tool;
        tool.start(mac.root().appendingNative("usr/bin/mdls").path(),
                   {mac.root().appendingNative(bundle).path()});
        EXPECT_TRUE(tool.waitForFinished());
        return tool.readAllStandardOutput();
    }
};

TEST_F(MadeUpMacTest, liesWhereTheFileManagerOfTheSandboxLooks)
{
    madeUp.populate();
    const FileManager& files = mac.fileManager();
    EXPECT_EQ(madeUp.home(), files.homeDirectory());
    for (const char* name :
         {"Desktop", "Documents", "Pictures", "Downloads", "Movies", "Music", "Library/Caches", ".Trash"})
        EXPECT_TRUE(files.fileExists(madeUp.home().appendingNative(name)).isDirectory) << name;
    EXPECT_TRUE(
        files.fileExists(files.systemLocation(QStringLiteral("/Applications/Sketchbook.app"))).isDirectory);
    EXPECT_TRUE(files.fileExists(madeUp.backupDrive()).isDirectory);
}

TEST_F(MadeUpMacTest, printsTheMetadataOfAnApplicationInTheToolsOwnForm)
{
    madeUp.addApplications();
    EXPECT_EQ(metadataOf("Applications/Sketchbook.app"), "kMDItemDateAdded    = 2023-09-14 09:05:07 +0000\n"
                                                         "kMDItemLastUsedDate = 2025-08-14 09:05:07 +0000\n"
                                                         "kMDItemUseCount     = 640\n");
    EXPECT_EQ(metadataOf("Applications/Never Indexed.app"), "kMDItemDateAdded    = (null)\n"
                                                            "kMDItemLastUsedDate = (null)\n"
                                                            "kMDItemUseCount     = (null)\n");
    EXPECT_EQ(metadataOf("Applications/Without list.app"), metadataOf("Applications/Never Indexed.app"));
}

TEST_F(MadeUpMacTest, hasPropertyListsOfBothForms)
{
    madeUp.addApplications();
    const auto listOf = [this](const QByteArray& name) {
        return mac.root().appendingNative("Applications/" + name + ".app/Contents/Info.plist");
    };
    EXPECT_TRUE(mac.read(listOf("Sketchbook")).startsWith("bplist00"));
    EXPECT_TRUE(mac.read(listOf("Harbour Mail")).startsWith("<?xml"));
    const QVariantMap sketchbook = PropertyList::dictionaryAt(listOf("Sketchbook")).value_or(QVariantMap());
    const QVariantMap mail = PropertyList::dictionaryAt(listOf("Harbour Mail")).value_or(QVariantMap());
    EXPECT_EQ(sketchbook.size(), 5);
    EXPECT_EQ(sketchbook.value(QStringLiteral("CFBundleIdentifier")),
              QStringLiteral("com.example.Sketchbook"));
    EXPECT_EQ(sketchbook.value(QStringLiteral("CFBundleShortVersionString")), QStringLiteral("4.2.1"));
    EXPECT_EQ(mail.size(), 5);
    EXPECT_EQ(mail.value(QStringLiteral("CFBundleName")), QStringLiteral("Harbour Mail"));
}

TEST_F(MadeUpMacTest, isTheSameAtEachRun)
{
    madeUp.addPersonalFiles();
    const FileURL photo = madeUp.home().appendingNative("Pictures/Lofoten 2024/IMG_4100.jpg");
    const QByteArray first = mac.read(photo);
    madeUp.addBackupDrive();
    const testing::MadeUpFiles again(mac.root(), mac.clock()());
    again.noise("Users/mira/Pictures/Lofoten 2024/IMG_4100.jpg", 60'000);
    EXPECT_EQ(first.size(), 60'000);
    EXPECT_EQ(mac.read(photo), first);
}

} // namespace
} // namespace keelbright

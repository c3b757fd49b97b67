#include "Keelbright/state/NewMacRecoveryVM.h"
#include "KeelbrightCore/platform/text/UtcZone.h"
#include "tests/support/FakeFileChooser.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <QJsonDocument>
#include <QSignalSpy>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

class NewMacRecoveryVMTest : public ::testing::Test
{
protected:
    [[nodiscard]] static BackupManifest manifest()
    {
        return {
            .appVersion = u"1.0.0"_s,
            .deviceName = u"Mira's Mac"_s,
            .macOSVersion = u"Version 14.4 (Build 23E214)"_s,
            .backupDate = QDateTime(QDate(2026, 3, 1), QTime(9, 5, 0), utcZone),
            .sourceFolders = {u"/Users/mira/Desktop"_s},
            .destinationPath = u"/Volumes/Anchor"_s,
            .installedApps = {u"Editor"_s, u"Mail"_s},
            .shellInfo = u"/bin/zsh"_s,
            .dotfilesPresent = {{u".zshrc"_s, true}},
            .notes = u"None."_s,
        };
    }

    [[nodiscard]] FileURL write(const QByteArray& content) const
    {
        return mac.writeFile("Volumes/Anchor/recovery-manifest.json", content);
    }

    [[nodiscard]] FileURL write(const BackupManifest& content) const
    {
        return write(QJsonDocument(content.toJson()).toJson());
    }

    void load(const FileURL& url)
    {
        files.willChoose(url);
        model.loadManifest();
    }

    TestMac mac;
    FakeFileChooser files;
    NewMacRecoveryVM model{files};
};

} // namespace

TEST_F(NewMacRecoveryVMTest, startsWithNeitherAManifestNorAnError)
{
    EXPECT_EQ(model.manifestData(), std::nullopt);
    EXPECT_EQ(model.loadError(), std::nullopt);
}

TEST_F(NewMacRecoveryVMTest, asksForAJsonFile)
{
    files.willBeDismissed();
    model.loadManifest();
    ASSERT_EQ(files.openRequests.size(), 1);
    EXPECT_EQ(files.openRequests.first().message, u"Select the recovery-manifest.json from your backup."_s);
    EXPECT_EQ(files.openRequests.first().prompt, u"Load"_s);
    EXPECT_EQ(files.openRequests.first().extensions, QStringList{u"json"_s});
}

TEST_F(NewMacRecoveryVMTest, readsTheManifest)
{
    const QSignalSpy changes(&model, &NewMacRecoveryVM::changed);
    load(write(manifest()));
    EXPECT_EQ(model.manifestData(), manifest());
    EXPECT_EQ(model.loadError(), std::nullopt);
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(NewMacRecoveryVMTest, aDismissedChooserChangesNothing)
{
    load(write(manifest()));
    const QSignalSpy changes(&model, &NewMacRecoveryVM::changed);
    files.willBeDismissed();
    model.loadManifest();
    EXPECT_EQ(model.manifestData(), manifest());
    EXPECT_EQ(changes.size(), 0);
}

TEST_F(NewMacRecoveryVMTest, aFileThatIsNoJsonGivesTheReasonInPlaceOfAManifest)
{
    load(write(manifest()));
    load(write("not json"));
    EXPECT_EQ(model.loadError(),
              u"Could not read manifest: The JSON text is not valid at byte 1: illegal value."_s);
    EXPECT_EQ(model.manifestData(), std::nullopt);
}

TEST_F(NewMacRecoveryVMTest, aFileThatCannotBeReadGivesTheReason)
{
    load(mac.root().appending(u"gone.json"_s));
    EXPECT_EQ(model.loadError(),
              u"Could not read manifest: “gone.json” could not be read: it does not exist."_s);
    EXPECT_EQ(model.manifestData(), std::nullopt);
}

TEST_F(NewMacRecoveryVMTest, aFileThatLacksAnyFieldIsNoManifest)
{
    const QJsonObject whole = manifest().toJson();
    for (const QString& key : whole.keys()) {
        QJsonObject lacking = whole;
        lacking.remove(key);
        load(write(manifest()));
        load(write(QJsonDocument(lacking).toJson()));
        EXPECT_EQ(model.loadError(), u"Could not read manifest: The value \"%1\" is missing."_s.arg(key));
        EXPECT_EQ(model.manifestData(), std::nullopt);
    }
}

TEST_F(NewMacRecoveryVMTest, aGoodManifestRemovesTheErrorOfAFailedOne)
{
    load(write("{}"));
    load(write(manifest()));
    EXPECT_EQ(model.loadError(), std::nullopt);
    EXPECT_EQ(model.manifestData(), manifest());
}

TEST_F(NewMacRecoveryVMTest, aChooserThatOutlivesTheModelIsHarmless)
{
    files.willStayOpen();
    {
        NewMacRecoveryVM shortLived(files);
        shortLived.loadManifest();
    }
    files.confirm(write(manifest()));
    EXPECT_EQ(model.manifestData(), std::nullopt);
}

} // namespace keelbright::testing

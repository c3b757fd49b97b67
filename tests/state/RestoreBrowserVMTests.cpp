#include "Keelbright/state/RestoreBrowserVM.h"
#include "KeelbrightCore/platform/text/UtcZone.h"
#include "tests/support/FakeFolderChooser.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <QElapsedTimer>
#include <QFile>
#include <QSignalSpy>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

class RestoreBrowserVMTest : public ::testing::Test
{
protected:
    [[nodiscard]] FileURL device() const { return mac.root().appending(u"Volumes/Anchor/Keelbright/Mira"_s); }

    void addFolder(const QByteArray& path) const { mac.makeFolder("Volumes/Anchor/Keelbright/Mira/" + path); }

    void pick(const FileURL& folder)
    {
        chooser.willChoose({folder});
        model.pickBackupFolder();
    }

    [[nodiscard]] QStringList names() const
    {
        QStringList names;
        for (const BackupSnapshot& snapshot : model.snapshots())
            names.append(snapshot.folderURL.lastPathComponent());
        return names;
    }

    TestMac mac;
    FakeFolderChooser chooser;
    RestoreBrowserVM model{chooser};
};

} // namespace

TEST_F(RestoreBrowserVMTest, startsWithNoFolder)
{
    EXPECT_EQ(model.chosenBackupRoot(), std::nullopt);
    EXPECT_EQ(model.latestURL(), std::nullopt);
    EXPECT_TRUE(model.snapshots().isEmpty());
}

TEST_F(RestoreBrowserVMTest, asksInTheFolderThatIsKnown)
{
    chooser.willBeDismissed();
    model.pickBackupFolder(device());
    EXPECT_EQ(chooser.requests().first().folder, device());
}

TEST_F(RestoreBrowserVMTest, asksForOneFolderThatExists)
{
    chooser.willBeDismissed();
    model.pickBackupFolder();
    ASSERT_EQ(chooser.requests().size(), 1);
    EXPECT_EQ(chooser.requests().first().message,
              u"Navigate to your Keelbright/DeviceName folder on your backup drive."_s);
    EXPECT_EQ(chooser.requests().first().prompt, u"Open"_s);
    EXPECT_FALSE(chooser.requests().first().allowsMultipleSelection);
    EXPECT_FALSE(chooser.requests().first().canCreateDirectories);
}

TEST_F(RestoreBrowserVMTest, aDismissedChooserChangesNothing)
{
    addFolder("Snapshots/2024-05-01-0930");
    pick(device());
    const QSignalSpy changes(&model, &RestoreBrowserVM::changed);
    chooser.willBeDismissed();
    model.pickBackupFolder();
    EXPECT_EQ(model.chosenBackupRoot(), device());
    EXPECT_EQ(names(), QStringList{u"2024-05-01-0930"_s});
    EXPECT_EQ(changes.size(), 0);
}

TEST_F(RestoreBrowserVMTest, listsADatedFolderAndNoOther)
{
    addFolder("Snapshots/2024-05-01-0930");
    addFolder("Snapshots/backup-old");
    addFolder("Snapshots/2024-05-01");
    addFolder("Snapshots/2024-13-01-0930");
    addFolder("Snapshots/2024-05-01-0930 copy");
    addFolder("Snapshots/.2024-05-02-0930");
    pick(device());
    EXPECT_EQ(names(), QStringList{u"2024-05-01-0930"_s});
    const BackupSnapshot& snapshot = model.snapshots().first();
    EXPECT_EQ(snapshot.date, QDateTime(QDate(2024, 5, 1), QTime(7, 30), utcZone)); // Berlin in summer
    EXPECT_EQ(snapshot.folderURL, device().appending(u"Snapshots/2024-05-01-0930"_s));
    EXPECT_FALSE(snapshot.id.isNull());
}

TEST_F(RestoreBrowserVMTest, aDateIsThatOfTheUsersCalendar)
{
    // The year 2567 of the Buddhist calendar is 2024.
    mac.setLocale(QLocale(QLocale::Thai, QLocale::Thailand));
    addFolder("Snapshots/2567-05-01-0930");
    pick(device());
    ASSERT_EQ(model.snapshots().size(), 1);
    EXPECT_EQ(model.snapshots().first().date, QDateTime(QDate(2024, 5, 1), QTime(7, 30), utcZone));
    EXPECT_TRUE(model.snapshots().first().label().contains(u"2567"_s));
}

TEST_F(RestoreBrowserVMTest, aFileOrALinkWithADateForItsNameIsNotListed)
{
    mac.writeFile("Volumes/Anchor/Keelbright/Mira/Snapshots/2024-05-01-0930", "x");
    addFolder("Elsewhere");
    ASSERT_TRUE(QFile::link(device().appending(u"Elsewhere"_s).path(),
                            device().appending(u"Snapshots/2024-05-02-0930"_s).path()));
    pick(device());
    EXPECT_EQ(names(), QStringList());
}

TEST_F(RestoreBrowserVMTest, theNewestComesFirst)
{
    for (const char* name : {"2024-05-01-0930", "2025-01-01-0000", "2024-05-01-0931", "2023-12-31-2359"})
        addFolder(QByteArray("Snapshots/") + name);
    pick(device());
    EXPECT_EQ(names(), (QStringList{u"2025-01-01-0000"_s, u"2024-05-01-0931"_s, u"2024-05-01-0930"_s,
                                    u"2023-12-31-2359"_s}));
}

TEST_F(RestoreBrowserVMTest, findsTheMirrorWithAndWithoutSnapshots)
{
    addFolder("Latest");
    pick(device());
    EXPECT_EQ(model.latestURL(), device().appending(u"Latest"_s));
    EXPECT_EQ(names(), QStringList());
}

TEST_F(RestoreBrowserVMTest, aMirrorThatLeadsNowhereIsNone)
{
    addFolder("Snapshots");
    ASSERT_TRUE(QFile::link(u"/nowhere"_s, device().appending(u"Latest"_s).path()));
    pick(device());
    EXPECT_EQ(model.latestURL(), std::nullopt);
}

TEST_F(RestoreBrowserVMTest, aSecondFolderReplacesAllThatTheFirstShowed)
{
    addFolder("Latest");
    addFolder("Snapshots/2024-05-01-0930");
    const FileURL other = mac.makeFolder("Volumes/Other");
    mac.makeFolder("Volumes/Other/Snapshots/2022-02-02-0202");
    pick(device());
    pick(other);
    EXPECT_EQ(model.chosenBackupRoot(), other);
    EXPECT_EQ(model.latestURL(), std::nullopt);
    EXPECT_EQ(names(), QStringList{u"2022-02-02-0202"_s});
}

TEST_F(RestoreBrowserVMTest, reloadingReadsTheOpenedFolderOnceMoreAndDoesNothingBeforeThat)
{
    const QSignalSpy changes(&model, &RestoreBrowserVM::changed);
    model.reload();
    EXPECT_EQ(model.chosenBackupRoot(), std::nullopt);
    EXPECT_EQ(changes.size(), 0);
    addFolder("Latest");
    pick(device());
    EXPECT_EQ(changes.size(), 1);
    addFolder("Snapshots/2024-05-01-0930");
    model.reload();
    EXPECT_EQ(changes.size(), 2);
    EXPECT_EQ(model.chosenBackupRoot(), device());
    EXPECT_EQ(names(), QStringList{u"2024-05-01-0930"_s});
}

TEST_F(RestoreBrowserVMTest, aChooserThatOutlivesTheModelIsHarmless)
{
    chooser.willStayOpen();
    {
        RestoreBrowserVM shortLived(chooser);
        shortLived.pickBackupFolder();
    }
    chooser.confirm({device()});
    EXPECT_EQ(model.chosenBackupRoot(), std::nullopt);
}

} // namespace keelbright::testing

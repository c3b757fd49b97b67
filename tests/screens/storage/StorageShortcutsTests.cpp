#include "Keelbright/screens/storage/StorageShortcuts.h"

#include "tests/support/HeldFileManager.h"
#include "tests/support/TestLinux.h"

#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;
using Place = StorageShortcuts::Place;

namespace {

/// Can hold the question whether a folder exists as well.
class HeldQuestions : public HeldFileManager
{
public:
    using HeldFileManager::HeldFileManager;

    [[nodiscard]] FileExistence fileExists(const FileURL& url) const override
    {
        // A question for the capacity is a look.
        (void)fileSystemCapacity(url);
        return HeldFileManager::fileExists(url);
    }
};

/// A home with Documents and nothing else.
class StorageShortcutsTests : public ::testing::Test
{
protected:
    StorageShortcutsTests() { mac.makeFolder("Users/mira/Documents"); }

    [[nodiscard]] static QList<Place> existing(const StorageShortcuts& shortcuts)
    {
        QList<Place> places;
        for (const Place place : StorageShortcuts::allPlaces) {
            if (shortcuts.exists(place))
                places.append(place);
        }
        return places;
    }

    TestMac mac;
    HeldQuestions files{mac.root()};
    FileManagerGuard guard{files};
};

} // namespace

TEST_F(StorageShortcutsTests, areTheHomeAndItsFolders)
{
    EXPECT_EQ(StorageShortcuts::folder(Place::home), mac.home());
    EXPECT_EQ(StorageShortcuts::folder(Place::documents), mac.home().appending(u"Documents"_s));
    EXPECT_EQ(StorageShortcuts::folder(Place::desktop), mac.home().appending(u"Desktop"_s));
    EXPECT_EQ(StorageShortcuts::folder(Place::downloads), mac.home().appending(u"Downloads"_s));
    EXPECT_EQ(StorageShortcuts::folder(Place::pictures), mac.home().appending(u"Pictures"_s));
}

TEST_F(StorageShortcutsTests, onAnotherDesktopTheyAreTheFoldersThatTheUserHasChosen)
{
    const TestLinux linuxMachine;
    linuxMachine.madeUp(MadeUpLinux::Desktop::plasma, MadeUpLinux::Language::german).addUserFolders();
    EXPECT_EQ(StorageShortcuts::folder(Place::home), linuxMachine.home());
    EXPECT_EQ(StorageShortcuts::folder(Place::documents), linuxMachine.atHome("Dokumente"));
    EXPECT_EQ(StorageShortcuts::folder(Place::desktop), linuxMachine.atHome("Schreibtisch"));
    EXPECT_EQ(StorageShortcuts::folder(Place::downloads), linuxMachine.atHome("Downloads"));
    EXPECT_EQ(StorageShortcuts::folder(Place::pictures), linuxMachine.atHome("Bilder"));
}

TEST_F(StorageShortcutsTests, everyPlaceExistsUntilTheFirstLookHasEnded)
{
    StorageShortcuts shortcuts;
    const QSignalSpy changes(&shortcuts, &StorageShortcuts::changed);
    files.holdNextLookAt(mac.home());
    shortcuts.lookUp();
    ASSERT_TRUE(files.waitUntilHeld());
    EXPECT_EQ(existing(shortcuts).size(), 5);
    files.letGo();
    ASSERT_TRUE(QTest::qWaitFor([&] { return changes.count() == 1; }));
    EXPECT_EQ(existing(shortcuts), (QList<Place>{Place::home, Place::documents}));
}

TEST_F(StorageShortcutsTests, aLookThatFindsTheSameAnnouncesNothing)
{
    StorageShortcuts shortcuts;
    const QSignalSpy changes(&shortcuts, &StorageShortcuts::changed);
    shortcuts.lookUp();
    ASSERT_TRUE(QTest::qWaitFor([&] { return changes.count() == 1; }));
    shortcuts.lookUp();
    mac.makeFolder("Users/mira/Desktop");
    shortcuts.lookUp();
    ASSERT_TRUE(QTest::qWaitFor([&] { return shortcuts.exists(Place::desktop); }));
    EXPECT_EQ(changes.count(), 2);
}

TEST_F(StorageShortcutsTests, aLookDuringALookFollowsItOnTheSameThread)
{
    StorageShortcuts shortcuts;
    files.holdNextLookAt(mac.home());
    shortcuts.lookUp();
    ASSERT_TRUE(files.waitUntilHeld());
    for (int i = 0; i < 3; ++i)
        shortcuts.lookUp();
    EXPECT_EQ(files.looksAt(mac.home()), 1);
    mac.makeFolder("Users/mira/Pictures");
    files.letGo();
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return files.looksAt(StorageShortcuts::folder(Place::pictures)) == 2; }));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !shortcuts.exists(Place::desktop); }));
    EXPECT_TRUE(shortcuts.exists(Place::pictures));
    EXPECT_EQ(files.looksAt(mac.home()), 2);
}

TEST_F(StorageShortcutsTests, mayBeDestroyedInTheMiddleOfALook)
{
    auto shortcuts = std::make_unique<StorageShortcuts>();
    files.holdNextLookAt(mac.home());
    shortcuts->lookUp();
    ASSERT_TRUE(files.waitUntilHeld());
    shortcuts.reset();
    files.letGo();
    files.finish();
    QCoreApplication::processEvents();
}

} // namespace keelbright::testing

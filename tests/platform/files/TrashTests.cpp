#include "tests/platform/files/TrashTestCase.h"
#include "tests/support/TemporaryVolume.h"
#include "tests/support/UnprivilegedUser.h"

#include <QElapsedTimer>
#include <thread>
#include <vector>

namespace keelbright {

using namespace testing;

namespace {

class TrashTests : public TrashTestCase
{};

} // namespace

TEST_F(TrashTests, aFileGoesToTheHomeTrashWithItsRecord)
{
    const FileURL file = m_mac.writeFile("Users/mira/Documents/Letter to Ö.txt", "dear");
    const FileURL place = trashed(file);
    EXPECT_EQ(place, m_trash.appendingNative("files/Letter to Ö.txt"));
    EXPECT_FALSE(exists(file));
    EXPECT_EQ(TestMac::read(place), "dear");
    EXPECT_EQ(recordWithoutDate(place), "[Trash Info]\nPath=" + m_mac.home().nativePath() +
                                            "/Documents/Letter%20to%20%C3%96.txt\nDeletionDate=\n");
}

TEST_F(TrashTests, theDateIsLocalTime)
{
    m_mac.setTimeZone("Pacific/Kiritimati"); // 14 hours ahead: a date in UTC would be found out
    const FileURL place = trashed(m_mac.writeFile("Users/mira/a", "x"));
    EXPECT_TRUE(recordWithoutDate(place).endsWith("\nDeletionDate=\n"));
}

TEST_F(TrashTests, theTrashIsMadeOnFirstUseForTheUserAlone)
{
    trashed(m_mac.writeFile("Users/mira/a", "x"));
    EXPECT_EQ(permissions(m_trash), 0700U);
    EXPECT_EQ(permissions(m_trash.appendingNative("files")), 0700U);
    EXPECT_EQ(permissions(m_trash.appendingNative("info")), 0700U);
    EXPECT_EQ(permissions(m_mac.home().appendingNative(".local/share")), 0700U);
    EXPECT_EQ(permissions(m_trash.appendingNative("info/a.trashinfo")), 0600U);
}

TEST_F(TrashTests, aFolderGoesWithAllThatIsInIt)
{
    m_mac.writeFile("Users/mira/Tool.app/Contents/Info.plist", "p");
    const FileURL place = trashed(m_mac.home().appendingNative("Tool.app"));
    EXPECT_EQ(TestMac::read(place.appendingNative("Contents/Info.plist")), "p");
}

TEST_F(TrashTests, anUnreadableFileGoesToo)
{
    const FileURL file = m_mac.writeFile("Users/mira/a", "x");
    ASSERT_EQ(::chmod(file.nativePath().constData(), 0), 0);
    EXPECT_TRUE(exists(trashed(file)));
}

TEST_F(TrashTests, aLinkGoesItselfAndItsTargetStays)
{
    const FileURL target = m_mac.writeFile("Users/mira/target", "x");
    const FileURL link = m_mac.home().appendingNative("link");
    ASSERT_EQ(::symlink("target", link.nativePath().constData()), 0);
    const FileURL place = trashed(link);
    EXPECT_TRUE(exists(target));
    EXPECT_FALSE(exists(link));
    struct stat status = {};
    ASSERT_EQ(::lstat(place.nativePath().constData(), &status), 0);
    EXPECT_TRUE(S_ISLNK(status.st_mode));
}

TEST_F(TrashTests, aLinkThatLeadsNowhereOrIntoTheTrashGoesToo)
{
    m_mac.makeFolder("Users/mira/.local/share/Trash/files/old");
    const FileURL broken = m_mac.home().appendingNative("broken");
    const FileURL intoTrash = m_mac.home().appendingNative("intoTrash");
    ASSERT_EQ(::symlink("nowhere", broken.nativePath().constData()), 0);
    ASSERT_EQ(::symlink(".local/share/Trash/files/old", intoTrash.nativePath().constData()), 0);
    EXPECT_TRUE(exists(trashed(broken)));
    EXPECT_TRUE(exists(trashed(intoTrash)));
}

TEST_F(TrashTests, theRecordedPathHasNoLinks)
{
    m_mac.writeFile("Users/mira/Real/a", "x");
    ASSERT_EQ(::symlink("Real", m_mac.home().appendingNative("Alias").nativePath().constData()), 0);
    const FileURL place = trashed(m_mac.home().appendingNative("Alias/a"));
    EXPECT_EQ(recordWithoutDate(place),
              "[Trash Info]\nPath=" + m_mac.home().nativePath() + "/Real/a\nDeletionDate=\n");
}

TEST_F(TrashTests, itemsOfEqualNameGetNumbers)
{
    std::vector<FileURL> places;
    places.reserve(3);
    for (const char* folder : {"one", "two", "three"})
        places.push_back(trashed(m_mac.writeFile(QByteArray("Users/mira/") + folder + "/photo.jpg", folder)));
    EXPECT_EQ(names("files"), (std::set<QByteArray>{"photo.jpg", "photo 2.jpg", "photo 3.jpg"}));
    EXPECT_EQ(names("info"), (std::set<QByteArray>{"photo.jpg.trashinfo", "photo 2.jpg.trashinfo",
                                                   "photo 3.jpg.trashinfo"}));
    EXPECT_EQ(TestMac::read(places[2]), "three");
    EXPECT_TRUE(recordWithoutDate(places[2]).contains("/three/photo.jpg\n"));
}

TEST_F(TrashTests, anItemWithoutARecordIsNotReplaced)
{
    m_mac.writeFile("Users/mira/.local/share/Trash/files/a.txt", "older");
    const FileURL place = trashed(m_mac.writeFile("Users/mira/a.txt", "newer"));
    EXPECT_EQ(place.nativeLastPathComponent(), "a 2.txt");
    EXPECT_EQ(TestMac::read(m_trash.appendingNative("files/a.txt")), "older");
    EXPECT_EQ(names("info"), std::set<QByteArray>{"a 2.txt.trashinfo"});
}

TEST_F(TrashTests, aRecordWithoutAnItemIsNotReplaced)
{
    m_mac.writeFile("Users/mira/.local/share/Trash/info/a.trashinfo", "older");
    EXPECT_EQ(trashed(m_mac.writeFile("Users/mira/a", "x")).nativeLastPathComponent(), "a 2");
    EXPECT_EQ(TestMac::read(m_trash.appendingNative("info/a.trashinfo")), "older");
}

TEST_F(TrashTests, whenAllNumbersAreTakenTheItemIsStillMovedQuickly)
{
    m_mac.writeFile("Users/mira/.local/share/Trash/info/a.trashinfo", "");
    for (int number = 2; number <= 200; ++number) {
        m_mac.writeFile("Users/mira/.local/share/Trash/info/a " + QByteArray::number(number) + ".trashinfo",
                        "");
    }
    QElapsedTimer timer;
    timer.start();
    EXPECT_TRUE(trashed(m_mac.writeFile("Users/mira/a", "x")).nativeLastPathComponent().startsWith("a "));
    EXPECT_LT(timer.elapsed(), 5'000);
}

TEST_F(TrashTests, aNameOf255BytesIsShortenedAndItsRecordKeepsItWhole)
{
    const QByteArray name = QByteArray(251, 'n') + ".jpg";
    const FileURL place = trashed(m_mac.writeFile("Users/mira/" + name, "x"));
    EXPECT_EQ(place.nativeLastPathComponent(), QByteArray(241, 'n') + ".jpg");
    EXPECT_TRUE(recordWithoutDate(place).contains('/' + name + '\n'));
    EXPECT_EQ(trashed(m_mac.writeFile("Users/mira/" + name, "y")).nativeLastPathComponent(),
              QByteArray(239, 'n') + " 2.jpg");
}

TEST_F(TrashTests, namesThatAreNotUtf8GoAndAreRecordedToTheByte)
{
    const FileURL place = trashed(m_mac.writeFile("Users/mira/B\xFCro\xFF", "x"));
    EXPECT_EQ(place, m_trash.appendingNative("files/B\xFCro\xFF"));
    EXPECT_TRUE(recordWithoutDate(place).contains("/B%FCro%FF\n"));
}

TEST_F(TrashTests, namesWithNewlinesAndSignsCanNotForgeARecord)
{
    const FileURL place = trashed(m_mac.writeFile("Users/mira/a\nPath=%2Fetc", "x"));
    EXPECT_EQ(place, m_trash.appendingNative("files/a\nPath=%2Fetc"));
    EXPECT_EQ(recordWithoutDate(place),
              "[Trash Info]\nPath=" + m_mac.home().nativePath() + "/a%0APath%3D%252Fetc\nDeletionDate=\n");
}

TEST_F(TrashTests, manyThreadsLoseNothing)
{
    constexpr int perThread = 15;
    std::vector<FileURL> files;
    files.reserve(size_t{4} * perThread);
    for (int i = 0; i < 4 * perThread; ++i)
        files.push_back(
            m_mac.writeFile("Users/mira/" + QByteArray::number(i) + "/same", QByteArray::number(i)));
    {
        std::vector<std::jthread> threads;
        threads.reserve(4);
        for (size_t first = 0; first < files.size(); first += perThread) {
            threads.emplace_back([this, &files, first] {
                for (size_t i = first; i < first + perThread; ++i)
                    trashed(files[i]);
            });
        }
    }
    EXPECT_EQ(names("files").size(), files.size());
    EXPECT_EQ(names("info").size(), files.size());
    std::set<QByteArray> contents;
    for (const QByteArray& name : names("files"))
        contents.insert(TestMac::read(m_trash.appendingNative("files").appendingNative(name)));
    EXPECT_EQ(contents.size(), files.size());
}

TEST_F(TrashTests, aMissingItemIsAnErrorAndLeavesNoRecord)
{
    trashed(m_mac.writeFile("Users/mira/a", "x"));
    const FileURL missing = m_mac.home().appendingNative("missing");
    EXPECT_EQ(refused(moveToTrash(missing)), systemError(missing, ENOENT));
    const FileURL below = m_mac.home().appendingNative("none/missing");
    EXPECT_EQ(refused(moveToTrash(below)), systemError(below, ENOENT));
    EXPECT_EQ(names("info"), std::set<QByteArray>{"a.trashinfo"});
}

TEST_F(TrashTests, whatLiesInTheTrashIsRefused)
{
    m_mac.writeFile("Users/mira/folder/inside", "x");
    const FileURL place = trashed(m_mac.home().appendingNative("folder"));
    for (const FileURL& item : {place, place.appendingNative("inside"), recordOf(place)}) {
        EXPECT_EQ(refused(moveToTrash(item)).reason, FileError::Reason::alreadyInTrash);
        EXPECT_TRUE(exists(item));
    }
    EXPECT_EQ(names("info").size(), 1U);
}

TEST_F(TrashTests, whatLiesInTheTrashIsRefusedBySecondPathsToo)
{
    const FileURL place = trashed(m_mac.writeFile("Users/mira/a", "x"));
    const FileURL alias = m_mac.home().appendingNative("alias");
    ASSERT_EQ(::symlink(m_trash.nativePath().constData(), alias.nativePath().constData()), 0);
    EXPECT_EQ(refused(moveToTrash(alias.appendingNative("files/a"))).reason,
              FileError::Reason::alreadyInTrash);
    EXPECT_TRUE(exists(place));
}

TEST_F(TrashTests, theTrashItselfAndWhatHoldsItStay)
{
    const FileURL place = trashed(m_mac.writeFile("Users/mira/a", "x"));
    for (const FileURL& item : {m_trash, m_trash.deletingLastPathComponent(), m_mac.home()}) {
        EXPECT_EQ(refused(moveToTrash(item)).reason, FileError::Reason::neededInItsPlace);
        EXPECT_TRUE(exists(place));
    }
}

TEST_F(TrashTests, theRootAndPathsThatNameNoItemStay)
{
    m_mac.makeFolder("Users/mira/folder");
    EXPECT_EQ(refused(moveToTrash(FileURL())).reason, FileError::Reason::neededInItsPlace);
    EXPECT_EQ(refused(moveToTrash(m_mac.home().appendingNative("folder/."))).code, EBUSY);
    EXPECT_EQ(refused(moveToTrash(m_mac.home().appendingNative("folder/.."))).code, EBUSY);
}

TEST_F(TrashTests, anUnwritableInfoFolderIsAnErrorAndTheItemStays)
{
    const FileURL file = m_mac.writeFile("Users/mira/a", "x");
    const FileURL files = m_mac.makeFolder("Users/mira/.local/share/Trash/files");
    const FileURL info = m_mac.makeFolder("Users/mira/.local/share/Trash/info");
    giveAway({m_trash, files, info, file});
    ASSERT_EQ(::chmod(info.nativePath().constData(), 0500), 0);
    QElapsedTimer timer;
    timer.start();
    {
        const UnprivilegedUser plainUser;
        EXPECT_EQ(refused(moveToTrash(file)), systemError(file, EACCES));
    }
    EXPECT_LT(timer.elapsed(), 5'000);
    EXPECT_EQ(TestMac::read(file), "x");
    EXPECT_EQ(names("files"), std::set<QByteArray>());
}

TEST_F(TrashTests, anItemInAnUnwritableFolderStaysAndNoRecordRemains)
{
    const FileURL file = m_mac.writeFile("Users/mira/locked/a", "x");
    const FileURL locked = file.deletingLastPathComponent();
    const FileURL files = m_mac.makeFolder("Users/mira/.local/share/Trash/files");
    const FileURL info = m_mac.makeFolder("Users/mira/.local/share/Trash/info");
    giveAway({m_trash, files, info, locked, file});
    ASSERT_EQ(::chmod(locked.nativePath().constData(), 0500), 0);
    {
        const UnprivilegedUser plainUser;
        EXPECT_EQ(refused(moveToTrash(file)), systemError(file, EACCES));
    }
    ASSERT_EQ(::chmod(locked.nativePath().constData(), 0700), 0);
    EXPECT_EQ(TestMac::read(file), "x");
    EXPECT_EQ(names("info"), std::set<QByteArray>());
}

TEST_F(TrashTests, aTrashThatCanNotBeMadeIsAnErrorAndTheItemStays)
{
    const FileURL file = m_mac.writeFile("Users/mira/a", "x");
    m_mac.writeFile("Users/mira/.local", "a file in the way");
    EXPECT_EQ(refused(moveToTrash(file)), systemError(file, ENOTDIR));
    EXPECT_TRUE(exists(file));
    EXPECT_FALSE(::access("a", F_OK) == 0) << "it went to the working folder";
}

TEST_F(TrashTests, filesInThePlaceOfTheTrashsFoldersAreAnErrorAndTheItemStays)
{
    const FileURL file = m_mac.writeFile("Users/mira/a", "x");
    m_mac.writeFile("Users/mira/.local/share/Trash/info", "a file in the way");
    EXPECT_EQ(refused(moveToTrash(file)), systemError(file, ENOTDIR));
    EXPECT_TRUE(exists(file));
}

TEST_F(TrashTests, aFolderOfTheTrashThatIsALinkIsNotFollowed)
{
    const FileURL file = m_mac.writeFile("Users/mira/a", "x");
    m_mac.makeFolder("elsewhere");
    m_mac.makeFolder("Users/mira/.local/share/Trash");
    ASSERT_EQ(::symlink(m_mac.root().appendingNative("elsewhere").nativePath().constData(),
                        m_trash.appendingNative("files").nativePath().constData()),
              0);
    EXPECT_EQ(refused(moveToTrash(file)), systemError(file, ENOTDIR));
    EXPECT_TRUE(exists(file));
}

TEST_F(TrashTests, aSecondMountOfTheSameDeviceIsAnErrorAndTheItemStays)
{
    m_mac.makeFolder("source");
    const TemporaryVolume bind(m_mac.makeFolder("bind"), m_mac.root().appendingNative("source"));
    if (!bind.isMounted())
        GTEST_SKIP() << "a second mount needs the right to mount";
    const FileURL file = m_mac.writeFile("bind/a", "x");
    EXPECT_EQ(refused(moveToTrash(file)), systemError(file, EXDEV));
    EXPECT_EQ(TestMac::read(file), "x");
    EXPECT_EQ(names("info"), std::set<QByteArray>());
    EXPECT_EQ(names("files"), std::set<QByteArray>());
}

} // namespace keelbright

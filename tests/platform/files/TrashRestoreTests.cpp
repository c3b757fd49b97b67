#include "tests/platform/files/TrashTestCase.h"
#include "tests/support/TemporaryVolume.h"
#include "tests/support/TmpfsMount.h"

#include <fcntl.h>

namespace keelbright {

using namespace testing;

namespace {

/// Moves items to the Trash and back, as the file manager does for the screens.
class TrashRestoreTests : public TrashTestCase
{
protected:
    TrashedItem trash(const FileURL& item) const
    {
        const auto trashed = m_mac.fileManager().trashItem(item);
        if (!trashed) {
            ADD_FAILURE() << trashed.error().localizedDescription().toStdString();
            return {};
        }
        return *trashed;
    }

    TrashedItem trashLetter(const QByteArray& content = "dear") const
    {
        return trash(m_mac.writeFile("Users/mira/Documents/Letter to Ö.txt", content));
    }

    void restore(const TrashedItem& item) const
    {
        const auto restored = m_mac.fileManager().restoreItem(item);
        EXPECT_TRUE(restored) << restored.error().localizedDescription().toStdString();
    }

    /// Expects the item to stay away, for this reason.
    void expectStaysAway(const TrashedItem& item, const QString& sentence) const
    {
        const auto restored = m_mac.fileManager().restoreItem(item);
        ASSERT_FALSE(restored);
        EXPECT_EQ(restored.error().localizedDescription(), sentence);
    }

    static void remove(const FileURL& file)
    {
        ASSERT_EQ(::unlink(file.nativePath().constData()), 0) << file.nativePath().toStdString();
    }

    static void write(const FileURL& file, const QByteArray& content)
    {
        const int descriptor = ::open(file.nativePath().constData(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        ASSERT_GE(descriptor, 0) << file.nativePath().toStdString();
        EXPECT_EQ(::write(descriptor, content.constData(), static_cast<size_t>(content.size())),
                  content.size());
        ::close(descriptor);
    }

    const QString letterIsGone =
        QStringLiteral("“Letter to Ö.txt” could not be put back: it no longer lies in the Trash.");
};

} // namespace

TEST_F(TrashRestoreTests, aFileGoesBackAndItsRecordIsGone)
{
    const TrashedItem letter = trashLetter();
    EXPECT_EQ(letter.place, m_trash.appendingNative("files/Letter to Ö.txt"));
    EXPECT_EQ(letter.record, TestMac::read(recordOf(letter.place)));
    restore(letter);
    EXPECT_EQ(TestMac::read(m_mac.home().appendingNative("Documents/Letter to Ö.txt")), "dear");
    EXPECT_EQ(names("files"), std::set<QByteArray>());
    EXPECT_EQ(names("info"), std::set<QByteArray>());
}

TEST_F(TrashRestoreTests, aFolderALinkAndANameThatIsNoTextGoBackToo)
{
    m_mac.writeFile("Users/mira/Tool.app/Contents/Info.plist", "p");
    const FileURL link = m_mac.home().appendingNative("link");
    ASSERT_EQ(::symlink("nowhere", link.nativePath().constData()), 0);
    const FileURL strange = m_mac.writeFile("Users/mira/Br\xfc"
                                            "cke\n.png",
                                            "x");
    for (const FileURL& item : {m_mac.home().appendingNative("Tool.app"), link, strange}) {
        const TrashedItem trashed = trash(item);
        EXPECT_FALSE(exists(item));
        restore(trashed);
        EXPECT_TRUE(exists(item)) << item.nativePath().toStdString();
    }
    EXPECT_EQ(TestMac::read(m_mac.home().appendingNative("Tool.app/Contents/Info.plist")), "p");
}

TEST_F(TrashRestoreTests, theSecondOfOneNameGoesBackToItsOwnPlace)
{
    const TrashedItem first = trashLetter("first");
    const TrashedItem second = trashLetter("second");
    EXPECT_EQ(second.place, m_trash.appendingNative("files/Letter to Ö 2.txt"));
    restore(second);
    EXPECT_EQ(TestMac::read(second.origin), "second");
    EXPECT_TRUE(exists(first.place));
    EXPECT_TRUE(exists(recordOf(first.place)));
}

TEST_F(TrashRestoreTests, aFolderThatIsGoneIsMadeAgain)
{
    const TrashedItem note = trash(m_mac.writeFile("Users/mira/Letters/2026/note.txt", "n"));
    ASSERT_EQ(::rmdir(m_mac.home().appendingNative("Letters/2026").nativePath().constData()), 0);
    ASSERT_EQ(::rmdir(m_mac.home().appendingNative("Letters").nativePath().constData()), 0);
    restore(note);
    EXPECT_EQ(TestMac::read(note.origin), "n");
}

TEST_F(TrashRestoreTests, aNameThatIsTakenIsNotReplaced)
{
    const TrashedItem letter = trashLetter("old");
    m_mac.writeFile("Users/mira/Documents/Letter to Ö.txt", "new");
    expectStaysAway(letter,
                    QStringLiteral("“Letter to Ö.txt” could not be put back: something of that name is "
                                   "already there."));
    EXPECT_EQ(TestMac::read(letter.origin), "new");
    EXPECT_EQ(TestMac::read(letter.place), "old");
    EXPECT_TRUE(exists(recordOf(letter.place))) << "it can still be restored from the Trash";
}

TEST_F(TrashRestoreTests, anEmptiedTrashIsReportedAndNoFolderIsMade)
{
    const TrashedItem letter = trashLetter();
    remove(letter.place);
    remove(recordOf(letter.place));
    ASSERT_EQ(::rmdir(letter.origin.deletingLastPathComponent().nativePath().constData()), 0);
    expectStaysAway(letter, letterIsGone);
    EXPECT_FALSE(exists(letter.origin.deletingLastPathComponent()));
}

TEST_F(TrashRestoreTests, anItemWithoutItsRecordStays)
{
    const TrashedItem letter = trashLetter();
    remove(recordOf(letter.place));
    expectStaysAway(letter, letterIsGone);
    EXPECT_TRUE(exists(letter.place));
}

TEST_F(TrashRestoreTests, anItemWithTheRecordOfAnotherOneStays)
{
    const TrashedItem letter = trashLetter();
    const QByteArray record = letter.record;
    // Another program has put it back since, and something of that name was moved to the Trash again.
    const QByteArrayList others{QByteArray(record).replace("DeletionDate=2", "DeletionDate=1"),
                                record + "Extra=1\n", record.chopped(1), QByteArray()};
    for (const QByteArray& other : others) {
        write(recordOf(letter.place), other);
        expectStaysAway(letter, letterIsGone);
    }
    write(recordOf(letter.place), record);
    restore(letter);
}

TEST_F(TrashRestoreTests, aLinkOrAPipeIsNoRecord)
{
    const TrashedItem letter = trashLetter();
    const FileURL record = recordOf(letter.place);
    const FileURL elsewhere = m_mac.writeFile("Users/mira/copy", letter.record);
    remove(record);
    ASSERT_EQ(::symlink(elsewhere.nativePath().constData(), record.nativePath().constData()), 0);
    expectStaysAway(letter, letterIsGone);
    remove(record);
    ASSERT_EQ(::mkfifo(record.nativePath().constData(), 0600), 0);
    expectStaysAway(letter, letterIsGone); // and does not wait for a writer
}

TEST_F(TrashRestoreTests, aFileInThePlaceOfTheFolderIsReported)
{
    const TrashedItem note = trash(m_mac.writeFile("Users/mira/Letters/note.txt", "n"));
    ASSERT_EQ(::rmdir(m_mac.home().appendingNative("Letters").nativePath().constData()), 0);
    m_mac.writeFile("Users/mira/Letters", "a file");
    expectStaysAway(note, QStringLiteral("“note.txt” could not be put back: a file stands in the place of a "
                                         "folder."));
    EXPECT_TRUE(exists(note.place));
}

TEST_F(TrashRestoreTests, anItemOfAnotherVolumeGoesBackThere)
{
    const TemporaryVolume volume(m_mac.makeFolder("Volumes/Stick"));
    if (!volume.isMounted())
        GTEST_SKIP() << "a second volume needs the right to mount";
    const TrashedItem picture = trash(m_mac.writeFile("Volumes/Stick/Pictures/1.jpg", "p"));
    restore(picture);
    EXPECT_EQ(TestMac::read(volume.location().appendingNative("Pictures/1.jpg")), "p");
    const FileURL info = volume.location().appendingNative(".Trash-" + user + "/info");
    EXPECT_TRUE(m_mac.fileManager().contentsOfDirectory(info, {}).value().isEmpty());
}

TEST_F(TrashRestoreTests, anItemOfAVolumeThatIsAwayIsReported)
{
    const FileURL stick = m_mac.makeFolder("Volumes/Stick");
    auto volume = std::make_unique<TemporaryVolume>(stick);
    if (!volume->isMounted())
        GTEST_SKIP() << "a second volume needs the right to mount";
    const TrashedItem picture = trash(m_mac.writeFile("Volumes/Stick/Pictures/1.jpg", "p"));
    volume.reset();
    expectStaysAway(picture,
                    QStringLiteral("“1.jpg” could not be put back: it no longer lies in the Trash."));
    EXPECT_FALSE(exists(stick.appendingNative("Pictures"))) << "nothing is made below the mount point";
}

TEST_F(TrashRestoreTests, onAReadOnlyVolumeItemAndRecordStay)
{
    const TemporaryVolume volume(m_mac.makeFolder("Volumes/Stick"));
    if (!volume.isMounted())
        GTEST_SKIP() << "a second volume needs the right to mount";
    const TrashedItem picture = trash(m_mac.writeFile("Volumes/Stick/1.jpg", "p"));
    ASSERT_TRUE(volume.makeReadOnly());
    expectStaysAway(picture, QStringLiteral("“1.jpg” could not be put back: the drive is read-only."));
    EXPECT_TRUE(exists(picture.place));
    EXPECT_TRUE(exists(recordOf(picture.place)));
}

TEST_F(TrashRestoreTests, onAFullVolumeAFolderThatCantBeMadeAgainIsReported)
{
    const TmpfsMount volume({.bytes = 1'048'576, .inodes = 16});
    if (!volume.reasonMissing().empty())
        GTEST_SKIP() << volume.reasonMissing();
    const FileURL folder = volume.root().appendingNative("Pictures");
    ASSERT_EQ(::mkdir(folder.nativePath().constData(), 0700), 0);
    write(folder.appendingNative("1.jpg"), "p");
    const TrashedItem picture = trash(folder.appendingNative("1.jpg"));
    ASSERT_EQ(::rmdir(folder.nativePath().constData()), 0);
    int made = 0;
    while (::mkdir(volume.root().appendingNative("f" + QByteArray::number(made)).nativePath().constData(),
                   0700) == 0)
        ++made;
    EXPECT_EQ(errno, ENOSPC);
    expectStaysAway(picture,
                    QStringLiteral("“Pictures” could not be created: there is not enough space on the "
                                   "drive."));
    EXPECT_EQ(TestMac::read(picture.place), "p");
    ASSERT_EQ(::rmdir(volume.root().appendingNative("f0").nativePath().constData()), 0);
    restore(picture);
    EXPECT_EQ(TestMac::read(picture.origin), "p");
}

TEST_F(TrashRestoreTests, onlyAnEmptyFolderIsRemoved)
{
    const FileURL folder = m_mac.makeFolder("Users/mira/Images");
    const FileURL file = m_mac.writeFile("Users/mira/Images/.hidden", "x");
    const auto kept = m_mac.fileManager().removeEmptyFolder(folder);
    ASSERT_FALSE(kept);
    EXPECT_EQ(kept.error(),
              FileError::fromCode(FileError::Operation::removed, QStringLiteral("Images"), ENOTEMPTY));
    EXPECT_TRUE(exists(file));
    remove(file);
    EXPECT_TRUE(m_mac.fileManager().removeEmptyFolder(folder));
    EXPECT_FALSE(exists(folder));
}

} // namespace keelbright

#include "KeelbrightCore/platform/files/DirectoryReader.h"

#include "tests/support/TestMac.h"

#include <QByteArrayList>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/resource.h>

namespace keelbright {
namespace {

using ::testing::IsEmpty;
using ::testing::UnorderedElementsAreArray;

constexpr int noFolder = -1;

class DirectoryReaderTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        for (int number = 0; number < fileCount; ++number) {
            names.append("file-" + QByteArray::number(number));
            mac.writeFile("tree/" + names.last(), {});
        }
        folder = openFolder();
    }

    FileDescriptor openFolder() const
    {
        return FileDescriptor(
            ::open(root.nativePath().constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK));
    }

    /// Up to `count` names more.
    static QByteArrayList next(DirectoryReader& reader, int folder, qsizetype count)
    {
        QByteArrayList found;
        while (found.size() < count) {
            const auto entry = reader.read(folder);
            EXPECT_TRUE(entry.has_value());
            if (!entry || !*entry)
                break;
            found.append((*entry)->name);
        }
        return found;
    }

    /// More than one piece of a listing holds.
    static constexpr int fileCount = 3'000;
    testing::TestMac mac;
    FileURL root = mac.makeFolder("tree");
    QByteArrayList names;
    FileDescriptor folder;
};

TEST_F(DirectoryReaderTest, readsEachEntryOnce)
{
    DirectoryReader reader;
    EXPECT_THAT(next(reader, folder.get(), 2 * fileCount), UnorderedElementsAreArray(names));
}

TEST_F(DirectoryReaderTest, onceSuspendedItNeedsTheFolderNoLonger)
{
    for (const qsizetype before : {0, 1, 700, fileCount - 1, fileCount}) {
        const FileDescriptor again = openFolder();
        DirectoryReader reader;
        QByteArrayList found = next(reader, again.get(), before);
        reader.suspend(again.get());
        found += next(reader, noFolder, 2 * fileCount);
        EXPECT_THAT(found, UnorderedElementsAreArray(names)) << before;
    }
}

/// A mark that belongs to one open folder would start the listing again in another one.
TEST_F(DirectoryReaderTest, onceSuspendedItGoesOnWhateverPositionTheFolderIsOpenedAtAgain)
{
    DirectoryReader reader;
    QByteArrayList found = next(reader, folder.get(), 100);
    reader.suspend(folder.get());
    folder.reset();
    const FileDescriptor again = openFolder();
    found += next(reader, again.get(), 2 * fileCount);
    EXPECT_THAT(found, UnorderedElementsAreArray(names));
}

TEST_F(DirectoryReaderTest, keepsTheFolderOpenWhereTheRestIsTooLongForTheMemory)
{
    constexpr size_t little = 1'000;
    DirectoryReader reader(little);
    QByteArrayList found = next(reader, folder.get(), 5);
    reader.suspend(folder.get());
    folder.reset();
    found += next(reader, noFolder, 2 * fileCount);
    EXPECT_THAT(found, UnorderedElementsAreArray(names));
}

TEST_F(DirectoryReaderTest, takesALongRestIntoMemoryWhereNoFileMayBeOpened)
{
    constexpr size_t little = 1'000;
    DirectoryReader reader(little);
    QByteArrayList found = next(reader, folder.get(), 5);
    rlimit before = {};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &before), 0);
    const rlimit none = {0, before.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &none), 0);
    reader.suspend(folder.get());
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &before), 0);
    folder.reset();
    found += next(reader, noFolder, 2 * fileCount);
    EXPECT_THAT(found, UnorderedElementsAreArray(names));
}

TEST_F(DirectoryReaderTest, mayBeSuspendedAgain)
{
    constexpr size_t little = 1'000;
    for (const size_t memory : {little, DirectoryReader::usualMemory}) {
        const FileDescriptor again = openFolder();
        DirectoryReader reader(memory);
        QByteArrayList found = next(reader, again.get(), 5);
        reader.suspend(again.get());
        found += next(reader, noFolder, 5);
        reader.suspend(noFolder);
        found += next(reader, noFolder, 2 * fileCount);
        EXPECT_THAT(found, UnorderedElementsAreArray(names)) << memory;
    }
}

TEST_F(DirectoryReaderTest, deliversWhatIsInMemoryBeforeAFailureThatCameInBetween)
{
    DirectoryReader reader;
    const QByteArrayList before = next(reader, folder.get(), 1);
    reader.suspend(noFolder); // every further read of it fails
    QByteArrayList found = before;
    auto entry = reader.read(noFolder);
    for (; entry && *entry; entry = reader.read(noFolder))
        found.append((*entry)->name);
    ASSERT_FALSE(entry.has_value());
    EXPECT_EQ(entry.error(), EBADF);
    EXPECT_GT(found.size(), 1);
    EXPECT_LT(found.size(), fileCount);
    EXPECT_EQ(reader.read(noFolder).error(), EBADF) << "and so it stays";
}

TEST_F(DirectoryReaderTest, endsInAFolderThatWasRemovedMeanwhile)
{
    const FileURL empty = mac.makeFolder("empty");
    const FileDescriptor removed(::open(empty.nativePath().constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    ASSERT_EQ(::rmdir(empty.nativePath().constData()), 0);
    DirectoryReader reader;
    EXPECT_THAT(next(reader, removed.get(), 1), IsEmpty());
}

} // namespace
} // namespace keelbright

#include "KeelbrightCore/check/Originals.h"

#include "tests/support/TestMac.h"

#include <gmock/gmock.h>

namespace keelbright {
namespace {

constexpr qint64 second = 1'000'000'000;

ItemStatus file(qint64 modification, qint64 change = 0, qint64 size = 10)
{
    return {.type = EntryType::regularFile, .size = size, .modification = modification, .change = change};
}

} // namespace

TEST(OriginalsTests, anotherSizeOrKindIsAChange)
{
    EXPECT_TRUE(isChangedSince(file(5, 0, 11), file(5, 0, 10)));
    ItemStatus link = file(5);
    link.type = EntryType::symbolicLink;
    EXPECT_TRUE(isChangedSince(link, file(5)));
}

TEST(OriginalsTests, newerDataIsAChangeAndTheSameTimeIsNone)
{
    EXPECT_FALSE(isChangedSince(file(1'234'567'891), file(1'234'567'891)));
    EXPECT_TRUE(isChangedSince(file(1'234'567'892), file(1'234'567'891)));
}

TEST(OriginalsTests, aTimeThatTheDriveRoundsIsNoChange)
{
    const qint64 even = 1'000 * second;
    EXPECT_FALSE(isChangedSince(file(even + 2 * second - 1), file(even))) << "FAT";
    EXPECT_TRUE(isChangedSince(file(even + 2 * second + 1), file(even)));
    EXPECT_FALSE(isChangedSince(file(even + 17'000'000), file(even + 10'000'000))) << "exFAT";
    EXPECT_TRUE(isChangedSince(file(even + 21'000'000), file(even + 10'000'000)));
    EXPECT_FALSE(isChangedSince(file(even + 12'345'699), file(even + 12'345'600))) << "NTFS";
    EXPECT_TRUE(isChangedSince(file(even + 12'345'701), file(even + 12'345'600)));
}

TEST(OriginalsTests, anOlderFileThatWasPutThereLaterIsAChange)
{
    EXPECT_TRUE(isChangedSince(file(100 * second + 1, 900 * second), file(200 * second + 1, 500 * second)));
    // What was only marked as changed, or copied to a drive that keeps no times, is none.
    EXPECT_FALSE(isChangedSince(file(200 * second + 1, 900 * second), file(200 * second + 1, 500 * second)));
    EXPECT_FALSE(isChangedSince(file(100 * second + 1, 400 * second), file(500 * second + 1, 500 * second)));
}

TEST(OriginalsTests, ofTwoSourcesWithTheSameNameTheLaterComesFirst)
{
    const testing::TestMac mac;
    const FileURL first = mac.makeFolder("one/Documents");
    const FileURL second_ = mac.makeFolder("two/Documents");
    const FileURL off = mac.makeFolder("three/Documents");
    mac.writeFile("one/Documents/a/b/file", "1");
    mac.writeFile("two/Documents/a/b/file", "22");
    const Originals originals({{QUuid::createUuid(), first, true},
                               {QUuid::createUuid(), second_, true},
                               {QUuid::createUuid(), off, false},
                               {QUuid::createUuid(), mac.makeFolder("Pictures"), true}});
    const QList<Original> found = originals.of("Documents/a/b", "file");
    ASSERT_EQ(found.size(), 2);
    EXPECT_EQ(found.at(0).tree->status(found.at(0).folder, found.at(0).name)->size, 2);
    EXPECT_EQ(found.at(1).tree->status(found.at(1).folder, found.at(1).name)->size, 1);
    EXPECT_TRUE(originals.of("Music", "file").isEmpty());
    EXPECT_TRUE(originals.failures().isEmpty());
}

TEST(OriginalsTests, namesTheSourcesThatCantBeOpened)
{
    const testing::TestMac mac;
    const FileURL missing = mac.root().appending(QStringLiteral("Pictures"));
    const Originals originals({{QUuid::createUuid(), missing, true}});
    ASSERT_EQ(originals.failures().size(), 1);
    EXPECT_EQ(originals.failures().first().source, missing);
    EXPECT_EQ(originals.failures().first().error.localizedDescription(),
              QStringLiteral("“Pictures” could not be opened: it does not exist."));
}

} // namespace keelbright

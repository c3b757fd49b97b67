// Damage is planted in copies: every one is found, and none is invented.

#include "tests/check/CheckTestCase.h"

#include <atomic>
#include <thread>

namespace keelbright {
namespace {

using testing::content;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

class DamagedCopyTests : public testing::CheckTestCase
{
protected:
    void flipBit(const FileURL& file, off_t offset, int bit) const
    {
        const QByteArray bytes = testing::TestMac::read(file);
        ASSERT_LT(offset, bytes.size());
        const char flipped = static_cast<char>(bytes.at(offset) ^ (1 << bit));
        overwrite(file, offset, QByteArray(1, flipped));
    }
};

TEST_F(DamagedCopyTests, aSingleFlippedBitIsFoundWhereverItIs)
{
    constexpr qsizetype size = 3'000'001;
    const QList<off_t> offsets{0, 1, 4'095, 4'096, 65'536, 1'048'575, 1'048'576, 2'097'152, size - 1};
    for (const off_t offset : offsets)
        write("bit at " + QByteArray::number(static_cast<qint64>(offset)), content(size));
    write("sound", content(size));
    backUp();
    QList<FileURL> damaged;
    int bit = 0;
    for (const off_t offset : offsets) {
        damaged.append(copy("bit at " + QByteArray::number(static_cast<qint64>(offset))));
        flipBit(damaged.last(), offset, bit++ % 8);
    }
    const CheckReport report = check();
    EXPECT_EQ(counts(report), (Counts{{"same", 1}, {"differs", damaged.size()}}));
    EXPECT_THAT(items(report), ::testing::UnorderedElementsAreArray(damaged));
    for (const CheckFinding& finding : report.findings)
        EXPECT_EQ(finding.reason, CheckFinding::Reason::differsFromSource);
    EXPECT_EQ(progress.values().faults, damaged.size());
}

TEST_F(DamagedCopyTests, everyBitOfASmallFileIsCompared)
{
    write("a", content(13));
    backUp();
    for (int bit = 0; bit < 13 * 8; ++bit) {
        flipBit(copy("a"), bit / 8, bit % 8);
        EXPECT_EQ(counts(check()), (Counts{{"differs", 1}})) << bit;
        flipBit(copy("a"), bit / 8, bit % 8);
    }
    EXPECT_EQ(counts(check()), (Counts{{"same", 1}}));
}

TEST_F(DamagedCopyTests, swappedFilesOfOneSizeAreFound)
{
    write("a", "the first one");
    write("b", "the other one");
    setTimes(original("a"), 1'600'000'000, 1'600'000'000);
    setTimes(original("b"), 1'600'000'000, 1'600'000'000);
    backUp();
    const FileURL aside = copy("aside");
    ASSERT_EQ(::rename(copy("a").nativePath().constData(), aside.nativePath().constData()), 0);
    ASSERT_EQ(::rename(copy("b").nativePath().constData(), copy("a").nativePath().constData()), 0);
    ASSERT_EQ(::rename(aside.nativePath().constData(), copy("b").nativePath().constData()), 0);
    const CheckReport report = check();
    EXPECT_EQ(counts(report), (Counts{{"differs", 2}}));
    EXPECT_THAT(items(report), UnorderedElementsAre(copy("a"), copy("b")));
}

TEST_F(DamagedCopyTests, aTailThatReadsAsZerosIsFound)
{
    // What a lost write leaves: the size is right, the end is a hole.
    write("a", content(2'000'000));
    backUp();
    const struct stat before = statusOf(copy("a"));
    ASSERT_EQ(::truncate(copy("a").nativePath().constData(), 1'500'000), 0);
    ASSERT_EQ(::truncate(copy("a").nativePath().constData(), 2'000'000), 0);
    setTimes(copy("a"), before.st_atim.tv_sec, before.st_mtim.tv_sec + 1);
    const CheckReport report = check();
    EXPECT_EQ(counts(report), (Counts{{"differs", 1}}));
}

TEST_F(DamagedCopyTests, aCutTailHasAnotherSizeThanTheOriginal)
{
    // By the rule an original of another size has changed since: the next backup replaces its copy.
    write("a", content(2'000'000));
    backUp();
    ASSERT_EQ(::truncate(copy("a").nativePath().constData(), 1'999'999), 0);
    EXPECT_EQ(counts(check()), (Counts{{"changed", 1}}));
}

TEST_F(DamagedCopyTests, damageInALinkIsFound)
{
    ASSERT_EQ(::symlink("target", original("link").nativePath().constData()), 0);
    backUp();
    ASSERT_EQ(::unlink(copy("link").nativePath().constData()), 0);
    ASSERT_EQ(::symlink("tarqet", copy("link").nativePath().constData()), 0);
    EXPECT_EQ(counts(check()), (Counts{{"differs", 1}}));
}

TEST_F(DamagedCopyTests, anOriginalThatIsWrittenToDuringTheCheckIsNoFault)
{
    for (int i = 0; i < 20; ++i)
        write("file " + QByteArray::number(i), content(400'000));
    backUp();
    std::atomic<bool> isDone = false;
    std::thread writer([&] {
        // Writes in place, so that some comparisons see the old and the new.
        for (char value = 0; !isDone; ++value) {
            for (int i = 0; i < 20 && !isDone; ++i) {
                const FileURL file = original("file " + QByteArray::number(i));
                const int descriptor = ::open(file.nativePath().constData(), O_WRONLY | O_CLOEXEC);
                std::ignore = ::pwrite(descriptor, &value, 1, 200'000);
                ::close(descriptor);
            }
        }
    });
    for (int round = 0; round < 5; ++round) {
        const CheckReport report = check();
        EXPECT_EQ(report.checked, 20);
        EXPECT_EQ(report.faults(), 0);
        EXPECT_THAT(report.findings, IsEmpty());
    }
    isDone = true;
    writer.join();
}

TEST_F(DamagedCopyTests, amongManyFilesExactlyTheDamagedOnesAreFound)
{
    // More than are read at a time, in several folders.
    constexpr int files = 5'000;
    const auto nameOf = [](int i) {
        return "folder " + QByteArray::number(i % 7) + "/" + QByteArray::number(i);
    };
    for (int i = 0; i < files; ++i)
        write(nameOf(i), "content of " + QByteArray::number(i));
    backUp();
    QList<FileURL> damaged;
    for (int i = 5; i < files; i += 499) {
        damaged.append(copy(nameOf(i)));
        overwrite(damaged.last(), 3, "X");
    }
    const CheckReport report = check();
    EXPECT_EQ(counts(report), (Counts{{"same", files - damaged.size()}, {"differs", damaged.size()}}));
    EXPECT_THAT(items(report), ::testing::UnorderedElementsAreArray(damaged));
    EXPECT_EQ(report.checksums->count(), files - damaged.size());
}

} // namespace
} // namespace keelbright

#include "KeelbrightCore/platform/files/ReadOnlyTree.h"

#include "tests/support/TestMac.h"
#include "tests/support/TmpfsMount.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace keelbright {
namespace {

QByteArray content(qsizetype size)
{
    QByteArray bytes(size, Qt::Uninitialized);
    for (qsizetype i = 0; i < size; ++i)
        bytes[i] = static_cast<char>(i * 7 + i / 251);
    return bytes;
}

class ReadOnlyFileTests : public ::testing::Test
{
protected:
    [[nodiscard]] static ReadOnlyFile open(const FileURL& url)
    {
        auto file = ReadOnlyFile::open(AT_FDCWD, url.nativePath().constData());
        EXPECT_TRUE(file.has_value());
        return std::move(*file);
    }

    [[nodiscard]] static QByteArray readAll(ReadOnlyFile& file)
    {
        QByteArray bytes;
        PieceBuffer piece;
        for (;;) {
            const auto got = file.read(bytes.size(), piece);
            EXPECT_TRUE(got.has_value());
            bytes.append(piece.data(), got.value_or(0));
            if (got.value_or(0) < PieceBuffer::size)
                return bytes;
        }
    }

    testing::TestMac mac;
};

TEST_F(ReadOnlyFileTests, readsFilesOfEverySizeBothWays)
{
    for (const qsizetype size :
         {0, 1, 4'095, 4'096, 65'535, 65'536, 65'537, 1'048'575, 1'048'576, 1'048'577, 2'500'000}) {
        const QByteArray bytes = content(size);
        const FileURL url = mac.writeFile("file", bytes);
        ReadOnlyFile plain = open(url);
        EXPECT_TRUE(readAll(plain) == bytes) << size;
        ReadOnlyFile fromDrive = open(url);
        fromDrive.readFromDrive();
        EXPECT_TRUE(readAll(fromDrive) == bytes) << size;
    }
}

TEST_F(ReadOnlyFileTests, saysThatMemoryIsNoDrive)
{
    const testing::TmpfsMount memory({});
    if (!memory.reasonMissing().empty())
        GTEST_SKIP() << memory.reasonMissing();
    const FileURL url = memory.root().appendingNative("file");
    const int descriptor = ::open(url.nativePath().constData(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    ASSERT_EQ(::write(descriptor, "text", 4), 4);
    ::close(descriptor);
    ReadOnlyFile file = open(url);
    file.readFromDrive();
    EXPECT_EQ(readAll(file), "text");
    // A newer system reads it directly as well, which only the file system's kind unmasks: see the tree.
    const auto tree = ReadOnlyTree::open(memory.root());
    ASSERT_TRUE(tree.has_value());
    EXPECT_FALSE((*tree)->liesOnLocalDrive());
}

TEST_F(ReadOnlyFileTests, readsWhatWasWrittenAMomentAgo)
{
    const FileURL url = mac.writeFile("file", content(300'000));
    ReadOnlyFile file = open(url);
    const int descriptor = ::open(url.nativePath().constData(), O_WRONLY | O_CLOEXEC);
    ASSERT_EQ(::pwrite(descriptor, "!", 1, 200'000), 1);
    file.readFromDrive();
    EXPECT_EQ(readAll(file).at(200'000), '!');
    ::close(descriptor);
}

TEST_F(ReadOnlyFileTests, endsWhereTheFileEndsByNow)
{
    const FileURL url = mac.writeFile("file", content(300'000));
    ReadOnlyFile file = open(url);
    file.readFromDrive();
    ASSERT_EQ(::truncate(url.nativePath().constData(), 100'001), 0);
    EXPECT_EQ(readAll(file).size(), 100'001);
    EXPECT_EQ(file.status().size, 300'000);
    EXPECT_EQ(file.currentStatus()->size, 100'001);
}

TEST_F(ReadOnlyFileTests, findsTheDataBehindAHole)
{
    const FileURL url = mac.writeFile("file", "");
    constexpr qint64 size = 10'000'000;
    ASSERT_EQ(::truncate(url.nativePath().constData(), size), 0);
    const int descriptor = ::open(url.nativePath().constData(), O_WRONLY | O_CLOEXEC);
    ASSERT_EQ(::pwrite(descriptor, "x", 1, 5'000'000), 1);
    ::close(descriptor);
    const ReadOnlyFile file = open(url);
    EXPECT_TRUE(file.hasHoles());
    EXPECT_LE(file.nextData(0), 5'000'000);
    EXPECT_GT(file.nextData(0), 4'900'000);
    EXPECT_EQ(file.nextData(6'000'000), size);
    EXPECT_FALSE(open(mac.writeFile("plain", content(5'000))).hasHoles());
}

TEST_F(ReadOnlyFileTests, leavesTheAccessTimeAlone)
{
    const FileURL url = mac.writeFile("file", content(5'000));
    const timespec times[] = {{1'000, 0}, {2'000, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, url.nativePath().constData(), times, 0), 0);
    for (const bool isFromDrive : {false, true}) {
        ReadOnlyFile file = open(url);
        if (isFromDrive)
            file.readFromDrive();
        EXPECT_EQ(readAll(file).size(), 5'000);
        struct stat status = {};
        ASSERT_EQ(::stat(url.nativePath().constData(), &status), 0);
        EXPECT_EQ(status.st_atim.tv_sec, 1'000);
    }
}

} // namespace
} // namespace keelbright

#include "KeelbrightCore/platform/files/DirectoryEnumerator.h"
#include "tests/faults/FaultTest.h"

#include <QScopeGuard>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace keelbright {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::TestMac;

class TreeShapeTest : public testing::FaultTest
{
protected:
    /// Makes a chain of folders with one file in each.
    void makeDeepTree(int levels) const
    {
        int folder = ::open(documents.nativePath().constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        for (int level = 1; level <= levels; ++level) {
            ASSERT_EQ(::mkdirat(folder, "level", 0755), 0);
            const int next = ::openat(folder, "level", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
            ::close(folder);
            folder = next;
            const int file = ::openat(folder, "file", O_WRONLY | O_CREAT | O_CLOEXEC, 0644);
            const QByteArray content = QByteArray::number(level);
            ASSERT_EQ(::write(file, content.constData(), static_cast<size_t>(content.size())),
                      content.size());
            ::close(file);
        }
        ::close(folder);
    }

    /// The content of the mirrored file at a level, whose path may be longer than the system allows.
    [[nodiscard]] QByteArray contentAtLevel(int levels) const
    {
        int folder = ::open(mirrored("Documents").nativePath().constData(), O_RDONLY | O_CLOEXEC);
        for (int level = 1; level <= levels; ++level) {
            const int next = ::openat(folder, "level", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
            ::close(folder);
            folder = next;
        }
        const int file = ::openat(folder, "file", O_RDONLY | O_CLOEXEC);
        char content[16] = {};
        const ssize_t length = ::read(file, content, sizeof content);
        ::close(file);
        ::close(folder);
        return {content, length};
    }

    [[nodiscard]] static qint64 countBelow(const FileURL& folder)
    {
        const auto items = DirectoryEnumerator::open(folder, {});
        qint64 count = 0;
        while (items && (*items)->next())
            ++count;
        return count;
    }
};

TEST_F(TreeShapeTest, copies2000LevelsWithAFewOpenFiles)
{
    constexpr int levels = 2'000;
    makeDeepTree(levels);
    rlimit limit = {};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &limit), 0);
    // A sanitizer opens two files of its own to check an object and takes a failure for a wrong type, so
    // it needs more descriptors than the program.
    const rlimit few{KEELBRIGHT_IS_SANITIZED ? 112 : 64, limit.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &few), 0);
    const auto restore = qScopeGuard([&] { ::setrlimit(RLIMIT_NOFILE, &limit); });
    for (int round = 0; round < 2; ++round) {
        run({documents});
        EXPECT_THAT(progress().errors, IsEmpty());
        EXPECT_EQ(progress().filesCopied, levels);
        EXPECT_EQ(progress().filesSkipped, 0);
        EXPECT_EQ(countBelow(mirrored("Documents")), 2 * levels);
        EXPECT_EQ(contentAtLevel(levels), QByteArray::number(levels));
        EXPECT_EQ(contentAtLevel(1'234), "1234");
    }
}

TEST_F(TreeShapeTest, copies100000FilesOfOneFolder)
{
    constexpr int count = 100'000;
    const int folder = ::open(documents.nativePath().constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    for (int number = 0; number < count; ++number)
        ASSERT_EQ(::mknodat(folder, QByteArray::number(number).constData(), S_IFREG | 0644, 0), 0);
    ::close(folder);
    run({documents});
    EXPECT_THAT(progress().errors, IsEmpty());
    EXPECT_EQ(progress().totalFilesEstimate, count);
    EXPECT_EQ(progress().filesCopied, count);
    EXPECT_EQ(countBelow(mirrored("Documents")), count);
}

TEST_F(TreeShapeTest, copiesNamesOf255BytesAtEveryLevel)
{
    const QByteArray folder(255, 'f');
    const QByteArray name(255, 'n');
    const QByteArray longest = folder + "/" + folder + "/" + name;
    for (const char* content : {"first", "second"}) {
        mac.writeFile("Users/mira/Documents/" + longest, content);
        run({documents});
        EXPECT_THAT(progress().errors, IsEmpty());
        EXPECT_EQ(TestMac::read(mirrored("Documents/" + longest)), content);
        EXPECT_THAT(everythingBelow(mirrored("Documents")),
                    ElementsAre(folder, folder + "/" + folder, longest));
    }
}

TEST_F(TreeShapeTest, copiesAFileOfMoreThan4GigabytesWithItsHoles)
{
    constexpr off_t size = 5'368'709'121;
    constexpr off_t middle = 4'500'000'000;
    const FileURL large = mac.writeFile("Users/mira/Documents/large", "start");
    const int file = ::open(large.nativePath().constData(), O_RDWR | O_CLOEXEC);
    const bool isPossible = ::ftruncate(file, size) == 0;
    if (!isPossible || ::pwrite(file, "middle", 6, middle) != 6 || ::pwrite(file, "end", 3, size - 3) != 3)
        GTEST_SKIP() << "this file system takes no file of 5 GiB";
    ::close(file);
    run({documents});
    EXPECT_THAT(progress().errors, IsEmpty());
    EXPECT_EQ(progress().bytesCopied, size);
    const int copy = ::open(mirrored("Documents/large").nativePath().constData(), O_RDONLY | O_CLOEXEC);
    struct stat status = {};
    ASSERT_EQ(::fstat(copy, &status), 0);
    EXPECT_EQ(status.st_size, size);
    EXPECT_LE(status.st_blocks, 1'000) << "the holes are kept";
    char text[8] = {};
    EXPECT_EQ(::pread(copy, text, 6, middle), 6);
    EXPECT_STREQ(text, "middle");
    EXPECT_EQ(::pread(copy, text, 8, size - 3), 3);
    EXPECT_EQ(QByteArray(text, 3), "end");
    EXPECT_EQ(::pread(copy, text, 6, 0), 6);
    EXPECT_EQ(QByteArray(text, 6), QByteArray("start\0", 6));
    ::close(copy);
}

} // namespace
} // namespace keelbright

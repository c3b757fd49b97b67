#include "KeelbrightCore/platform/files/UnpublishedFile.h"

#include "KeelbrightCore/platform/files/FileURL.h"
#include "tests/support/FatImage.h"
#include "tests/support/ImageDrive.h"
#include "tests/support/TestMac.h"
#include "tests/support/TmpfsMount.h"

#include <QByteArrayList>
#include <QDeadlineTimer>
#include <algorithm>
#include <array>
#include <fcntl.h>
#include <filesystem>
#include <gmock/gmock.h>
#include <ostream>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace keelbright {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::MatchesRegex;
using testing::TestMac;

enum class DriveKind { homeFolder, tmpfs, fat, ntfs };

/// How GoogleTest prints the kind, which CTest takes into the names of the tests.
std::ostream& operator<<(std::ostream& output, DriveKind kind)
{
    constexpr std::array names{"homeFolder", "tmpfs", "fat", "ntfs"};
    return output << names.at(static_cast<std::size_t>(kind));
}

/// A folder on a file system of some kind; `missing` says why there is none.
struct Drive
{
    FileURL root;
    std::string missing;
    std::shared_ptr<void> mount; ///< while the drive is there
};

Drive driveOf(DriveKind kind, const TestMac& mac)
{
    switch (kind) {
    case DriveKind::homeFolder:
        return {mac.makeFolder("drive"), {}, {}};
    case DriveKind::tmpfs: {
        auto mount = std::make_shared<testing::TmpfsMount>(testing::TmpfsMount::Limits{});
        return {mount->root(), mount->reasonMissing(), mount};
    }
    case DriveKind::fat: {
        auto mount = std::make_shared<testing::FatImage>();
        return {mount->root(), mount->reasonMissing(), mount};
    }
    case DriveKind::ntfs: {
        auto mount = std::make_shared<testing::ImageDrive>(testing::ImageDrive::Kind::ntfs, 16'777'216);
        return {mount->root(), mount->reasonMissing(), mount};
    }
    }
    return {};
}

class UnpublishedFileTest : public ::testing::TestWithParam<DriveKind>
{
protected:
    void SetUp() override
    {
        if (!m_drive.missing.empty())
            GTEST_SKIP() << m_drive.missing;
        m_top = ::open(m_drive.root.nativePath().constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        ASSERT_EQ(::mkdirat(m_top, "folder", 0700), 0);
        m_folder = openFolder("folder");
    }

    void TearDown() override
    {
        ::close(m_folder);
        ::close(m_top);
    }

    [[nodiscard]] int openFolder(const char* name) const
    {
        return ::openat(m_top, name, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    }

    [[nodiscard]] FileURL location(const QByteArray& name) const
    {
        return m_drive.root.appendingNative("folder/" + name);
    }

    [[nodiscard]] bool hasUnnamedFiles() const
    {
        return GetParam() == DriveKind::homeFolder || GetParam() == DriveKind::tmpfs;
    }

    [[nodiscard]] UnpublishedFile created(const QByteArray& content) const
    {
        auto file = UnpublishedFile::create(m_folder, 0600);
        EXPECT_TRUE(file->write(content).has_value());
        return std::move(*file);
    }

    [[nodiscard]] UnpublishedFile finished(const QByteArray& content) const
    {
        UnpublishedFile file = created(content);
        EXPECT_TRUE(file.finishWriting().has_value());
        return file;
    }

    void writeOld(const QByteArray& name, const QByteArray& content) const
    {
        EXPECT_TRUE(finished(content).publish(name).has_value());
    }

    [[nodiscard]] std::vector<std::string> names() const
    {
        // What was removed while it was open keeps such a name until ntfs-3g has been informed of its close.
        const auto isLeaving = [](const std::string& name) { return name.starts_with(".ghost-ntfs-3g-"); };
        const QDeadlineTimer deadline(10'000);
        std::vector<std::string> found = listed();
        while (std::ranges::any_of(found, isLeaving) && !deadline.hasExpired()) {
            std::this_thread::yield();
            found = listed();
        }
        return found;
    }

    [[nodiscard]] std::vector<std::string> listed() const
    {
        std::vector<std::string> found;
        for (const auto& entry : std::filesystem::directory_iterator(location({}).nativePath().toStdString()))
            found.push_back(entry.path().filename());
        return found;
    }

    TestMac m_mac;
    Drive m_drive = driveOf(GetParam(), m_mac);
    int m_top = -1;
    int m_folder = -1;
};

constexpr auto temporaryPattern = R"(\.[0-9A-Fa-f-]{36}\.tmp)"; // some drives list names in lower case

TEST_P(UnpublishedFileTest, getsItsNameWhenItIsPublished)
{
    UnpublishedFile file = created("content");
    EXPECT_EQ(file.isUnnamed(), hasUnnamedFiles());
    if (hasUnnamedFiles())
        EXPECT_THAT(names(), IsEmpty());
    else
        EXPECT_THAT(names(), ElementsAre(MatchesRegex(temporaryPattern)));
    ASSERT_TRUE(file.finishWriting().has_value());
    ASSERT_TRUE(file.publish("name").has_value());
    EXPECT_THAT(names(), ElementsAre("name"));
    EXPECT_EQ(TestMac::read(location("name")), "content");
}

TEST_P(UnpublishedFileTest, staysAfterItWasPublishedAndDestroyed)
{
    writeOld("one", "1");
    EXPECT_TRUE(finished("2").publishReplacing("one").has_value());
    EXPECT_THAT(names(), ElementsAre("one"));
    EXPECT_EQ(TestMac::read(location("one")), "2");
}

TEST_P(UnpublishedFileTest, leavesNothingWhereItIsDestroyedUnpublished)
{
    {
        const UnpublishedFile file = created("content");
    }
    EXPECT_THAT(names(), IsEmpty());
}

TEST_P(UnpublishedFileTest, takesAnotherNameWhereTheFirstOneIsTaken)
{
    writeOld("name", "old");
    UnpublishedFile file = finished("new");
    EXPECT_EQ(file.publish("name").error(), EEXIST);
    EXPECT_EQ(TestMac::read(location("name")), "old");
    ASSERT_TRUE(file.publish("name 2").has_value());
    EXPECT_EQ(TestMac::read(location("name 2")), "new");
    EXPECT_EQ(names().size(), 2U);
}

TEST_P(UnpublishedFileTest, replacesAnOldFileOrNone)
{
    writeOld("name", "old and longer");
    ASSERT_TRUE(finished("new").publishReplacing("name").has_value());
    ASSERT_TRUE(finished("first").publishReplacing("other").has_value());
    EXPECT_EQ(TestMac::read(location("name")), "new");
    EXPECT_EQ(TestMac::read(location("other")), "first");
    EXPECT_EQ(names().size(), 2U);
}

TEST_P(UnpublishedFileTest, doesNotReplaceAFolder)
{
    ASSERT_EQ(::mkdirat(m_folder, "name", 0700), 0);
    {
        UnpublishedFile file = finished("content");
        EXPECT_EQ(file.publish("name").error(), EEXIST);
        EXPECT_EQ(file.publishReplacing("name").error(), EISDIR);
        EXPECT_FALSE(file.isUnnamed()) << "it has a temporary name by now";
    }
    EXPECT_THAT(names(), ElementsAre("name")) << "and loses it with its end";
}

TEST_P(UnpublishedFileTest, keepsItsTemporaryNameOnRequest)
{
    ASSERT_EQ(::mkdirat(m_folder, "name", 0700), 0);
    {
        UnpublishedFile file = finished("content");
        ASSERT_FALSE(file.publishReplacing("name").has_value());
        file.keepTemporary();
    }
    ASSERT_EQ(::unlinkat(m_folder, "name", AT_REMOVEDIR), 0);
    ASSERT_THAT(names(), ElementsAre(MatchesRegex(temporaryPattern)));
    EXPECT_EQ(TestMac::read(location(QByteArray::fromStdString(names().front()))), "content");
}

TEST_P(UnpublishedFileTest, closesOnlyAFileThatIsFoundAgainByItsName)
{
    UnpublishedFile file = created("content");
    ASSERT_TRUE(file.finishWriting().has_value());
    EXPECT_EQ(file.descriptor() >= 0, hasUnnamedFiles());
}

TEST_P(UnpublishedFileTest, reachesTheDriveBeforeAndAfterItsName)
{
    UnpublishedFile file = created("content");
    EXPECT_TRUE(file.flush().has_value());
    ASSERT_TRUE(file.publish("name").has_value());
    EXPECT_TRUE(file.flushWithName().has_value());
    EXPECT_TRUE(file.close().has_value());
    EXPECT_EQ(file.descriptor(), -1);
    EXPECT_EQ(TestMac::read(location("name")), "content");
    EXPECT_THAT(names(), ElementsAre("name"));
}

TEST_P(UnpublishedFileTest, isNeverUnnamedWhereTheFileSystemDoesNotSupportThat)
{
    const auto file = UnpublishedFile::createUnnamed(m_folder, 0600);
    if (hasUnnamedFiles())
        EXPECT_TRUE(file.has_value());
    else
        EXPECT_EQ(file.error(), ENOTSUP);
}

TEST_P(UnpublishedFileTest, isACloneWhereTheSystemMakesOneAndNothingWhereNot)
{
    UnpublishedFile source = created("content");
    {
        const auto clone = UnpublishedFile::createClone(m_folder, source.descriptor());
        if (clone)
            EXPECT_FALSE(clone->isUnnamed());
        else
            EXPECT_THAT(clone.error(), ::testing::AnyOf(ENOTSUP, EXDEV, EINVAL));
    }
    ASSERT_TRUE(source.finishWriting().has_value());
    ASSERT_TRUE(source.publish("name").has_value());
    EXPECT_THAT(names(), ElementsAre("name"));
}

TEST_P(UnpublishedFileTest, canHaveATemporaryNameOnEveryDrive)
{
    auto file = UnpublishedFile::createTemporary(m_folder, 0600);
    ASSERT_TRUE(file.has_value());
    EXPECT_FALSE(file->isUnnamed());
    EXPECT_THAT(names(), ElementsAre(MatchesRegex(temporaryPattern)));
    ASSERT_TRUE(file->write("content").has_value());
    ASSERT_TRUE(file->finishWriting().has_value());
    writeOld("taken", "old");
    EXPECT_EQ(file->publish("taken").error(), EEXIST);
    ASSERT_TRUE(file->publish("name").has_value());
    EXPECT_EQ(TestMac::read(location("name")), "content");
    EXPECT_EQ(TestMac::read(location("taken")), "old");
    EXPECT_EQ(names().size(), 2U);
}

TEST_P(UnpublishedFileTest, movesWithItsFile)
{
    UnpublishedFile first = created("first");
    UnpublishedFile second(std::move(first));
    EXPECT_EQ(first.descriptor(), -1); // NOLINT: what a file that was moved from holds
    second = finished("second");
    ASSERT_TRUE(second.publish("name").has_value());
    EXPECT_EQ(TestMac::read(location("name")), "second");
}

TEST_P(UnpublishedFileTest, leavesNothingOfAFileThatAnotherWasMovedOver)
{
    {
        UnpublishedFile file = created("first");
        file = created("second");
    }
    EXPECT_THAT(names(), IsEmpty());
}

TEST_P(UnpublishedFileTest, goesFromThreadToThread)
{
    std::optional<UnpublishedFile> file;
    std::thread([&] { file = created("content"); }).join();
    std::thread([&] { EXPECT_TRUE(file->finishWriting().has_value()); }).join();
    std::thread([&, own = std::move(*file)]() mutable {
        EXPECT_TRUE(own.publish("name").has_value());
    }).join();
    EXPECT_EQ(TestMac::read(location("name")), "content");
    EXPECT_THAT(names(), ElementsAre("name"));
}

TEST_P(UnpublishedFileTest, isTheOnlyOneOfManyThatGetsAName)
{
    if (!hasUnnamedFiles())
        GTEST_SKIP() << "the drivers of these file systems have no rename that looks for the new name itself";
    constexpr int count = 8;
    std::atomic<int> winners = 0;
    {
        std::vector<std::jthread> threads;
        threads.reserve(count);
        for (int i = 0; i < count; ++i) {
            threads.emplace_back([&, i] {
                UnpublishedFile file = finished(QByteArray::number(i));
                const auto named = file.publish("name");
                winners += named ? 1 : 0;
                EXPECT_EQ((named ? EEXIST : named.error()), EEXIST);
            });
        }
    }
    EXPECT_EQ(winners, 1);
    EXPECT_THAT(names(), ElementsAre("name"));
}

INSTANTIATE_TEST_SUITE_P(OnEveryKindOfDrive, UnpublishedFileTest,
                         ::testing::Values(DriveKind::homeFolder, DriveKind::tmpfs, DriveKind::fat,
                                           DriveKind::ntfs),
                         ::testing::PrintToStringParamName());

class UnpublishedFileHere : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_GE(m_folder, 0);
        if (!UnpublishedFile::createUnnamed(m_folder, 0600))
            GTEST_SKIP() << "the temporary folder's file system has no unnamed files";
    }

    void TearDown() override { ::close(m_folder); }

    [[nodiscard]] int open(const char* name) const
    {
        return ::open(m_mac.makeFolder(name).nativePath().constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    }

    [[nodiscard]] mode_t permissions(const char* name) const
    {
        struct stat status = {};
        EXPECT_EQ(::fstatat(m_folder, name, &status, AT_SYMLINK_NOFOLLOW), 0);
        return status.st_mode & 07777U;
    }

    TestMac m_mac;
    int m_folder = open("folder");
};

TEST_F(UnpublishedFileHere, outlivesTheFolderThatItWasCreatedIn)
{
    auto file = UnpublishedFile::create(m_folder, 0600);
    ASSERT_TRUE(file->write("content").has_value());
    ASSERT_EQ(::rmdir(m_mac.root().appendingNative("folder").nativePath().constData()), 0);
    EXPECT_EQ(file->publish("name").error(), ENOENT);
    const FileDescriptor other(open("other"));
    file->moveTo(other.get());
    ASSERT_TRUE(file->publish("name").has_value());
    EXPECT_EQ(TestMac::read(m_mac.root().appendingNative("other/name")), "content");
}

TEST_F(UnpublishedFileHere, hasTheModeThatTheProcessAllows)
{
    const mode_t before = ::umask(027);
    ASSERT_TRUE(UnpublishedFile::create(m_folder, 0666)->publish("unnamed").has_value());
    ASSERT_TRUE(UnpublishedFile::createTemporary(m_folder, 0666)->publish("temporary").has_value());
    ::umask(before);
    EXPECT_EQ(permissions("unnamed"), 0640U);
    EXPECT_EQ(permissions("temporary"), 0640U);
}

TEST_F(UnpublishedFileHere, failsWhereNothingCanBeCreated)
{
    ASSERT_EQ(::rmdir(m_mac.root().appendingNative("folder").nativePath().constData()), 0);
    EXPECT_THAT(UnpublishedFile::create(m_folder, 0600).error(), ::testing::AnyOf(ENOENT, EPERM));
    EXPECT_EQ(UnpublishedFile::createTemporary(m_folder, 0600).error(), ENOENT);
    EXPECT_EQ(UnpublishedFile::create(-1, 0600).error(), EBADF);
}

} // namespace
} // namespace keelbright

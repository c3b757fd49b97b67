#include "KeelbrightCore/platform/files/SystemFileManager.h"

#include "tests/support/EnvironmentVariable.h"
#include "tests/support/TemporaryVolume.h"
#include "tests/support/TestMac.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <gmock/gmock.h>
#include <pwd.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace keelbright {
namespace {

class SystemFileManagerTest : public ::testing::Test
{
protected:
    testing::TestMac mac;
    FileManager& files = mac.fileManager();
    FileURL folder = mac.makeFolder("folder");
};

TEST_F(SystemFileManagerTest, followsLinksWhenItAsksWhatExists)
{
    mac.writeFile("folder/file", "x");
    const auto link = [&](const char* target, const char* name) {
        ASSERT_EQ(::symlink(target, folder.appendingNative(name).nativePath().constData()), 0);
    };
    link("file", "toFile");
    link(".", "toFolder");
    link("none", "dangling");
    const auto exists = [&](const char* name) { return files.fileExists(folder.appendingNative(name)); };
    EXPECT_TRUE(exists("toFile").exists);
    EXPECT_FALSE(exists("toFile").isDirectory);
    EXPECT_TRUE(exists("toFolder").isDirectory);
    EXPECT_FALSE(exists("dangling").exists);
    EXPECT_FALSE(exists("none").exists);
}

TEST_F(SystemFileManagerTest, aFileHasASizeAndALinkItsOwn)
{
    const FileURL file = mac.writeFile("folder/file", "12345");
    const FileURL link = folder.appendingNative("link");
    ASSERT_EQ(::symlink("file that is far away", link.nativePath().constData()), 0);
    EXPECT_EQ(files.fileSize(file), 5);
    EXPECT_EQ(files.fileSize(mac.writeFile("folder/empty", "")), 0);
    EXPECT_EQ(files.fileSize(link), 21);
    EXPECT_EQ(files.fileSize(folder), std::nullopt);
    EXPECT_EQ(files.fileSize(folder.appendingNative("none")), std::nullopt);
}

TEST_F(SystemFileManagerTest, createsFoldersWithTheirParents)
{
    const FileURL deep = folder.appending(QStringLiteral("a/b/c"));
    ASSERT_TRUE(files.createDirectory(deep).has_value());
    EXPECT_TRUE(files.fileExists(deep).isDirectory);
    EXPECT_TRUE(files.createDirectory(deep).has_value()) << "one that is there is fine";
    EXPECT_TRUE(files.createDirectory(FileURL()).has_value());
}

TEST_F(SystemFileManagerTest, doesNotCreateAFolderOverAFile)
{
    const FileURL file = mac.writeFile("folder/file", "x");
    const auto created = files.createDirectory(file);
    ASSERT_FALSE(created.has_value());
    EXPECT_EQ(created.error().localizedDescription(),
              QStringLiteral("“file” could not be created: a file stands in the place of a folder."));
    EXPECT_FALSE(files.createDirectory(file.appending(QStringLiteral("below"))).has_value());
}

TEST_F(SystemFileManagerTest, listsOneLevelWithTypesAndSizes)
{
    mac.writeFile("folder/file", "12345");
    mac.writeFile("folder/sub/deep", "x");
    mac.writeFile("folder/.hidden", "x");
    const auto entries = files.contentsOfDirectory(folder, DirectoryEnumerator::Option::skipsHiddenFiles);
    ASSERT_TRUE(entries.has_value());
    ASSERT_EQ(entries->size(), 2);
    for (const DirectoryEntry& entry : *entries) {
        const bool isFile = entry.url.lastPathComponent() == QStringLiteral("file");
        EXPECT_EQ(entry.type, isFile ? EntryType::regularFile : EntryType::directory);
        EXPECT_EQ(entry.fileSize, isFile ? std::optional<qint64>(5) : std::nullopt);
    }
    EXPECT_FALSE(files.contentsOfDirectory(folder.appending(QStringLiteral("none")), {}).has_value());
}

TEST_F(SystemFileManagerTest, movesButNeverReplaces)
{
    const FileURL a = mac.writeFile("folder/a", "a");
    const FileURL b = mac.writeFile("folder/b", "b");
    const auto moved = files.moveItem(a, b);
    ASSERT_FALSE(moved.has_value());
    EXPECT_EQ(moved.error().localizedDescription(),
              QStringLiteral("“a” could not be moved: something of that name is already there."));
    EXPECT_EQ(testing::TestMac::read(b), "b");
    const FileURL c = folder.appending(QStringLiteral("c"));
    ASSERT_TRUE(files.moveItem(a, c).has_value());
    EXPECT_EQ(testing::TestMac::read(c), "a");
    EXPECT_FALSE(files.fileExists(a).exists);
}

TEST_F(SystemFileManagerTest, readsWholeFilesAndNothingElse)
{
    const QByteArray content = QByteArray("x").repeated(200'000);
    EXPECT_EQ(files.contents(mac.writeFile("folder/file", content)), content);
    EXPECT_EQ(files.contents(mac.writeFile("folder/empty", "")), QByteArray());
    const QByteArray fifo = folder.appending(QStringLiteral("fifo")).nativePath();
    ASSERT_EQ(::mkfifo(fifo.constData(), 0600), 0);
    EXPECT_EQ(files.contents(FileURL::fromNativePath(fifo)).error().reason,
              FileError::Reason::notARegularFile);
    EXPECT_EQ(files.contents(folder).error().reason, FileError::Reason::notARegularFile);
    EXPECT_EQ(files.contents(folder.appending(QStringLiteral("none"))).error().code, ENOENT);
}

TEST_F(SystemFileManagerTest, refusesToReadMoreThanTheMaximum)
{
    const FileURL file = mac.writeFile("folder/file", "12345");
    EXPECT_EQ(files.contents(file, 5), "12345");
    EXPECT_EQ(files.contents(file, 4).error().localizedDescription(),
              QStringLiteral("“file” could not be read: it is too large."));
    ASSERT_EQ(::truncate(file.nativePath().constData(), 40'000'000'000), 0);
    EXPECT_EQ(files.contents(file).error().reason, FileError::Reason::tooLarge);
}

/// Prints what comes of it; meant for a process of its own.
[[noreturn]] void readWithLittleMemory(const FileManager& files, const FileURL& file)
{
    constexpr rlim_t limit = 500'000'000;
    const rlimit small{limit, limit};
    ::setrlimit(RLIMIT_AS, &small);
    const auto read = files.contents(file);
    std::fputs(read ? "read" : read.error().localizedDescription().toUtf8().constData(), stderr);
    std::_Exit(0);
}

TEST_F(SystemFileManagerTest, refusesAFileForWhichThereIsNotEnoughMemory)
{
    if (KEELBRIGHT_IS_SANITIZED)
        GTEST_SKIP() << "a sanitizer needs more address space than the limit leaves";
    const FileURL file = mac.writeFile("folder/file", "");
    ASSERT_EQ(::truncate(file.nativePath().constData(), 900'000'000), 0);
    EXPECT_EXIT(readWithLittleMemory(files, file), ::testing::ExitedWithCode(0),
                "“file” could not be read: there is not enough memory.");
}

TEST_F(SystemFileManagerTest, refusesAFileThatHoldsMoreThanItsSizeSays)
{
    const FileURL file = FileURL::fromNativePath("/proc/self/status");
    EXPECT_TRUE(files.contents(file).has_value());
    EXPECT_EQ(files.contents(file, 20).error().reason, FileError::Reason::tooLarge);
}

TEST_F(SystemFileManagerTest, givesAFileASecondNameThatOutlivesAWriteToTheFirst)
{
    const FileURL file = mac.writeFile("folder/file", "old");
    const FileURL second = folder.appending(QStringLiteral("second"));
    ASSERT_TRUE(files.linkItem(file, second).has_value());
    ASSERT_TRUE(files.writeAtomically(file, "new").has_value());
    EXPECT_EQ(testing::TestMac::read(second), "old");
    EXPECT_EQ(files.linkItem(file, second).error().code, EEXIST);
    EXPECT_EQ(testing::TestMac::read(second), "old");
    EXPECT_TRUE(files.removeOwnFile(second).has_value());
    EXPECT_FALSE(files.fileExists(second).exists);
    EXPECT_TRUE(files.removeOwnFile(second).has_value()) << "it is gone already";
    EXPECT_FALSE(files.removeOwnFile(folder).has_value()) << "no folder is removed";
    EXPECT_EQ(testing::TestMac::read(file), "new");
}

TEST_F(SystemFileManagerTest, writesPiecesAsOneFileOrNotAtAll)
{
    const FileURL file = mac.writeFile("folder/list", "old");
    QByteArrayList pieces{"one", " and ", "two", ""};
    const auto nextPiece = [&]() -> std::expected<QByteArray, FileError> { return pieces.takeFirst(); };
    ASSERT_TRUE(files.writePiecesAtomically(file, nextPiece).has_value());
    EXPECT_EQ(testing::TestMac::read(file), "one and two");
    pieces = {"half"};
    const auto failsLater = [&]() -> std::expected<QByteArray, FileError> {
        if (pieces.isEmpty())
            return failure(FileError::Operation::read, "pieces", EIO);
        return pieces.takeFirst();
    };
    const auto written = files.writePiecesAtomically(file, failsLater);
    ASSERT_FALSE(written.has_value());
    EXPECT_EQ(written.error().name, QStringLiteral("pieces"));
    EXPECT_EQ(testing::TestMac::read(file), "one and two");
    EXPECT_EQ(files.contentsOfDirectory(folder, {})->size(), 1) << "and nothing is left behind";
}

TEST_F(SystemFileManagerTest, writesAtomicallyWithoutLeavingATrace)
{
    const FileURL file = folder.appending(QStringLiteral("config.json"));
    ASSERT_TRUE(files.writeAtomically(file, "first").has_value());
    ASSERT_EQ(::chmod(file.nativePath().constData(), 0600), 0);
    ASSERT_TRUE(files.writeAtomically(file, "second").has_value());
    EXPECT_EQ(testing::TestMac::read(file), "second");
    struct stat status = {};
    ASSERT_EQ(::stat(file.nativePath().constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U) << "the old file's mode is kept";
    EXPECT_EQ(files.contentsOfDirectory(folder, {})->size(), 1);
}

TEST_F(SystemFileManagerTest, writesToTheFileBehindALink)
{
    const FileURL file = mac.writeFile("elsewhere/file", "old");
    ASSERT_EQ(::chmod(file.nativePath().constData(), 0640), 0);
    const FileURL link = folder.appending(QStringLiteral("link"));
    const FileURL linkToLink = folder.appending(QStringLiteral("linkToLink"));
    ASSERT_EQ(::symlink("../elsewhere/file", link.nativePath().constData()), 0);
    ASSERT_EQ(::symlink(link.nativePath().constData(), linkToLink.nativePath().constData()), 0);
    ASSERT_TRUE(files.writeAtomically(linkToLink, "new").has_value());
    EXPECT_EQ(testing::TestMac::read(file), "new");
    struct stat status = {};
    for (const FileURL& place : {link, linkToLink}) {
        ASSERT_EQ(::lstat(place.nativePath().constData(), &status), 0);
        EXPECT_TRUE(S_ISLNK(status.st_mode));
    }
    ASSERT_EQ(::lstat(file.nativePath().constData(), &status), 0);
    EXPECT_EQ(status.st_mode, S_IFREG | 0640U);
}

TEST_F(SystemFileManagerTest, aLinkThatLeadsNowhereStaysALink)
{
    const FileURL link = folder.appending(QStringLiteral("link"));
    ASSERT_EQ(::symlink("later", link.nativePath().constData()), 0);
    ASSERT_TRUE(files.writeAtomically(link, "data").has_value());
    EXPECT_EQ(testing::TestMac::read(folder.appending(QStringLiteral("later"))), "data");
    const FileURL unplugged = folder.appending(QStringLiteral("unplugged"));
    ASSERT_EQ(::symlink("/no/such/drive/file", unplugged.nativePath().constData()), 0);
    EXPECT_EQ(files.writeAtomically(unplugged, "data").error().localizedDescription(),
              QStringLiteral("“unplugged” could not be written: it does not exist."));
    const FileURL circle = folder.appending(QStringLiteral("circle"));
    ASSERT_EQ(::symlink("circle", circle.nativePath().constData()), 0);
    EXPECT_EQ(files.writeAtomically(circle, "data").error().code, ELOOP);
    for (const FileURL& place : {link, unplugged, circle}) {
        struct stat status = {};
        ASSERT_EQ(::lstat(place.nativePath().constData(), &status), 0);
        EXPECT_TRUE(S_ISLNK(status.st_mode));
    }
}

TEST_F(SystemFileManagerTest, leavesTheOldFileWhenAWriteFails)
{
    mac.writeFile("folder/inTheWay/child", "x");
    const FileURL inTheWay = folder.appending(QStringLiteral("inTheWay"));
    const auto written = files.writeAtomically(inTheWay, "data");
    ASSERT_FALSE(written.has_value());
    EXPECT_EQ(written.error().localizedDescription(),
              QStringLiteral("“inTheWay” could not be written: a folder stands in its place."));
    EXPECT_EQ(files.contentsOfDirectory(folder, {})->size(), 1) << "no temporary file stays";
    EXPECT_FALSE(
        files.writeAtomically(mac.root().appending(QStringLiteral("no/such/file")), "x").has_value());
}

TEST_F(SystemFileManagerTest, reportsTheCapacityOfAFileSystem)
{
    const auto capacity = files.fileSystemCapacity(folder);
    ASSERT_TRUE(capacity.has_value());
    EXPECT_GT(capacity->totalBytes.value_or(0), 0);
    EXPECT_LE(capacity->freeBytes.value_or(0), capacity->totalBytes.value_or(0));
    EXPECT_FALSE(files.fileSystemCapacity(folder.appending(QStringLiteral("none"))).has_value());
}

TEST_F(SystemFileManagerTest, resolvesLinksOnTheWay)
{
    mac.writeFile("folder/file", "x");
    const FileURL link = mac.root().appending(QStringLiteral("link"));
    ASSERT_EQ(::symlink("folder", link.nativePath().constData()), 0);
    EXPECT_EQ(files.resolvingSymlinks(link.appending(QStringLiteral("file"))),
              folder.appending(QStringLiteral("file")));
    const FileURL none = folder.appending(QStringLiteral("none"));
    EXPECT_EQ(files.resolvingSymlinks(none), none);
}

TEST_F(SystemFileManagerTest, findsTheOnePlaceOfAFolderThatIsMountedASecondTime)
{
    mac.makeFolder("folder/below");
    mac.makeFolder("a folder beside"); // the system's table writes blanks in another way
    const FileURL beside = mac.root().appending(QStringLiteral("a folder beside"));
    const auto place = files.placeOnVolume(folder);
    if (!place)
        GTEST_SKIP() << "this system does not number its mounts";
    const testing::TemporaryVolume mounted(beside, folder);
    if (!mounted.isMounted())
        GTEST_SKIP() << "mounting a folder a second time is not permitted here";
    EXPECT_EQ(files.placeOnVolume(beside), place);
    const auto below = files.placeOnVolume(beside.appending(QStringLiteral("below")));
    ASSERT_TRUE(below.has_value());
    EXPECT_TRUE(isAtOrBelow(*below, *place));
    EXPECT_FALSE(isAtOrBelow(*place, *below));
    EXPECT_EQ(below, files.placeOnVolume(folder.appending(QStringLiteral("below"))));
    EXPECT_EQ(files.placeOnVolume(folder.appending(QStringLiteral("none"))), std::nullopt);
}

TEST_F(SystemFileManagerTest, keepsPlacesOnDifferentVolumesApart)
{
    const testing::TemporaryVolume volume(mac.makeFolder("volume"));
    const auto place = files.placeOnVolume(mac.root());
    if (!volume.isMounted() || !place)
        GTEST_SKIP() << "mounting is not permitted here, or this system does not number its mounts";
    const auto other = files.placeOnVolume(volume.location());
    ASSERT_TRUE(other.has_value());
    EXPECT_EQ(other->path.nativePath(), "/");
    EXPECT_FALSE(isAtOrBelow(*other, *place));
}

TEST(SystemFileManagerPlaces, followTheEnvironment)
{
    const testing::EnvironmentVariable home("HOME");
    const testing::EnvironmentVariable dataHome("XDG_DATA_HOME");
    home.set("/Users/someone");
    dataHome.unset();
    const SystemFileManager files;
    EXPECT_EQ(files.homeDirectory().nativePath(), "/Users/someone");
    EXPECT_EQ(files.applicationSupportDirectory().nativePath(), "/Users/someone/.local/share");
    dataHome.set("/data");
    EXPECT_EQ(files.applicationSupportDirectory().nativePath(), "/data");
    dataHome.set("relative");
    EXPECT_EQ(files.applicationSupportDirectory().nativePath(), "/Users/someone/.local/share");
    EXPECT_EQ(files.systemLocation(QStringLiteral("/Applications")).nativePath(), "/Applications");
}

TEST(SystemFileManagerPlaces, withoutHomeTheUserDatabaseIsAsked)
{
    const testing::EnvironmentVariable home("HOME");
    const passwd* user = ::getpwuid(::getuid());
    if (user == nullptr)
        GTEST_SKIP() << "the user database does not know the user of the tests";
    const SystemFileManager files;
    home.unset();
    EXPECT_EQ(files.homeDirectory(), FileURL::fromNativePath(user->pw_dir));
    home.set("relative");
    EXPECT_EQ(files.homeDirectory(), FileURL::fromNativePath(user->pw_dir));
}

TEST(FileManagerGuard, standsInForTheDefaultWhileItLives)
{
    FileManager& before = FileManager::defaultManager();
    {
        testing::TestMac mac;
        EXPECT_EQ(&FileManager::defaultManager(), &mac.fileManager());
    }
    EXPECT_EQ(&FileManager::defaultManager(), &before);
}

} // namespace
} // namespace keelbright

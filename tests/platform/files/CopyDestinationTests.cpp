#include "tests/platform/files/CopyDestinationTest.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace keelbright {
namespace {

using testing::CopyDestinationTest;

TEST_F(CopyDestinationTest, copiesDataModeAndTimesToTheNanosecond)
{
    const FileURL file = mac.writeFile("source/a.txt", "content");
    const timespec times[2] = {{1'600'000'000, 123'456'789}, {1'500'000'000, 987'654'321}};
    ASSERT_EQ(::utimensat(AT_FDCWD, file.nativePath().constData(), times, 0), 0);
    ASSERT_EQ(::chmod(file.nativePath().constData(), 0640), 0);
    auto mirror = openMirror();
    EXPECT_EQ(copy(*mirror, "a.txt"), 7);
    const FileURL target = latest("a.txt");
    EXPECT_EQ(testing::TestMac::read(target), "content");
    const struct stat copied = status(target);
    EXPECT_EQ(copied.st_mode & 07777, 0640U);
    EXPECT_EQ(copied.st_mtim.tv_sec, 1'500'000'000);
    EXPECT_EQ(copied.st_mtim.tv_nsec, 987'654'321);
    EXPECT_EQ(copied.st_nlink, 1U);
}

TEST_F(CopyDestinationTest, copiesExtendedAttributesWhereBothSidesHaveThem)
{
    const FileURL file = mac.writeFile("source/a", "x");
    if (::setxattr(file.nativePath().constData(), "user.comment", "kept", 4, 0) != 0)
        GTEST_SKIP() << "the temporary folder's file system has no extended attributes";
    auto mirror = openMirror();
    ASSERT_TRUE(copy(*mirror, "a").has_value());
    char value[8] = {};
    EXPECT_EQ(::getxattr(latest("a").nativePath().constData(), "user.comment", value, sizeof value), 4);
    EXPECT_STREQ(value, "kept");
}

TEST_F(CopyDestinationTest, replacesAnOldFileAndLeavesNoTemporaryFile)
{
    mac.writeFile("drive/Latest/a", "old and longer");
    mac.writeFile("source/a", "new");
    auto mirror = openMirror();
    EXPECT_EQ(copy(*mirror, "a"), 3);
    EXPECT_EQ(testing::TestMac::read(latest("a")), "new");
    EXPECT_THAT(namesIn(latest("")), ::testing::ElementsAre("a"));
}

TEST_F(CopyDestinationTest, leavesNothingOfACopyThatIsDropped)
{
    mac.writeFile("drive/Latest/a", "old");
    mac.writeFile("source/a", "new");
    auto mirror = openMirror();
    ASSERT_TRUE(mirror->enterFolder("").has_value());
    auto items = DirectoryEnumerator::open(source, {});
    ASSERT_TRUE((*items)->next());
    {
        const auto prepared = prepare(*mirror, **items);
        ASSERT_TRUE(prepared.has_value());
    }
    EXPECT_EQ(testing::TestMac::read(latest("a")), "old");
    EXPECT_THAT(namesIn(latest("")), ::testing::ElementsAre("a"));
}

TEST_F(CopyDestinationTest, endsACopyUnderWayWhenTheProgramQuits)
{
    mac.writeFile("source/a", QByteArray(4 * 1024 * 1024, 'x'));
    auto mirror = openMirror();
    cancellation.quit();
    const auto copied = copy(*mirror, "a");
    ASSERT_FALSE(copied.has_value());
    EXPECT_EQ(copied.error().reason, FileError::Reason::stopped);
    EXPECT_THAT(namesIn(latest("")), ::testing::IsEmpty());
}

TEST_F(CopyDestinationTest, finishesACopyUnderWayWhenTheUserCancels)
{
    mac.writeFile("source/a", QByteArray(4 * 1024 * 1024, 'x'));
    auto mirror = openMirror();
    cancellation.cancel();
    EXPECT_EQ(copy(*mirror, "a"), 4 * 1024 * 1024);
}

TEST_F(CopyDestinationTest, copiesALinkAsALinkWhereverItLeads)
{
    for (const char* name : {"dangling", "loop"})
        ASSERT_EQ(::symlink(name == QByteArrayView("loop") ? "loop" : "/no/such/place",
                            source.appendingNative(name).nativePath().constData()),
                  0);
    auto mirror = openMirror();
    EXPECT_EQ(copy(*mirror, "dangling"), 14);
    EXPECT_EQ(copy(*mirror, "loop"), 4);
    char text[32] = {};
    EXPECT_EQ(::readlink(latest("dangling").nativePath().constData(), text, sizeof text), 14);
    EXPECT_STREQ(text, "/no/such/place");
}

TEST_F(CopyDestinationTest, replacesALinkOnTheSecondRun)
{
    const QByteArray path = source.appendingNative("link").nativePath();
    ASSERT_EQ(::symlink("first", path.constData()), 0);
    auto mirror = openMirror();
    ASSERT_TRUE(copy(*mirror, "link").has_value());
    ASSERT_EQ(::unlink(path.constData()), 0);
    ASSERT_EQ(::symlink("second", path.constData()), 0);
    ASSERT_TRUE(copy(*mirror, "link").has_value());
    char text[32] = {};
    EXPECT_EQ(::readlink(latest("link").nativePath().constData(), text, sizeof text), 6);
    EXPECT_STREQ(text, "second");
}

TEST_F(CopyDestinationTest, refusesFifosAndSocketsAtOnce)
{
    ASSERT_EQ(::mkfifo(source.appendingNative("fifo").nativePath().constData(), 0600), 0);
    const int listener = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    const QByteArray path = source.appendingNative("socket").nativePath();
    ASSERT_LT(static_cast<size_t>(path.size()), sizeof address.sun_path);
    qstrncpy(address.sun_path, path.constData(), sizeof address.sun_path);
    ASSERT_EQ(::bind(listener, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    auto mirror = openMirror();
    for (const char* name : {"fifo", "socket"}) {
        const auto copied = copy(*mirror, name);
        ASSERT_FALSE(copied.has_value());
        EXPECT_EQ(copied.error().localizedDescription(),
                  QStringLiteral("“%1” could not be copied: it is neither a file nor a link.")
                      .arg(QLatin1String(name)));
    }
    ::close(listener);
}

TEST_F(CopyDestinationTest, replacesALinkThatStandsInThePlaceOfAFile)
{
    mac.writeFile("source/a", "new");
    const FileURL precious = mac.writeFile("elsewhere/precious", "untouched");
    mac.makeFolder("drive/Latest");
    ASSERT_EQ(::symlink("../../elsewhere/precious", latest("a").nativePath().constData()), 0);
    auto mirror = openMirror();
    ASSERT_TRUE(copy(*mirror, "a").has_value());
    EXPECT_TRUE(S_ISREG(status(latest("a")).st_mode));
    EXPECT_EQ(testing::TestMac::read(precious), "untouched");
}

TEST_F(CopyDestinationTest, namesNewFilesBesideOldOnes)
{
    mac.writeFile("source/new", "new");
    mac.writeFile("source/old", "newer");
    mac.writeFile("drive/Latest/one/old", "old");
    auto mirror = openMirror();
    ASSERT_TRUE(copy(*mirror, "new", "one").has_value());
    ASSERT_TRUE(copy(*mirror, "old", "one").has_value());
    EXPECT_EQ(testing::TestMac::read(latest("one/new")), "new");
    EXPECT_EQ(testing::TestMac::read(latest("one/old")), "newer");
    EXPECT_THAT(namesIn(latest("one")), ::testing::UnorderedElementsAre("new", "old"));
}

TEST_F(CopyDestinationTest, givesEveryModeWhateverTheUmask)
{
    const mode_t before = ::umask(077);
    auto mirror = openMirror();
    for (const mode_t mode : {0644U, 0600U, 0755U, 0400U, 0777U, 01644U}) {
        const QByteArray name = QByteArray::number(static_cast<int>(mode), 8);
        ASSERT_EQ(::chmod(mac.writeFile("source/" + name, "x").nativePath().constData(), mode), 0);
        EXPECT_TRUE(copy(*mirror, name).has_value());
        EXPECT_EQ(status(latest(name)).st_mode & 07777, mode) << name.constData();
    }
    ::umask(before);
}

TEST_F(CopyDestinationTest, keepsHolesHoles)
{
    const QByteArray path = source.appendingNative("sparse").nativePath();
    const int file = ::open(path.constData(), O_RDWR | O_CREAT, 0644);
    constexpr off_t size = 5LL * 1024 * 1024 * 1024; // more than 32 bits count
    ASSERT_EQ(::ftruncate(file, size), 0);
    ASSERT_EQ(::pwrite(file, "head", 4, 0), 4);
    ASSERT_EQ(::pwrite(file, "middle", 6, size / 2), 6);
    ::close(file);
    if (status(source.appendingNative("sparse")).st_blocks * 512 >= size)
        GTEST_SKIP() << "the temporary folder's file system has no sparse files";
    auto mirror = openMirror();
    EXPECT_EQ(copy(*mirror, "sparse"), size);
    const struct stat copied = status(latest("sparse"));
    EXPECT_EQ(copied.st_size, size);
    EXPECT_LT(copied.st_blocks * 512, 1024 * 1024);
    const int copy = ::open(latest("sparse").nativePath().constData(), O_RDONLY);
    char text[7] = {};
    EXPECT_EQ(::pread(copy, text, 6, size / 2), 6);
    EXPECT_STREQ(text, "middle");
    EXPECT_EQ(::pread(copy, text, 4, 0), 4);
    EXPECT_EQ(QByteArrayView(text, 4), "head");
    ::close(copy);
}

class CopyOfSize : public CopyDestinationTest, public ::testing::WithParamInterface<int>
{};

TEST_P(CopyOfSize, isEqualByteForByte)
{
    QByteArray content(GetParam(), Qt::Uninitialized);
    for (qsizetype i = 0; i < content.size(); ++i)
        content[i] = static_cast<char>((i * 7 + i / 251) & 0xFF);
    mac.writeFile("source/file", content);
    auto mirror = openMirror();
    EXPECT_EQ(copy(*mirror, "file"), content.size());
    EXPECT_TRUE(testing::TestMac::read(latest("file")) == content);
    EXPECT_EQ(copy(*mirror, "file"), content.size()) << "and once more, over the first";
    EXPECT_TRUE(testing::TestMac::read(latest("file")) == content);
}

INSTANTIATE_TEST_SUITE_P(AroundTheBounds, CopyOfSize,
                         ::testing::Values(0, 1, 4095, 4096, 262'143, 262'144, 262'145, 1'048'576, 1'048'577,
                                           20'000'003));

TEST_F(CopyDestinationTest, copiesNamesOfAnyBytes)
{
    const QByteArrayList names = {"\xff\xfe", " leading", "new\nline", "tab\t\x01", QByteArray(255, 'n')};
    for (const QByteArray& name : names)
        mac.writeFile("source/" + name, name);
    auto mirror = openMirror();
    for (const QByteArray& name : names) {
        ASSERT_TRUE(copy(*mirror, name).has_value());
        EXPECT_EQ(testing::TestMac::read(latest(name)), name);
    }
}

TEST_F(CopyDestinationTest, neverPassesOnTheRightsOfAForeignOwner)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "giving a file to another user needs root";
    const QByteArray path = mac.writeFile("source/tool", "x").nativePath();
    ASSERT_EQ(::chown(path.constData(), 65534, 65534), 0);
    ASSERT_EQ(::chmod(path.constData(), 04755), 0);
    auto mirror = openMirror();
    ASSERT_TRUE(copy(*mirror, "tool").has_value());
    const struct stat copied = status(latest("tool"));
    EXPECT_EQ(copied.st_uid, 65534U) << "root may keep the owner, and then the rights stay with it";
    EXPECT_EQ(copied.st_mode & 07777, 04755U);
}

TEST_F(CopyDestinationTest, flushesWithoutErrorOnAHealthyDrive)
{
    mac.writeFile("source/a", "x");
    auto mirror = openMirror();
    ASSERT_TRUE(copy(*mirror, "a").has_value());
    EXPECT_TRUE(mirror->flush().has_value());
}

} // namespace
} // namespace keelbright

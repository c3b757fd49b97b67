#include "tests/platform/files/CopyDestinationTest.h"

#include <array>
#include <gmock/gmock.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <vector>

namespace keelbright {
namespace {

/// An access list as the system keeps it: all rights to the owner, none to anybody else.
QByteArray ownersOnlyAccessList()
{
    struct Entry
    {
        quint16 tag;
        quint16 rights;
        quint32 id;
    };

    constexpr quint32 version = 2;
    constexpr quint32 noId = 0xffffffff;
    constexpr std::array<Entry, 3> entries = {{{0x01, 07, noId}, {0x04, 0, noId}, {0x20, 0, noId}}};
    QByteArray list(reinterpret_cast<const char*>(&version), sizeof version);
    list.append(reinterpret_cast<const char*>(entries.data()), sizeof entries);
    return list;
}

/// The folders that copies go to.
class CopyDestinationFolderTest : public testing::CopyDestinationTest
{};

TEST_F(CopyDestinationFolderTest, createsFoldersOnTheWayAndNeverGoesThroughALink)
{
    mac.writeFile("source/a", "x");
    mac.makeFolder("elsewhere");
    auto mirror = openMirror();
    ASSERT_TRUE(copy(*mirror, "a", "one/two").has_value());
    EXPECT_EQ(testing::TestMac::read(latest("one/two/a")), "x");
    ASSERT_EQ(::symlink("../../elsewhere", latest("planted").nativePath().constData()), 0);
    const auto copied = copy(*mirror, "a", "planted/below");
    ASSERT_FALSE(copied.has_value());
    EXPECT_EQ(
        copied.error().localizedDescription(),
        QStringLiteral("“planted” could not be created: a symbolic link stands in the place of a folder."));
    EXPECT_THAT(namesIn(mac.root().appending(QStringLiteral("elsewhere"))), ::testing::IsEmpty());
}

TEST_F(CopyDestinationFolderTest, refusesAnAnchorBehindALink)
{
    mac.makeFolder("elsewhere");
    ASSERT_EQ(::symlink("../elsewhere", drive.appendingNative("Latest").nativePath().constData()), 0);
    const auto opened = mac.fileManager().openCopyDestination(drive, "Latest");
    ASSERT_FALSE(opened.has_value());
    EXPECT_EQ(opened.error().reason, FileError::Reason::symbolicLinkInTheWay);
}

TEST_F(CopyDestinationFolderTest, keepsAFolderThatStandsInThePlaceOfAFile)
{
    mac.writeFile("source/a", "x");
    mac.writeFile("drive/Latest/a/inside", "kept");
    auto mirror = openMirror();
    const auto copied = copy(*mirror, "a");
    ASSERT_FALSE(copied.has_value());
    EXPECT_EQ(copied.error().localizedDescription(),
              QStringLiteral("“a” could not be replaced: a folder stands in its place."));
    EXPECT_THAT(namesIn(latest("")), ::testing::UnorderedElementsAre("a", "inside"));
}

TEST_F(CopyDestinationFolderTest, recreatesAFolderThatWasRemovedMeanwhile)
{
    mac.writeFile("source/a", "x");
    mac.writeFile("source/b", "y");
    auto mirror = openMirror();
    ASSERT_TRUE(copy(*mirror, "a", "one").has_value());
    ASSERT_EQ(::unlink(latest("one/a").nativePath().constData()), 0);
    ASSERT_EQ(::rmdir(latest("one").nativePath().constData()), 0);
    ASSERT_TRUE(copy(*mirror, "b", "one").has_value());
    EXPECT_EQ(testing::TestMac::read(latest("one/b")), "y");
}

TEST_F(CopyDestinationFolderTest, keepsAFolderThatStandsInThePlaceOfAFileInAFolderThatWasThere)
{
    mac.writeFile("source/a", "x");
    mac.writeFile("drive/Latest/one/a/inside", "kept");
    auto mirror = openMirror();
    const auto copied = copy(*mirror, "a", "one");
    ASSERT_FALSE(copied.has_value());
    EXPECT_EQ(copied.error().localizedDescription(),
              QStringLiteral("“a” could not be replaced: a folder stands in its place."));
    EXPECT_THAT(namesIn(latest("one")), ::testing::UnorderedElementsAre("a", "inside"))
        << "no temporary file stays";
}

TEST_F(CopyDestinationFolderTest, namesACopyInItsOwnFolderAfterAnotherWasEntered)
{
    mac.writeFile("source/a", "x");
    auto mirror = openMirror();
    auto items = DirectoryEnumerator::open(source, {});
    ASSERT_TRUE((*items)->next());
    std::vector<std::unique_ptr<PreparedCopy>> prepared;
    for (const char* folder : {"one", "one/two", "three"}) {
        ASSERT_TRUE(mirror->enterFolder(folder).has_value());
        auto copy = prepare(*mirror, **items);
        ASSERT_TRUE(copy.has_value());
        prepared.push_back(std::move(*copy));
    }
    for (const auto& copy : prepared)
        EXPECT_TRUE(copy->publish().has_value());
    for (const char* path : {"one/a", "one/two/a", "three/a"})
        EXPECT_EQ(testing::TestMac::read(latest(path)), "x") << path;
}

TEST_F(CopyDestinationFolderTest, recreatesAFolderThatWasRemovedWhileItsCopyWaitedForItsName)
{
    mac.writeFile("source/a", "x");
    auto mirror = openMirror();
    auto items = DirectoryEnumerator::open(source, {});
    ASSERT_TRUE((*items)->next());
    ASSERT_TRUE(mirror->enterFolder("one/two").has_value());
    const auto prepared = prepare(*mirror, **items);
    ASSERT_TRUE(prepared.has_value());
    ASSERT_TRUE(mirror->enterFolder("three").has_value());
    ASSERT_EQ(::rmdir(latest("one/two").nativePath().constData()), 0);
    ASSERT_EQ(::rmdir(latest("one").nativePath().constData()), 0);
    ASSERT_TRUE((*prepared)->publish().has_value());
    EXPECT_EQ(testing::TestMac::read(latest("one/two/a")), "x");
}

TEST_F(CopyDestinationFolderTest, givesEveryModeWhateverTheAccessListOfTheFolder)
{
    const FileURL folder = mac.makeFolder("drive/Latest/listed");
    const QByteArray list = ownersOnlyAccessList();
    ASSERT_EQ(::setxattr(folder.nativePath().constData(), "system.posix_acl_default", list.constData(),
                         static_cast<size_t>(list.size()), 0),
              0);
    ASSERT_EQ(::chmod(mac.writeFile("source/a", "x").nativePath().constData(), 0644), 0);
    auto mirror = openMirror();
    ASSERT_TRUE(copy(*mirror, "a", "listed").has_value());
    EXPECT_EQ(status(latest("listed/a")).st_mode & 07777, 0644U);
}

TEST_F(CopyDestinationFolderTest, writesNothingOnceTheAnchorHasLeftItsPlace)
{
    mac.writeFile("source/a", "x");
    auto mirror = openMirror();
    ASSERT_EQ(
        ::rename(latest("").nativePath().constData(), drive.appendingNative("Away").nativePath().constData()),
        0);
    mac.makeFolder("drive/Latest");
    ::usleep(60'000); // the place is looked at now and then only
    const auto copied = copy(*mirror, "a");
    ASSERT_FALSE(copied.has_value());
    EXPECT_EQ(copied.error().localizedDescription(),
              QStringLiteral("“Latest” could not be copied: the destination is no longer in its place."));
    EXPECT_THAT(namesIn(drive.appendingNative("Away")), ::testing::IsEmpty());
    EXPECT_THAT(namesIn(latest("")), ::testing::IsEmpty());
}

} // namespace
} // namespace keelbright

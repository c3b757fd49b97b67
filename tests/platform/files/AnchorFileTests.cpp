#include "KeelbrightCore/platform/files/CopyDestination.h"
#include "tests/support/TestMac.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace keelbright {
namespace {

/// Files that are written into the anchor of a copy destination itself.
class AnchorFileTest : public ::testing::Test
{
protected:
    [[nodiscard]] std::expected<void, FileError> write(const QByteArray& data)
    {
        return anchor->writeAtomically("record.json", data);
    }

    [[nodiscard]] static long countIn(const FileURL& folder)
    {
        using Entries = std::filesystem::directory_iterator;
        return std::distance(Entries(folder.nativePath().toStdString()), Entries());
    }

    testing::TestMac mac;
    FileURL drive = mac.makeFolder("drive");
    FileURL folder = drive.appendingNative("Reports");
    FileURL elsewhere = mac.makeFolder("elsewhere");
    std::unique_ptr<CopyDestination> anchor = *mac.fileManager().openCopyDestination(drive, "Reports");
};

TEST_F(AnchorFileTest, isWrittenWholeAndLeavesNoTrace)
{
    EXPECT_TRUE(write("first").has_value());
    ASSERT_EQ(::chmod(folder.appendingNative("record.json").nativePath().constData(), 0600), 0);
    EXPECT_TRUE(write("second").has_value());
    EXPECT_EQ(testing::TestMac::read(folder.appendingNative("record.json")), "second");
    struct stat status = {};
    ASSERT_EQ(::stat(folder.appendingNative("record.json").nativePath().constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U) << "the old file's mode is kept";
    EXPECT_EQ(countIn(folder), 1);
}

TEST_F(AnchorFileTest, isNotWrittenThroughALinkThatHasTakenTheAnchorsPlace)
{
    std::filesystem::rename(folder.nativePath().toStdString(),
                            folder.nativePath().toStdString() + " of before");
    ASSERT_EQ(::symlink(elsewhere.nativePath().constData(), folder.nativePath().constData()), 0);
    const auto written = write("data");
    ASSERT_FALSE(written.has_value());
    EXPECT_EQ(
        written.error().localizedDescription(),
        QStringLiteral("“record.json” could not be written: the destination is no longer in its place."));
    EXPECT_EQ(countIn(elsewhere), 0);
}

TEST_F(AnchorFileTest, takesThePlaceOfALinkOfItsName)
{
    const FileURL precious = mac.writeFile("elsewhere/precious", "precious");
    ASSERT_EQ(::symlink(precious.nativePath().constData(),
                        folder.appendingNative("record.json").nativePath().constData()),
              0);
    EXPECT_TRUE(write("data").has_value());
    EXPECT_EQ(testing::TestMac::read(precious), "precious");
    EXPECT_EQ(testing::TestMac::read(folder.appendingNative("record.json")), "data");
}

TEST_F(AnchorFileTest, leavesAFolderOfItsNameAlone)
{
    mac.writeFile("drive/Reports/record.json/child", "x");
    const auto written = write("data");
    ASSERT_FALSE(written.has_value());
    EXPECT_EQ(written.error().localizedDescription(),
              QStringLiteral("“record.json” could not be written: a folder stands in its place."));
    EXPECT_EQ(countIn(folder), 1);
}

} // namespace
} // namespace keelbright

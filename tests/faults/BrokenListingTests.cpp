#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/storage/FolderSizeService.h"
#include "tests/faults/CareFaultTest.h"
#include "tests/faults/RunnerProcess.h"
#include "tests/support/FailingDrive.h"

namespace keelbright {
namespace {

using namespace Qt::StringLiterals;
using testing::FailingDrive;
using testing::RunnerProcess;

/// Folders whose listing ends with an error after a part of their entries.
class BrokenListingTest : public testing::CareFaultTest
{
protected:
    static constexpr int count = 600; // several pieces of a listing
    static constexpr int namedForOne = 200;

    static QByteArray longName(int number)
    {
        return QByteArray::number(number).rightJustified(namedForOne, 'n');
    }

    /// The second piece of the folder's listing can't be read.
    static QStringList breakingOff(const FileURL& folder)
    {
        return RunnerProcess::failing(u"getdents64"_s, u"error=EIO"_s, 2, folder.path());
    }

    FileURL home(const QByteArray& path) const { return mac.home().appendingNative(path); }
};

TEST_F(BrokenListingTest, aPartOfTheEntriesIsNotGivenForAll)
{
    const FailingDrive failing(u"list"_s, 0, u"EIO"_s);
    if (!failing.reasonMissing().empty())
        GTEST_SKIP() << failing.reasonMissing();
    write(failing.folder().appendingNative("file"), "content");
    const auto entries = FileManager::defaultManager().contentsOfDirectory(failing.root(), {});
    ASSERT_FALSE(entries);
    EXPECT_EQ(entries.error(), FileError::fromCode(FileError::Operation::listed, u"drive"_s, EIO));
    EXPECT_TRUE(FolderSizeService::scanLevel(failing.root()).isEmpty());
}

TEST_F(BrokenListingTest, noFileOfSuchAFolderIsSorted)
{
    if (const std::string reason = RunnerProcess::reasonMissing(); !reason.empty())
        GTEST_SKIP() << reason;
    const FileURL folder = home("Downloads");
    for (int i = 0; i < count; ++i)
        write(folder.appendingNative(longName(i) + ".png"), "content");
    RunnerProcess runner({u"--work=organize"_s, mac.root().path(), folder.path()}, breakingOff(folder));
    EXPECT_TRUE(runner.finish().hasEnded);
    EXPECT_EQ(everythingBelow(folder).size(), count);
    EXPECT_FALSE(exists(folder.appendingNative("Images")));
}

TEST_F(BrokenListingTest, noJunkOfSuchAFolderIsCleanedAndOtherJunkIs)
{
    if (const std::string reason = RunnerProcess::reasonMissing(); !reason.empty())
        GTEST_SKIP() << reason;
    for (int i = 0; i < count; ++i)
        write(home("Library/Caches/" + longName(i) + "/data"), "content");
    write(home("Library/Logs/Editor/log"), "content");
    RunnerProcess runner({u"--work=clean"_s, mac.root().path()}, breakingOff(home("Library/Caches")));
    EXPECT_TRUE(runner.finish().hasEnded);
    EXPECT_EQ(everythingBelow(home("Library/Caches")).size(), 2 * count);
    EXPECT_FALSE(exists(home("Library/Logs/Editor")));
}

TEST_F(BrokenListingTest, noLeftoverOfSuchAFolderIsRemovedAndOthersAre)
{
    if (const std::string reason = RunnerProcess::reasonMissing(); !reason.empty())
        GTEST_SKIP() << reason;
    const FileURL bundle = mac.root().appendingNative("Applications/Editor.app");
    write(bundle.appendingNative("inside"), "content");
    for (int i = 0; i < count; ++i)
        write(home("Library/Group Containers/" + longName(i) + ".com.example.editor/data"), "content");
    write(home("Library/Caches/com.example.editor/data"), "content");
    RunnerProcess runner({u"--work=remove"_s, mac.root().path(), bundle.path()},
                         breakingOff(home("Library/Group Containers")));
    EXPECT_TRUE(runner.finish().hasEnded);
    EXPECT_EQ(everythingBelow(home("Library/Group Containers")).size(), 2 * count);
    EXPECT_FALSE(exists(home("Library/Caches/com.example.editor")));
    EXPECT_FALSE(exists(bundle));
}

} // namespace
} // namespace keelbright

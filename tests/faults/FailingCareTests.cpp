#include "KeelbrightCore/platform/files/FileManager.h"
#include "tests/faults/CareFaultTest.h"
#include "tests/faults/RunnerProcess.h"
#include "tests/support/FailingDrive.h"
#include "tests/support/ImageDrive.h"
#include "tests/support/TemporaryVolume.h"

namespace keelbright {
namespace {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using testing::FailingDrive;
using testing::ImageDrive;
using testing::reasonNoVolume;
using testing::RunnerProcess;
using testing::TemporaryVolume;
using testing::TestMac;
using ::testing::UnorderedElementsAre;

/// System calls that fail while an item is moved.
class FailingCareTest : public testing::CareFaultTest
{};

TEST_F(FailingCareTest, anItemStaysIfItsRecordDoesNotReachTheDrive)
{
    const FailingDrive failing(u"close"_s, 0, u"EDQUOT"_s);
    if (!failing.reasonMissing().empty())
        GTEST_SKIP() << failing.reasonMissing();
    write(failing.folder().appendingNative("file"), "content");
    const auto trashed = FileManager::defaultManager().trashItem(failing.root().appendingNative("file"));
    ASSERT_FALSE(trashed);
    EXPECT_EQ(trashed.error(), FileError::fromCode(FileError::Operation::trashed, u"file"_s, EDQUOT));
    EXPECT_EQ(TestMac::read(failing.folder().appendingNative("file")), "content");
    EXPECT_THAT(everythingBelow(trashOf(failing.folder())), UnorderedElementsAre("files", "info"));
}

TEST_F(FailingCareTest, anItemStaysIfTheTopOfItsVolumeCannotBeFound)
{
    if (const std::string reason = RunnerProcess::reasonMissing(); !reason.empty())
        GTEST_SKIP() << reason;
    const TemporaryVolume volume(mac.makeFolder("Volumes/Stick"));
    if (!volume.isMounted())
        GTEST_SKIP() << reasonNoVolume;
    const FileURL bundle = volume.location().appendingNative("Applications/Editor.app");
    write(bundle.appendingNative("inside"), "content");
    const QStringList failing{u"-e"_s, u"inject=newfstatat:error=EIO"_s, u"-P"_s, volume.location().path()};
    RunnerProcess runner({u"--work=remove"_s, mac.root().path(), bundle.path()}, failing);
    EXPECT_TRUE(runner.finish().hasEnded);
    EXPECT_THAT(everythingBelow(volume.location()),
                ElementsAre("Applications", "Applications/Editor.app", "Applications/Editor.app/inside"));
}

TEST_F(FailingCareTest, aPathThatCannotBeCheckedIsNotReplaced)
{
    if (const std::string reason = RunnerProcess::reasonMissing(); !reason.empty())
        GTEST_SKIP() << reason;
    const FileURL old = mac.writeFile("Users/mira/Downloads/Images/a.png", "old");
    const FileURL loose = mac.writeFile("Users/mira/Downloads/a.png", "new");
    // As on a drive that can't check and rename in one step.
    const QStringList failing{u"-e"_s, u"inject=renameat2:error=EINVAL"_s,
                              u"-e"_s, u"inject=newfstatat:error=EIO"_s,
                              u"-P"_s, old.path()};
    RunnerProcess runner({u"--work=organize"_s, mac.root().path(), loose.deletingLastPathComponent().path()},
                         failing);
    EXPECT_TRUE(runner.finish().hasEnded);
    EXPECT_EQ(TestMac::read(old), "old");
    EXPECT_EQ(TestMac::read(loose), "new");
}

TEST_F(FailingCareTest, theOriginOfATrashedItemSurvivesAPowerCut)
{
    const ImageDrive image(ImageDrive::Kind::ext4, 33'554'432);
    if (!image.reasonMissing().empty())
        GTEST_SKIP() << image.reasonMissing();
    write(image.root().appendingNative("folder/file"), "content");
    write(image.root().appendingNative("other"), "content");
    ASSERT_TRUE(FileManager::defaultManager().openCopyDestination(image.root(), {}).value()->flush());
    const auto trashed = FileManager::defaultManager().trashItem(image.root().appendingNative("folder/file"));
    ASSERT_TRUE(trashed);
    // A flush of any other file also writes the move to the drive.
    ASSERT_TRUE(FileManager::defaultManager().writeAtomically(image.root().appendingNative("other"), "new"));
    image.pull();
    image.putBack();
    EXPECT_EQ(TestMac::read(trashed->place), "content");
    EXPECT_TRUE(TestMac::read(trashOf(image.root()).appendingNative("info/file.trashinfo"))
                    .startsWith("[Trash Info]\nPath=folder/file\nDeletionDate="));
}

} // namespace
} // namespace keelbright

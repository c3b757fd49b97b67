#include "tests/support/EngineRun.h"
#include "tests/support/Printing.h"
#include "tests/support/TemporaryVolume.h"

#include <gmock/gmock.h>

namespace keelbright {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::TemporaryVolume;

/// A source below which a part of the device's folder is mounted a second time.
class MountedCopiesTest : public ::testing::Test, public testing::EngineRun
{
protected:
    /// Makes the folder of the drive and mounts it in Documents; false where that is not permitted.
    [[nodiscard]] bool mount(const QByteArray& pathOnDrive, const QByteArray& pathInDocuments)
    {
        const FileURL folder = mac.makeFolder("Volumes/Drive/" + pathOnDrive);
        m_volume.emplace(mac.makeFolder("Users/mira/Documents/" + pathInDocuments), folder);
        return m_volume->isMounted();
    }

    /// Several runs, in which the copies of the one before would be copied.
    void expectThatRunsCopyTheLetterAlone(const QByteArray& letter)
    {
        mac.writeFile("Users/mira/Documents/" + letter, "12345");
        for (int round = 0; round < 3; ++round) {
            run({documents});
            EXPECT_THAT(engine.progress().errors, IsEmpty());
            EXPECT_EQ(engine.progress().filesCopied, 1);
            EXPECT_EQ(engine.progress().totalFilesEstimate, 1);
            EXPECT_EQ(testing::TestMac::read(mirrored("Documents/" + letter)), "12345");
        }
    }

    FileURL documents = mac.makeFolder("Users/mira/Documents");

private:
    std::optional<TemporaryVolume> m_volume;
};

constexpr auto reasonMissing = "mounting a folder a second time is not permitted here";

TEST_F(MountedCopiesTest, leaveTheDevicesFolderOut)
{
    if (!mount("Keelbright/miras Mac", "mounted"))
        GTEST_SKIP() << reasonMissing;
    expectThatRunsCopyTheLetterAlone("letter.txt");
    EXPECT_THAT(everythingBelow(mirrored("Documents")), ElementsAre("letter.txt"));
}

TEST_F(MountedCopiesTest, leaveTheFolderAroundTheDevicesFolderOutAsFarAsTheDeviceIsConcerned)
{
    if (!mount("Keelbright", "mounted"))
        GTEST_SKIP() << reasonMissing;
    expectThatRunsCopyTheLetterAlone("letter.txt");
}

TEST_F(MountedCopiesTest, leaveAllPersonalFilesOut)
{
    if (!mount("Keelbright/miras Mac/Latest/Personal Files", "mounted"))
        GTEST_SKIP() << reasonMissing;
    expectThatRunsCopyTheLetterAlone("letter.txt");
    EXPECT_THAT(everythingBelow(mirrored("Documents")), ElementsAre("letter.txt"));
}

TEST_F(MountedCopiesTest, leaveTheCopyOfTheFolderThatIsBeingCopiedOut)
{
    if (!mount("Keelbright/miras Mac/Latest/Personal Files/Documents/folder", "folder/mounted"))
        GTEST_SKIP() << reasonMissing;
    expectThatRunsCopyTheLetterAlone("folder/letter.txt");
    EXPECT_THAT(everythingBelow(mirrored("Documents")), ElementsAre("folder", "folder/letter.txt"));
}

} // namespace
} // namespace keelbright

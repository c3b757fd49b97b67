#include "KeelbrightCore/platform/system/FolderLock.h"
#include "tests/support/TestMac.h"
#include "tests/support/UnprivilegedUser.h"

#include <QProcess>
#include <gtest/gtest.h>
#include <optional>
#include <sys/stat.h>

namespace keelbright {
namespace {

using namespace Qt::StringLiterals;
using Outcome = FolderLock::Outcome;

class FolderLockTest : public ::testing::Test
{
protected:
    testing::TestMac mac;
    FileURL folder = mac.makeFolder("settings");
};

TEST_F(FolderLockTest, oneHoldsItUntilItGoes)
{
    std::optional<FolderLock> first(folder);
    FolderLock second(folder);
    EXPECT_EQ(first->tryToTake(), Outcome::taken);
    EXPECT_EQ(second.tryToTake(), Outcome::heldElsewhere);
    first.reset();
    EXPECT_EQ(second.tryToTake(), Outcome::taken);
}

TEST_F(FolderLockTest, foldersAreLockedEachForItself)
{
    FolderLock lock(folder);
    FolderLock other(mac.makeFolder("other"));
    EXPECT_EQ(lock.tryToTake(), Outcome::taken);
    EXPECT_EQ(other.tryToTake(), Outcome::taken);
}

TEST_F(FolderLockTest, aKilledProcessHoldsNothing)
{
    QProcess holder;
    holder.start(u"flock"_s,
                 {u"--no-fork"_s, folder.path(), u"sh"_s, u"-c"_s, u"echo held; exec sleep 60"_s});
    ASSERT_TRUE(holder.waitForReadyRead()) << "no program flock";
    FolderLock lock(folder);
    EXPECT_EQ(lock.tryToTake(), Outcome::heldElsewhere);
    holder.kill();
    ASSERT_TRUE(holder.waitForFinished());
    EXPECT_EQ(lock.tryToTake(), Outcome::taken);
}

TEST_F(FolderLockTest, aFolderThatMayNotBeWrittenCanBeLocked)
{
    ASSERT_EQ(::chmod(mac.root().nativePath().constData(), 0755), 0);
    ASSERT_EQ(::chmod(folder.nativePath().constData(), 0555), 0);
    const testing::UnprivilegedUser user;
    FolderLock lock(folder);
    EXPECT_EQ(lock.tryToTake(), Outcome::taken);
    EXPECT_TRUE(mac.fileManager().contentsOfDirectory(folder, {})->isEmpty()) << "it needs no file";
}

TEST_F(FolderLockTest, whatIsNoFolderCannotBeLocked)
{
    FolderLock missing(mac.root().appending(u"none"_s));
    EXPECT_EQ(missing.tryToTake(), Outcome::unavailable);
    FolderLock file(mac.writeFile("file", ""));
    EXPECT_EQ(file.tryToTake(), Outcome::unavailable);
}

} // namespace
} // namespace keelbright

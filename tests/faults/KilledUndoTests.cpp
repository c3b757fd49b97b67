#include "tests/faults/CareFaultTest.h"
#include "tests/faults/RunnerProcess.h"

namespace keelbright {
namespace {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using testing::RunnerProcess;
using testing::TestMac;

/// An undo that ends in the middle with its process.
class KilledUndoTest : public testing::CareFaultTest
{
protected:
    void SetUp() override
    {
        if (const std::string reason = RunnerProcess::reasonMissing(); !reason.empty())
            GTEST_SKIP() << reason;
    }

    /// Does the work, which includes its undo, and is killed at the `when`-th system call of that name with
    /// this path.
    void doWorkAndKill(const QString& work, const FileURL& place, const QString& call, int when,
                       const FileURL& path) const
    {
        RunnerProcess runner({u"--work="_s + work, mac.root().path(), place.path()},
                             RunnerProcess::failing(call, u"signal=SIGKILL"_s, when, path.path()));
        EXPECT_FALSE(runner.finish().hasEnded) << "it was not killed";
    }

    /// Writes an application and has its removal undone until the kill.
    FileURL removeAndKill(const QString& call, const FileURL& path) const
    {
        const FileURL bundle = mac.root().appendingNative("Applications/Editor.app");
        mac.writeFile("Applications/Editor.app/inside", "content");
        doWorkAndKill(u"undo-remove"_s, bundle, call, 1, path);
        return bundle;
    }

    const FileURL downloads = mac.home().appendingNative("Downloads");
    const FileURL record = trash.appendingNative("info/Editor.app.trashinfo");
};

TEST_F(KilledUndoTest, everyFileIsInOneOfItsTwoPlaces)
{
    // The largest was moved first, and goes back last.
    mac.writeFile("Users/mira/Downloads/a.png", "333");
    mac.writeFile("Users/mira/Downloads/b.png", "22");
    mac.writeFile("Users/mira/Downloads/c.png", "1");
    // Only the undo makes sure of this folder, before each file, and in a thread of its own.
    doWorkAndKill(u"undo-organize"_s, downloads, u"?mkdir,mkdirat"_s, 2, downloads);
    EXPECT_THAT(everythingBelow(downloads), ElementsAre("Images", "Images/a.png", "Images/b.png", "c.png"));
    EXPECT_EQ(TestMac::read(downloads.appendingNative("c.png")), "1");
    EXPECT_EQ(TestMac::read(downloads.appendingNative("Images/b.png")), "22");
}

TEST_F(KilledUndoTest, anItemThatIsNotBackLiesInTheTrashWithItsRecord)
{
    const FileURL bundle = mac.root().appendingNative("Applications/Editor.app");
    removeAndKill(u"renameat2"_s, bundle);
    EXPECT_FALSE(exists(bundle));
    EXPECT_EQ(TestMac::read(trash.appendingNative("files/Editor.app/inside")), "content");
    EXPECT_TRUE(TestMac::read(record).contains("/Applications/Editor.app\n"));
}

TEST_F(KilledUndoTest, anItemThatIsBackIsWholeWhateverBecomesOfItsRecord)
{
    const FileURL bundle = removeAndKill(u"unlinkat"_s, trash.appendingNative("info"));
    EXPECT_EQ(TestMac::read(bundle.appendingNative("inside")), "content");
    EXPECT_FALSE(exists(trash.appendingNative("files/Editor.app")));
    EXPECT_TRUE(exists(record)) << "the undo was killed too late";
}

} // namespace
} // namespace keelbright

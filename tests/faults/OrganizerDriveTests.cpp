#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/storage/OrganizerService.h"
#include "tests/faults/CareFaultTest.h"
#include "tests/support/FailingDrive.h"
#include "tests/support/FatImage.h"
#include "tests/support/ImageDrive.h"

#include <fcntl.h>
#include <unistd.h>

namespace keelbright {
namespace {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using testing::FailingDrive;
using testing::FatImage;
using testing::ImageDrive;
using testing::SandboxFileManager;
using testing::TestMac;

/// Creates a file at the target of a move between its check and the move.
class TakenMeanwhile : public SandboxFileManager
{
public:
    using SandboxFileManager::SandboxFileManager;

    std::expected<void, FileError> moveItem(const FileURL& source, const FileURL& target) override
    {
        const int file =
            ::open(target.nativePath().constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
        EXPECT_EQ(::write(file, "theirs", 6), 6);
        ::close(file);
        return SandboxFileManager::moveItem(source, target);
    }
};

class OrganizerDriveTest : public testing::CareFaultTest
{
protected:
    /// Sorts all loose files of a folder.
    static OrganizerService::ExecutionResult organize(const FileURL& folder)
    {
        const QList<OrganizeProposal> plan = OrganizerService::propose(folder);
        QSet<QUuid> all;
        for (const OrganizeProposal& proposal : plan) {
            for (const FileProposal& file : proposal.files)
                all.insert(file.id);
        }
        return OrganizerService::execute(plan, all);
    }

    /// Sorts a file whose name is taken, one whose name is taken in other letter case, and one whose
    /// name is free.
    static void expectFilesWhole(const FileURL& folder)
    {
        write(folder.appendingNative("Images/a.png"), "old");
        write(folder.appendingNative("Images/b.PNG"), "old");
        write(folder.appendingNative("a.png"), "new");
        write(folder.appendingNative("B.png"), "new");
        write(folder.appendingNative("c.pdf"), "free");
        EXPECT_EQ(organize(folder).moved, 3);
        EXPECT_EQ(TestMac::read(folder.appendingNative("Images/a.png")), "old");
        EXPECT_EQ(TestMac::read(folder.appendingNative("Images/a 2.png")), "new");
        EXPECT_EQ(TestMac::read(folder.appendingNative("Images/b.PNG")), "old");
        EXPECT_EQ(TestMac::read(folder.appendingNative("Images/B 2.png")), "new");
        EXPECT_EQ(TestMac::read(folder.appendingNative("Documents/c.pdf")), "free");
    }

    static void expectApplicationWhole(const FileURL& folder)
    {
        write(folder.appendingNative("Tool.app/inside"), "tool");
        EXPECT_EQ(organize(folder).moved, 1);
        EXPECT_EQ(TestMac::read(folder.appendingNative("Installers/Tool.app/inside")), "tool");
    }

    void expectNoLossWhereAPlaceIsTaken(const FileURL& folder) const
    {
        TakenMeanwhile meddler(mac.root());
        const FileManagerGuard guard(meddler);
        write(folder.appendingNative("d.mp3"), "mine");
        EXPECT_THAT(organize(folder).errors,
                    ElementsAre(u"d.mp3: “d.mp3” could not be moved: something of that name is already "
                                "there."_s));
        EXPECT_EQ(TestMac::read(folder.appendingNative("d.mp3")), "mine");
        EXPECT_EQ(TestMac::read(folder.appendingNative("Audio/d.mp3")), "theirs");
    }

    /// Expects an item in the Trash of a drive to be whole and to have its record.
    static void expectTrashWorks(const FileURL& top)
    {
        write(top.appendingNative("sub/thrown away"), "content");
        const auto trashed = FileManager::defaultManager().trashItem(top.appendingNative("sub/thrown away"));
        ASSERT_TRUE(trashed) << trashed.error().localizedDescription().toStdString();
        EXPECT_EQ(TestMac::read(trashed->place), "content");
        EXPECT_TRUE(TestMac::read(trashOf(top).appendingNative("info/thrown away.trashinfo"))
                        .contains("Path=sub/thrown%20away\n"));
    }
};

TEST_F(OrganizerDriveTest, aNameThatIsTakenMeanwhileIsNotReplaced)
{
    expectNoLossWhereAPlaceIsTaken(mac.makeFolder("Users/mira/Downloads"));
}

// Without an application, because this driver loses the content of any folder that is moved.
TEST_F(OrganizerDriveTest, aFatDriveKeepsEveryFileWhole)
{
    const FatImage image(64'000'000);
    if (!image.reasonMissing().empty())
        GTEST_SKIP() << image.reasonMissing();
    const FileURL folder = image.root().appendingNative("Downloads");
    expectFilesWhole(folder);
    expectNoLossWhereAPlaceIsTaken(folder);
    expectTrashWorks(image.root());
}

TEST_F(OrganizerDriveTest, foreignDrivesKeepEverythingWhole)
{
    for (const ImageDrive::Kind kind : {ImageDrive::Kind::exFat, ImageDrive::Kind::ntfs}) {
        const ImageDrive image(kind, 50'331'648);
        if (!image.reasonMissing().empty())
            GTEST_SKIP() << image.reasonMissing();
        const FileURL folder = image.root().appendingNative("Downloads");
        expectFilesWhole(folder);
        expectApplicationWhole(folder);
        expectNoLossWhereAPlaceIsTaken(folder);
        expectTrashWorks(image.root());
    }
}

TEST_F(OrganizerDriveTest, aDriveThatFailsKeepsEachFileInOneOfItsPlaces)
{
    for (const char* request : {"rename", "mkdir"}) {
        const FailingDrive failing(QString::fromUtf8(request), 2, u"EIO"_s);
        if (!failing.reasonMissing().empty())
            GTEST_SKIP() << failing.reasonMissing();
        for (const char* name : {"a.png", "b.mp3", "c.pdf", "d.zip", "e.mov"})
            write(failing.folder().appendingNative(name), name);
        const auto [moved, errors] = organize(failing.root());
        EXPECT_EQ(moved, 2);
        EXPECT_EQ(errors.size(), 3);
        for (const char* place :
             {"Images/a.png", "Audio/b.mp3", "Documents/c.pdf", "Archives/d.zip", "Videos/e.mov"}) {
            const FileURL sorted = failing.folder().appendingNative(place);
            const FileURL loose = failing.folder().appendingNative(sorted.nativeLastPathComponent());
            EXPECT_NE(exists(sorted), exists(loose)) << place;
            EXPECT_EQ(TestMac::read(exists(sorted) ? sorted : loose), sorted.nativeLastPathComponent());
        }
    }
}

} // namespace
} // namespace keelbright

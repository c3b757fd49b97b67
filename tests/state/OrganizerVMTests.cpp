#include "Keelbright/state/OrganizerVM.h"
#include "tests/state/OrganizerVMFixture.h"
#include "tests/support/HeldFileManager.h"
#include "tests/support/TestLinux.h"

#include <QSemaphore>
#include <QSignalSpy>
#include <gmock/gmock.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;
using QuickTarget = OrganizerVM::QuickTarget;
using ::testing::IsEmpty;

namespace {

using OrganizerVMTest = OrganizerVMFixture;

/// Lists a folder only after `go` was released.
class WaitingFileManager : public SandboxFileManager
{
public:
    using SandboxFileManager::SandboxFileManager;

    std::expected<QList<DirectoryEntry>, FileError>
    contentsOfDirectory(const FileURL& url, DirectoryEnumerator::Options options) const override
    {
        arrived.release();
        go.acquire();
        return SandboxFileManager::contentsOfDirectory(url, options);
    }

    mutable QSemaphore arrived;
    mutable QSemaphore go;
};

} // namespace

TEST_F(OrganizerVMTest, itStartsWithNothingChosen)
{
    EXPECT_THAT(model.proposals(), IsEmpty());
    EXPECT_THAT(model.selectedCategories(), IsEmpty());
    EXPECT_THAT(model.selectedFiles(), IsEmpty());
    EXPECT_FALSE(model.selectedProposalID().has_value());
    EXPECT_FALSE(model.isScanning());
    EXPECT_FALSE(model.showConfirm());
    EXPECT_FALSE(model.targetFolder().has_value());
    EXPECT_FALSE(model.activeTarget().has_value());
    EXPECT_EQ(model.selectedSizeFormatted(), u"Zero KB"_s);
}

TEST_F(OrganizerVMTest, theQuickTargetsAreDesktopAndDownloads)
{
    ASSERT_EQ(OrganizerVM::allQuickTargets(), (QList{QuickTarget::desktop, QuickTarget::downloads}));
    EXPECT_EQ(OrganizerVM::rawValue(QuickTarget::desktop), u"Desktop"_s);
    EXPECT_EQ(OrganizerVM::rawValue(QuickTarget::downloads), u"Downloads"_s);
}

TEST_F(OrganizerVMTest, aQuickTargetIsScannedInTheHome)
{
    mac.writeFile("Users/mira/Desktop/a.png", "1");
    write("b.mp3", 1);
    model.scan(QuickTarget::desktop);
    EXPECT_EQ(model.activeTarget(), QuickTarget::desktop);
    EXPECT_EQ(model.targetFolder(), mac.home().appending(u"Desktop"_s));
    waitForPlan();
    EXPECT_EQ(plan(), QStringList{u"Images: a.png"_s});
    scanDownloads();
    EXPECT_EQ(model.activeTarget(), QuickTarget::downloads);
    EXPECT_EQ(model.targetFolder(), downloads());
    EXPECT_EQ(plan(), QStringList{u"Audio: b.mp3"_s});
}

TEST_F(OrganizerVMTest, onAnotherDesktopAQuickTargetIsTheFolderThatTheUserHasChosen)
{
    const TestLinux linuxMachine;
    linuxMachine.madeUp(MadeUpLinux::Desktop::gnome, MadeUpLinux::Language::german).addUserFolders();
    linuxMachine.files().text("home/mira/Schreibtisch/a.png", "1");
    model.scan(QuickTarget::desktop);
    EXPECT_EQ(model.targetFolder(), linuxMachine.atHome("Schreibtisch"));
    waitForPlan();
    EXPECT_EQ(plan(), QStringList{u"Images: a.png"_s});
    waitForTasks();
}

TEST_F(OrganizerVMTest, aDesktopThatIsSwitchedOffNeverSortsTheHomeItself)
{
    const TestLinux linuxMachine;
    linuxMachine.files().text("home/mira/.config/user-dirs.dirs", "XDG_DESKTOP_DIR=\"$HOME/\"\n");
    linuxMachine.files().text("home/mira/letter.txt", "1");
    model.scan(QuickTarget::desktop);
    waitForPlan();
    EXPECT_THAT(model.proposals(), IsEmpty());
    waitForTasks();
}

TEST_F(OrganizerVMTest, aNewPlanIsAllTickedWithItsLargestCategoryOpen)
{
    write("a.png", 10);
    write("b.png", 20);
    write("c.mp3", 100);
    scanDownloads();
    EXPECT_EQ(plan(), (QStringList{u"Audio: c.mp3"_s, u"Images: b.png, a.png"_s}));
    EXPECT_EQ(model.selectedCategories(), allCategories());
    EXPECT_EQ(model.selectedFiles(), allFiles());
    EXPECT_EQ(model.selectedFiles().size(), 3);
    EXPECT_EQ(model.selectedProposalID(), proposal(0).id);
    EXPECT_EQ(model.selectedSizeFormatted(), u"130 bytes"_s);
}

TEST_F(OrganizerVMTest, aScanDropsThePlanAtOnce)
{
    write("a.png", 10);
    scanDownloads();
    model.setShowConfirm(true);
    model.scan(downloads());
    EXPECT_TRUE(model.isScanning());
    EXPECT_THAT(model.proposals(), IsEmpty());
    EXPECT_THAT(model.selectedCategories(), IsEmpty());
    EXPECT_THAT(model.selectedFiles(), IsEmpty());
    EXPECT_FALSE(model.selectedProposalID().has_value());
    EXPECT_TRUE(model.showConfirm());
    EXPECT_EQ(model.activeTarget(), QuickTarget::downloads) << "only a choice changes it";
    waitForPlan();
    EXPECT_EQ(plan(), QStringList{u"Images: a.png"_s});
}

TEST_F(OrganizerVMTest, nothingOfTheOldSelectionSurvivesAScan)
{
    write("a.png", 10);
    write("b.mp3", 20);
    scanDownloads();
    model.toggleCategory(proposal(0).id);
    const QSet<QUuid> oldCategories = allCategories();
    const QSet<QUuid> oldFiles = allFiles();
    scanDownloads();
    EXPECT_EQ(model.selectedCategories(), allCategories());
    EXPECT_EQ(model.selectedFiles(), allFiles());
    EXPECT_FALSE(model.selectedCategories().intersects(oldCategories));
    EXPECT_FALSE(model.selectedFiles().intersects(oldFiles));
}

TEST_F(OrganizerVMTest, aFolderWithoutLooseFilesHasNothingToDo)
{
    mac.makeFolder("Users/mira/Downloads/Images");
    scanDownloads();
    EXPECT_THAT(model.proposals(), IsEmpty());
    EXPECT_FALSE(model.selectedProposalID().has_value());
    EXPECT_EQ(model.targetFolder(), downloads());
}

TEST_F(OrganizerVMTest, aFolderThatCantBeListedHasNothingToDo)
{
    scanDownloads();
    EXPECT_THAT(model.proposals(), IsEmpty());
    EXPECT_EQ(model.targetFolder(), downloads());
}

TEST_F(OrganizerVMTest, aChosenFolderIsScannedAndIsNoQuickTarget)
{
    mac.writeFile("Users/mira/Elsewhere/a.png", "1");
    const FileURL folder = mac.home().appending(u"Elsewhere"_s);
    scanDownloads();
    chooser.willChoose({folder});
    model.pickCustomFolder();
    ASSERT_EQ(chooser.requests().size(), 1);
    EXPECT_EQ(chooser.requests().first().message, u"Select a folder to organise."_s);
    EXPECT_EQ(chooser.requests().first().prompt, u"Choose"_s);
    EXPECT_FALSE(chooser.requests().first().allowsMultipleSelection);
    EXPECT_FALSE(model.activeTarget().has_value());
    EXPECT_EQ(model.targetFolder(), folder);
    EXPECT_TRUE(model.isScanning());
    waitForPlan();
    EXPECT_EQ(plan(), QStringList{u"Images: a.png"_s});
}

TEST_F(OrganizerVMTest, aChooserThatIsDismissedOrChoosesNothingChangesNothing)
{
    write("a.png", 1);
    scanDownloads();
    const QSignalSpy changes(&model, &OrganizerVM::changed);
    chooser.willBeDismissed();
    model.pickCustomFolder();
    chooser.willChoose({});
    model.pickCustomFolder();
    EXPECT_EQ(changes.count(), 0);
    EXPECT_EQ(model.activeTarget(), QuickTarget::downloads);
    EXPECT_EQ(plan(), QStringList{u"Images: a.png"_s});
}

TEST_F(OrganizerVMTest, aChooserThatOutlivesTheModelScansNothing)
{
    HeldFileManager fm(mac.root());
    const FileManagerGuard guard(fm);
    auto other = std::make_unique<OrganizerVM>(activityStore, chooser, mac.clock());
    chooser.willStayOpen();
    other->pickCustomFolder();
    other.reset();
    chooser.confirm({downloads()});
    waitForTasks();
    EXPECT_EQ(fm.looksAt(downloads()), 0);
}

TEST_F(OrganizerVMTest, theResultOfAScanThatOutlivesTheModelIsDropped)
{
    write("a.png", 1);
    WaitingFileManager fm(mac.root());
    const FileManagerGuard guard(fm);
    auto other = std::make_unique<OrganizerVM>(activityStore, chooser, mac.clock());
    other->scan(downloads());
    ASSERT_TRUE(fm.arrived.tryAcquire(1, 20'000));
    other.reset();
    fm.go.release();
    waitForTasks();
    QCoreApplication::processEvents();
}

TEST_F(OrganizerVMTest, theResultOfTheLastScanToEndRemains)
{
    write("a.png", 1);
    mac.writeFile("Users/mira/Desktop/b.mp3", "1");
    WaitingFileManager fm(mac.root());
    const FileManagerGuard guard(fm);
    model.scan(QuickTarget::desktop);
    model.scan(QuickTarget::downloads);
    ASSERT_TRUE(fm.arrived.tryAcquire(2, 20'000));
    fm.go.release();
    waitForPlan();
    const QStringList first = plan();
    fm.go.release();
    ASSERT_TRUE(QTest::qWaitFor([&] { return plan() != first; }, 20'000));
    EXPECT_THAT((QStringList{first + plan()}),
                ::testing::UnorderedElementsAre(u"Images: a.png"_s, u"Audio: b.mp3"_s));
    EXPECT_FALSE(model.isScanning());
    EXPECT_EQ(model.selectedFiles(), allFiles());
    EXPECT_EQ(model.targetFolder(), downloads());
    waitForTasks();
}

TEST_F(OrganizerVMTest, tickingACategoryTicksItsFiles)
{
    write("a.png", 10);
    write("b.png", 20);
    write("c.mp3", 100);
    scanDownloads();
    const QUuid images = proposal(1).id;
    model.toggleCategory(images);
    EXPECT_EQ(model.selectedCategories(), QSet<QUuid>{proposal(0).id});
    EXPECT_EQ(model.selectedFiles(), QSet<QUuid>{fileId(0, 0)});
    EXPECT_EQ(model.selectedSizeFormatted(), u"100 bytes"_s);
    model.toggleCategory(images);
    EXPECT_EQ(model.selectedCategories(), allCategories());
    EXPECT_EQ(model.selectedFiles(), allFiles());
}

TEST_F(OrganizerVMTest, tickingAPartlyTickedCategoryTicksTheRest)
{
    write("a.png", 10);
    write("b.png", 20);
    scanDownloads();
    model.setFile(fileId(0, 0), false, proposal(0).id);
    model.toggleCategory(proposal(0).id);
    EXPECT_EQ(model.selectedFiles(), allFiles());
    EXPECT_EQ(model.selectedCategories(), allCategories());
}

TEST_F(OrganizerVMTest, anUnknownCategoryIsNotTicked)
{
    write("a.png", 10);
    scanDownloads();
    const QSignalSpy changes(&model, &OrganizerVM::changed);
    model.toggleCategory(QUuid::createUuid());
    EXPECT_EQ(changes.count(), 0);
    EXPECT_EQ(model.selectedCategories(), allCategories());
}

TEST_F(OrganizerVMTest, untickingOneFileUnticksItsCategoryAndTickingItAgainTicksIt)
{
    write("a.png", 10);
    write("b.png", 20);
    write("c.mp3", 100);
    scanDownloads();
    const QUuid images = proposal(1).id;
    model.setFile(fileId(1, 0), false, images);
    EXPECT_EQ(model.selectedCategories(), QSet<QUuid>{proposal(0).id});
    EXPECT_EQ(model.selectedFiles(), (QSet<QUuid>{fileId(0, 0), fileId(1, 1)}));
    model.setFile(fileId(1, 1), false, images);
    model.setFile(fileId(1, 0), true, images);
    EXPECT_EQ(model.selectedCategories(), QSet<QUuid>{proposal(0).id}) << "one of two is not all";
    model.setFile(fileId(1, 1), true, images);
    EXPECT_EQ(model.selectedCategories(), allCategories());
    EXPECT_EQ(model.selectedFiles(), allFiles());
}

TEST_F(OrganizerVMTest, aFileOfAnUnknownCategoryIsTickedAlone)
{
    write("a.png", 10);
    scanDownloads();
    model.toggleSelectAll();
    model.setFile(fileId(0, 0), true, QUuid::createUuid());
    EXPECT_EQ(model.selectedFiles(), allFiles());
    EXPECT_THAT(model.selectedCategories(), IsEmpty());
}

TEST_F(OrganizerVMTest, selectAllUnticksEverythingIfAllIsTickedAndTicksEverythingOtherwise)
{
    write("a.png", 10);
    write("b.mp3", 100);
    scanDownloads();
    model.toggleSelectAll();
    EXPECT_THAT(model.selectedCategories(), IsEmpty());
    EXPECT_THAT(model.selectedFiles(), IsEmpty());
    model.toggleCategory(proposal(1).id);
    model.toggleSelectAll();
    EXPECT_EQ(model.selectedCategories(), allCategories());
    EXPECT_EQ(model.selectedFiles(), allFiles());
}

TEST_F(OrganizerVMTest, selectAllFillsBothSetsIfOnlySingleFilesAreTicked)
{
    write("a.png", 10);
    write("b.png", 20);
    scanDownloads();
    model.toggleSelectAll();
    model.setFile(fileId(0, 0), true, proposal(0).id);
    EXPECT_THAT(model.selectedCategories(), IsEmpty());
    model.toggleSelectAll();
    EXPECT_EQ(model.selectedCategories(), allCategories());
    EXPECT_EQ(model.selectedFiles(), allFiles());
}

TEST_F(OrganizerVMTest, anEmptyPlanCountsAsAllSelected)
{
    model.setFile(QUuid::createUuid(), true, QUuid());
    model.toggleSelectAll();
    EXPECT_THAT(model.selectedFiles(), IsEmpty());
    EXPECT_THAT(model.selectedCategories(), IsEmpty());
}

TEST_F(OrganizerVMTest, aScanAnnouncesItsStepsInOrder)
{
    write("a.png", 10);
    QStringList steps;
    const QObject context;
    QObject::connect(&model, &OrganizerVM::changed, &context, [&] {
        steps.append(QStringLiteral("%1, %2 planned, %3 files of %4 ticked, %5")
                         .arg(model.isScanning() ? u"scans"_s : u"idle"_s)
                         .arg(model.proposals().size())
                         .arg(model.selectedFiles().size())
                         .arg(model.selectedCategories().size())
                         .arg(model.selectedProposal() != nullptr ? u"one open"_s : u"none open"_s));
    });
    scanDownloads();
    steps.clear();
    model.scan(downloads());
    waitForPlan();
    EXPECT_EQ(steps, (QStringList{u"idle, 1 planned, 1 files of 1 ticked, one open"_s,
                                  u"scans, 1 planned, 1 files of 1 ticked, one open"_s,
                                  u"scans, 0 planned, 1 files of 1 ticked, none open"_s,
                                  u"scans, 0 planned, 0 files of 0 ticked, none open"_s,
                                  u"scans, 0 planned, 0 files of 0 ticked, none open"_s,
                                  u"scans, 1 planned, 0 files of 0 ticked, none open"_s,
                                  u"scans, 1 planned, 1 files of 1 ticked, none open"_s,
                                  u"scans, 1 planned, 1 files of 1 ticked, one open"_s,
                                  u"idle, 1 planned, 1 files of 1 ticked, one open"_s}));
}

TEST_F(OrganizerVMTest, eachSetIsAnnouncedOnce)
{
    const QSignalSpy confirmation(&model, &OrganizerVM::showConfirmChanged);
    const QSignalSpy changes(&model, &OrganizerVM::changed);
    model.setShowConfirm(true);
    EXPECT_TRUE(model.showConfirm());
    EXPECT_EQ(confirmation.count(), 1);
    EXPECT_EQ(changes.count(), 1);
    model.setActiveTarget(QuickTarget::desktop);
    EXPECT_EQ(model.activeTarget(), QuickTarget::desktop);
    EXPECT_EQ(changes.count(), 2);
    model.setSelectedProposalID(QUuid::createUuid());
    EXPECT_EQ(changes.count(), 3);
    model.setFile(QUuid::createUuid(), true, QUuid());
    EXPECT_EQ(changes.count(), 4);
    model.toggleSelectAll();
    EXPECT_EQ(changes.count(), 5);
    EXPECT_EQ(confirmation.count(), 1);
}

} // namespace keelbright::testing

#include "Keelbright/screens/storage/StorageBrowserModel.h"

#include "tests/screens/storage/StorageBrowserFixture.h"

namespace keelbright::testing {

using namespace Qt::StringLiterals;
using ViewMode = StorageBrowserModel::ViewMode;

using StorageBrowserLargestFilesTests = StorageBrowserFixture;

TEST_F(StorageBrowserLargestFilesTests, theLargestFilesAreLoadedEachTimeTheyAreChosen)
{
    StorageBrowserModel model(*state);
    navigate(model, documents());
    model.setViewMode(ViewMode::largest);
    EXPECT_TRUE(model.isLoadingLargest());
    waitForLargest(model);
    EXPECT_EQ(names(model.largestFiles()), (QStringList{u"b.zip"_s, u"a.pdf"_s, u"c.txt"_s, u"d.JPG"_s}));
    model.setViewMode(ViewMode::treemap);
    EXPECT_FALSE(model.isLoadingLargest());
    write("e.mov", 8'000);
    model.setViewMode(ViewMode::largest);
    EXPECT_TRUE(model.largestFiles().isEmpty());
    waitForLargest(model);
    EXPECT_EQ(names(model.largestFiles()).first(), u"e.mov"_s);
}

TEST_F(StorageBrowserLargestFilesTests, atMostFiftyFilesAreListed)
{
    for (int i = 0; i < 60; ++i)
        write("Many/" + QByteArray::number(i), 10'000 + i);
    StorageBrowserModel model(*state);
    navigate(model, documents());
    model.loadLargestFiles();
    waitForLargest(model);
    ASSERT_EQ(model.largestFiles().size(), 50);
    EXPECT_EQ(model.largestFiles().last().sizeBytes, 10'010);
}

TEST_F(StorageBrowserLargestFilesTests, withoutALevelThereAreNoLargestFiles)
{
    StorageBrowserModel model(*state);
    model.loadLargestFiles();
    EXPECT_FALSE(model.isLoadingLargest());
}

TEST_F(StorageBrowserLargestFilesTests, goingBackKeepsTheLargestFilesUntilTheyAreLoadedForThatLevel)
{
    StorageBrowserModel model(*state);
    navigate(model, documents());
    drillIn(model, u"Work"_s);
    model.setViewMode(ViewMode::largest);
    waitForLargest(model);
    EXPECT_EQ(names(model.largestFiles()), (QStringList{u"b.zip"_s, u"a.pdf"_s}));
    model.goBack();
    EXPECT_FALSE(model.isLoadingLargest());
    EXPECT_EQ(names(model.largestFiles()), (QStringList{u"b.zip"_s, u"a.pdf"_s}));
    model.loadLargestFiles();
    waitForLargest(model);
    EXPECT_EQ(model.largestFiles().size(), 4);
}

TEST_F(StorageBrowserLargestFilesTests, aTrashedFileStaysAmongTheLargestUntilTheyAreLoadedAgain)
{
    StorageBrowserModel model(*state);
    navigate(model, documents());
    model.setViewMode(ViewMode::largest);
    waitForLargest(model);
    const LargeFileItem file = model.largestFiles().at(2);
    model.trash({.id = QUuid::createUuid(), .name = file.name(), .url = file.url});
    waitForLevel(model);
    EXPECT_FALSE(exists(file.url));
    EXPECT_TRUE(model.largestFiles().contains(file));
    EXPECT_EQ(lines(model.currentNodes()), (QStringList{u"Work 7000"_s, u"d.JPG 1000"_s}));
    model.loadLargestFiles();
    waitForLargest(model);
    EXPECT_EQ(names(model.largestFiles()), (QStringList{u"b.zip"_s, u"a.pdf"_s, u"d.JPG"_s}));
}

TEST_F(StorageBrowserLargestFilesTests, askingAgainEndsTheSearchBeforeAndWaitsNotForIt)
{
    HeldWalks held(mac.root());
    const FileManagerGuard guard(held);
    StorageBrowserModel model(*state);
    navigate(model, documents());
    held.holdNextLookAt(documents());
    model.loadLargestFiles();
    ASSERT_TRUE(held.waitUntilHeld());
    model.loadLargestFiles();
    EXPECT_TRUE(model.isLoadingLargest());
    waitForLargest(model);
    const QStringList found{u"b.zip"_s, u"a.pdf"_s, u"c.txt"_s, u"d.JPG"_s};
    EXPECT_EQ(names(model.largestFiles()), found);
    held.letGo();
    waitForBackgroundWork();
    settle();
    EXPECT_EQ(names(model.largestFiles()), found) << "the search that was given up found nothing";
}

TEST_F(StorageBrowserLargestFilesTests, theModelMayBeDestroyedInTheMiddleOfASearch)
{
    HeldWalks held(mac.root());
    const FileManagerGuard guard(held);
    auto model = std::make_unique<StorageBrowserModel>(*state);
    navigate(*model, documents());
    held.holdNextLookAt(documents());
    model->loadLargestFiles();
    ASSERT_TRUE(held.waitUntilHeld());
    model.reset();
    held.letGo();
    waitForBackgroundWork();
    settle();
}

} // namespace keelbright::testing

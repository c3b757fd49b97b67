#include "Keelbright/screens/storage/LargestFilesPanel.h"

#include "Keelbright/widgets/rows/RowListView.h"
#include "tests/screens/shared/ListDriver.h"
#include "tests/screens/shared/ScreenTestCase.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

const QList<LargeFileItem> twoFiles{
    {.id = QUuid::createUuid(), .url = FileURL::fromPath(u"/Users/mira/Film.MOV"_s), .sizeBytes = 5'000'000},
    {.id = QUuid::createUuid(), .url = FileURL::fromPath(u"/Users/mira/a/b.dmg"_s), .sizeBytes = 4'000},
};

using LargestFilesPanelTests = ScreenTestCase;

} // namespace

TEST_F(LargestFilesPanelTests, aRowShowsRankNameFolderAndSize)
{
    LargeFileModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.setFiles(twoFiles);
    ASSERT_EQ(model.rowCount(), 2);
    const ListRow film = model.rowAt(0);
    EXPECT_EQ(film.rank, u"1"_s);
    EXPECT_EQ(film.symbol, u"film.fill"_s);
    EXPECT_EQ(film.symbolColor, Role::purple);
    EXPECT_EQ(film.title, u"Film.MOV"_s);
    EXPECT_EQ(film.detail, u"/Users/mira"_s);
    EXPECT_EQ(film.detailElide, Qt::ElideMiddle);
    EXPECT_EQ(film.value, u"5 MB"_s);
    ASSERT_EQ(film.actions.size(), 2);
    EXPECT_EQ(film.actions.at(0).name, u"Reveal in Finder"_s);
    EXPECT_EQ(film.actions.at(0).symbol, u"folder"_s);
    EXPECT_EQ(film.actions.at(1).name, u"Move to Trash"_s);
    EXPECT_EQ(film.actions.at(1).symbol, u"trash"_s);
    EXPECT_TRUE(film.actions.at(1).isDelete);
    EXPECT_EQ(model.rowAt(1).rank, u"2"_s);
    EXPECT_EQ(model.rowAt(1).symbol, u"archivebox.fill"_s);
    EXPECT_EQ(model.index(1).data(Qt::AccessibleTextRole).toString(), u"2, b.dmg, /Users/mira/a, 4 KB"_s);
}

TEST_F(LargestFilesPanelTests, aFileBecomesAnEntryThatIsNoFolder)
{
    LargeFileModel model;
    model.setFiles(twoFiles);
    const FolderSizeNode node = model.nodeAt(1);
    EXPECT_EQ(node.name, u"b.dmg"_s);
    EXPECT_EQ(node.url, twoFiles.at(1).url);
    EXPECT_EQ(node.totalBytes, 4'000);
    EXPECT_FALSE(node.isDirectory);
}

TEST_F(LargestFilesPanelTests, showsThatItIsSearching)
{
    LargestFilesPanel panel;
    panel.redraw({}, true, u"mira"_s);
    EXPECT_EQ(textsIn(panel), QStringList{u"Scanning for large files…"_s});
    // Also while there are some.
    panel.redraw(twoFiles, true, u"mira"_s);
    EXPECT_EQ(textsIn(panel), QStringList{u"Scanning for large files…"_s});
}

TEST_F(LargestFilesPanelTests, showsThatThereAreNone)
{
    LargestFilesPanel panel;
    panel.redraw({}, false, u"mira"_s);
    EXPECT_EQ(textsIn(panel), QStringList{u"No files found."_s});
}

TEST_F(LargestFilesPanelTests, showsHowManyAndOfWhichFolder)
{
    LargestFilesPanel panel;
    panel.redraw(twoFiles, false, u"mira"_s);
    EXPECT_EQ(textsIn(panel), QStringList{u"Top 2 largest files in mira"_s});
    EXPECT_EQ(panel.list()->rowModel()->rowCount(), 2);
    const QSignalSpy refreshes(&panel, &LargestFilesPanel::refreshPressed);
    EXPECT_EQ(button(panel, u"Refresh"_s)->symbol(), u"arrow.clockwise"_s);
    button(panel, u"Refresh"_s)->click();
    EXPECT_EQ(refreshes.count(), 1);
}

TEST_F(LargestFilesPanelTests, reportsTheFileOfAnAction)
{
    LargestFilesPanel panel;
    show(panel);
    panel.redraw(twoFiles, false, u"mira"_s);
    const QSignalSpy actions(&panel, &LargestFilesPanel::actionPressed);
    EXPECT_TRUE(ListDriver(*panel.list()).press(1, RowActionId::trash));
    ASSERT_EQ(actions.count(), 1);
    EXPECT_EQ(actions.first().at(0).value<FolderSizeNode>().url, twoFiles.at(1).url);
    EXPECT_EQ(actions.first().at(1).value<RowActionId>(), RowActionId::trash);
}

} // namespace keelbright::testing

#include "Keelbright/screens/storage/StorageNodeRow.h"

#include "Keelbright/widgets/rows/RowLayout.h"
#include "tests/support/EnglishNumbers.h"

#include <QAbstractItemModelTester>
#include <QUuid>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

StorageNodeRow row(const QString& name, bool isDirectory, qint64 bytes, qint64 total)
{
    return {{.id = QUuid::createUuid(),
             .name = name,
             .url = FileURL::fromPath(u"/f/"_s + name),
             .totalBytes = bytes,
             .isDirectory = isDirectory},
            total};
}

QStringList namesOf(const QList<RowAction>& actions)
{
    QStringList names;
    for (const RowAction& action : actions)
        names.append(action.name + u" ("_s + action.symbol + u')');
    return names;
}

} // namespace

TEST(StorageNodeRow, aFolderHasAnIconByItsName)
{
    const auto icon = [](const QString& name) { return row(name, true, 1, 1).iconName(); };
    EXPECT_EQ(icon(u"Documents"_s), u"doc.fill"_s);
    EXPECT_EQ(icon(u"desktop"_s), u"menubar.rectangle"_s);
    EXPECT_EQ(icon(u"PICTURES"_s), u"photo.fill"_s);
    EXPECT_EQ(icon(u"Downloads"_s), u"arrow.down.circle.fill"_s);
    EXPECT_EQ(icon(u"Movies"_s), u"film.fill"_s);
    EXPECT_EQ(icon(u"Music"_s), u"music.note"_s);
    EXPECT_EQ(icon(u"Library"_s), u"books.vertical.fill"_s);
    EXPECT_EQ(icon(u"photos.jpg"_s), u"folder.fill"_s);
}

TEST(StorageNodeRow, aFileHasAnIconByItsExtension)
{
    EXPECT_EQ(row(u"Documents"_s, false, 1, 1).iconName(), u"doc.fill"_s);
    EXPECT_EQ(row(u"a.rb"_s, false, 1, 1).iconName(), u"chevron.left.forwardslash.chevron.right"_s);
}

TEST(StorageNodeRow, theColorsFollowTheShareOnBothSidesOfEachThreshold)
{
    struct Case
    {
        qint64 bytes;
        Role folderIcon;
        Role fileIcon;
        Role bar;
        double opacity;
    };

    const Case cases[]{
        {1000, Role::red, Role::red, Role::red, 0.75},
        {401, Role::red, Role::red, Role::red, 0.75},
        {400, Role::orange, Role::orange, Role::orange, 1},
        {151, Role::orange, Role::orange, Role::orange, 1},
        {150, Role::accent, Role::secondaryText, Role::accent, 0.7},
        {0, Role::accent, Role::secondaryText, Role::accent, 0.7},
    };
    for (const Case& expected : cases) {
        const StorageNodeRow folder = row(u"a"_s, true, expected.bytes, 1000);
        EXPECT_EQ(folder.iconColor(), expected.folderIcon) << expected.bytes;
        EXPECT_EQ(folder.barColor(), expected.bar) << expected.bytes;
        EXPECT_EQ(folder.barOpacity(), expected.opacity) << expected.bytes;
        EXPECT_EQ(row(u"a"_s, false, expected.bytes, 1000).iconColor(), expected.fileIcon) << expected.bytes;
    }
}

TEST(StorageNodeRow, aTotalOfZeroMakesNoShare)
{
    const StorageNodeRow file = row(u"a"_s, false, 0, 0);
    EXPECT_EQ(file.iconColor(), Role::secondaryText);
    EXPECT_EQ(file.barColor(), Role::accent);
    EXPECT_EQ(file.listRow().bar, 0.0);
}

TEST(StorageNodeRow, aSingleFileIsRed)
{
    const testing::EnglishNumbers english;
    const ListRow shown = row(u"film.mov"_s, false, 2'500'000, 2'500'000).listRow();
    EXPECT_EQ(shown.title, u"film.mov"_s);
    EXPECT_EQ(shown.value, u"2.5 MB"_s);
    EXPECT_EQ(shown.picture, ListRow::Picture::tile);
    EXPECT_EQ(shown.symbol, u"film.fill"_s);
    EXPECT_EQ(shown.symbolColor, Role::red);
    EXPECT_EQ(shown.bar, 1.0);
    EXPECT_EQ(shown.barColor, Role::red);
    EXPECT_EQ(shown.barOpacity, 0.75);
}

TEST(StorageNodeRow, aFolderLeadsOnAndHasFourActions)
{
    const ListRow shown = row(u"a"_s, true, 1, 10).listRow();
    EXPECT_EQ(namesOf(shown.actions),
              (QStringList{u"Add to Backup Sources (plus.circle)"_s,
                           u"Organise this folder (folder.badge.gearshape)"_s,
                           u"Reveal in Finder (arrow.up.forward.square)"_s, u"Move to Trash (trash)"_s}));
    EXPECT_TRUE(shown.hasChevron);
    EXPECT_EQ(shown.chevronColor, Role::accent);
    EXPECT_TRUE(shown.actions.last().isDelete);
}

TEST(StorageNodeRow, aFileHasTwoActionsAndRoomForTheChevron)
{
    const ListRow shown = row(u"a"_s, false, 1, 10).listRow();
    EXPECT_EQ(namesOf(shown.actions),
              (QStringList{u"Reveal in Finder (arrow.up.forward.square)"_s, u"Move to Trash (trash)"_s}));
    EXPECT_TRUE(shown.hasChevron);
    EXPECT_EQ(shown.chevronColor, Role::window);
}

TEST(StorageNodeRow, theSizesOfFoldersAndFilesStandInOneColumn)
{
    const QRect place(0, 0, 600, 48);
    const RowLayout folder = layOutRow(row(u"a"_s, true, 1'000, 10'000).listRow(), place, 10);
    const RowLayout file = layOutRow(row(u"b"_s, false, 1'000, 10'000).listRow(), place, 10);
    ASSERT_FALSE(folder.value.isEmpty());
    EXPECT_EQ(folder.value, file.value);
    EXPECT_EQ(folder.actions.last(), file.actions.last());
}

TEST(StorageNodeModel, givesARowForEachNodeAndReadsAsNameAndSize)
{
    StorageNodeModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.setNodes({row(u"a"_s, true, 3000, 0).node, row(u"b.txt"_s, false, 1000, 0).node}, 4000);
    ASSERT_EQ(model.rowCount(), 2);
    EXPECT_EQ(model.index(0).data().toString(), u"a"_s);
    EXPECT_EQ(model.index(1).data(Qt::AccessibleTextRole).toString(), u"b.txt, 1 KB"_s);
    EXPECT_EQ(model.rowAt(0).bar, 0.75);
    model.setNodes({}, 0);
    EXPECT_EQ(model.rowCount(), 0);
}

} // namespace keelbright::testing

#include "tests/screens/organizer/OrganizerTestCase.h"

#include <QAbstractItemModelTester>
#include <QTest>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

using OrganizerViewTests = OrganizerTestCase;

TEST_F(OrganizerViewTests, aPlanStartsFullyTickedWithItsLargestCategoryOpen)
{
    writeSomeFiles();
    openDownloads();
    EXPECT_EQ(categories().marks(), (QList{Qt::Checked, Qt::Checked}));
    EXPECT_EQ(categories().selectedRow(), 0);
    EXPECT_EQ(categories().row(0).symbol, icon(FileCategory::images));
    EXPECT_EQ(categories().row(0).symbolColor, Role::accent);
    EXPECT_TRUE(shows(u"3 files selected"_s));
    EXPECT_TRUE(shows(u"14 KB"_s));
    EXPECT_TRUE(button(*view, u"Organise Now"_s)->isEnabled());
    EXPECT_EQ(button(*view, u"Organise Now"_s)->symbol(), u"folder.badge.gearshape"_s);
    expectEveryControlIsNamedAndReachedByTab(*view);
}

TEST_F(OrganizerViewTests, theFilesOfTheCategoryStandAtTheRight)
{
    writeSomeFiles();
    openDownloads();
    EXPECT_TRUE(shows(u"2 files · 11 KB"_s));
    EXPECT_TRUE(shows(u"Downloads/Images"_s));
    const QString images = downloads().path() + u"/Images/"_s;
    EXPECT_EQ(files().texts(), (QStringList{u"beach.jpg, "_s + images + u"beach.jpg, 6 KB"_s,
                                            u"cat.png, "_s + images + u"cat.png, 5 KB"_s}));
    const ListRow row = files().row(0);
    EXPECT_EQ(row.symbol, u"photo.fill"_s);
    EXPECT_EQ(row.symbolColor, Role::secondaryText);
    EXPECT_EQ(row.detailSymbol, u"arrow.right"_s);
    EXPECT_EQ(row.detailElide, Qt::ElideMiddle);
}

TEST_F(OrganizerViewTests, oneFileIsCountedAsFileAtTheLeftAndAsFilesAtTheRight)
{
    writeSomeFiles();
    openDownloads();
    categories().clickTitle(1);
    turnFrame();
    EXPECT_EQ(categories().row(1).detail, u"1 file"_s);
    EXPECT_TRUE(shows(u"1 files · 3 KB"_s));
    EXPECT_TRUE(shows(u"Downloads/Documents"_s));
    EXPECT_EQ(files().row(0).symbol, u"doc.richtext.fill"_s);
}

TEST_F(OrganizerViewTests, tickingFilesAndTheirCategoryGoTogether)
{
    writeSomeFiles();
    openDownloads();
    EXPECT_NE(buttonIn(*view, u"Deselect"_s), nullptr);
    tick(0);
    EXPECT_EQ(categories().marks(), (QList{Qt::Unchecked, Qt::Checked}));
    EXPECT_EQ(files().marks(), (QList{Qt::Unchecked, Qt::Checked}));
    EXPECT_TRUE(shows(u"2 files selected"_s));
    EXPECT_TRUE(shows(u"8 KB"_s));
    tick(0);
    EXPECT_EQ(categories().marks(), (QList{Qt::Checked, Qt::Checked}));
}

TEST_F(OrganizerViewTests, theMarkTicksACategoryWithoutShowingIt)
{
    writeSomeFiles();
    openDownloads();
    tickCategory(1);
    EXPECT_EQ(categories().marks(), (QList{Qt::Checked, Qt::Unchecked}));
    EXPECT_EQ(categories().selectedRow(), 0);
    EXPECT_TRUE(shows(u"2 files · 11 KB"_s));
}

TEST_F(OrganizerViewTests, theButtonOfTheCategoryTicksIt)
{
    writeSomeFiles();
    openDownloads();
    press(u"Deselect"_s);
    EXPECT_EQ(files().marks(), (QList{Qt::Unchecked, Qt::Unchecked}));
    EXPECT_EQ(categories().marks(), (QList{Qt::Unchecked, Qt::Checked}));
    EXPECT_TRUE(shows(u"1 file selected"_s));
    press(u"Select"_s);
    EXPECT_EQ(files().marks(), (QList{Qt::Checked, Qt::Checked}));
}

TEST_F(OrganizerViewTests, theButtonBelowTicksEverything)
{
    writeSomeFiles();
    openDownloads();
    press(u"Deselect All"_s);
    EXPECT_TRUE(shows(u"Nothing selected"_s));
    // The categories are listed, and still there is nothing to do.
    EXPECT_FALSE(button(*view, u"Organise Now"_s)->isEnabled());
    tick(0);
    press(u"Select All"_s);
    EXPECT_TRUE(shows(u"3 files selected"_s));
    EXPECT_TRUE(button(*view, u"Organise Now"_s)->isEnabled());
}

TEST_F(OrganizerViewTests, aClearedChoiceClosesTheCategory)
{
    writeSomeFiles();
    openDownloads();
    categories().clickTitle(0, Qt::ControlModifier);
    turnFrame();
    EXPECT_EQ(model().selectedProposalID(), std::nullopt);
    EXPECT_EQ(categories().selectedRow(), -1);
    EXPECT_TRUE(shows(u"Select a category"_s));
    EXPECT_FALSE(shows(u"2 files · 11 KB"_s));
    // What is ticked stays so.
    EXPECT_TRUE(shows(u"3 files selected"_s));
    categories().clickTitle(0);
    turnFrame();
    EXPECT_TRUE(shows(u"2 files · 11 KB"_s));
}

TEST_F(OrganizerViewTests, theMenuOfAFileRevealsItToo)
{
    writeSomeFiles();
    openDownloads();
    QMenu* menu = files().openMenu(1);
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(ListDriver::textsIn(*menu), QStringList{u"Reveal in Finder"_s});
    menu->actions().first()->trigger();
    EXPECT_EQ(workspace.revealed, QStringList(downloads().path() + u"/cat.png"_s));
}

TEST_F(OrganizerViewTests, aFileIsRevealedWhereItIs)
{
    writeSomeFiles();
    openDownloads();
    EXPECT_EQ(files().row(1).actions,
              (QList<RowAction>{
                  {.id = RowActionId::reveal, .symbol = u"folder"_s, .name = u"Reveal in Finder"_s}}));
    files().clickAction(1);
    EXPECT_EQ(workspace.revealed, QStringList(downloads().path() + u"/cat.png"_s));
}

TEST_F(OrganizerViewTests, theKeyboardTicksAndChooses)
{
    writeSomeFiles();
    openDownloads();
    categories().view()->setFocus();
    QTest::keyClick(categories().view(), Qt::Key_Down);
    QTest::keyClick(categories().view(), Qt::Key_Space);
    turnFrame();
    EXPECT_EQ(files().row(0).title, u"letter.pdf"_s);
    EXPECT_EQ(files().marks(), (QList{Qt::Unchecked}));
    target(u"Desktop"_s)->setFocus();
    QTest::keyClick(target(u"Desktop"_s), Qt::Key_Return);
    waitForPlan();
    EXPECT_TRUE(hasChevron(u"Desktop"_s));
}

TEST_F(OrganizerViewTests, eachKindOfFileHasItsIcon)
{
    const std::pair<QStringList, QString> kinds[] = {
        {{u"pdf"_s}, u"doc.richtext.fill"_s},
        {{u"jpg"_s, u"jpeg"_s, u"png"_s, u"heic"_s, u"gif"_s, u"webp"_s}, u"photo.fill"_s},
        {{u"mp4"_s, u"mov"_s, u"avi"_s, u"mkv"_s}, u"film.fill"_s},
        {{u"mp3"_s, u"aac"_s, u"wav"_s, u"m4a"_s}, u"music.note"_s},
        {{u"zip"_s, u"gz"_s, u"rar"_s, u"7z"_s}, u"archivebox.fill"_s},
        {{u"dmg"_s, u"pkg"_s}, u"arrow.down.app.fill"_s},
        {{u"app"_s}, u"app.fill"_s},
        {{u"txt"_s, u"tiff"_s, u"swift"_s}, u"doc.fill"_s},
    };
    QHash<QString, QString> expected{{u"PHOTO.JPG"_s, u"photo.fill"_s}, {u"plain"_s, u"doc.fill"_s}};
    for (const auto& [extensions, icon] : kinds) {
        for (const QString& extension : extensions)
            expected.insert(u"file."_s + extension, icon);
    }
    for (const QString& name : expected.keys())
        write(name.toUtf8(), 1);
    openDownloads();
    QHash<QString, QString> shown;
    for (int row = 0; row < categories().count(); ++row) {
        categories().view()->setCurrentRow(-1);
        categories().clickTitle(row);
        turnFrame();
        for (int i = 0; i < files().count(); ++i)
            shown.insert(files().row(i).title, files().row(i).symbol);
    }
    EXPECT_EQ(shown, expected);
}

TEST_F(OrganizerViewTests, itsModelsAreSound)
{
    writeSomeFiles();
    openDownloads();
    const auto mode = QAbstractItemModelTester::FailureReportingMode::Fatal;
    const QAbstractItemModelTester ofCategories(categories().view()->rowModel(), mode);
    const QAbstractItemModelTester ofFiles(files().view()->rowModel(), mode);
    tick(1);
    press(u"Organise Now"_s);
    alerts.confirm();
    turnFrame();
    target(u"Desktop"_s)->click();
    waitForPlan();
    EXPECT_EQ(categories().count(), 0);
}

} // namespace keelbright::testing

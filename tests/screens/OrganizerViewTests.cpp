#include "Keelbright/screens/OrganizerView.h"

#include "Keelbright/screens/organizer/QuickTargetRow.h"
#include "Keelbright/state/NotificationCenter.h"
#include "tests/screens/shared/ListDriver.h"
#include "tests/screens/shared/ScreenTestCase.h"
#include "tests/support/HeldFileManager.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QTest>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

using QuickTarget = OrganizerVM::QuickTarget;

const QString categoryList = u"File categories"_s;
const QString fileList = u"Files"_s;

class OrganizerViewTests : public ScreenTestCase
{
protected:
    void write(const QByteArray& path, qsizetype bytes) const
    {
        mac.writeFile("Users/mira/Downloads/" + path, QByteArray(bytes, 'x'));
    }

    /// Two pictures and a document.
    void writeSomeFiles() const
    {
        write("beach.jpg", 6'000);
        write("cat.png", 5'000);
        write("letter.pdf", 3'000);
    }

    [[nodiscard]] FileURL downloads() const { return mac.home().appending(u"Downloads"_s); }

    void open()
    {
        view = std::make_unique<OrganizerView>(context());
        show(*view);
    }

    /// Opens the screen and has the Downloads folder scanned.
    void openDownloads()
    {
        open();
        target(u"Downloads"_s)->click();
        waitForPlan();
    }

    void waitForPlan() const
    {
        turnUntil([this] { return !model().isScanning(); });
        turnFrame();
    }

    [[nodiscard]] OrganizerVM& model() const { return *view->findChild<OrganizerVM*>(); }

    [[nodiscard]] ListDriver categories() const { return {*view, categoryList}; }

    [[nodiscard]] ListDriver files() const { return {*view, fileList}; }

    [[nodiscard]] QuickTargetRow* target(const QString& name) const
    {
        for (auto* candidate : view->findChildren<QuickTargetRow*>()) {
            if (candidate->accessibleName() == name)
                return candidate;
        }
        ADD_FAILURE() << "no target " << name.toStdString();
        static QuickTargetRow nobody({}, {});
        return &nobody;
    }

    [[nodiscard]] bool hasChevron(const QString& targetName) const
    {
        return shownSymbols(*target(targetName)).contains(u"chevron.right"_s);
    }

    void press(const QString& name) const
    {
        button(*view, name)->click();
        turnFrame();
    }

    void tick(int file) const
    {
        files().clickMark(file);
        turnFrame();
    }

    void tickCategory(int row) const
    {
        categories().clickMark(row);
        turnFrame();
    }

    [[nodiscard]] bool shows(const QString& text) const { return textsIn(*view).contains(text); }

    static void post(const QVariant& object)
    {
        NotificationCenter::defaultCenter().post(organizeFolderNotification, object);
    }

    std::unique_ptr<OrganizerView> view;
};

} // namespace

TEST_F(OrganizerViewTests, beginsWithoutAScan)
{
    writeSomeFiles();
    open();
    turnFrame();
    EXPECT_FALSE(model().isScanning());
    EXPECT_EQ(textsIn(*view),
              (QStringList{u"Smart Organizer"_s, u"QUICK TARGETS"_s, u"Desktop"_s, u"Downloads"_s,
                           u"Choose Folder…"_s, u"Pick a folder above"_s, u"Select a category"_s,
                           u"Click a category on the left to preview which files will be moved."_s}));
    EXPECT_EQ(shownSymbols(*view),
              (QStringList{u"folder.badge.gearshape"_s, u"menubar.rectangle"_s, u"arrow.down.circle.fill"_s,
                           u"folder.badge.plus"_s, u"arrow.up.left"_s, u"folder.badge.gearshape"_s}));
    expectEveryControlIsNamedAndReachedByTab(*view);
}

TEST_F(OrganizerViewTests, aQuickTargetIsScannedAndMarked)
{
    writeSomeFiles();
    HeldFileManager held(mac.root());
    const FileManagerGuard guard(held);
    open();
    held.holdNextLookAt(downloads());
    target(u"Downloads"_s)->click();
    ASSERT_TRUE(held.waitUntilHeld());
    turnFrame();
    EXPECT_TRUE(shows(u"Analysing…"_s));
    EXPECT_TRUE(shows(u"Select a category"_s));
    EXPECT_TRUE(hasChevron(u"Downloads"_s));
    EXPECT_FALSE(hasChevron(u"Desktop"_s));
    EXPECT_TRUE(target(u"Downloads"_s)->isChecked());
    held.letGo();
    waitForPlan();
    EXPECT_FALSE(shows(u"Analysing…"_s));
    EXPECT_EQ(categories().texts(), (QStringList{u"Images, 2 files, 11 KB"_s, u"Documents, 1 file, 3 KB"_s}));
    view.reset();
}

TEST_F(OrganizerViewTests, theOtherTargetTakesTheMark)
{
    mac.writeFile("Users/mira/Desktop/song.mp3", "x");
    writeSomeFiles();
    openDownloads();
    target(u"Desktop"_s)->click();
    waitForPlan();
    EXPECT_TRUE(hasChevron(u"Desktop"_s));
    EXPECT_FALSE(hasChevron(u"Downloads"_s));
    EXPECT_EQ(categories().texts(), QStringList(u"Audio, 1 file, 1 byte"_s));
}

TEST_F(OrganizerViewTests, aPressOnTheActiveTargetScansItAgain)
{
    openDownloads();
    EXPECT_TRUE(shows(u"Already organised!"_s));
    writeSomeFiles();
    target(u"Downloads"_s)->click();
    waitForPlan();
    EXPECT_TRUE(hasChevron(u"Downloads"_s));
    EXPECT_EQ(categories().count(), 2);
}

TEST_F(OrganizerViewTests, aFolderOfTheUsersChoiceMarksNoTarget)
{
    writeSomeFiles();
    openDownloads();
    mac.writeFile("Users/mira/Projects/plan.zip", "xx");
    chooser.willChoose({mac.home().appending(u"Projects"_s)});
    target(u"Choose Folder…"_s)->click();
    waitForPlan();
    EXPECT_FALSE(hasChevron(u"Desktop"_s));
    EXPECT_FALSE(hasChevron(u"Downloads"_s));
    EXPECT_FALSE(hasChevron(u"Choose Folder…"_s));
    EXPECT_EQ(categories().texts(), QStringList(u"Archives, 1 file, 2 bytes"_s));
    EXPECT_TRUE(shows(u"Projects/Archives"_s));
}

TEST_F(OrganizerViewTests, aDismissedChooserChangesNothing)
{
    writeSomeFiles();
    openDownloads();
    chooser.willBeDismissed();
    target(u"Choose Folder…"_s)->click();
    turnFrame();
    EXPECT_TRUE(hasChevron(u"Downloads"_s));
    EXPECT_EQ(categories().count(), 2);
}

TEST_F(OrganizerViewTests, aFolderFromElsewhereIsScanned)
{
    writeSomeFiles();
    openDownloads();
    mac.writeFile("Users/mira/Projects/plan.zip", "xx");
    post(QVariant::fromValue(mac.home().appending(u"Projects"_s)));
    EXPECT_TRUE(model().isScanning());
    EXPECT_FALSE(model().activeTarget().has_value());
    waitForPlan();
    EXPECT_FALSE(hasChevron(u"Downloads"_s));
    EXPECT_EQ(categories().texts(), QStringList(u"Archives, 1 file, 2 bytes"_s));
}

TEST_F(OrganizerViewTests, anythingButAFolderIsIgnored)
{
    writeSomeFiles();
    openDownloads();
    post({});
    post(downloads().path());
    post(42);
    NotificationCenter::defaultCenter().post(u"com.keelbright.other"_s, QVariant::fromValue(downloads()));
    EXPECT_FALSE(model().isScanning());
    EXPECT_EQ(model().activeTarget(), QuickTarget::downloads);
    EXPECT_EQ(model().targetFolder(), downloads());
}

TEST_F(OrganizerViewTests, aFolderThatWasSentBeforeIsNotTaken)
{
    post(QVariant::fromValue(downloads()));
    open();
    turnFrame();
    EXPECT_FALSE(model().isScanning());
    EXPECT_TRUE(shows(u"Pick a folder above"_s));
}

TEST_F(OrganizerViewTests, aTidyFolderIsAlreadyOrganised)
{
    mac.makeFolder("Users/mira/Downloads");
    openDownloads();
    EXPECT_TRUE(shows(u"Already organised!"_s));
    EXPECT_TRUE(shows(u"No loose files found."_s));
    EXPECT_TRUE(shownSymbols(*view).contains(u"checkmark.circle.fill"_s));
    EXPECT_TRUE(shows(u"Select a category"_s));
}

TEST_F(OrganizerViewTests, aFolderThatCantBeReadLooksTidy)
{
    openDownloads();
    EXPECT_TRUE(shows(u"Already organised!"_s));
}

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

TEST_F(OrganizerViewTests, oneFileIsOneFileAtTheLeftAndStillFilesAtTheRight)
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

TEST_F(OrganizerViewTests, aChoiceThatIsTakenBackClosesTheCategory)
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
              (QList<RowAction>{{.symbol = u"folder"_s, .name = u"Reveal in Finder"_s}}));
    files().clickAction(1);
    EXPECT_EQ(workspace.revealed, QStringList(downloads().path() + u"/cat.png"_s));
}

TEST_F(OrganizerViewTests, asksBeforeAnythingIsMoved)
{
    writeSomeFiles();
    openDownloads();
    tickCategory(1);
    press(u"Organise Now"_s);
    EXPECT_TRUE(model().showConfirm());
    ASSERT_EQ(alerts.requests().size(), 1);
    const AlertRequest& request = alerts.requests().first();
    EXPECT_EQ(request.title, u"Move 2 files into subfolders?"_s);
    EXPECT_EQ(request.message, u"Files will be moved into named subfolders inside \"Downloads\". This can be "
                               u"undone in Finder (⌘Z)."_s);
    EXPECT_EQ(request.action, u"Organise"_s);
    EXPECT_EQ(request.cancel, u"Cancel"_s);
    EXPECT_TRUE(request.isDestructive);
    EXPECT_TRUE(mac.fileManager().fileExists(downloads().appending(u"beach.jpg"_s)).exists);
}

TEST_F(OrganizerViewTests, theQuestionIsThatOfTheTickedFilesOfAllCategories)
{
    writeSomeFiles();
    openDownloads();
    tick(0);
    tickCategory(1);
    // One picture is left of three files, and no category is ticked as a whole.
    press(u"Organise Now"_s);
    EXPECT_EQ(alerts.requests().first().title, u"Move 1 file into subfolders?"_s);
    alerts.confirm();
    EXPECT_FALSE(mac.fileManager().fileExists(downloads().appending(u"cat.png"_s)).exists);
    EXPECT_TRUE(mac.fileManager().fileExists(downloads().appending(u"beach.jpg"_s)).exists);
    EXPECT_TRUE(mac.fileManager().fileExists(downloads().appending(u"letter.pdf"_s)).exists);
}

TEST_F(OrganizerViewTests, theQuestionSpeaksOfTheFolderWhereThereIsNone)
{
    open();
    model().setShowConfirm(true);
    ASSERT_EQ(alerts.requests().size(), 1);
    EXPECT_EQ(alerts.requests().first().title, u"Move 0 files into subfolders?"_s);
    EXPECT_EQ(
        alerts.requests().first().message,
        u"Files will be moved into named subfolders inside \"the folder\". This can be undone in Finder "
        u"(⌘Z)."_s);
}

TEST_F(OrganizerViewTests, aDismissedQuestionLeavesAllAsItIs)
{
    writeSomeFiles();
    openDownloads();
    tickCategory(0);
    press(u"Organise Now"_s);
    EXPECT_EQ(alerts.requests().last().title, u"Move 1 file into subfolders?"_s);
    alerts.dismiss();
    turnFrame();
    EXPECT_FALSE(model().showConfirm());
    EXPECT_TRUE(shows(u"1 file selected"_s));
    EXPECT_TRUE(mac.fileManager().fileExists(downloads().appending(u"letter.pdf"_s)).exists);
}

TEST_F(OrganizerViewTests, whatIsConfirmedIsMovedAndTheRestIsTickedAgain)
{
    writeSomeFiles();
    openDownloads();
    tick(1);
    press(u"Organise Now"_s);
    alerts.confirm();
    turnFrame();
    EXPECT_FALSE(model().showConfirm());
    EXPECT_TRUE(mac.fileManager().fileExists(downloads().appending(u"Images/beach.jpg"_s)).exists);
    EXPECT_TRUE(mac.fileManager().fileExists(downloads().appending(u"Documents/letter.pdf"_s)).exists);
    EXPECT_EQ(categories().texts(), QStringList(u"Images, 1 file, 5 KB"_s));
    EXPECT_EQ(categories().selectedRow(), 0);
    EXPECT_EQ(files().marks(), (QList{Qt::Checked}));
    ASSERT_EQ(activityStore.load().size(), 1);
    EXPECT_EQ(activityStore.load().first().title, u"Files organised"_s);
}

TEST_F(OrganizerViewTests, afterEverythingWasMovedTheFolderIsOrganised)
{
    writeSomeFiles();
    openDownloads();
    press(u"Organise Now"_s);
    alerts.confirm();
    turnFrame();
    EXPECT_TRUE(shows(u"Already organised!"_s));
    EXPECT_TRUE(shows(u"Select a category"_s));
}

TEST_F(OrganizerViewTests, theKeysForItScanAnew)
{
    writeSomeFiles();
    openDownloads();
    write("song.mp3", 1);
    QTest::keyClick(view.get(), Qt::Key_F5);
    EXPECT_TRUE(model().isScanning());
    waitForPlan();
    EXPECT_EQ(categories().count(), 3);
    EXPECT_TRUE(hasChevron(u"Downloads"_s));
    write("film.mov", 2);
    QTest::keyClick(view.get(), Qt::Key_R, Qt::ControlModifier);
    waitForPlan();
    EXPECT_EQ(categories().count(), 4);
}

TEST_F(OrganizerViewTests, theKeysScanAFolderFromElsewhereToo)
{
    open();
    QTest::keyClick(view.get(), Qt::Key_F5);
    EXPECT_FALSE(model().isScanning());
    mac.makeFolder("Users/mira/Projects");
    post(QVariant::fromValue(mac.home().appending(u"Projects"_s)));
    waitForPlan();
    mac.writeFile("Users/mira/Projects/plan.zip", "xx");
    QTest::keyClick(view.get(), Qt::Key_F5);
    waitForPlan();
    EXPECT_EQ(categories().texts(), QStringList(u"Archives, 1 file, 2 bytes"_s));
    EXPECT_FALSE(model().activeTarget().has_value());
}

TEST_F(OrganizerViewTests, theKeyboardIsWhereItWasAfterAScan)
{
    writeSomeFiles();
    openDownloads();
    files().view()->setFocus();
    QTest::keyClick(files().view(), Qt::Key_F5);
    waitForPlan();
    EXPECT_EQ(QApplication::focusWidget(), files().view());
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

TEST_F(OrganizerViewTests, aNewVisitBeginsAnew)
{
    writeSomeFiles();
    openDownloads();
    open();
    EXPECT_TRUE(shows(u"Pick a folder above"_s));
    EXPECT_FALSE(hasChevron(u"Downloads"_s));
}

TEST_F(OrganizerViewTests, theScreenMayCloseInTheMiddleOfAScan)
{
    writeSomeFiles();
    HeldFileManager held(mac.root());
    const FileManagerGuard guard(held);
    open();
    held.holdNextLookAt(downloads());
    target(u"Downloads"_s)->click();
    ASSERT_TRUE(held.waitUntilHeld());
    view.reset();
    held.letGo();
    waitForBackgroundWork();
    turnFrame();
    EXPECT_TRUE(mac.fileManager().fileExists(downloads().appending(u"letter.pdf"_s)).exists);
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

TEST_F(OrganizerViewTests, aNameThatIsNotTextIsShownAndMoved)
{
    write("Br\xfc"
          "cke\n<b>.png",
          10);
    openDownloads();
    EXPECT_TRUE(files().texts().first().startsWith(u"Br\xFFFD"
                                                   u"cke␊<b>.png, "_s));
    press(u"Organise Now"_s);
    alerts.confirm();
    EXPECT_TRUE(mac.fileManager()
                    .fileExists(downloads().appendingNative("Images/Br\xfc"
                                                            "cke\n<b>.png"))
                    .exists);
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

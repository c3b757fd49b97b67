#include "Keelbright/screens/shell/DialogFolderChooser.h"

#include "tests/support/Accessible.h"
#include "tests/support/Printing.h"
#include "tests/support/SandboxFileManager.h"
#include "tests/support/TestMac.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QListView>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QUrl>
#include <gtest/gtest.h>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

/// The test's machine with a drive whose folder has no name for people.
class MachineWithDrive : public testing::SandboxFileManager
{
public:
    using SandboxFileManager::SandboxFileManager;

    [[nodiscard]] QList<MountedVolume> mountedVolumes() const override
    {
        return {{systemLocation(u"/media/mira/9C33-6BBD"_s), u"Backup Drive"_s}};
    }
};

class DialogFolderChooserTest : public ::testing::Test
{
protected:
    DialogFolderChooserTest()
    {
        for (const char* name : {"Users/mira/Code", "Users/mira/Letters", "Users/mira/Say \"cheese\""})
            mac.makeFolder(name);
        mac.writeFile("Users/mira/notes.txt", "x");
    }

    ~DialogFolderChooserTest() override { delete dialog; }

    void open(bool isMultiple, const std::optional<FileURL>& folder = std::nullopt)
    {
        chooser.chooseFolders({u"Select folders to protect."_s, u"Add Folder"_s, isMultiple, false, folder},
                              [this](const QList<FileURL>& urls) {
                                  ++confirmations;
                                  chosen = urls;
                              });
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (auto* candidate = qobject_cast<FolderDialog*>(widget))
                dialog = candidate;
        }
        ASSERT_FALSE(dialog.isNull());
        view = dialog->findChild<QListView*>(u"listView"_s);
        field = dialog->findChild<QLineEdit*>(u"fileNameEdit"_s);
        if (!folder) {
            ASSERT_TRUE(
                QTest::qWaitFor([this] { return view->model()->rowCount(view->rootIndex()) >= 3; }, 60'000));
        }
    }

    /// The texts of the places beside the files.
    [[nodiscard]] QStringList places() const
    {
        const QAbstractItemModel* model = dialog->findChild<QListView*>(u"sidebar"_s)->model();
        QStringList texts;
        for (int i = 0; i < model->rowCount(); ++i)
            texts.append(model->index(i, 0).data().toString());
        return texts;
    }

    [[nodiscard]] QModelIndex row(const QString& name) const
    {
        const QModelIndex root = view->rootIndex();
        for (int i = 0; i < view->model()->rowCount(root); ++i) {
            const QModelIndex index = view->model()->index(i, 0, root);
            if (index.data().toString() == name)
                return index;
        }
        return {};
    }

    void mark(const QStringList& names)
    {
        view->setFocus();
        for (const QString& name : names)
            view->selectionModel()->select(row(name),
                                           QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }

    [[nodiscard]] QPushButton* acceptButton() const
    {
        return dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open);
    }

    [[nodiscard]] QStringList chosenPaths() const
    {
        QStringList paths;
        for (const FileURL& url : chosen)
            paths.append(url.path());
        return paths;
    }

    [[nodiscard]] QString inHome(const QString& name) const { return mac.home().appending(name).path(); }

    testing::TestMac mac;
    DialogFolderChooser chooser;
    QPointer<FolderDialog> dialog;
    QListView* view = nullptr;
    QLineEdit* field = nullptr;
    int confirmations = 0;
    QList<FileURL> chosen;
};

} // namespace

TEST_F(DialogFolderChooserTest, showsMessageAndPromptAndStartsAtHome)
{
    open(false);
    EXPECT_EQ(dialog->windowTitle(), u"Select folders to protect."_s);
    EXPECT_EQ(QString(acceptButton()->text()).remove(u'&'), u"Add Folder"_s);
    EXPECT_EQ(dialog->directory().path(), mac.home().path());
    EXPECT_TRUE(dialog->testOption(QFileDialog::DontUseNativeDialog));
    EXPECT_EQ(confirmations, 0);
}

TEST_F(DialogFolderChooserTest, listsMountedDrivesByTheirLabels)
{
    mac.makeFolder("media/mira/9C33-6BBD/Photos");
    MachineWithDrive machine(mac.root());
    const FileManagerGuard guard(machine);
    open(false);
    EXPECT_EQ(places().count(u"Backup Drive"_s), 1);
    EXPECT_FALSE(places().contains(u"9C33-6BBD"_s));
    auto* sidebar = dialog->findChild<QListView*>(u"sidebar"_s);
    const QModelIndex drive =
        sidebar->model()->index(static_cast<int>(places().indexOf(u"Backup Drive"_s)), 0);
    sidebar->scrollTo(drive);
    QTest::mouseClick(sidebar->viewport(), Qt::LeftButton, {}, sidebar->visualRect(drive).center());
    EXPECT_EQ(dialog->directory().path(), mac.root().appending(u"media/mira/9C33-6BBD"_s).path());
    // The toolkit reads the folder now, and writes the folder's name.
    EXPECT_TRUE(QTest::qWaitFor([this] { return row(u"Photos"_s).isValid(); }, 60'000));
    EXPECT_EQ(places().count(u"Backup Drive"_s), 1);
    EXPECT_FALSE(places().contains(u"9C33-6BBD"_s));
}

TEST_F(DialogFolderChooserTest, listsTheFoldersOfDrivesThatThereAre)
{
    const FileURL own = mac.makeFolder("run/media/mira");
    const FileURL shared = mac.makeFolder("mnt");
    mac.makeFolder("media/anna");
    open(false);
    const auto url = [](const FileURL& folder) { return QUrl::fromLocalFile(folder.path()); };
    EXPECT_EQ(dialog->sidebarUrls(),
              (QList{url(mac.home()), QUrl::fromLocalFile(u"/"_s), url(own), url(shared)}));
}

TEST_F(DialogFolderChooserTest, startsWhereItIsAskedTo)
{
    const FileURL backups = mac.makeFolder("Volumes/Anchor/Keelbright");
    open(false, backups);
    EXPECT_EQ(dialog->directory().path(), backups.path());
}

TEST_F(DialogFolderChooserTest, startsAroundAFolderThatIsNotThereYet)
{
    const FileURL drive = mac.makeFolder("Volumes/Anchor");
    open(false, drive.appending(u"Keelbright"_s));
    EXPECT_EQ(dialog->directory().path(), drive.path());
}

TEST_F(DialogFolderChooserTest, startsAtHomeWhereTheDriveIsGone)
{
    open(false, mac.root().appending(u"Volumes/Gone/Keelbright"_s));
    EXPECT_EQ(dialog->directory().path(), mac.home().path());
}

TEST_F(DialogFolderChooserTest, listsFoldersOnly)
{
    open(false);
    EXPECT_TRUE(row(u"Code"_s).isValid());
    EXPECT_FALSE(row(u"notes.txt"_s).isValid());
}

TEST_F(DialogFolderChooserTest, givesTheMarkedFolder)
{
    open(false);
    mark({u"Code"_s});
    acceptButton()->click();
    EXPECT_EQ(confirmations, 1);
    EXPECT_EQ(chosenPaths(), QStringList({inHome(u"Code"_s)}));
}

TEST_F(DialogFolderChooserTest, givesSeveralMarkedFolders)
{
    open(true);
    mark({u"Code"_s, u"Letters"_s});
    acceptButton()->click();
    EXPECT_EQ(chosenPaths(), QStringList({inHome(u"Code"_s), inHome(u"Letters"_s)}));
}

TEST_F(DialogFolderChooserTest, marksOnlyOneFolderUnlessSeveralAreRequested)
{
    open(false);
    EXPECT_EQ(view->selectionMode(), QAbstractItemView::SingleSelection);
}

TEST_F(DialogFolderChooserTest, givesFoldersWithQuotesInTheirNames)
{
    open(true);
    mark({u"Code"_s, u"Say \"cheese\""_s});
    acceptButton()->click();
    EXPECT_EQ(chosenPaths(), QStringList({inHome(u"Code"_s), inHome(u"Say \"cheese\""_s)}));
}

TEST_F(DialogFolderChooserTest, givesTheFolderThatWasTyped)
{
    open(true);
    field->setFocus();
    field->setText(inHome(u"Letters"_s));
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_EQ(chosenPaths(), QStringList({inHome(u"Letters"_s)}));
}

TEST_F(DialogFolderChooserTest, escapeDismissesItWithoutAnAnswer)
{
    open(true);
    mark({u"Code"_s});
    QTest::keyClick(dialog, Qt::Key_Escape);
    EXPECT_EQ(confirmations, 0);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(dialog.isNull());
}

TEST_F(DialogFolderChooserTest, createsFoldersOnlyIfThatIsRequested)
{
    const FolderDialog without({u"m"_s, u"p"_s, false, false});
    EXPECT_TRUE(without.testOption(QFileDialog::ReadOnly));
    const FolderDialog with({u"m"_s, u"p"_s, false, true});
    EXPECT_FALSE(with.testOption(QFileDialog::ReadOnly));
}

} // namespace keelbright

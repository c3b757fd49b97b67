#include "Keelbright/screens/shell/DialogFileChooser.h"

#include "Keelbright/widgets/AlertDialog.h"
#include "Keelbright/widgets/Button.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

class DialogFileChooserTest : public ::testing::Test
{
protected:
    DialogFileChooserTest()
    {
        mac.makeFolder("Users/mira/Letters");
        for (const char* name : {"Users/mira/one.json", "Users/mira/TWO.JSON", "Users/mira/notes.txt",
                                 "Users/mira/say \"cheese\".json", "Users/mira/old.csv"})
            mac.writeFile(name, "{}");
    }

    ~DialogFileChooserTest() override { delete dialog; }

    void open(const std::optional<FileURL>& folder = std::nullopt)
    {
        chooser.chooseFile({u"Select the file."_s, u"Load"_s, {u"json"_s}, folder}, noteChoice());
        findDialog(QDialogButtonBox::Open);
    }

    void save(const std::optional<FileURL>& folder = std::nullopt)
    {
        chooser.chooseSaveLocation({u"Save the file"_s, u"Keep"_s, u"List.csv"_s, u"csv"_s, folder},
                                   noteChoice());
        findDialog(QDialogButtonBox::Save);
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

    void mark(const QString& name) const
    {
        view->setFocus();
        view->selectionModel()->select(row(name),
                                       QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    }

    void type(const QString& text) const
    {
        field->setFocus();
        field->setText(text);
        QTest::keyClick(field, Qt::Key_Return);
    }

    [[nodiscard]] QStringList chosenPaths() const
    {
        QStringList paths;
        for (const FileURL& url : chosen)
            paths.append(url.path());
        return paths;
    }

    [[nodiscard]] QString inHome(const QString& name) const { return mac.home().appending(name).path(); }

    [[nodiscard]] QString explanation() const
    {
        const auto* note = dialog->findChild<QMessageBox*>();
        return note != nullptr ? note->text() : QString();
    }

    testing::TestMac mac;
    DialogFileChooser chooser;
    QPointer<ChooserDialog> dialog;
    QListView* view = nullptr;
    QLineEdit* field = nullptr;
    QPushButton* acceptButton = nullptr;
    QList<FileURL> chosen;

private:
    std::function<void(const FileURL&)> noteChoice()
    {
        return [this](const FileURL& url) { chosen.append(url); };
    }

    void findDialog(QDialogButtonBox::StandardButton accept)
    {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (auto* candidate = qobject_cast<ChooserDialog*>(widget))
                dialog = candidate;
        }
        ASSERT_FALSE(dialog.isNull());
        view = dialog->findChild<QListView*>(u"listView"_s);
        field = dialog->findChild<QLineEdit*>(u"fileNameEdit"_s);
        acceptButton = dialog->findChild<QDialogButtonBox*>()->button(accept);
        ASSERT_TRUE(
            QTest::qWaitFor([this] { return view->model()->rowCount(view->rootIndex()) >= 2; }, 5000));
    }
};

} // namespace

TEST_F(DialogFileChooserTest, showsMessageAndPromptAndStartsAtHome)
{
    open();
    EXPECT_EQ(dialog->windowTitle(), u"Select the file."_s);
    EXPECT_EQ(QString(acceptButton->text()).remove(u'&'), u"Load"_s);
    EXPECT_EQ(dialog->directory().path(), mac.home().path());
    EXPECT_TRUE(dialog->testOption(QFileDialog::DontUseNativeDialog));
    EXPECT_EQ(chosenPaths(), QStringList());
}

TEST_F(DialogFileChooserTest, listsFoldersAndFilesOfTheRequestedKind)
{
    open();
    EXPECT_TRUE(row(u"Letters"_s).isValid());
    EXPECT_TRUE(row(u"one.json"_s).isValid());
    EXPECT_TRUE(row(u"TWO.JSON"_s).isValid());
    EXPECT_FALSE(row(u"notes.txt"_s).isValid());
    EXPECT_EQ(dialog->nameFilters(), QStringList{u"JSON files (*.json)"_s});
}

TEST_F(DialogFileChooserTest, givesTheMarkedFile)
{
    open();
    mark(u"one.json"_s);
    acceptButton->click();
    EXPECT_EQ(chosenPaths(), QStringList{inHome(u"one.json"_s)});
}

TEST_F(DialogFileChooserTest, givesAFileWithQuotesInItsName)
{
    open();
    mark(u"say \"cheese\".json"_s);
    acceptButton->click();
    EXPECT_EQ(chosenPaths(), QStringList{inHome(u"say \"cheese\".json"_s)});
}

TEST_F(DialogFileChooserTest, givesTheFileThatWasTyped)
{
    open();
    type(inHome(u"TWO.JSON"_s));
    EXPECT_EQ(chosenPaths(), QStringList{inHome(u"TWO.JSON"_s)});
}

TEST_F(DialogFileChooserTest, refusesATypedFileOfAnotherKindAndSaysWhy)
{
    open();
    type(inHome(u"notes.txt"_s));
    EXPECT_EQ(chosenPaths(), QStringList());
    EXPECT_EQ(explanation(),
              u"notes.txt is not one of the files that can be chosen here: JSON files (*.json)."_s);
    EXPECT_TRUE(dialog->isVisible());
}

TEST_F(DialogFileChooserTest, opensAFolderInsteadOfChoosingIt)
{
    open();
    mark(u"Letters"_s);
    acceptButton->click();
    EXPECT_EQ(chosenPaths(), QStringList());
    EXPECT_EQ(dialog->directory().path(), inHome(u"Letters"_s));
}

TEST_F(DialogFileChooserTest, escapeDismissesItWithoutAnAnswer)
{
    open();
    mark(u"one.json"_s);
    QTest::keyClick(dialog, Qt::Key_Escape);
    EXPECT_EQ(chosenPaths(), QStringList());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(dialog.isNull());
}

TEST_F(DialogFileChooserTest, offersTheNameAndGivesItsPlace)
{
    save();
    EXPECT_EQ(dialog->windowTitle(), u"Save the file"_s);
    EXPECT_EQ(QString(acceptButton->text()).remove(u'&'), u"Keep"_s);
    EXPECT_EQ(field->text(), u"List.csv"_s);
    acceptButton->click();
    EXPECT_EQ(chosenPaths(), QStringList{inHome(u"List.csv"_s)});
}

TEST_F(DialogFileChooserTest, startsInTheFolderThatIsProposed)
{
    for (const char* name : {"Users/mira/Letters/one.json", "Users/mira/Letters/one.csv",
                             "Users/mira/Letters/two.json", "Users/mira/Letters/two.csv"})
        mac.writeFile(name, "{}");
    const FileURL letters = mac.home().appending(u"Letters"_s);
    open(letters);
    EXPECT_EQ(dialog->directory().path(), letters.path());
    delete dialog;
    save(letters);
    acceptButton->click();
    EXPECT_EQ(chosenPaths(), QStringList{letters.appending(u"List.csv"_s).path()});
}

TEST_F(DialogFileChooserTest, givesTheExtensionToANameWithoutOne)
{
    save();
    type(u"Mine"_s);
    EXPECT_EQ(chosenPaths(), QStringList{inHome(u"Mine.csv"_s)});
}

TEST_F(DialogFileChooserTest, leavesTheExtensionOfANameThatHasOne)
{
    save();
    type(u"Mine.txt"_s);
    EXPECT_EQ(chosenPaths(), QStringList{inHome(u"Mine.txt"_s)});
}

TEST_F(DialogFileChooserTest, savesUnderANameWithQuotes)
{
    save();
    type(u"say \"cheese\""_s);
    EXPECT_EQ(chosenPaths(), QStringList{inHome(u"say \"cheese\".csv"_s)});
}

TEST_F(DialogFileChooserTest, givesNothingForAnEmptyName)
{
    save();
    type(u""_s);
    EXPECT_EQ(chosenPaths(), QStringList());
    EXPECT_TRUE(dialog->isVisible());
}

TEST_F(DialogFileChooserTest, saysThatThereIsNoSuchFolder)
{
    save();
    type(u"Nowhere/Mine.csv"_s);
    EXPECT_EQ(chosenPaths(), QStringList());
    EXPECT_EQ(explanation(), u"There is no folder %1."_s.arg(inHome(u"Nowhere"_s)));
}

TEST_F(DialogFileChooserTest, asksBeforeAFileIsReplaced)
{
    save();
    type(u"old.csv"_s);
    EXPECT_EQ(chosenPaths(), QStringList());
    auto* question = dialog->findChild<AlertDialog*>();
    ASSERT_NE(question, nullptr);
    EXPECT_EQ(question->windowTitle(), u"Replace old.csv?"_s);
    question->actionButton()->click();
    EXPECT_EQ(chosenPaths(), QStringList{inHome(u"old.csv"_s)});
}

TEST_F(DialogFileChooserTest, choosesNothingIfReplacingIsCancelled)
{
    save();
    type(u"old.csv"_s);
    auto* question = dialog->findChild<AlertDialog*>();
    ASSERT_NE(question, nullptr);
    question->cancelButton()->click();
    EXPECT_EQ(chosenPaths(), QStringList());
    EXPECT_TRUE(dialog->isVisible());
}

} // namespace keelbright

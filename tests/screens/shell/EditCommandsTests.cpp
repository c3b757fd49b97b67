#include "Keelbright/screens/shell/EditCommands.h"

#include "Keelbright/widgets/rows/RowListView.h"
#include "tests/support/Printing.h"
#include "tests/support/SampleRows.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

class EditCommandsTests : public ::testing::Test
{
protected:
    EditCommandsTests()
    {
        QGuiApplication::clipboard()->clear();
        auto* content = new QWidget;
        auto* layout = new QVBoxLayout(content);
        for (QWidget* widget :
             {static_cast<QWidget*>(field), static_cast<QWidget*>(path), static_cast<QWidget*>(label),
              static_cast<QWidget*>(list), static_cast<QWidget*>(button)})
            layout->addWidget(widget);
        path->setReadOnly(true);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
        window.setCentralWidget(content);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    [[nodiscard]] QAction* entry(const QString& text) const
    {
        for (QAction* action : menu->actions()) {
            if (QString(action->text()).remove(u'&') == text)
                return action;
        }
        ADD_FAILURE() << "no entry " << text.toStdString();
        return nullptr;
    }

    /// The entries that are enabled, in the menu's order.
    [[nodiscard]] QStringList enabled() const
    {
        QStringList texts;
        for (const QAction* action : menu->actions()) {
            if (action->isEnabled())
                texts.append(QString(action->text()).remove(u'&'));
        }
        return texts;
    }

    [[nodiscard]] static QString clipboardText() { return QGuiApplication::clipboard()->text(); }

    SampleRows rows{{u"First"_s, u"Second"_s}};
    QMainWindow window;
    QMenu* menu = window.menuBar()->addMenu(u"&Edit"_s);
    QLineEdit* field = new QLineEdit(u"harbour"_s);
    QLineEdit* path = new QLineEdit(u"/Users/mira"_s);
    QLabel* label = new QLabel(u"A description"_s);
    RowListView* list = new RowListView(RowListView::Look::table, u"Items"_s);
    QPushButton* button = new QPushButton(u"Press"_s);
    EditCommands commands{*menu, window};
};

} // namespace

TEST_F(EditCommandsTests, areDisabledWhereTheyWouldDoNothing)
{
    button->setFocus();
    EXPECT_EQ(enabled(), QStringList());
    field->setFocus(Qt::OtherFocusReason);
    field->deselect();
    EXPECT_EQ(enabled(), QStringList{u"Select All"_s});
}

TEST_F(EditCommandsTests, followTheSelectionInAField)
{
    field->setFocus(Qt::OtherFocusReason);
    field->setSelection(0, 3);
    EXPECT_EQ(enabled(), (QStringList{u"Cut"_s, u"Copy"_s, u"Select All"_s}));
    entry(u"Select All"_s)->trigger();
    EXPECT_EQ(enabled(), (QStringList{u"Cut"_s, u"Copy"_s}));
    entry(u"Cut"_s)->trigger();
    EXPECT_EQ(field->text(), QString());
    EXPECT_EQ(clipboardText(), u"harbour"_s);
    EXPECT_EQ(enabled(), QStringList{u"Paste"_s});
    entry(u"Paste"_s)->trigger();
    EXPECT_EQ(field->text(), u"harbour"_s);
}

TEST_F(EditCommandsTests, changeNothingInATextThatCanOnlyBeRead)
{
    QGuiApplication::clipboard()->setText(u"something"_s);
    path->setFocus(Qt::OtherFocusReason);
    path->selectAll();
    EXPECT_EQ(enabled(), QStringList{u"Copy"_s});
    entry(u"Copy"_s)->trigger();
    EXPECT_EQ(clipboardText(), u"/Users/mira"_s);
}

TEST_F(EditCommandsTests, copyATextThatIsShown)
{
    label->setFocus();
    EXPECT_EQ(enabled(), QStringList{u"Select All"_s});
    entry(u"Select All"_s)->trigger();
    Q_EMIT menu->aboutToShow();
    EXPECT_EQ(enabled(), QStringList{u"Copy"_s});
    entry(u"Copy"_s)->trigger();
    EXPECT_EQ(clipboardText(), u"A description"_s);
}

TEST_F(EditCommandsTests, copyTheCurrentRowOfAList)
{
    list->setRowModel(&rows);
    list->setFocus();
    list->setCurrentRow(1);
    EXPECT_EQ(enabled(), QStringList{u"Copy"_s});
    QTest::keyClick(list, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboardText(), u"Second, /Users/mira/Second, 1 MB"_s);
}

TEST_F(EditCommandsTests, actOnWhatHadTheFocusBeforeTheMenuWasOpened)
{
    path->setFocus(Qt::OtherFocusReason);
    window.menuBar()->setFocus(Qt::MenuBarFocusReason);
    entry(u"Select All"_s)->trigger();
    EXPECT_EQ(path->selectedText(), u"/Users/mira"_s);
}

TEST_F(EditCommandsTests, haveTheKeysOfTheDesktop)
{
    EXPECT_EQ(entry(u"Cut"_s)->shortcut(), QKeySequence(QKeySequence::Cut));
    EXPECT_EQ(entry(u"Copy"_s)->shortcut(), QKeySequence(QKeySequence::Copy));
    EXPECT_EQ(entry(u"Paste"_s)->shortcut(), QKeySequence(QKeySequence::Paste));
    EXPECT_EQ(entry(u"Select All"_s)->shortcut(), QKeySequence(QKeySequence::SelectAll));
}

} // namespace keelbright::testing

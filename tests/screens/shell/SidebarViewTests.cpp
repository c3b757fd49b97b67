#include "Keelbright/screens/shell/SidebarView.h"

#include "Keelbright/screens/shell/SidebarModel.h"
#include "tests/screens/shared/ScreenFixture.h"

#include <QListView>
#include <QSignalSpy>
#include <QTest>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

class SidebarViewTest : public testing::ScreenFixture
{
protected:
    void show()
    {
        sidebar.resize(240, 700);
        sidebar.show();
        sidebar.list()->setFocus();
    }

    [[nodiscard]] QStringList rows() const
    {
        QStringList titles;
        for (int row = 0; row < sidebar.list()->model()->rowCount(); ++row)
            titles.append(sidebar.list()->model()->index(row, 0).data().toString());
        return titles;
    }

    [[nodiscard]] QString selectedTitle() const
    {
        const QModelIndexList selected = sidebar.list()->selectionModel()->selectedIndexes();
        return selected.isEmpty() ? QString() : selected.first().data().toString();
    }

    SidebarView sidebar{*state};
};

} // namespace

TEST_F(SidebarViewTest, listsTheFiveSectionsInOrder)
{
    EXPECT_EQ(rows(),
              QStringList({u"Protect"_s, u"Dashboard"_s, u"Protected Items"_s, u"Clean"_s, u"App Manager"_s,
                           u"Junk Cleaner"_s, u"Storage Browser"_s, u"Organise"_s, u"Smart Organizer"_s,
                           u"Review"_s, u"Scan Results"_s, u"Activity Log"_s, u"Backup Report"_s,
                           u"Restore Browser"_s, u"New Mac Recovery"_s, QString(), u"Settings"_s}));
}

TEST_F(SidebarViewTest, eachRowHasTheIconOfItsScreenAndHeadersHaveNone)
{
    const QAbstractItemModel* model = sidebar.list()->model();
    EXPECT_EQ(model->index(0, 0).data(SidebarModel::symbolRole).toString(), QString());
    EXPECT_EQ(model->index(1, 0).data(SidebarModel::symbolRole).toString(), u"square.grid.2x2.fill"_s);
    EXPECT_EQ(model->index(16, 0).data(SidebarModel::symbolRole).toString(), u"gear"_s);
    EXPECT_FALSE(model->index(0, 0).flags().testFlag(Qt::ItemIsSelectable));
    EXPECT_FALSE(model->index(15, 0).flags().testFlag(Qt::ItemIsEnabled));
}

TEST_F(SidebarViewTest, startsOnTheSelectedScreen)
{
    EXPECT_EQ(selectedTitle(), u"Dashboard"_s);
}

TEST_F(SidebarViewTest, arrowsSelectScreensAndSkipHeaders)
{
    show();
    QTest::keyClick(sidebar.list(), Qt::Key_Down);
    EXPECT_EQ(state->selectedScreen(), Screen::protectedItems);
    QTest::keyClick(sidebar.list(), Qt::Key_Down);
    EXPECT_EQ(state->selectedScreen(), Screen::appManager);
    QTest::keyClick(sidebar.list(), Qt::Key_Up);
    EXPECT_EQ(state->selectedScreen(), Screen::protectedItems);
    QTest::keyClick(sidebar.list(), Qt::Key_End);
    EXPECT_EQ(state->selectedScreen(), Screen::settings);
    QTest::keyClick(sidebar.list(), Qt::Key_Up);
    EXPECT_EQ(state->selectedScreen(), Screen::recovery);
}

TEST_F(SidebarViewTest, aClickSelectsARowButNotAHeader)
{
    show();
    const auto click = [this](int row) {
        const QRect rect = sidebar.list()->visualRect(sidebar.list()->model()->index(row, 0));
        QTest::mouseClick(sidebar.list()->viewport(), Qt::LeftButton, Qt::NoModifier, rect.center());
    };
    click(5);
    EXPECT_EQ(state->selectedScreen(), Screen::junkCleaner);
    click(3);
    EXPECT_EQ(state->selectedScreen(), Screen::junkCleaner);
    EXPECT_EQ(selectedTitle(), u"Junk Cleaner"_s);
}

TEST_F(SidebarViewTest, aClickBelowTheLastRowLeavesTheMark)
{
    show();
    state->setSelectedScreen(Screen::junkCleaner);
    const QRect last = sidebar.list()->visualRect(sidebar.list()->model()->index(16, 0));
    const QPoint below = last.center() + QPoint(0, 2 * last.height());
    ASSERT_TRUE(sidebar.list()->viewport()->rect().contains(below));
    QTest::mouseClick(sidebar.list()->viewport(), Qt::LeftButton, Qt::NoModifier, below);
    EXPECT_EQ(selectedTitle(), u"Junk Cleaner"_s);
    EXPECT_EQ(state->selectedScreen(), Screen::junkCleaner);
}

TEST_F(SidebarViewTest, theMarkedRowCannotBeDeselected)
{
    show();
    const QRect dashboard = sidebar.list()->visualRect(sidebar.list()->model()->index(1, 0));
    QTest::mouseClick(sidebar.list()->viewport(), Qt::LeftButton, Qt::ControlModifier, dashboard.center());
    EXPECT_EQ(selectedTitle(), u"Dashboard"_s);
    QTest::keyClick(sidebar.list(), Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(selectedTitle(), u"Dashboard"_s);
    sidebar.list()->clearSelection();
    EXPECT_EQ(selectedTitle(), u"Dashboard"_s);
    EXPECT_EQ(state->selectedScreen(), Screen::dashboard);
}

TEST_F(SidebarViewTest, followsTheStateWithoutWritingToIt)
{
    state->setSelectedScreen(Screen::activityLog);
    EXPECT_EQ(selectedTitle(), u"Activity Log"_s);
    EXPECT_EQ(state->selectedScreen(), Screen::activityLog);
}

TEST_F(SidebarViewTest, preflightAndProgressLeaveNothingSelected)
{
    for (const Screen screen : {Screen::preflight, Screen::backupProgress}) {
        state->setSelectedScreen(screen);
        EXPECT_EQ(selectedTitle(), QString());
        EXPECT_EQ(state->selectedScreen(), screen);
    }
}

TEST_F(SidebarViewTest, theRowWithTheFocusIsSelectedAgainWhenItsScreenComesBack)
{
    state->setSelectedScreen(Screen::activityLog);
    state->setSelectedScreen(Screen::preflight);
    EXPECT_EQ(sidebar.list()->currentIndex().data().toString(), u"Activity Log"_s);
    EXPECT_EQ(selectedTitle(), QString());
    state->setSelectedScreen(Screen::activityLog);
    EXPECT_EQ(selectedTitle(), u"Activity Log"_s);
}

TEST_F(SidebarViewTest, aClickOnTheRowWithTheFocusReturnsToItsScreen)
{
    show();
    state->setSelectedScreen(Screen::preflight);
    const QRect dashboard = sidebar.list()->visualRect(sidebar.list()->model()->index(1, 0));
    QTest::mouseClick(sidebar.list()->viewport(), Qt::LeftButton, Qt::NoModifier, dashboard.center());
    EXPECT_EQ(state->selectedScreen(), Screen::dashboard);
}

TEST_F(SidebarViewTest, isAListOfNamedRowsToAScreenReader)
{
    QAccessibleInterface* list = QAccessible::queryAccessibleInterface(sidebar.list());
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->role(), QAccessible::List);
    EXPECT_EQ(list->text(QAccessible::Name), u"Screens"_s);
    ASSERT_EQ(list->childCount(), 17);
    EXPECT_EQ(list->child(1)->text(QAccessible::Name), u"Dashboard"_s);
    EXPECT_TRUE(list->child(1)->state().selected);
}

TEST_F(SidebarViewTest, sectionTitlesAreHeadingsToAScreenReader)
{
    QAccessibleInterface* list = QAccessible::queryAccessibleInterface(sidebar.list());
    for (int row = 0; row < list->childCount(); ++row) {
        QAccessibleInterface* child = list->child(row);
        if (child->role() == QAccessible::ListItem)
            continue;
        EXPECT_TRUE(child->actionInterface()->actionNames().isEmpty());
        EXPECT_FALSE(child->state().checkable);
        // The last section has no title.
        EXPECT_EQ(child->role(), row == 15 ? QAccessible::Separator : QAccessible::Heading);
        EXPECT_EQ(child->text(QAccessible::Name).isEmpty(), row == 15);
    }
    EXPECT_EQ(list->child(0)->text(QAccessible::Name), u"Protect"_s);
}

TEST_F(SidebarViewTest, aScreenReaderOpensAScreenByItsRow)
{
    QAccessibleInterface* list = QAccessible::queryAccessibleInterface(sidebar.list());
    list->child(5)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(state->selectedScreen(), Screen::junkCleaner);
    EXPECT_EQ(selectedTitle(), u"Junk Cleaner"_s);
}

TEST_F(SidebarViewTest, staysWithinItsWidths)
{
    EXPECT_EQ(sidebar.minimumWidth(), 220);
    EXPECT_EQ(sidebar.sizeHint().width(), 240);
    EXPECT_EQ(sidebar.maximumWidth(), 300);
}

TEST_F(SidebarViewTest, showsEveryRowInTheSmallestWindow)
{
    sidebar.resize(240, 620 - 28); // below the menu bar
    sidebar.show();
    const QRect last = sidebar.list()->visualRect(sidebar.list()->model()->index(16, 0));
    EXPECT_LE(last.bottom(), sidebar.list()->viewport()->height());
}

} // namespace keelbright

#include "Keelbright/widgets/rows/AccessibleRows.h"

#include "tests/support/Printing.h"
#include "tests/widgets/rows/RowListFixture.h"

#include <QAccessible>
#include <QApplication>
#include <QSignalSpy>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

/// Rows whose second one is half ticked, after a header.
class GroupedRows : public SampleRows
{
public:
    GroupedRows()
        : SampleRows({u"#Caches"_s, u"Editor"_s, u"Music"_s})
    {}

    [[nodiscard]] ListRow rowAt(int row) const override
    {
        ListRow shown = SampleRows::rowAt(row);
        if (row == 2)
            shown.markState = Qt::PartiallyChecked;
        return shown;
    }
};

/// The rows of the list as a screen reader finds them.
class AccessibleRowsTest : public RowListViewTest
{
protected:
    [[nodiscard]] QAccessibleInterface* list() { return QAccessible::queryAccessibleInterface(&view); }

    [[nodiscard]] QAccessibleInterface* row(int index) { return list()->child(index); }

    void act(int index, const QString& action) { row(index)->actionInterface()->doAction(action); }

    using Action = QAccessibleActionInterface;
};

} // namespace

TEST_F(AccessibleRowsTest, aRowThatCanBeTickedSaysSo)
{
    model.tick(1);
    EXPECT_TRUE(row(0)->state().checkable);
    EXPECT_FALSE(row(0)->state().checked);
    EXPECT_TRUE(row(1)->state().checked);
    EXPECT_FALSE(row(1)->state().checkStateMixed);
    EXPECT_EQ(row(0)->role(), QAccessible::ListItem);
}

TEST_F(AccessibleRowsTest, aHalfTickedRowIsMixedAndAHeaderIsAHeading)
{
    GroupedRows grouped;
    RowListView groups(RowListView::Look::panel, u"Groups"_s);
    groups.setRowModel(&grouped);
    QAccessibleInterface* rows = QAccessible::queryAccessibleInterface(&groups);
    ASSERT_EQ(rows->childCount(), 3);
    EXPECT_EQ(rows->child(0)->role(), QAccessible::Heading);
    EXPECT_EQ(rows->child(0)->text(QAccessible::Name), u"Caches"_s);
    EXPECT_FALSE(rows->child(0)->state().selectable);
    EXPECT_TRUE(rows->child(0)->actionInterface()->actionNames().isEmpty());
    EXPECT_TRUE(rows->child(2)->state().checkStateMixed);
    EXPECT_FALSE(rows->child(2)->state().checked);
}

TEST_F(AccessibleRowsTest, theFirstActionTicks)
{
    show();
    const QSignalSpy marks(&view, &RowListView::markPressed);
    const QStringList actions = row(1)->actionInterface()->actionNames();
    EXPECT_EQ(actions,
              (QStringList{Action::toggleAction(), Action::pressAction(), Action::setFocusAction()}));
    act(1, actions.first());
    ASSERT_EQ(marks.count(), 1);
    EXPECT_EQ(marks.first().first().toInt(), 1);
    EXPECT_NE(view.currentRow(), 1);
}

TEST_F(AccessibleRowsTest, aPressDoesWhatAClickDoesAndBringsTheButtonsIntoTheTree)
{
    show();
    view.setCurrentRow(-1);
    const QSignalSpy chosen(&view, &RowListView::currentRowChanged);
    const QSignalSpy opened(&view, &RowListView::opened);
    EXPECT_TRUE(shownButtons().isEmpty());
    act(2, Action::pressAction());
    EXPECT_EQ(view.currentRow(), 2);
    EXPECT_TRUE(row(2)->state().selected);
    ASSERT_EQ(chosen.count(), 1);
    ASSERT_EQ(opened.count(), 1);
    EXPECT_EQ(opened.first().first().toInt(), 2);
    EXPECT_EQ(shownButtons().size(), 2);
}

TEST_F(AccessibleRowsTest, aRowCanTakeTheFocusWithoutBeingOpened)
{
    show();
    const QSignalSpy opened(&view, &RowListView::opened);
    act(1, Action::setFocusAction());
    EXPECT_TRUE(view.hasFocus());
    EXPECT_TRUE(row(1)->state().focused);
    EXPECT_EQ(list()->focusChild(), row(1));
    EXPECT_EQ(opened.count(), 0);
    EXPECT_EQ(shownButtons().size(), 2);
}

TEST_F(AccessibleRowsTest, aRowKnowsItsPlaceAndItsNumber)
{
    show();
    EXPECT_EQ(list()->indexOfChild(row(2)), 2);
    const QRect place = row(2)->rect();
    EXPECT_EQ(list()->childAt(place.center().x(), place.center().y()), row(2));
    EXPECT_EQ(list()->childAt(place.center().x(), place.bottom() + 200), nullptr);
    EXPECT_EQ(row(2)->parent(), list());
    EXPECT_FALSE(row(2)->state().invisible);
    view.hide();
    EXPECT_TRUE(row(2)->state().invisible);
}

TEST_F(AccessibleRowsTest, aRowThatIsGoneIsInvalid)
{
    QAccessibleInterface* before = row(2);
    model.setTitles({u"Letters"_s});
    EXPECT_FALSE(before->isValid());
    EXPECT_TRUE(before->state().invalid);
    EXPECT_EQ(before->text(QAccessible::Name), QString());
    EXPECT_TRUE(before->actionInterface()->actionNames().isEmpty());
    EXPECT_EQ(list()->childCount(), 1);
    EXPECT_EQ(row(0)->text(QAccessible::Name), u"Letters, /Users/mira/Letters, 0 MB"_s);
    EXPECT_EQ(row(1), nullptr);
}

} // namespace keelbright::testing

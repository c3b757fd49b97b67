// The controls that choose one of several: segments, menus and the search field.

#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/MenuButton.h"
#include "Keelbright/widgets/SearchField.h"
#include "Keelbright/widgets/SegmentedControl.h"
#include "Keelbright/widgets/SymbolLabel.h"
#include "tests/support/Accessible.h"
#include "tests/support/Printing.h"
#include "tests/support/ThemeGuard.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <algorithm>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

void showActive(QWidget& widget)
{
    widget.show();
    widget.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&widget));
}

QList<int> numbers(const QSignalSpy& spy)
{
    QList<int> found;
    for (const QList<QVariant>& call : spy)
        found.append(call.first().toInt());
    return found;
}

} // namespace

class SegmentedControlTest : public ::testing::Test
{
protected:
    [[nodiscard]] qsizetype checkedSegment() const
    {
        const auto checked = std::ranges::find_if(segments, &QRadioButton::isChecked);
        return checked - segments.begin();
    }

    ThemeGuard theme;
    SegmentedControl control{u"View"_s, {u"List"_s, u"Treemap"_s, u"Largest Files"_s}};
    QList<QRadioButton*> segments = control.findChildren<QRadioButton*>();
};

TEST_F(SegmentedControlTest, isRadioButtonsToAScreenReader)
{
    ASSERT_EQ(segments.size(), 3);
    EXPECT_EQ(accessibleRole(segments.at(1)), QAccessible::RadioButton);
    EXPECT_EQ(accessibleName(segments.at(1)), u"Treemap"_s);
    EXPECT_EQ(accessibleName(&control), u"View"_s);
    EXPECT_EQ(checkedSegment(), 0);
}

TEST_F(SegmentedControlTest, aClickReportsTheChoiceEvenIfItIsTheSame)
{
    showActive(control);
    const QSignalSpy chosen(&control, &SegmentedControl::chosen);
    QTest::mouseClick(segments.at(2), Qt::LeftButton);
    QTest::mouseClick(segments.at(2), Qt::LeftButton);
    EXPECT_EQ(numbers(chosen), (QList{2, 2}));
    EXPECT_EQ(checkedSegment(), 2);
}

TEST_F(SegmentedControlTest, aScreenReaderChooses)
{
    const QSignalSpy chosen(&control, &SegmentedControl::chosen);
    QAccessibleInterface* segment = QAccessible::queryAccessibleInterface(segments.at(1));
    segment->actionInterface()->doAction(segment->actionInterface()->actionNames().first());
    EXPECT_EQ(numbers(chosen), (QList{1}));
    EXPECT_EQ(checkedSegment(), 1);
}

TEST_F(SegmentedControlTest, arrowsChoose)
{
    showActive(control);
    const QSignalSpy chosen(&control, &SegmentedControl::chosen);
    segments.at(0)->setFocus(Qt::TabFocusReason);
    QTest::keyClick(segments.at(0), Qt::Key_Right);
    EXPECT_EQ(numbers(chosen), (QList{1}));
    EXPECT_EQ(checkedSegment(), 1);
}

TEST_F(SegmentedControlTest, aChoiceOfTheProgramIsNotReported)
{
    const QSignalSpy chosen(&control, &SegmentedControl::chosen);
    control.setCurrentIndex(2);
    EXPECT_TRUE(chosen.isEmpty());
    EXPECT_EQ(checkedSegment(), 2);
}

TEST(MenuButtonTest, marksTheChoiceInItsMenu)
{
    const ThemeGuard theme;
    MenuButton button(Button::Kind::icon, u"Sort apps"_s, u"arrow.up.arrow.down"_s,
                      {{u"Name"_s}, {u"Size"_s}});
    const QSignalSpy chosen(&button, &MenuButton::chosen);
    const QList<QAction*> actions = button.choiceMenu()->actions();
    ASSERT_EQ(actions.size(), 2);
    EXPECT_TRUE(actions.at(0)->isChecked());
    actions.at(1)->trigger();
    EXPECT_EQ(numbers(chosen), (QList{1}));
    EXPECT_TRUE(actions.at(1)->isChecked());
    EXPECT_FALSE(actions.at(0)->isChecked());
    button.setCurrentIndex(0);
    EXPECT_EQ(chosen.size(), 1);
    EXPECT_TRUE(actions.at(0)->isChecked());
    EXPECT_EQ(accessibleName(&button), u"Sort apps"_s);
}

TEST(MenuButtonTest, aPressOpensTheMenuAndReturnsAtOnce)
{
    const ThemeGuard theme;
    MenuButton button(Button::Kind::icon, u"Sort apps"_s, u"arrow.up.arrow.down"_s,
                      {{u"Name"_s}, {u"Size"_s}});
    showActive(button);
    button.click();
    EXPECT_TRUE(button.choiceMenu()->isVisible());
    button.choiceMenu()->close();
}

TEST(MenuButtonTest, showsItsChoiceAsTheCaption)
{
    const ThemeGuard theme;
    MenuButton button(Button::Kind::bordered, u"Filter"_s, {}, {{u"All"_s}, {u"Junk & more"_s, {}, true}});
    button.setShowsChoice(u"Filter"_s);
    EXPECT_EQ(button.caption(), u"All"_s);
    button.setCurrentIndex(1);
    EXPECT_EQ(button.caption(), u"Junk & more"_s);
    EXPECT_EQ(accessibleName(&button), u"Filter"_s);
    EXPECT_EQ(button.accessibleDescription(), u"Junk & more"_s);
    EXPECT_TRUE(button.choiceMenu()->actions().at(1)->isSeparator());
}

TEST(SearchFieldTest, itsLensAndItsCrossHaveNames)
{
    SearchField field(u"Search apps"_s);
    field.show();
    EXPECT_EQ(field.findChild<SymbolLabel*>()->accessibleName(), u"Search"_s);
    auto* cross = field.findChild<Button*>();
    EXPECT_EQ(cross->accessibleName(), u"Clear search"_s);
    EXPECT_FALSE(cross->isVisible());
    field.setText(u"Sketch"_s);
    EXPECT_TRUE(cross->isVisible());
    EXPECT_TRUE(field.rect().contains(cross->geometry()));
}

TEST(SearchFieldTest, tabReachesItsCrossWhichClearsIt)
{
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    auto* field = new SearchField(u"Search apps"_s);
    auto* next = new QLineEdit;
    layout->addWidget(field);
    layout->addWidget(next);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    field->setFocus();
    QTest::keyClicks(field, u"Sketch"_s);
    QTest::keyClick(field, Qt::Key_Tab);
    ASSERT_EQ(QApplication::focusWidget(), field->findChild<Button*>());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    EXPECT_EQ(field->text(), QString());
    EXPECT_EQ(QApplication::focusWidget(), field);
    QTest::keyClick(field, Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), next);
}

TEST(SearchFieldTest, isReachedByControlAndFAndClearedByEscape)
{
    const ThemeGuard theme;
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    auto* other = new Button(Button::Kind::bordered, u"Elsewhere"_s);
    auto* field = new SearchField(u"Search apps"_s);
    layout->addWidget(other);
    layout->addWidget(field);
    showActive(window);
    other->setFocus();
    QTest::keyClick(other, Qt::Key_F, Qt::ControlModifier);
    ASSERT_EQ(QApplication::focusWidget(), field);
    QTest::keyClicks(field, u"harbour"_s);
    EXPECT_EQ(field->text(), u"harbour"_s);
    QTest::keyClick(field, Qt::Key_Escape);
    EXPECT_EQ(field->text(), QString());
    EXPECT_EQ(accessibleName(field), u"Search apps"_s);
    EXPECT_EQ(field->placeholderText(), u"Search apps"_s);
}

} // namespace keelbright::testing

#include "Keelbright/widgets/ToggleSwitch.h"

#include "tests/support/Accessible.h"
#include "tests/support/AnimationClock.h"
#include "tests/support/Printing.h"
#include "tests/support/ThemeGuard.h"

#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;
using testing::ThemeGuard;

} // namespace

TEST(ToggleSwitch, isACheckBoxWithANameToAScreenReader)
{
    ToggleSwitch toggle(u"Desktop"_s);
    EXPECT_EQ(testing::accessibleName(&toggle), u"Desktop"_s);
    EXPECT_EQ(testing::accessibleRole(&toggle), QAccessible::CheckBox);
    EXPECT_FALSE(QAccessible::queryAccessibleInterface(&toggle)->state().checked);
    toggle.setChecked(true);
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(&toggle)->state().checked);
}

TEST(ToggleSwitch, togglesBySpaceEnterAndClickAnywhereOnIt)
{
    ToggleSwitch toggle(u"Desktop"_s);
    toggle.resize(toggle.sizeHint());
    const QSignalSpy toggles(&toggle, &QCheckBox::toggled);
    QTest::keyClick(&toggle, Qt::Key_Space);
    EXPECT_TRUE(toggle.isChecked());
    QTest::keyClick(&toggle, Qt::Key_Return);
    EXPECT_FALSE(toggle.isChecked());
    QTest::mouseClick(&toggle, Qt::LeftButton, Qt::NoModifier,
                      QPoint(toggle.width() - 2, toggle.height() - 2));
    EXPECT_TRUE(toggle.isChecked());
    EXPECT_EQ(toggles.count(), 3);
}

TEST(ToggleSwitch, slidesForAFifthOfASecond)
{
    const ThemeGuard guard;
    testing::AnimationClock clock;
    ToggleSwitch toggle(u"Desktop"_s);
    toggle.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&toggle));
    toggle.setChecked(true);
    EXPECT_EQ(toggle.position(), 0.0);
    clock.advance(100);
    EXPECT_EQ(toggle.position(), 0.5);
    clock.advance(100);
    EXPECT_EQ(toggle.position(), 1.0);
}

TEST(ToggleSwitch, changesAtOnceIfMotionIsReduced)
{
    const ThemeGuard guard(ColorScheme::light, true);
    ToggleSwitch toggle(u"Desktop"_s);
    toggle.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&toggle));
    toggle.setChecked(true);
    EXPECT_EQ(toggle.position(), 1.0);
}

TEST(ToggleSwitch, changesAtOnceWhileItIsHidden)
{
    ToggleSwitch toggle(u"Desktop"_s);
    toggle.setChecked(true);
    EXPECT_EQ(toggle.position(), 1.0);
    toggle.setChecked(false);
    EXPECT_EQ(toggle.position(), 0.0);
}

} // namespace keelbright

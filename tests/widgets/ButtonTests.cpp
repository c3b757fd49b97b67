#include "Keelbright/widgets/Button.h"

#include "tests/support/Accessible.h"
#include "tests/support/Printing.h"
#include "tests/support/ThemeGuard.h"

#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;
using testing::accessibleName;
using testing::accessibleRole;
using testing::holdsColor;
using testing::pictureOf;
using testing::ThemeGuard;

void showWithFocus(Button& button, Qt::FocusReason reason)
{
    button.show();
    button.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&button));
    button.clearFocus();
    button.setFocus(reason);
}

} // namespace

TEST(Button, isPressedByEnterAndSpace)
{
    Button button(Button::Kind::primary, u"Continue"_s);
    const QSignalSpy clicks(&button, &QPushButton::clicked);
    QTest::keyClick(&button, Qt::Key_Return);
    QTest::keyClick(&button, Qt::Key_Enter);
    QTest::keyClick(&button, Qt::Key_Space);
    EXPECT_EQ(clicks.count(), 3);
}

TEST(Button, drawsItsSymbolAtTheRequestedOpacity)
{
    const ThemeGuard guard;
    constexpr double opacity = 0.8;
    Button button(Button::Kind::plainIcon, u"Remove"_s, u"minus.circle.fill"_s);
    const Theme& theme = Theme::instance();
    button.setHue(Role::red);
    EXPECT_TRUE(holdsColor(pictureOf(button), theme.color(Role::red)));
    button.setHue(Role::red, opacity);
    EXPECT_FALSE(holdsColor(pictureOf(button), theme.color(Role::red)));
}

TEST(Button, hasItsAccessibleNameAndRole)
{
    Button button(Button::Kind::bordered, u"Change"_s);
    EXPECT_EQ(accessibleName(&button), u"Change"_s);
    EXPECT_EQ(accessibleRole(&button), QAccessible::Button);
}

TEST(Button, withOnlyASymbolIsNamedAfterItsToolTip)
{
    for (const Button::Kind kind : {Button::Kind::icon, Button::Kind::plainIcon}) {
        Button button(kind, u"Recalculate health score"_s, u"arrow.clockwise"_s);
        EXPECT_EQ(button.toolTip(), u"Recalculate health score"_s);
        EXPECT_EQ(accessibleName(&button), u"Recalculate health score"_s);
        EXPECT_EQ(button.text(), QString());
        EXPECT_EQ(button.sizeHint(), QSize(30, 30));
    }
}

TEST(Button, showsAnAmpersandAsAPlainCharacter)
{
    Button button(Button::Kind::primary, u"Confirm & Start"_s);
    EXPECT_EQ(button.caption(), u"Confirm & Start"_s);
    EXPECT_EQ(accessibleName(&button), u"Confirm & Start"_s);
    EXPECT_TRUE(button.shortcut().isEmpty());
}

TEST(Button, isThirtyHighAndTwentyFourWithinARow)
{
    Button button(Button::Kind::bordered, u"Change"_s);
    EXPECT_EQ(button.sizeHint().height(), 30);
    button.setCompact(true);
    EXPECT_EQ(button.sizeHint().height(), 24);
}

TEST(Button, showsTheFocusAfterTheKeyboardAndNotAfterAClick)
{
    const ThemeGuard guard;
    const QColor ring = Theme::instance().color(Role::accent);
    Button button(Button::Kind::bordered, u"Change"_s);
    showWithFocus(button, Qt::TabFocusReason);
    EXPECT_TRUE(holdsColor(pictureOf(button), ring));
    button.clearFocus();
    EXPECT_FALSE(holdsColor(pictureOf(button), ring));
    button.setFocus(Qt::MouseFocusReason);
    EXPECT_FALSE(holdsColor(pictureOf(button), ring));
    QTest::keyClick(&button, Qt::Key_Space);
    EXPECT_TRUE(holdsColor(pictureOf(button), ring));
}

TEST(Button, ofTheFilledKindIsGreyWhileDisabled)
{
    const ThemeGuard guard;
    Button button(Button::Kind::primary, u"Confirm & Start"_s);
    button.resize(button.sizeHint());
    EXPECT_TRUE(holdsColor(pictureOf(button), Theme::instance().color(Role::accentFill)));
    button.setEnabled(false);
    EXPECT_FALSE(holdsColor(pictureOf(button), Theme::instance().color(Role::accentFill)));
}

TEST(Button, aChangeOfTheSchemeRecoloursIt)
{
    const ThemeGuard guard;
    Button button(Button::Kind::primary, u"Backup Now"_s);
    button.resize(button.sizeHint());
    EXPECT_TRUE(holdsColor(pictureOf(button), QColor(0x0A, 0x6C, 0xFF)));
    Theme::instance().setScheme(ColorScheme::dark);
    EXPECT_TRUE(holdsColor(pictureOf(button), QColor(0x24, 0x72, 0xE8)));
}

TEST(Button, staysWithinItsMaximumWidthWithALongName)
{
    Button button(Button::Kind::bordered, QString(200, u'm'), u"checkmark.circle.fill"_s);
    button.setMaximumWidth(300);
    button.adjustSize();
    EXPECT_EQ(button.width(), 300);
    EXPECT_EQ(accessibleName(&button), QString(200, u'm'));
}

} // namespace keelbright

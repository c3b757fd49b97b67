#include "Keelbright/widgets/PanelNote.h"

#include "Keelbright/widgets/Progress.h"
#include "Keelbright/widgets/theme/Roles.h"
#include "tests/support/Accessible.h"
#include "tests/support/Printing.h"
#include "tests/support/ThemeGuard.h"

#include <QLabel>
#include <QTest>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

QStringList labelsOf(const QWidget& note)
{
    QStringList texts;
    for (const auto* label : note.findChildren<QLabel*>())
        texts.append(label->text());
    return texts;
}

} // namespace

TEST(PanelNoteTest, isReadAsItsTitleAndItsDetail)
{
    const ThemeGuard theme;
    PanelNote note(u"checkmark.circle.fill"_s, Role::green, u"All clean!"_s, u"No junk found."_s);
    EXPECT_EQ(accessibleName(&note), u"All clean!"_s);
    EXPECT_EQ(note.accessibleDescription(), u"No junk found."_s);
    EXPECT_TRUE(labelsOf(note).contains(u"All clean!"_s));
    EXPECT_TRUE(labelsOf(note).contains(u"No junk found."_s));
}

TEST(PanelNoteTest, anEmptyDetailTakesNoRoom)
{
    const ThemeGuard theme;
    const PanelNote with(u"arrow.up.left"_s, Role::secondaryText, u"Pick a folder above"_s, u"Then look."_s);
    const PanelNote without(u"arrow.up.left"_s, Role::secondaryText, u"Pick a folder above"_s);
    EXPECT_LT(without.sizeHint().height(), with.sizeHint().height());
}

TEST(BusyStateTest, showsItsTitleWithATurningSpinner)
{
    const ThemeGuard theme;
    BusyState state(u"Scanning your Mac…"_s, u"Checking junk files."_s);
    state.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&state));
    EXPECT_TRUE(state.findChild<Spinner*>()->isTurning());
    EXPECT_EQ(accessibleName(state.findChild<Spinner*>()), u"Scanning your Mac…"_s);
    EXPECT_EQ(labelsOf(state), (QStringList{u"Scanning your Mac…"_s, u"Checking junk files."_s}));
}

} // namespace keelbright::testing

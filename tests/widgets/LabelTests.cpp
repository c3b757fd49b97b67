#include "Keelbright/widgets/ElidedLabel.h"
#include "Keelbright/widgets/NumberLabel.h"
#include "tests/support/Accessible.h"
#include "tests/support/Printing.h"
#include "tests/support/ThemeGuard.h"

#include <gtest/gtest.h>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;
using testing::accessibleName;
using testing::accessibleRole;

const QString longPath = u"/Users/mira/Documents/Letters of many years/2019/Insurance"_s;

} // namespace

TEST(Label, showsMarkupAsPlainText)
{
    const Label label(u"<b>not bold</b>"_s, FontRole::body, Role::primaryText);
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
}

TEST(Label, wrapsWithinItsOwnWidthOnly)
{
    const std::unique_ptr<Label> label(
        makeWrappingLabel(longPath + u' ' + longPath, FontRole::body, Role::primaryText));
    label->setFixedWidth(200);
    EXPECT_EQ(label->heightForWidth(2000), label->heightForWidth(200));
}

TEST(ElidedLabel, cutsAPathInTheMiddleAndANameAtTheEnd)
{
    ElidedLabel path(longPath, FontRole::secondary, Role::secondaryText, Qt::ElideMiddle);
    path.resize(180, 20);
    EXPECT_TRUE(path.shownText().startsWith(u"/Users"_s));
    EXPECT_TRUE(path.shownText().endsWith(u"nce"_s));
    EXPECT_TRUE(path.shownText().contains(u"…"_s));
    ElidedLabel name(longPath, FontRole::secondary, Role::secondaryText);
    name.resize(180, 20);
    EXPECT_TRUE(name.shownText().endsWith(u"…"_s));
}

TEST(ElidedLabel, hasTheWholeTextAsToolTipExactlyWhileItIsCut)
{
    ElidedLabel label(longPath, FontRole::secondary, Role::secondaryText, Qt::ElideMiddle);
    label.resize(120, 20);
    label.grab();
    EXPECT_EQ(label.toolTip(), longPath);
    label.resize(label.sizeHint());
    label.grab();
    EXPECT_EQ(label.shownText(), longPath);
    EXPECT_EQ(label.toolTip(), QString());
    label.setFullText(longPath + longPath);
    EXPECT_EQ(label.toolTip(), longPath + longPath);
}

TEST(ElidedLabel, givesAScreenReaderTheWholeText)
{
    ElidedLabel label(longPath, FontRole::secondary, Role::secondaryText, Qt::ElideMiddle);
    label.resize(60, 20);
    EXPECT_EQ(accessibleName(&label), longPath);
    EXPECT_EQ(accessibleRole(&label), QAccessible::StaticText);
}

TEST(ElidedLabel, shrinksToAFewLettersAndNeverAsksForMoreThanItsText)
{
    const ElidedLabel label(longPath, FontRole::secondary, Role::secondaryText);
    EXPECT_LT(label.minimumSizeHint().width(), 80);
    const ElidedLabel brief(u"a"_s, FontRole::secondary, Role::secondaryText);
    EXPECT_LE(brief.minimumSizeHint().width(), brief.sizeHint().width());
}

TEST(ElidedLabel, showsALineBreakInANameAsASign)
{
    const ElidedLabel label(u"two\nlines"_s, FontRole::body, Role::primaryText);
    EXPECT_EQ(label.text(), u"two␊lines"_s);
}

TEST(TabularDigits, giveEveryDigitTheSameWidth)
{
    const QFont font = Theme::instance().font(FontRole::body);
    EXPECT_DOUBLE_EQ(TabularDigits::width(font, u"1111"_s), TabularDigits::width(font, u"8888"_s));
    EXPECT_DOUBLE_EQ(TabularDigits::width(font, u"71.1 GB"_s), TabularDigits::width(font, u"80.4 GB"_s));
    EXPECT_EQ(TabularDigits::width(font, QString()), 0);
}

TEST(TabularDigits, areProportionalInATitle)
{
    for (const FontRole role : {FontRole::number, FontRole::largeNumber}) {
        const QFont font = Theme::instance().font(role);
        EXPECT_DOUBLE_EQ(TabularDigits::width(font, u"71.1 GB"_s),
                         QFontMetricsF(font).horizontalAdvance(u"71.1 GB"_s));
    }
}

TEST(NumberLabel, keepsItsWidthWhileItCounts)
{
    NumberLabel label(u"1111 copied"_s, FontRole::secondary, Role::secondaryText);
    const QSize before = label.sizeHint();
    label.setText(u"2086 copied"_s);
    EXPECT_EQ(label.sizeHint(), before);
    EXPECT_EQ(label.minimumSizeHint(), before);
    EXPECT_EQ(accessibleName(&label), u"2086 copied"_s);
}

} // namespace keelbright

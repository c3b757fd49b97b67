#include "Keelbright/widgets/DisplayText.h"

#include "tests/support/Printing.h"

#include <gtest/gtest.h>

namespace keelbright {

using namespace Qt::StringLiterals;

TEST(DisplayText, doesNotChangeOrdinaryNames)
{
    EXPECT_EQ(displayText(u"Café & Crème – 日本.txt"_s), u"Café & Crème – 日本.txt"_s);
}

TEST(DisplayText, showsLineBreaksAndControlCharactersAsSigns)
{
    EXPECT_EQ(displayText(u"two\nlines\tand\x7f"_s), u"two␊lines␉and␡"_s);
    EXPECT_EQ(displayText(u"a\x2028z"_s), u"a\xFFFDz"_s);
}

TEST(DisplayText, dropsMarksThatTurnTheReadingDirection)
{
    EXPECT_EQ(displayText(u"photo\x202Egpj.exe"_s), u"photogpj.exe"_s);
}

TEST(ToolTipText, readsNoNameAsMarkup)
{
    EXPECT_EQ(toolTipText(u"<b>bold</b>.txt"_s), u"<p>&lt;b&gt;bold&lt;/b&gt;.txt</p>"_s);
    EXPECT_EQ(toolTipText(u"plain.txt"_s), u"plain.txt"_s);
}

} // namespace keelbright

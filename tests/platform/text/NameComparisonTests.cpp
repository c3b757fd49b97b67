#include "KeelbrightCore/platform/text/NameComparison.h"

#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <QStringList>
#include <algorithm>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

class NameComparisonTests : public ::testing::Test
{
protected:
    [[nodiscard]] static QStringList sorted(QStringList names)
    {
        const NameComparison comparison;
        std::ranges::stable_sort(names, {}, [&](const QString& name) { return comparison.sortKey(name); });
        return names;
    }

    [[nodiscard]] static bool contains(const QString& text, const QString& part)
    {
        const NameComparison comparison;
        return comparison.searchForm(text).contains(comparison.searchForm(part));
    }

    TestMac mac;
};

} // namespace

TEST_F(NameComparisonTests, letterCaseDoesNotCount)
{
    EXPECT_EQ(sorted({u"pencil"_s, u"Ink"_s, u"INK"_s, u"atlas"_s, u"Zebra"_s, u"ink"_s}),
              (QStringList{u"atlas"_s, u"Ink"_s, u"INK"_s, u"ink"_s, u"pencil"_s, u"Zebra"_s}));
}

TEST_F(NameComparisonTests, accentsCountAfterTheLetters)
{
    EXPECT_EQ(sorted({u"Étude"_s, u"Zebra"_s, u"Etude B"_s, u"Etude"_s, u"Fable"_s}),
              (QStringList{u"Etude"_s, u"Étude"_s, u"Etude B"_s, u"Fable"_s, u"Zebra"_s}));
}

TEST_F(NameComparisonTests, theOrderIsThatOfTheLocale)
{
    const QStringList names{u"Zon"_s, u"Äpple"_s, u"Apelsin"_s};
    mac.setLocale(QLocale(QLocale::German));
    EXPECT_EQ(sorted(names), (QStringList{u"Apelsin"_s, u"Äpple"_s, u"Zon"_s}));
    mac.setLocale(QLocale(QLocale::Swedish));
    EXPECT_EQ(sorted(names), (QStringList{u"Apelsin"_s, u"Zon"_s, u"Äpple"_s}));
    mac.setLocale(QLocale::c());
    EXPECT_EQ(sorted(names), (QStringList{u"Apelsin"_s, u"Äpple"_s, u"Zon"_s}));
}

TEST_F(NameComparisonTests, aNameOfAnyLengthHasItsKey)
{
    const QString start(10'000, u'x');
    EXPECT_EQ(sorted({start + u'b', start + u"ac"_s, start + u'A', QString()}),
              (QStringList{QString(), start + u'A', start + u"ac"_s, start + u'b'}));
}

TEST_F(NameComparisonTests, aPartIsFoundInAnyLetterCase)
{
    EXPECT_TRUE(contains(u"Photo Editor"_s, u"EDIT"_s));
    EXPECT_TRUE(contains(u"STRASSE"_s, u"straße"_s));
    EXPECT_TRUE(contains(u"Ωmega"_s, u"ω"_s));
    EXPECT_FALSE(contains(u"Photo Editor"_s, u"photoe"_s));
    EXPECT_TRUE(contains(u"Photo"_s, u""_s));
}

TEST_F(NameComparisonTests, anAccentIsPartOfItsLetterHoweverItIsWritten)
{
    const QString composed = u"Caf\u00C9"_s;
    const QString decomposed = u"Cafe\u0301"_s;
    EXPECT_TRUE(contains(composed, decomposed));
    EXPECT_TRUE(contains(decomposed, composed));
    EXPECT_FALSE(contains(decomposed, u"cafe"_s));
    EXPECT_EQ(NameComparison().sortKey(composed), NameComparison().sortKey(decomposed));
}

TEST_F(NameComparisonTests, aDottedIIsNoCapitalOfAPlainOneInTurkish)
{
    mac.setLocale(QLocale(QLocale::English));
    EXPECT_TRUE(contains(u"INK"_s, u"ink"_s));
    mac.setLocale(QLocale(QLocale::Turkish));
    EXPECT_FALSE(contains(u"INK"_s, u"ink"_s));
    EXPECT_TRUE(contains(u"\u0130NK"_s, u"ink"_s));
    EXPECT_TRUE(contains(u"INK"_s, u"\u0131nk"_s));
}

TEST_F(NameComparisonTests, brokenTextIsATextLikeAnyOther)
{
    const QString half(1, QChar(0xD800));
    EXPECT_TRUE(contains(u"Ink"_s + half, u"INK"_s));
    EXPECT_FALSE(NameComparison().sortKey(half).isEmpty());
}

} // namespace keelbright::testing

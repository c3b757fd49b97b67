#include "Keelbright/screens/apps/AppUsageSection.h"

#include "Keelbright/widgets/SymbolLabel.h"
#include "tests/screens/shared/ScreenTestCase.h"

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

class AppUsageSectionTests : public ScreenTestCase
{
protected:
    [[nodiscard]] AppInfo app(const AppFacts& facts) const { return AppInfo(facts, mac.clock()()); }

    [[nodiscard]] AppFacts usedLongAgo() const
    {
        const QDateTime now = mac.clock()();
        return {.name = u"Ink"_s,
                .lastUsedDate = now.addDays(-200),
                .useCount = 640,
                .dateAdded = now.addDays(-900)};
    }

    /// Every symbol with its colour, from the top.
    [[nodiscard]] static QList<std::pair<QString, Role>> symbolsIn(const QWidget& section)
    {
        QList<std::pair<QString, Role>> symbols;
        for (const auto* symbol : section.findChildren<SymbolLabel*>())
            symbols.append({symbol->key(), symbol->colorRole()});
        return symbols;
    }
};

} // namespace

TEST_F(AppUsageSectionTests, showsThreeNumbersAndTheVerdict)
{
    const AppUsageSection section(app(usedLongAgo()), mac.clock()());
    EXPECT_EQ(textsIn(section),
              (QStringList{u"Usage"_s, u"6 months ago"_s, u"Last Opened"_s, u"640"_s, u"Times Opened"_s,
                           u"Sep 14, 2023"_s, u"Installed"_s,
                           u"Used heavily before (640 times, ~21/mo). Dormant for 6 months."_s}));
}

TEST_F(AppUsageSectionTests, eachNumberHasItsSymbolInItsColourAndTheVerdictThatOfItsCategory)
{
    const AppUsageSection section(app(usedLongAgo()), mac.clock()());
    const auto symbols = symbolsIn(section);
    EXPECT_EQ(symbols.first().first, u"chart.bar.fill"_s);
    EXPECT_EQ(symbols.mid(1),
              (QList<std::pair<QString, Role>>{{u"clock.fill"_s, Role::accent},
                                               {u"arrow.clockwise"_s, Role::purple},
                                               {u"calendar"_s, Role::green},
                                               {u"clock.badge.questionmark"_s, Role::accent}}));
}

TEST_F(AppUsageSectionTests, anApplicationThatWasNeverOpenedSaysSo)
{
    const AppUsageSection section(app({.name = u"Ink"_s}), mac.clock()());
    const QStringList names = accessibleNames(section);
    EXPECT_TRUE(names.contains(u"Last Opened Never"_s));
    EXPECT_TRUE(names.contains(u"Times Opened Never"_s));
    EXPECT_TRUE(names.contains(u"Installed Unknown"_s));
    EXPECT_TRUE(textsIn(section).contains(u"Never opened."_s));
    EXPECT_EQ(symbolsIn(section).last(), (std::pair{u"trash.circle"_s, Role::red}));
}

TEST_F(AppUsageSectionTests, oneUseIsCounted)
{
    AppFacts facts = usedLongAgo();
    facts.useCount = 1;
    const AppUsageSection section(app(facts), mac.clock()());
    EXPECT_TRUE(accessibleNames(section).contains(u"Times Opened 1"_s));
}

} // namespace keelbright::testing

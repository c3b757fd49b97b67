#include "Keelbright/screens/apps/UsageLook.h"

#include "tests/support/Printing.h"

#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

TEST(UsageLookTests, eachVerdictHasALabelAColourAndAnIcon)
{
    struct Look
    {
        UsageCategory category;
        QString label;
        Role color;
        QString icon;
    };

    const QList<Look> looks{
        {UsageCategory::dailyDriver, u"Active"_s, Role::green, u"checkmark.circle.fill"_s},
        {UsageCategory::seasonal, u"Was Important"_s, Role::accent, u"clock.badge.questionmark"_s},
        {UsageCategory::occasional, u"Occasional"_s, Role::orange, u"exclamationmark.circle"_s},
        {UsageCategory::forgotten, u"Rarely Used"_s, Role::red, u"trash.circle"_s},
        {UsageCategory::new_, u"New"_s, Role::purple, u"sparkles"_s},
        {UsageCategory::unknown, u"Unknown"_s, Role::secondaryText, u"questionmark.circle"_s},
    };
    ASSERT_EQ(looks.size(), allUsageCategories().size());
    for (qsizetype i = 0; i < looks.size(); ++i) {
        const Look& expected = looks.at(i);
        EXPECT_EQ(allUsageCategories().at(i), expected.category);
        const UsageLook look = lookOf(expected.category);
        EXPECT_EQ(look.label, expected.label);
        EXPECT_EQ(look.color, expected.color) << expected.label.toStdString();
        EXPECT_EQ(look.icon, expected.icon);
    }
}

} // namespace keelbright::testing

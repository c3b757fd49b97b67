#include "KeelbrightCore/backup/RiskAlert.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

TEST(RiskAlert, keepsItsTextsAndTakesANewId)
{
    const RiskAlert first(u"Title"_s, u"Message"_s, RiskAlert::Severity::high);
    const RiskAlert second(u"Title"_s, u"Message"_s, RiskAlert::Severity::high);
    EXPECT_EQ(first.title, u"Title"_s);
    EXPECT_EQ(first.message, u"Message"_s);
    EXPECT_EQ(first.severity, RiskAlert::Severity::high);
    EXPECT_FALSE(first.id.isNull());
    EXPECT_NE(first.id, second.id);
}

TEST(RiskAlert, severitiesRise)
{
    EXPECT_LT(RiskAlert::Severity::low, RiskAlert::Severity::medium);
    EXPECT_LT(RiskAlert::Severity::medium, RiskAlert::Severity::high);
}

} // namespace keelbright::testing

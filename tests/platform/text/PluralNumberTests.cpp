#include "KeelbrightCore/platform/text/PluralNumber.h"

#include <gtest/gtest.h>

namespace keelbright {

TEST(PluralNumberTests, aCountIsItsOwnNumber)
{
    EXPECT_EQ(pluralNumber(0), 0);
    EXPECT_EQ(pluralNumber(1), 1);
    EXPECT_EQ(pluralNumber(2'147'483'647), 2'147'483'647);
}

TEST(PluralNumberTests, whatNoIntHoldsIsTheLargest)
{
    EXPECT_EQ(pluralNumber(2'147'483'648), 2'147'483'647);
    EXPECT_EQ(pluralNumber(std::numeric_limits<qint64>::max()), 2'147'483'647);
}

TEST(PluralNumberTests, aNegativeCountTakesTheFormOfItsSize)
{
    EXPECT_EQ(pluralNumber(-1), 1);
    EXPECT_EQ(pluralNumber(-3), 3);
    EXPECT_EQ(pluralNumber(std::numeric_limits<qint64>::min()), 2'147'483'647);
}

} // namespace keelbright

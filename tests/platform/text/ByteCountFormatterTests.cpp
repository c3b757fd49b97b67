#include "KeelbrightCore/platform/text/ByteCountFormatter.h"

#include <QLocale>
#include <gtest/gtest.h>
#include <limits>

namespace keelbright {

namespace {

class ByteCountFormatterTests : public ::testing::Test
{
public:
    ByteCountFormatterTests() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates)); }

    ~ByteCountFormatterTests() override { QLocale::setDefault(m_previous); }

protected:
    static std::string text(qint64 count) { return ByteCountFormatter::string(count).toStdString(); }

private:
    QLocale m_previous;
};

constexpr qint64 mega = 1'000'000;
constexpr qint64 giga = 1'000 * mega;
constexpr qint64 tera = 1'000 * giga;

} // namespace

TEST_F(ByteCountFormatterTests, zeroIsWrittenAsAWord)
{
    EXPECT_EQ(text(0), "Zero KB");
}

TEST_F(ByteCountFormatterTests, oneByteIsSingular)
{
    EXPECT_EQ(text(1), "1 byte");
}

TEST_F(ByteCountFormatterTests, countsBelowAThousandAreBytes)
{
    EXPECT_EQ(text(2), "2 bytes");
    EXPECT_EQ(text(512), "512 bytes");
    EXPECT_EQ(text(999), "999 bytes");
}

TEST_F(ByteCountFormatterTests, kilobytesAreWholeAndDecimal)
{
    EXPECT_EQ(text(1'000), "1 KB");
    EXPECT_EQ(text(1'024), "1 KB");
    EXPECT_EQ(text(1'499), "1 KB");
    EXPECT_EQ(text(1'500), "2 KB");
    EXPECT_EQ(text(999'499), "999 KB");
}

TEST_F(ByteCountFormatterTests, megabytesHaveUpToOneDecimal)
{
    EXPECT_EQ(text(mega), "1 MB");
    EXPECT_EQ(text(1'049'999), "1 MB");
    EXPECT_EQ(text(1'050'000), "1.1 MB");
    EXPECT_EQ(text(12'345'678), "12.3 MB");
    EXPECT_EQ(text(250 * mega), "250 MB");
}

TEST_F(ByteCountFormatterTests, gigabytesAndAboveHaveUpToTwoDecimals)
{
    EXPECT_EQ(text(giga), "1 GB");
    EXPECT_EQ(text(1'234'567'890), "1.23 GB");
    EXPECT_EQ(text(1'500 * mega), "1.5 GB");
    EXPECT_EQ(text(500 * giga), "500 GB");
    EXPECT_EQ(text(1'995 * giga), "2 TB");
    EXPECT_EQ(text(2'345 * tera), "2.35 PB");
}

TEST_F(ByteCountFormatterTests, aCountThatRoundsUpToAThousandGoesIntoTheNextUnit)
{
    EXPECT_EQ(text(999'500), "1 MB");
    EXPECT_EQ(text(999'949'999), "999.9 MB");
    EXPECT_EQ(text(999'950'000), "1 GB");
    EXPECT_EQ(text(999'994'999'999), "999.99 GB");
    EXPECT_EQ(text(999'995'000'000), "1 TB");
}

TEST_F(ByteCountFormatterTests, theLargestCountIsExact)
{
    EXPECT_EQ(text(std::numeric_limits<qint64>::max()), "9.22 EB");
}

TEST_F(ByteCountFormatterTests, negativeCountsCarryASign)
{
    EXPECT_EQ(text(-1), "-1 byte");
    EXPECT_EQ(text(-1'500'000), "-1.5 MB");
    EXPECT_EQ(text(std::numeric_limits<qint64>::min()), "-9.22 EB");
}

TEST_F(ByteCountFormatterTests, separatorsAndDigitsAreThoseOfTheDefaultLocale)
{
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(text(1'500'000), "1,5 MB");
    QLocale::setDefault(QLocale(QLocale::Arabic, QLocale::Egypt));
    EXPECT_EQ(text(1'500'000), "١٫٥ MB");
    EXPECT_EQ(text(512), "٥١٢ bytes");
}

} // namespace keelbright

#include "KeelbrightCore/platform/text/DateFormatter.h"

#include "KeelbrightCore/platform/text/UtcZone.h"
#include "tests/support/EnvironmentVariable.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <QTimeZone>
#include <gtest/gtest.h>
#include <thread>

namespace keelbright {

namespace {

using DateFormatter::Style;

class DateFormatterTests : public ::testing::Test
{
protected:
    static std::string text(const QDateTime& date, Style dateStyle, Style timeStyle)
    {
        return DateFormatter::string(date, dateStyle, timeStyle).toStdString();
    }

    static QDateTime utc(int year, int month, int day, int hour = 0, int minute = 0, int second = 0,
                         int millisecond = 0)
    {
        return {QDate(year, month, day), QTime(hour, minute, second, millisecond), utcZone};
    }

    static std::optional<QDateTime> parsed(const char* text)
    {
        return DateFormatter::fromIso8601(QString::fromLatin1(text));
    }

    static std::optional<QDateTime> matched(const char* text, const char* pattern)
    {
        return DateFormatter::fromPattern(QString::fromLatin1(text), QString::fromLatin1(pattern));
    }

    testing::TestMac m_mac; // American English, Berlin
};

constexpr auto wholeSeconds = "yyyy-MM-dd HH:mm:ss Z";
constexpr auto microseconds = "yyyy-MM-dd HH:mm:ss.SSSSSS Z";

} // namespace

// U+202F, a narrow space that does not break, stands before AM and PM in American English.
TEST_F(DateFormatterTests, theStylesAreThoseOfTheLocale)
{
    const QDateTime date = utc(2026, 3, 2, 13, 5, 7);
    EXPECT_EQ(text(date, Style::medium, Style::short_), "Mar 2, 2026, 2:05\u202FPM");
    EXPECT_EQ(text(date, Style::medium, Style::none), "Mar 2, 2026");
    EXPECT_EQ(text(date, Style::long_, Style::medium), "March 2, 2026 at 2:05:07\u202FPM");
    EXPECT_EQ(text(date, Style::short_, Style::none), "3/2/26");
    EXPECT_EQ(text(date, Style::none, Style::short_), "2:05\u202FPM");
}

TEST_F(DateFormatterTests, noStyleAndNoDateGiveNoText)
{
    EXPECT_EQ(text(utc(2026, 3, 2), Style::none, Style::none), "");
    EXPECT_EQ(text(QDateTime(), Style::medium, Style::short_), "");
}

TEST_F(DateFormatterTests, theDefaultLocaleDecidesAtEachCall)
{
    const QDateTime date = utc(2026, 3, 2, 13, 5, 7);
    m_mac.setLocale(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(text(date, Style::medium, Style::short_), "02.03.2026, 14:05");
    EXPECT_EQ(text(date, Style::long_, Style::medium), "2. März 2026 um 14:05:07");
    m_mac.setLocale(QLocale(QLocale::English, QLocale::UnitedKingdom));
    EXPECT_EQ(text(date, Style::medium, Style::short_), "2 Mar 2026, 14:05");
    m_mac.setLocale(QLocale(QLocale::Japanese, QLocale::Japan));
    EXPECT_EQ(text(date, Style::medium, Style::short_), "2026/03/02 14:05");
}

/// The user's settings as the desktop hands them to a program.
class UsersFormatsTests : public DateFormatterTests
{
protected:
    UsersFormatsTests()
    {
        m_all.unset();
        m_language.set("en_US.UTF-8");
        m_mac.setLocale(QLocale::system());
    }

    [[nodiscard]] std::string shown(const QByteArray& setting) const
    {
        m_time.set(setting);
        return text(utc(2026, 3, 2, 17, 5, 7), Style::medium, Style::short_);
    }

    testing::EnvironmentVariable m_all{"LC_ALL"};
    testing::EnvironmentVariable m_time{"LC_TIME"};
    testing::EnvironmentVariable m_language{"LANG"};
};

TEST_F(UsersFormatsTests, datesFollowTheSettingForDatesAndNotTheLanguage)
{
    EXPECT_EQ(shown("de_DE.UTF-8"), "02.03.2026, 18:05");
    EXPECT_EQ(shown("en_GB.UTF-8"), "2 Mar 2026, 18:05");
    EXPECT_EQ(shown("en_US.UTF-8"), "Mar 2, 2026, 6:05\u202FPM");
    EXPECT_EQ(shown("de_AT@euro"), "02.03.2026, 18:05");
    EXPECT_EQ(shown("ja_JP"), "2026/03/02 18:05");
}

TEST_F(UsersFormatsTests, datesFollowTheCalendarAndTheScriptOfTheSetting)
{
    EXPECT_EQ(shown("th_TH.UTF-8"), "2 มี.ค. 2569 18:05");
    EXPECT_EQ(shown("sr_RS.UTF-8@latin"), "2. 3. 2026. 18:05");
    EXPECT_EQ(shown("sr_RS.UTF-8"), "2. 3. 2026. 18:05");
    m_time.set("sr_RS.UTF-8@latin");
    EXPECT_EQ(text(utc(2026, 3, 2), Style::long_, Style::none), "2. mart 2026.");
    m_time.set("sr_RS.UTF-8");
    EXPECT_EQ(text(utc(2026, 3, 2), Style::long_, Style::none), "2. март 2026.");
}

TEST_F(UsersFormatsTests, theSettingForAllComesFirstAndTheLanguageLast)
{
    EXPECT_EQ(shown(""), "Mar 2, 2026, 6:05\u202FPM");
    m_language.set("de_DE.UTF-8");
    EXPECT_EQ(shown(""), "02.03.2026, 18:05");
    m_all.set("en_GB.UTF-8");
    EXPECT_EQ(shown("de_DE.UTF-8"), "2 Mar 2026, 18:05");
}

TEST_F(UsersFormatsTests, theSettingOfMachinesAndNonsenseReadLikeAmericanEnglish)
{
    for (const char* setting : {"C", "C.UTF-8", "POSIX", ".UTF-8", "@euro"})
        EXPECT_EQ(shown(setting), "Mar 2, 2026, 6:05\u202FPM") << setting;
}

TEST_F(UsersFormatsTests, whatPeopleNameIsReadInTheCalendarOfTheSetting)
{
    m_time.set("th_TH.UTF-8");
    EXPECT_EQ(DateFormatter::fromPattern(QStringLiteral("2567-05-01-0930"), QStringLiteral("yyyy-MM-dd-HHmm"),
                                         DateFormatter::Conventions::user),
              utc(2024, 5, 1, 7, 30));
}

TEST_F(DateFormatterTests, theLocaleOfMachinesReadsLikeAmericanEnglish)
{
    m_mac.setLocale(QLocale::c());
    EXPECT_EQ(text(utc(2026, 3, 2, 13, 5, 7), Style::medium, Style::short_), "Mar 2, 2026, 2:05\u202FPM");
}

TEST_F(DateFormatterTests, theSystemsTimeZoneDecidesAtEachCall)
{
    const QDateTime date = utc(2026, 7, 1, 22, 30);
    EXPECT_EQ(text(date, Style::medium, Style::short_), "Jul 2, 2026, 12:30\u202FAM");
    m_mac.setTimeZone("America/New_York");
    EXPECT_EQ(text(date, Style::medium, Style::short_), "Jul 1, 2026, 6:30\u202FPM");
    m_mac.setTimeZone("Asia/Kathmandu");
    EXPECT_EQ(text(date, Style::medium, Style::short_), "Jul 2, 2026, 4:15\u202FAM");
}

TEST_F(DateFormatterTests, summerTimeIsTakenFromTheDateNotFromToday)
{
    EXPECT_EQ(text(utc(2026, 1, 15, 12), Style::none, Style::short_), "1:00\u202FPM");
    EXPECT_EQ(text(utc(2026, 7, 15, 12), Style::none, Style::short_), "2:00\u202FPM");
}

TEST_F(DateFormatterTests, aZoneThatIsNotInTheTablesIsTakenFromTheSystem)
{
    m_mac.setTimeZone("KEEL-3:30");
    EXPECT_EQ(text(utc(2026, 3, 2, 12), Style::medium, Style::short_), "Mar 2, 2026, 3:30\u202FPM");
}

TEST_F(DateFormatterTests, aDateInAnotherZoneIsTheSameMoment)
{
    const QDateTime date(QDate(2026, 3, 2), QTime(8, 5, 7), QTimeZone(-5 * 3600));
    EXPECT_EQ(text(date, Style::medium, Style::medium), "Mar 2, 2026, 2:05:07\u202FPM");
    EXPECT_EQ(DateFormatter::iso8601(date), QStringLiteral("2026-03-02T13:05:07Z"));
}

TEST_F(DateFormatterTests, manyThreadsFormatAtOnce)
{
    const std::string expected = "Mar 2, 2026, 2:05\u202FPM";
    std::atomic<int> right = 0;
    {
        std::vector<std::jthread> threads;
        for (int i = 0; i < 8; ++i) {
            threads.emplace_back([&] {
                for (int round = 0; round < 50; ++round)
                    right += text(utc(2026, 3, 2, 13, 5, 7), Style::medium, Style::short_) == expected;
            });
        }
    }
    EXPECT_EQ(right, 400);
}

TEST_F(DateFormatterTests, iso8601IsUtcAtWholeSecondsCutNotRounded)
{
    EXPECT_EQ(DateFormatter::iso8601(utc(2026, 3, 1, 9, 5, 0, 999)), QStringLiteral("2026-03-01T09:05:00Z"));
    EXPECT_EQ(DateFormatter::iso8601(utc(1969, 12, 31, 23, 59, 59, 999)),
              QStringLiteral("1969-12-31T23:59:59Z"));
    EXPECT_EQ(DateFormatter::iso8601(utc(2026, 3, 1, 9, 5).toLocalTime()),
              QStringLiteral("2026-03-01T09:05:00Z"));
}

TEST_F(DateFormatterTests, iso8601IsTheSameInEveryLocale)
{
    m_mac.setLocale(QLocale(QLocale::Arabic, QLocale::Egypt));
    EXPECT_EQ(DateFormatter::iso8601(utc(2026, 3, 1, 9, 5)), QStringLiteral("2026-03-01T09:05:00Z"));
}

TEST_F(DateFormatterTests, iso8601KeepsDatesWithinFourDigitsOfTheYear)
{
    EXPECT_EQ(DateFormatter::iso8601(utc(1, 1, 1)), QStringLiteral("0001-01-01T00:00:00Z"));
    EXPECT_EQ(DateFormatter::iso8601(utc(12'000, 1, 1)), QStringLiteral("9999-12-31T23:59:59Z"));
    EXPECT_EQ(DateFormatter::iso8601(utc(-5, 1, 1)), QStringLiteral("0001-01-01T00:00:00Z"));
    EXPECT_EQ(DateFormatter::iso8601(QDateTime()), QString());
}

TEST_F(DateFormatterTests, iso8601ReadsWhatItWrites)
{
    for (const QDateTime& date : {utc(2026, 3, 1, 9, 5), utc(1, 1, 1), utc(9999, 12, 31, 23, 59, 59)}) {
        const auto read = DateFormatter::fromIso8601(DateFormatter::iso8601(date));
        ASSERT_TRUE(read.has_value());
        EXPECT_EQ(*read, date);
        EXPECT_EQ(read->timeSpec(), Qt::UTC);
    }
}

TEST_F(DateFormatterTests, iso8601ReadsANumericOffset)
{
    EXPECT_EQ(parsed("2026-03-01T09:05:00+01:30"), utc(2026, 3, 1, 7, 35));
    EXPECT_EQ(parsed("2026-03-01T09:05:00-0500"), utc(2026, 3, 1, 14, 5));
}

TEST_F(DateFormatterTests, iso8601KeepsDatesWithinFourDigitsOfTheYearAgainstTheirOffset)
{
    EXPECT_EQ(parsed("0001-01-01T14:00:00+14:00"), utc(1, 1, 1));
    EXPECT_EQ(parsed("0001-01-01T13:59:59+14:00"), utc(1, 1, 1));
    EXPECT_EQ(parsed("9999-12-31T11:59:59-12:00"), utc(9999, 12, 31, 23, 59, 59));
    EXPECT_EQ(parsed("9999-12-31T12:00:00-12:00"), utc(9999, 12, 31, 23, 59, 59));
}

TEST_F(DateFormatterTests, iso8601RefusesAnythingElse)
{
    for (const char* text :
         {"", "2026-03-01", "2026-03-01T09:05:00", "2026-03-01 09:05:00Z", "2026-03-01T09:05:00.5Z",
          "2026-03-01T09:05Z", "2026-02-29T09:05:00Z", "2026-13-01T09:05:00Z", "2026-03-01T24:00:00Z",
          "2026-03-01T09:60:00Z", "2026-03-01T09:05:00+25:00", "2026-03-01T09:05:00+01:60",
          "2026-03-01T09:05:00Z ", "2026-03-01T09:05:00Z\n", "26-03-01T09:05:00Z", "2026-3-1T9:5:0Z"})
        EXPECT_EQ(parsed(text), std::nullopt) << text;
    EXPECT_EQ(DateFormatter::fromIso8601(QStringLiteral("٢٠٢٦-03-01T09:05:00Z")), std::nullopt);
}

TEST_F(DateFormatterTests, aPatternReadsTheMomentThatTheOffsetSays)
{
    EXPECT_EQ(matched("2026-03-01 09:05:00 +0000", wholeSeconds), utc(2026, 3, 1, 9, 5));
    EXPECT_EQ(matched("2026-03-01 09:05:00 -0530", wholeSeconds), utc(2026, 3, 1, 14, 35));
    EXPECT_EQ(matched("2026-07-01 00:05:59 +0200", wholeSeconds), utc(2026, 6, 30, 22, 5, 59));
}

TEST_F(DateFormatterTests, aPatternWithoutAnOffsetReadsLocalTime)
{
    EXPECT_EQ(matched("2026-03-01 09:05", "yyyy-MM-dd HH:mm"), utc(2026, 3, 1, 8, 5));
}

TEST_F(DateFormatterTests, aPatternIsReadTheSameInEveryLocale)
{
    m_mac.setLocale(QLocale(QLocale::Persian, QLocale::Iran));
    EXPECT_EQ(matched("2026-03-01 09:05:00 +0000", wholeSeconds), utc(2026, 3, 1, 9, 5));
}

TEST_F(DateFormatterTests, whatPeopleNameIsReadInTheirCalendarAndTheirDigits)
{
    const auto named = [](const QString& text) {
        return DateFormatter::fromPattern(text, QStringLiteral("yyyy-MM-dd-HHmm"),
                                          DateFormatter::Conventions::user);
    };
    const QDateTime date = utc(2024, 5, 1, 7, 30);
    EXPECT_EQ(named(QStringLiteral("2024-05-01-0930")), date);
    m_mac.setLocale(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(named(QStringLiteral("2024-05-01-0930")), date);
    m_mac.setLocale(QLocale::c());
    EXPECT_EQ(named(QStringLiteral("2024-05-01-0930")), date);
    m_mac.setLocale(QLocale(QLocale::Thai, QLocale::Thailand));
    EXPECT_EQ(named(QStringLiteral("2567-05-01-0930")), date);
    m_mac.setLocale(QLocale(QLocale::Arabic, QLocale::Egypt));
    EXPECT_EQ(named(QStringLiteral("2024-05-01-0930")), date);
    EXPECT_EQ(named(QStringLiteral("٢٠٢٤-٠٥-٠١-٠٩٣٠")), date);
    m_mac.setLocale(QLocale(QLocale::Persian, QLocale::Iran));
    EXPECT_EQ(named(QStringLiteral("1403-02-12-0930")), date);
    EXPECT_EQ(named(QStringLiteral("1403-12-31-0930")), std::nullopt); // the last month has no such day
    EXPECT_EQ(named(QStringLiteral("1403-2-12-0930")), std::nullopt);
    EXPECT_EQ(named(QStringLiteral("backup-old")), std::nullopt);
}

TEST_F(DateFormatterTests, whatProgramsWriteHasTheirDigits)
{
    m_mac.setLocale(QLocale(QLocale::Arabic, QLocale::Egypt));
    EXPECT_EQ(
        DateFormatter::fromPattern(QStringLiteral("٢٠٢٦-٠٣-٠١ ٠٩:٠٥"), QStringLiteral("yyyy-MM-dd HH:mm")),
        std::nullopt);
}

TEST_F(DateFormatterTests, aPatternIsReadTheSameInEveryTimeZone)
{
    for (const char* zone : {"Europe/Berlin", "America/New_York", "Asia/Kathmandu", "UTC"}) {
        m_mac.setTimeZone(zone);
        EXPECT_EQ(matched("2026-07-01 00:05:59 +0200", wholeSeconds), utc(2026, 6, 30, 22, 5, 59)) << zone;
        // Before there were time zones each town had an offset to the second.
        EXPECT_EQ(matched("1850-03-01 09:05:00 +0000", wholeSeconds), utc(1850, 3, 1, 9, 5)) << zone;
        EXPECT_EQ(matched("1-03-01 09:05:00 +0000", wholeSeconds), std::nullopt) << zone;
    }
}

TEST_F(DateFormatterTests, aPatternRefusesAFractionOfAnyLength)
{
    for (int digits = 7; digits <= 400; ++digits) {
        const QByteArray text = "2026-03-01 09:05:00." + QByteArray(digits, '7') + " +0000";
        EXPECT_EQ(matched(text.constData(), microseconds), std::nullopt) << digits;
    }
}

TEST_F(DateFormatterTests, sixFractionalDigitsMatchSixLettersOnly)
{
    EXPECT_EQ(matched("2026-03-01 09:05:00.123456 +0000", microseconds), utc(2026, 3, 1, 9, 5, 0, 123));
    EXPECT_EQ(matched("2026-03-01 09:05:00.000000 +0000", microseconds), utc(2026, 3, 1, 9, 5));
    EXPECT_EQ(matched("2026-03-01 09:05:00.123 +0000", microseconds), std::nullopt);
    EXPECT_EQ(matched("2026-03-01 09:05:00.123456 +0000", wholeSeconds), std::nullopt);
    EXPECT_EQ(matched("2026-03-01 09:05:00 +0000", microseconds), std::nullopt);
}

TEST_F(DateFormatterTests, aPatternMatchesWholeOrNotAtAll)
{
    for (const char* text :
         {"", "(null)", "2026-03-01", "2026-03-01 09:05:00", "2026-03-01 09:05:00 +0000 ",
          " 2026-03-01 09:05:00 +0000", "2026-03-01  09:05:00 +0000", "\"2026-03-01 09:05:00 +0000\"",
          "2026-3-1 9:5:0 +0000", "2026-13-01 09:05:00 +0000", "2026-02-29 09:05:00 +0000",
          "2026-03-01 25:05:00 +0000", "2026-03-01 09:05:00 UTC", "2026-03-01 09:05:00 +00:00"})
        EXPECT_EQ(matched(text, wholeSeconds), std::nullopt) << text;
}

} // namespace keelbright

#include "KeelbrightCore/platform/text/DateFormatter.h"

#include "KeelbrightCore/platform/text/IcuText.h"
#include "KeelbrightCore/platform/text/UtcZone.h"

#include <QLocale>
#include <QRegularExpression>
#include <QTimeZone>
#include <memory>
#include <unicode/calendar.h>
#include <unicode/datefmt.h>
#include <unicode/simpletz.h>
#include <unicode/smpdtfmt.h>

namespace keelbright {

namespace {

constexpr int millisecondsPerSecond = 1'000;

icu::DateFormat::EStyle icuStyle(DateFormatter::Style style)
{
    switch (style) {
    case DateFormatter::Style::none:
        return icu::DateFormat::kNone;
    case DateFormatter::Style::short_:
        return icu::DateFormat::kShort;
    case DateFormatter::Style::medium:
        return icu::DateFormat::kMedium;
    case DateFormatter::Style::long_:
        return icu::DateFormat::kLong;
    }
    return icu::DateFormat::kNone;
}

/// ICU brings time zone rules of its own, which may be older than the system's, and does not know
/// every form of TZ. Where the two differ, the system's offset holds.
std::unique_ptr<icu::TimeZone> systemZone(const QDateTime& date)
{
    const int32_t offset = date.toLocalTime().offsetFromUtc() * millisecondsPerSecond;
    const auto id = icu::UnicodeString::fromUTF8(QTimeZone::systemTimeZoneId().toStdString());
    std::unique_ptr<icu::TimeZone> zone(icu::TimeZone::createTimeZone(id));
    int32_t rawOffset = 0;
    int32_t daylightOffset = 0;
    UErrorCode status = U_ZERO_ERROR;
    zone->getOffset(static_cast<UDate>(date.toMSecsSinceEpoch()), false, rawOffset, daylightOffset, status);
    if (U_SUCCESS(status) && rawOffset + daylightOffset == offset)
        return zone;
    return std::make_unique<icu::SimpleTimeZone>(offset, id);
}

std::unique_ptr<icu::DateFormat> makeFormat(DateFormatter::Style dateStyle, DateFormatter::Style timeStyle)
{
    using icu::DateFormat;
    const icu::Locale locale = dateIcuLocale();
    if (timeStyle == DateFormatter::Style::none)
        return std::unique_ptr<DateFormat>(DateFormat::createDateInstance(icuStyle(dateStyle), locale));
    if (dateStyle == DateFormatter::Style::none)
        return std::unique_ptr<DateFormat>(DateFormat::createTimeInstance(icuStyle(timeStyle), locale));
    return std::unique_ptr<DateFormat>(
        DateFormat::createDateTimeInstance(icuStyle(dateStyle), icuStyle(timeStyle), locale));
}

/// The nearest date whose year has four digits.
QDateTime withinFourDigitYears(const QDateTime& date)
{
    static const QDateTime earliest(QDate(1, 1, 1), QTime(0, 0, 0), utcZone);
    static const QDateTime latest(QDate(9999, 12, 31), QTime(23, 59, 59), utcZone);
    return qBound(earliest, date, latest);
}

/// ICU divides by zero at a fraction of some thirty digits; no field of a date has ten.
bool hasOverlongNumber(const QString& text)
{
    static const QRegularExpression overlong(QStringLiteral("\\p{Nd}{10}"));
    return overlong.match(text).hasMatch();
}

/// The text with every digit replaced by "0" and every sign by "-", so that only the widths of its
/// fields remain. In the user's conventions the digits of any script count.
QString shape(QString text, DateFormatter::Conventions conventions)
{
    const bool hasAnyDigits = conventions == DateFormatter::Conventions::user;
    for (QChar& character : text) {
        if ((character >= u'0' && character <= u'9') || (hasAnyDigits && character.isDigit()))
            character = u'0';
        else if (character == u'+')
            character = u'-';
    }
    return text;
}

icu::Locale patternLocale(DateFormatter::Conventions conventions)
{
    return conventions == DateFormatter::Conventions::user ? dateIcuLocale() : icu::Locale("en_US_POSIX");
}

/// Kept for the next text: making one takes longer than reading with it, and a listing of folders
/// reads thousands. Null for an invalid pattern.
icu::SimpleDateFormat* readerOf(const QString& pattern, const icu::Locale& locale)
{
    thread_local QString keptPattern;
    thread_local icu::Locale keptLocale;
    thread_local std::unique_ptr<icu::SimpleDateFormat> kept;
    if (kept && keptPattern == pattern && keptLocale == locale)
        return kept.get();
    UErrorCode status = U_ZERO_ERROR;
    kept = std::make_unique<icu::SimpleDateFormat>(toIcu(pattern), locale, status);
    keptPattern = pattern;
    keptLocale = locale;
    if (U_FAILURE(status)) {
        kept.reset();
        return nullptr;
    }
    kept->setLenient(false);
    return kept.get();
}

} // namespace

QString DateFormatter::string(const QDateTime& date, Style dateStyle, Style timeStyle)
{
    if (!date.isValid() || (dateStyle == Style::none && timeStyle == Style::none))
        return {};
    const std::unique_ptr<icu::DateFormat> format = makeFormat(dateStyle, timeStyle);
    if (!format)
        return QLocale().toString(date.toLocalTime(), QLocale::ShortFormat);
    format->adoptTimeZone(systemZone(date).release());
    icu::UnicodeString text;
    format->format(static_cast<UDate>(date.toMSecsSinceEpoch()), text);
    return fromIcu(text);
}

QString DateFormatter::iso8601(const QDateTime& date)
{
    if (!date.isValid())
        return {};
    return withinFourDigitYears(date.toUTC()).toString(QStringLiteral("yyyy-MM-dd'T'HH:mm:ss'Z'"));
}

std::optional<QDateTime> DateFormatter::fromIso8601(const QString& text)
{
    static const QRegularExpression pattern(
        QStringLiteral("\\A(\\d{4}-\\d\\d-\\d\\d)T(\\d\\d:\\d\\d:\\d\\d)(?:Z|([+-])(\\d\\d):?(\\d\\d))\\z"));
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    const QDate day = QDate::fromString(match.captured(1), QStringLiteral("yyyy-MM-dd"));
    const QTime time = QTime::fromString(match.captured(2), QStringLiteral("HH:mm:ss"));
    const int hours = match.captured(4).toInt();
    const int minutes = match.captured(5).toInt();
    if (!day.isValid() || !time.isValid() || hours > 23 || minutes > 59)
        return std::nullopt;
    const int offset = (hours * 60 + minutes) * 60;
    const QDateTime asUtc(day, time, utcZone);
    return withinFourDigitYears(asUtc.addSecs(match.captured(3) == QStringLiteral("-") ? offset : -offset));
}

std::optional<QDateTime> DateFormatter::fromPattern(const QString& text, const QString& pattern,
                                                    Conventions conventions)
{
    if (hasOverlongNumber(text))
        return std::nullopt;
    UErrorCode status = U_ZERO_ERROR;
    const icu::Locale locale = patternLocale(conventions);
    icu::SimpleDateFormat* format = readerOf(pattern, locale);
    const std::unique_ptr<icu::Calendar> calendar(
        icu::Calendar::createInstance(systemZone(QDateTime::currentDateTimeUtc()).release(), locale, status));
    if (format == nullptr || U_FAILURE(status))
        return std::nullopt;
    calendar->clear();
    calendar->setLenient(false);
    icu::ParsePosition position(0);
    format->parse(toIcu(text), *calendar, position);
    const UDate time = calendar->getTime(status);
    if (U_FAILURE(status) || position.getErrorIndex() >= 0 || position.getIndex() != text.size())
        return std::nullopt;
    // ICU takes a field of any width; a date in this pattern is only what the pattern writes.
    // Written in UTC: local time of long ago may have an offset of seconds, or another year.
    icu::UnicodeString written;
    format->setTimeZone(*icu::TimeZone::getGMT());
    format->format(time, written);
    if (shape(fromIcu(written), conventions) != shape(text, conventions))
        return std::nullopt;
    return QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(time), utcZone);
}

} // namespace keelbright

#pragma once

#include <QDateTime>
#include <QString>
#include <optional>

namespace keelbright {

/// Dates as texts.
namespace DateFormatter {

enum class Style { none, short_, medium, long_ };

/// The date in the system's time zone, in the formats that the user chose for dates and times, or, where
/// the program has set a default locale, in those of that locale; empty for an invalid date and where both
/// styles are `none`.
[[nodiscard]] QString string(const QDateTime& date, Style dateStyle, Style timeStyle);

/// ISO 8601 in UTC at whole seconds (cut, not rounded): "2026-03-01T09:05:00Z". Dates outside the
/// years 1 to 9999 become the nearest within; empty for an invalid date.
[[nodiscard]] QString iso8601(const QDateTime& date);
/// Reads what `iso8601` writes, or the same with a numeric offset; nothing for anything else. A date
/// that its offset leads out of the years 1 to 9999 becomes the nearest within.
[[nodiscard]] std::optional<QDateTime> fromIso8601(const QString& text);

/// Whose calendar and digits a text has: "en_US_POSIX" for what programs write for each other, the
/// formats of `string` for what people name.
enum class Conventions { posix, user };

/// Reads a date with a fixed pattern of the Unicode date field symbols, such as
/// "yyyy-MM-dd HH:mm:ss Z"; nothing where it does not match whole, with as many digits in each field
/// as the pattern writes. Without an offset the text is local time.
[[nodiscard]] std::optional<QDateTime> fromPattern(const QString& text, const QString& pattern,
                                                   Conventions conventions = Conventions::posix);

} // namespace DateFormatter
} // namespace keelbright

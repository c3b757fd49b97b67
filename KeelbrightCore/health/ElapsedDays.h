#pragma once

#include <QDateTime>

namespace keelbright {

/// Spans of 24 hours from `date` to `now`, not days of the calendar; negative for a date ahead.
[[nodiscard]] inline double elapsedDays(const QDateTime& date, const QDateTime& now)
{
    constexpr double secondsPerDay = 86400.0;
    return static_cast<double>(date.msecsTo(now)) / 1000.0 / secondsPerDay;
}

/// The same, cut towards zero.
[[nodiscard]] inline qint64 wholeElapsedDays(const QDateTime& date, const QDateTime& now)
{
    return static_cast<qint64>(elapsedDays(date, now));
}

} // namespace keelbright

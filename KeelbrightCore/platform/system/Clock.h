#pragma once

#include <QDateTime>
#include <functional>

namespace keelbright {

/// Tells the current time in UTC; tests hand in one of their own.
using Clock = std::function<QDateTime()>;

[[nodiscard]] inline QDateTime systemClock()
{
    return QDateTime::currentDateTimeUtc();
}

} // namespace keelbright

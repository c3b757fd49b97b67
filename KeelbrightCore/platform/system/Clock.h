#pragma once

#include <QDateTime>
#include <functional>

namespace keelbright {

/// Gives the current time in UTC; tests pass one of their own.
using Clock = std::function<QDateTime()>;

[[nodiscard]] inline QDateTime systemClock()
{
    return QDateTime::currentDateTimeUtc();
}

} // namespace keelbright

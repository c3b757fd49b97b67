#pragma once

#include <QDateTime>
#include <chrono>
#include <functional>

namespace keelbright {

/// Gives the current time in UTC; tests pass one of their own.
using Clock = std::function<QDateTime()>;

[[nodiscard]] inline QDateTime systemClock()
{
    return QDateTime::currentDateTimeUtc();
}

/// Gives the time since a moment of its own; it only goes on, whatever is done to the machine's clock.
using SteadyClock = std::function<std::chrono::milliseconds()>;

[[nodiscard]] inline std::chrono::milliseconds steadyTime()
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(
        std::chrono::steady_clock::now().time_since_epoch());
}

} // namespace keelbright

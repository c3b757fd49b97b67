#pragma once

#include <QtGlobal>

#include <ctime>

namespace keelbright::testing {

/// What this thread has worked so far, in nanoseconds, whatever else kept it from its processor.
[[nodiscard]] inline qint64 workOfThisThread()
{
    timespec time = {};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return time.tv_sec * 1'000'000'000LL + time.tv_nsec;
}

/// What `action` works in this thread, in nanoseconds.
template <typename Action> [[nodiscard]] qint64 workOf(Action&& action)
{
    const qint64 before = workOfThisThread();
    action();
    return workOfThisThread() - before;
}

} // namespace keelbright::testing

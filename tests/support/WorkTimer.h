#pragma once

#include <QtGlobal>

#include <ctime>
#include <utility>

namespace keelbright::testing {

/// What this thread has worked since then, whatever else kept it from its processor meanwhile: the time
/// that can have a bound on a machine that is busy with other things.
class WorkTimer
{
public:
    [[nodiscard]] qint64 nanoseconds() const { return ofThisThread() - m_start; }

    [[nodiscard]] qint64 milliseconds() const { return nanoseconds() / 1'000'000; }

    /// Begins anew; what it was so far, in nanoseconds.
    qint64 restart()
    {
        const qint64 now = ofThisThread();
        return now - std::exchange(m_start, now);
    }

private:
    static qint64 ofThisThread()
    {
        timespec time = {};
        ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return time.tv_sec * 1'000'000'000LL + time.tv_nsec;
    }

    qint64 m_start = ofThisThread();
};

} // namespace keelbright::testing

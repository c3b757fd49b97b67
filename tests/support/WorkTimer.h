#pragma once

#include <QtGlobal>

#include <ctime>
#include <utility>

namespace keelbright::testing {

/// The processor time of this thread since the timer was made. Unlike the time on the clock it can be
/// compared with a maximum on a machine that is busy with other things.
class WorkTimer
{
public:
    [[nodiscard]] qint64 nanoseconds() const { return ofThisThread() - m_start; }

    [[nodiscard]] qint64 milliseconds() const { return nanoseconds() / 1'000'000; }

    /// Starts again; returns the time until now in nanoseconds.
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

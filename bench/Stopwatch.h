#pragma once

#include <QElapsedTimer>

#include <cstdio>
#include <sys/resource.h>
#include <tuple>

namespace keelbright::bench {

/// The wall and processor time of this process since the stopwatch was made.
class Stopwatch
{
public:
    Stopwatch()
        : m_processorAtStart(processorSeconds())
    {
        m_wall.start();
    }

    void print() const
    {
        std::printf("wall %.6f\n", static_cast<double>(m_wall.nsecsElapsed()) / 1e9);
        std::printf("cpu %.6f\n", processorSeconds() - m_processorAtStart);
    }

private:
    static double processorSeconds()
    {
        rusage usage = {};
        ::getrusage(RUSAGE_SELF, &usage);
        const auto seconds = [](const timeval& time) {
            return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
        };
        return seconds(usage.ru_utime) + seconds(usage.ru_stime);
    }

    QElapsedTimer m_wall;
    double m_processorAtStart;
};

/// What the system has read of a tree before a work is measured on it.
enum class Caches {
    warm, ///< everything: the work is done once before
    cold, ///< nothing that the work did not read itself: it is done once
};

/// Measures a work and prints its result as `name`.
template <typename Work> int measureWork(Caches caches, const char* name, Work work)
{
    if (caches == Caches::warm)
        std::ignore = work();
    const Stopwatch stopwatch;
    const auto result = work();
    stopwatch.print();
    std::printf("%s %lld\n", name, static_cast<long long>(result));
    return 0;
}

} // namespace keelbright::bench

#pragma once

#include <QElapsedTimer>

#include <cstdio>
#include <memory>

namespace keelbright::testing {

/// The time that has passed for this thread, without that in which it was ready to go on and other
/// programs had the processors. A lock, a disk or a sleep counts, a busy machine does not. On systems
/// that don't report the difference it is all the time that has passed.
class UndisturbedTimer
{
public:
    UndisturbedTimer() { restart(); }

    [[nodiscard]] qint64 nanoseconds() const
    {
        return m_passed.nsecsElapsed() - (waitedForProcessor() - m_waitedBefore);
    }

    [[nodiscard]] double seconds() const { return static_cast<double>(nanoseconds()) / 1e9; }

    void restart()
    {
        m_waitedBefore = waitedForProcessor();
        m_passed.start();
    }

private:
    static qint64 waitedForProcessor()
    {
        const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(
            std::fopen("/proc/thread-self/schedstat", "re"), std::fclose);
        long long worked = 0;
        long long waited = 0;
        if (!file || std::fscanf(file.get(), "%lld %lld", &worked, &waited) != 2)
            return 0;
        return waited;
    }

    QElapsedTimer m_passed;
    qint64 m_waitedBefore = 0;
};

} // namespace keelbright::testing

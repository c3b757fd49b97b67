#include "KeelbrightCore/platform/system/SpinWait.h"

namespace keelbright {

namespace {

/// A move costs some microseconds, and beside busy programs the next processor may be no better.
constexpr auto shortestStay = std::chrono::milliseconds(1);

} // namespace

bool SpinWait::leaveProcessorOf(const SpinWait& other)
{
    if (!isOnProcessorOf(other))
        return false;
    const auto now = Clock::now();
    if (now - m_lastMove < shortestStay)
        return false;
    m_lastMove = now;
    if (!moveAwayFrom(other.m_processor))
        return false;
    noteProcessor();
    return true;
}

/// Lets the other hardware thread of the core work between two checks. It does not yield the processor:
/// beside other busy programs, a thread that yields gets it back only milliseconds later.
void SpinWait::pause()
{
#if defined(__x86_64__) || defined(__i386__)
    __builtin_ia32_pause();
#elif defined(__aarch64__)
    __asm__ volatile("yield");
#endif
}

} // namespace keelbright

#pragma once

#include <atomic>
#include <chrono>

namespace keelbright {

/// One of two threads that answer each other within microseconds. To wake a sleeping thread takes
/// longer than to copy a small file; so each of the two first spins for a moment, which is to check for
/// the answer again and again, before it sleeps. All functions belong to the thread itself; the other
/// one only hands its own `SpinWait` over.
class SpinWait
{
public:
    /// Notes the processor that the thread runs on, for the other thread to see.
    void noteProcessor() { m_processor.store(currentProcessor(), std::memory_order_relaxed); }

    /// Whether `condition` becomes true within 60 microseconds. Does not spin where `other` was last
    /// noted on the same processor: that thread cannot go on before this one sleeps.
    template <typename Condition> [[nodiscard]] bool until(Condition condition, const SpinWait& other)
    {
        if (condition())
            return true;
        constexpr auto longestSpin = std::chrono::microseconds(60);
        constexpr int checksPerRound = 16; // to ask the clock costs more than a check
        const auto end = std::chrono::steady_clock::now() + longestSpin;
        do {
            noteProcessor();
            if (isOnProcessorOf(other))
                break;
            for (int check = 0; check < checksPerRound; ++check) {
                if (condition())
                    return true;
                pause();
            }
        } while (std::chrono::steady_clock::now() < end);
        return condition();
    }

    /// Where both threads were last noted on the same processor, lets the system go on with this one on
    /// another, at most once a millisecond. Whether this thread is on another one now. Only where the system
    /// has such a call, and another processor that this thread may use.
    [[nodiscard]] bool leaveProcessorOf(const SpinWait& other);

private:
    using Clock = std::chrono::steady_clock;

    static constexpr int unknownProcessor = -1;

    [[nodiscard]] static int currentProcessor();
    [[nodiscard]] static bool moveAwayFrom(int processor);
    static void pause();

    [[nodiscard]] bool isOnProcessorOf(const SpinWait& other) const
    {
        return m_processor != unknownProcessor && m_processor == other.m_processor;
    }

    std::atomic<int> m_processor = unknownProcessor;
    Clock::time_point m_lastMove; ///< or the last try
};

} // namespace keelbright

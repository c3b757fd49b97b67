#pragma once

#include <QString>

#include <chrono>
#include <deque>
#include <optional>

namespace keelbright {

/// How long a piece of work still takes, computed from its bytes, in the rough numbers that people use. Calm
/// rather than exact: what it shows goes down with the work, and up only where it was wrong for a while.
/// One thread.
class RemainingTime
{
public:
    /// How far the work is at a moment of a clock that only goes on. To be called again and again; what
    /// comes within a second of the last call that counted is passed over.
    void add(std::chrono::milliseconds moment, qint64 doneBytes, qint64 totalBytes);

    /// Absent before a twentieth is done and the speed is steady, while nothing moves, and where more has
    /// been done than there was to do.
    [[nodiscard]] std::optional<std::chrono::seconds> value() const { return m_shown; }

    /// The value as it is shown, such as "About 4 minutes left"; empty where it is absent.
    [[nodiscard]] QString text() const;

private:
    using Milliseconds = std::chrono::milliseconds;
    using Seconds = std::chrono::seconds;

    struct Moment
    {
        Milliseconds at;
        qint64 doneBytes;
    };

    /// When the work seemed to end, at a moment.
    struct Guess
    {
        Milliseconds at;
        Milliseconds end;
    };

    /// A value that is too low, for as long as it has been that without a break.
    struct Excess
    {
        Milliseconds since;
        Seconds lowest; ///< what would have been shown instead
    };

    void note(Milliseconds moment, qint64 doneBytes);
    [[nodiscard]] std::optional<Seconds> estimate(Milliseconds moment, qint64 remainingBytes) const;
    /// Whether the estimates of the last seconds agree.
    [[nodiscard]] bool isSteady(Milliseconds moment, Seconds remaining);
    void show(Milliseconds moment, Seconds remaining);
    void hide();

    std::optional<Milliseconds> m_counted; ///< the last call that was not passed over
    std::deque<Moment> m_moments;          ///< the oldest first, the last one when something was done last
    std::deque<Guess> m_guesses;           ///< of the last seconds, the oldest first
    std::optional<Seconds> m_shown;
    std::optional<Excess> m_excess;
};

} // namespace keelbright

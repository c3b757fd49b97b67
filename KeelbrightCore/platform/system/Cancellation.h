#pragma once

#include <atomic>

namespace keelbright {

/// Whether a background task is to stop. Its owner keeps one for each task and calls `cancel` or
/// `quit`; every layer of the task asks it before it begins something. Neither can be taken back.
/// Any thread.
class Cancellation
{
public:
    /// The user wants the task to stop: it finishes the item under way and begins no other one.
    void cancel() { m_isCancelled = true; }

    /// Nobody waits for the task any more, as the program quits or its screen was left: the task also
    /// gives up the item under way, writes nothing more and reports nothing more.
    void quit()
    {
        m_isQuitting = true;
        m_isCancelled = true;
    }

    /// Whether no further item is to be begun: true after `cancel` and after `quit`.
    [[nodiscard]] bool isCancelled() const { return m_isCancelled; }

    /// Whether the item under way is to be given up as well.
    [[nodiscard]] bool isQuitting() const { return m_isQuitting; }

private:
    std::atomic<bool> m_isCancelled = false;
    std::atomic<bool> m_isQuitting = false;
};

} // namespace keelbright

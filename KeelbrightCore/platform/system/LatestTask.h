#pragma once

#include "KeelbrightCore/platform/system/Cancellation.h"

#include <memory>
#include <utility>

namespace keelbright {

/// What its owner keeps of a background task that makes sense only until the next one starts or the
/// owner goes: each of the two gives the task up. One thread at a time.
class LatestTask
{
public:
    LatestTask() = default;

    ~LatestTask() { giveUp(); }

    LatestTask(const LatestTask&) = delete;
    LatestTask& operator=(const LatestTask&) = delete;

    /// Gives up the task before; what the new one is to ask.
    [[nodiscard]] std::shared_ptr<const Cancellation> begin()
    {
        giveUp();
        m_cancellation = std::make_shared<Cancellation>();
        return m_cancellation;
    }

    /// Asks the task to end with what it has; its result still counts. Does nothing where there is none.
    void cancel()
    {
        if (m_cancellation)
            m_cancellation->cancel();
    }

    /// Does nothing where there is none.
    void giveUp()
    {
        if (const auto task = std::exchange(m_cancellation, nullptr))
            task->quit();
    }

private:
    std::shared_ptr<Cancellation> m_cancellation;
};

} // namespace keelbright

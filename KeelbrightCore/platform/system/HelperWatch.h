#pragma once

#include "KeelbrightCore/platform/system/Pipe.h"
#include "KeelbrightCore/platform/system/RunningHelper.h"

#include <mutex>
#include <optional>
#include <vector>

namespace keelbright {

/// The one thread that watches all running helper programs. Internal to the platform folder.
class HelperWatch
{
public:
    /// Never destroyed: quitting must not wait for a helper.
    [[nodiscard]] static HelperWatch& instance();

    /// Starts the thread unless it is running; fails with an `errno` value. Any thread.
    [[nodiscard]] std::expected<void, int> start();
    /// Reads the helper's output and delivers its result. Only after `start`; any thread. Where memory runs
    /// out it throws, and leaves the helper to its caller.
    void add(RunningHelper&& helper);

private:
    HelperWatch() = default;

    void run();
    void takeArrivals(int wakeUp, std::vector<RunningHelper>& helpers);

    std::mutex m_mutex; ///< for all below
    bool m_isRunning = false;
    std::optional<Pipe> m_wakeUp; ///< readable when there are arrivals; not changed once it is there
    std::vector<RunningHelper> m_arrivals;
};

} // namespace keelbright

#include "KeelbrightCore/platform/system/HelperWatch.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <new>
#include <poll.h>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <utility>

namespace keelbright {

namespace {

/// Where there is nothing to wait for but time, in microseconds.
constexpr useconds_t pause = 20'000;

/// What is polled for one helper.
enum Watched : size_t { output, end, watchedCount };

/// Waits until something is to be done for a helper or there are new ones. The first entry is the
/// pipe that new ones wake this thread with; the entries of the helpers follow in their order.
std::vector<pollfd> waitForNews(int wakeUp, const std::vector<RunningHelper>& helpers)
{
    constexpr int pauseWithoutEndWatch = pause / 1000; // milliseconds
    int timeout = -1;
    std::vector<pollfd> watched = {pollfd{wakeUp, POLLIN, 0}};
    for (const RunningHelper& helper : helpers) {
        watched.push_back({helper.output(), POLLIN, 0});
        watched.push_back({helper.endWatch(), POLLIN, 0});
        if (helper.endWatch() < 0)
            timeout = pauseWithoutEndWatch;
    }
    const auto count = static_cast<nfds_t>(watched.size());
    if (retrying([&] { return ::poll(watched.data(), count, timeout); }) < 0) {
        // Only where memory runs out. What poll has not looked at counts as having no news.
        for (pollfd& each : watched)
            each.revents = 0;
        ::usleep(pause);
    }
    return watched;
}

/// Whether the helper has ended and its result was delivered. Where memory runs out it has not, and the
/// next round tries again.
bool serve(RunningHelper& helper, const pollfd* watched)
try {
    const bool mayHaveEnded = helper.endWatch() < 0 || watched[end].revents != 0;
    if (mayHaveEnded && helper.hasEnded()) {
        helper.deliver();
        return true;
    }
    if (helper.output() >= 0 && watched[output].revents != 0)
        helper.read();
    return false;
} catch (const std::bad_alloc&) {
    ::usleep(pause);
    return false;
}

void serveAll(std::vector<RunningHelper>& helpers, const std::vector<pollfd>& watched)
{
    std::vector<RunningHelper> left;
    left.reserve(helpers.size());
    for (size_t i = 0; i < helpers.size(); ++i) {
        if (!serve(helpers[i], &watched[1 + i * watchedCount]))
            left.push_back(std::move(helpers[i]));
    }
    helpers = std::move(left);
}

} // namespace

HelperWatch& HelperWatch::instance()
{
    static auto* const watch = new HelperWatch;
    return *watch;
}

std::expected<void, int> HelperWatch::start()
{
    const std::lock_guard lock(m_mutex);
    if (m_isRunning)
        return {};
    if (!m_wakeUp) {
        auto pipe = Pipe::make();
        if (!pipe)
            return std::unexpected(pipe.error());
        m_wakeUp = std::move(*pipe);
    }
    try {
        std::thread([this] { run(); }).detach();
    } catch (const std::system_error& error) {
        return std::unexpected(error.code().value());
    }
    m_isRunning = true;
    return {};
}

void HelperWatch::add(RunningHelper&& helper)
{
    const std::lock_guard lock(m_mutex);
    m_arrivals.push_back(std::move(helper));
    // One byte is enough for any number of arrivals, and so the pipe never fills.
    if (m_arrivals.size() == 1) {
        const char byte = 0;
        [[maybe_unused]] const ssize_t written =
            retrying([&] { return ::write(m_wakeUp->writeEnd.get(), &byte, 1); });
    }
}

void HelperWatch::run()
{
    const int wakeUp = [this] {
        const std::lock_guard lock(m_mutex);
        return m_wakeUp->readEnd.get();
    }();
    std::vector<RunningHelper> helpers;
    for (;;) {
        try {
            const std::vector<pollfd> watched = waitForNews(wakeUp, helpers);
            serveAll(helpers, watched);
            if (watched.front().revents != 0)
                takeArrivals(wakeUp, helpers);
        } catch (const std::bad_alloc&) {
            ::usleep(pause); // nothing has been lost, and the next round finds the same news
        }
    }
}

void HelperWatch::takeArrivals(int wakeUp, std::vector<RunningHelper>& helpers)
{
    {
        const std::lock_guard lock(m_mutex);
        helpers.reserve(helpers.size() + m_arrivals.size());
        for (RunningHelper& helper : m_arrivals)
            helpers.push_back(std::move(helper));
        m_arrivals.clear();
    }
    // Last, so that they are found once more where memory runs out above.
    char byte = 0;
    [[maybe_unused]] const ssize_t got = retrying([&] { return ::read(wakeUp, &byte, 1); });
}

} // namespace keelbright

#pragma once

#include <chrono>
#include <new>
#include <thread>
#include <type_traits>

namespace keelbright {

/// What `work` gives, as soon as there is the memory that it needs. For small things that can't be left
/// out, such as reporting that something else found no memory. `work` is called again and again, so it must
/// not have changed anything when it throws. Blocks; any thread.
template <typename Work> std::invoke_result_t<Work&> waitingForMemory(Work work)
{
    constexpr auto pause = std::chrono::milliseconds(20);
    for (;;) {
        try {
            return work();
        } catch (const std::bad_alloc&) {
            std::this_thread::sleep_for(pause);
        }
    }
}

} // namespace keelbright

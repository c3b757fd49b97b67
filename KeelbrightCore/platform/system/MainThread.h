#pragma once

#include "KeelbrightCore/platform/system/UniqueFunction.h"

#include <QObject>
#include <atomic>
#include <memory>

namespace keelbright {

/// The way from one background task to the main thread: hands over one change at a time and
/// lets the task wait until it has been made.
///
/// Made on the main thread. `post` and `wait` belong to one background thread; `close` to the
/// main thread. After `close` no further change is made and nobody waits any longer, so that
/// the program can quit in the middle of a task.
class MainThreadHop
{
public:
    MainThreadHop();
    ~MainThreadHop();
    MainThreadHop(const MainThreadHop&) = delete;
    MainThreadHop& operator=(const MainThreadHop&) = delete;

    /// Sends the change on its way. The one before must have been waited for.
    void post(UniqueFunction<void()> change);
    /// Waits until the change that was posted last has been made; false where the hop was
    /// closed instead. True at once where nothing is on its way.
    [[nodiscard]] bool wait();

    /// Whether the posted change has not been made yet, and may still be.
    [[nodiscard]] bool isPending() const;
    /// Both in one.
    [[nodiscard]] bool hop(UniqueFunction<void()> change);

    void close();

private:
    class Receiver;
    std::unique_ptr<Receiver> m_receiver;
};

} // namespace keelbright

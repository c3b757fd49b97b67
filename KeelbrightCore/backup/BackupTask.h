#pragma once

#include "KeelbrightCore/platform/system/Cancellation.h"
#include "KeelbrightCore/platform/system/MainThread.h"
#include "KeelbrightCore/platform/system/UniqueFunction.h"

#include <semaphore>

namespace keelbright {

class BackupEngine;

/// What ties one run, on its background thread, to the engine on the main thread. Shared by
/// both, so that either may go first.
class BackupTask
{
public:
    /// On the main thread; the engine calls `close` before it goes.
    explicit BackupTask(BackupEngine& engine);

    // For the run.

    /// What every layer of the run asks before it begins something.
    [[nodiscard]] const Cancellation& cancellation() const { return m_cancellation; }

    /// Sends a change of the engine on its way to the main thread; the one before must have been
    /// waited for.
    void post(UniqueFunction<void(BackupEngine&)> change);

    /// Waits for the posted change; false where the engine has gone.
    [[nodiscard]] bool wait() { return m_hop.wait(); }

    /// Whether the posted change is still on its way.
    [[nodiscard]] bool isPending() const { return m_hop.isPending(); }

    [[nodiscard]] bool hop(UniqueFunction<void(BackupEngine&)> change);

    /// The run's last act.
    void markEnded() { m_ended.release(); }

    // For the engine.

    void cancel() { m_cancellation.cancel(); }

    /// Cuts the run off: no further change reaches the engine. False where the run has not ended
    /// within `milliseconds`.
    [[nodiscard]] bool close(int milliseconds);

private:
    BackupEngine& m_engine;
    MainThreadHop m_hop;
    Cancellation m_cancellation;
    std::binary_semaphore m_ended{0};
};

} // namespace keelbright

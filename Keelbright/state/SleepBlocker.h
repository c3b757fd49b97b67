#pragma once

#include <QString>

namespace keelbright {

/// Keeps the machine from going to sleep by itself. Main thread.
class SleepBlocker
{
public:
    virtual ~SleepBlocker() = default;
    /// Until `allow`, and never longer than the process lives, however it ends. The desktop may show the
    /// reason. Returns at once; where the machine has nothing to ask, nothing happens.
    virtual void block(const QString& reason) = 0;
    /// Nothing where sleep is not blocked.
    virtual void allow() = 0;
};

} // namespace keelbright

#pragma once

#include <QString>
#include <functional>

namespace keelbright {

/// What the desktop shows outside of the program's windows.
struct Notification
{
    QString title;
    QString text;

    friend bool operator==(const Notification&, const Notification&) = default;
};

/// Shows one notification at a time, a new one in the place of the one before. Main thread.
class Notifier
{
public:
    virtual ~Notifier() = default;
    /// Returns at once. `onClick` is called at each click on it, while the notifier lives. Where the desktop
    /// shows no notifications, nothing happens.
    virtual void show(const Notification& notification, std::function<void()> onClick) = 0;
};

} // namespace keelbright

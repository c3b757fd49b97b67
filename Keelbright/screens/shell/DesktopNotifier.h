#pragma once

#include "Keelbright/state/Notifier.h"

#include <QDBusConnection>
#include <QObject>

namespace keelbright {

/// Notifications of freedesktop's desktops, over the session bus, without waiting for them.
class DesktopNotifier : public QObject, public Notifier
{
    Q_OBJECT

public:
    /// On the session bus.
    DesktopNotifier();
    /// Without a connection nothing is shown.
    explicit DesktopNotifier(QDBusConnection bus);

    void show(const Notification& notification, std::function<void()> onClick) override;

private Q_SLOTS:
    void invokeAction(uint id, const QString& action);

private:
    QDBusConnection m_bus;
    uint m_shown = 0; ///< the desktop's number of the last one
    std::function<void()> m_onClick;
};

} // namespace keelbright

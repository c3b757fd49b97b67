#pragma once

#include "Keelbright/screens/shell/WindowAction.h"

#include <QDBusConnection>
#include <QDBusVirtualObject>

namespace keelbright {

/// The running program on the session bus, as freedesktop's "org.freedesktop.Application": whoever knows its
/// name asks it for its window or for an action. A second way besides `SingleInstance`, which alone decides
/// who is the first: where a program on other settings has the name, this one goes without. Main thread.
class ApplicationService : public QDBusVirtualObject
{
    Q_OBJECT

public:
    /// "com.keelbright.keelbright"
    static QString serviceName();
    static QString objectPath();

    /// Without a connection nothing is offered. Does not wait for the bus.
    explicit ApplicationService(QDBusConnection bus);
    /// Leaves the name to the next one.
    ~ApplicationService() override;
    Q_DISABLE_COPY_MOVE(ApplicationService)

    [[nodiscard]] QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

Q_SIGNALS:
    /// The desktop wants the window in front, and the action done if there is one.
    void activationRequested(std::optional<keelbright::WindowAction> action);

private:
    QDBusConnection m_bus;
};

} // namespace keelbright

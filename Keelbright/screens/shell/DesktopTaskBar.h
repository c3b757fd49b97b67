#pragma once

#include "Keelbright/state/TaskBar.h"

#include <QDBusConnection>
#include <QDBusMessage>

namespace keelbright {

/// The entry of the program's desktop file in docks and task bars that follow Unity's launcher protocol. It
/// is a signal on the session bus: no receiver has to be there, and one that is there forgets it when the
/// program leaves the bus.
class DesktopTaskBar : public TaskBar
{
public:
    /// On the session bus.
    DesktopTaskBar();
    /// Without a connection nothing is shown.
    explicit DesktopTaskBar(QDBusConnection bus);

    void showProgress(double fraction) override;
    void hideProgress() override;

private:
    void update(const QVariantMap& properties);

    QDBusConnection m_bus;
};

} // namespace keelbright

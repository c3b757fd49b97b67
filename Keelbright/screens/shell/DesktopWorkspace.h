#pragma once

#include "Keelbright/state/Workspace.h"

#include <QDBusConnection>
#include <QObject>

namespace keelbright {

/// Opens and shows files with the desktop's programs, without waiting for them. A call that is not
/// answered when this is destroyed is dropped.
class DesktopWorkspace : public Workspace
{
public:
    /// On the session bus.
    DesktopWorkspace();
    /// Without a connection to a bus, `reveal` opens the folder.
    explicit DesktopWorkspace(QDBusConnection bus);

    void open(const FileURL& url) override;
    void reveal(const FileURL& url) override;

private:
    QDBusConnection m_bus;
    QObject m_calls; ///< owns the calls that wait for an answer
};

} // namespace keelbright

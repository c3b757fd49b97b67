#pragma once

#include "Keelbright/state/Workspace.h"

#include <QDBusConnection>
#include <QObject>

namespace keelbright {

/// Opens and shows files with what the desktop has for them. Never waits for it. What was asked for
/// and not answered when this goes is forgotten.
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
    QObject m_calls; ///< owns what waits for an answer
};

} // namespace keelbright

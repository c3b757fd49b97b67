#include "Keelbright/widgets/SessionBus.h"

#include <QFile>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

/// Without an address the bus library would start a new bus, which is slow.
bool hasSessionBus()
{
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
           (qEnvironmentVariableIsSet("XDG_RUNTIME_DIR") &&
            QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + "/bus"_L1));
}

} // namespace

QDBusConnection sessionBus()
{
    return hasSessionBus() ? QDBusConnection::sessionBus() : QDBusConnection(QString());
}

} // namespace keelbright

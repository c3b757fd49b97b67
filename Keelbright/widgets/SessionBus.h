#pragma once

#include <QDBusConnection>

namespace keelbright {

/// The desktop's session bus, or an unconnected connection if there is none. Never starts a bus.
[[nodiscard]] QDBusConnection sessionBus();

} // namespace keelbright

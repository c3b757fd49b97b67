#pragma once

#include <QDBusConnection>

namespace keelbright {

/// The desktop's session bus; a connection that is not connected where there is none to be reached.
/// None is ever started.
[[nodiscard]] QDBusConnection sessionBus();

} // namespace keelbright

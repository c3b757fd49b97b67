#pragma once

#include <QObject>
#include <functional>
#include <memory>

namespace keelbright {

/// Calls `changed` whenever something has been mounted or unmounted, as long as what it returns lives; null
/// where the system does not report it. Main thread. Internal to the platform folder.
[[nodiscard]] std::unique_ptr<QObject> watchMounts(std::function<void()> changed);

} // namespace keelbright

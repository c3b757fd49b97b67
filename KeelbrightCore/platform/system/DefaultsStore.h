#pragma once

#include <QSettings>
#include <memory>

namespace keelbright {

/// Where the system keeps what a program notes for a user, and under which names. Internal to the platform
/// folder. Main thread.
namespace DefaultsStore {

[[nodiscard]] std::unique_ptr<QSettings> ofTheUser();

/// The name under which the store finds a key of the program.
[[nodiscard]] QString storedKey(const QString& key);

} // namespace DefaultsStore
} // namespace keelbright

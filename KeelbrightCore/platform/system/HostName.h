#pragma once

#include <QString>
#include <optional>

namespace keelbright {

/// The name of the machine in its network; nothing where it has none. Internal to the platform folder.
[[nodiscard]] std::optional<QString> hostName();

} // namespace keelbright

#pragma once

#include <QtGlobal>

namespace keelbright {

/// Whether the process at the other end of a connected local socket belongs to this process's user.
[[nodiscard]] bool isPeerOfThisUser(qintptr socket);

} // namespace keelbright

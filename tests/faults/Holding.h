#pragma once

#include <QJsonObject>
#include <sys/types.h>

namespace keelbright::testing {

/// Tells whoever watches which thread does what comes next, and lets it go on when it is given a line.
void hold(pid_t thread);

/// Prints the outcome as one line of JSON; the program's exit code.
[[nodiscard]] int tell(const QJsonObject& outcome);

} // namespace keelbright::testing

#pragma once

#include <QJsonObject>
#include <sys/types.h>

namespace keelbright::testing {

/// Prints the id of the thread that does the next part, and waits for a line of input.
void hold(pid_t thread);

/// Prints the outcome as one line of JSON, and gives the program's exit code.
[[nodiscard]] int printOutcome(const QJsonObject& outcome);

} // namespace keelbright::testing

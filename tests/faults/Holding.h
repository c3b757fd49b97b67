#pragma once

#include <QJsonObject>
#include <QList>
#include <sys/types.h>

namespace keelbright::testing {

/// Prints the ids of the threads that do the next part, and waits for a line of input.
void hold(const QList<pid_t>& threads);

/// Prints the outcome as one line of JSON, and gives the program's exit code.
[[nodiscard]] int printOutcome(const QJsonObject& outcome);

} // namespace keelbright::testing

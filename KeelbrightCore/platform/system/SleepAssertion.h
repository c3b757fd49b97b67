#pragma once

#include <QString>
#include <optional>

namespace keelbright {

/// The operating system's own promise not to go to sleep by itself, on the one that has it. Main thread.
namespace SleepAssertion {

/// Whether the system has such a promise; where not, the desktop is asked.
[[nodiscard]] bool isThere();
/// Keeps the machine awake until `release`, and no longer than the process lives. The system shows the reason
/// to whoever asks what keeps it awake. Nothing where it refuses.
[[nodiscard]] std::optional<quint32> take(const QString& reason);
void release(quint32 assertion);

} // namespace SleepAssertion
} // namespace keelbright

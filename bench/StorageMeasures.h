#pragma once

#include <QString>

#include <optional>

namespace keelbright::bench {

/// Runs one service of the storage floor, prints the measured values and gives the exit code. Nothing
/// if there is no work of that name.
[[nodiscard]] std::optional<int> measureStorage(const QString& work, const QString& argument);

} // namespace keelbright::bench

#pragma once

#include "bench/Stopwatch.h"

#include <QString>

#include <optional>

namespace keelbright::bench {

/// Runs one service of the storage floor, prints the measured values and gives the exit code. Nothing
/// if there is no work of that name.
[[nodiscard]] std::optional<int> measureStorage(const QString& work, const QString& argument, Caches caches);

} // namespace keelbright::bench

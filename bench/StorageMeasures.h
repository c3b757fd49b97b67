#pragma once

#include <QString>

#include <optional>

namespace keelbright::bench {

/// Does one work of the storage floor and prints what it took; gives the code to exit with. Nothing
/// where there is no such work.
[[nodiscard]] std::optional<int> measureStorage(const QString& work, const QString& argument);

} // namespace keelbright::bench

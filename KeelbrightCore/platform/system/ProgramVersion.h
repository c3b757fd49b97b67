#pragma once

#include <QString>

namespace keelbright {

/// The version of the program, such as "1.0.0": that of the project in the topmost CMakeLists.txt.
[[nodiscard]] QString programVersion();

} // namespace keelbright

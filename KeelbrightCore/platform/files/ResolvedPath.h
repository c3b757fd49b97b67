#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

namespace keelbright {

/// The path with every symbolic link resolved; the path itself where that fails. Internal to the
/// platform folder.
[[nodiscard]] FileURL resolvedPath(const FileURL& url);

} // namespace keelbright

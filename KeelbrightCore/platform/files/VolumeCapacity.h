#pragma once

#include "KeelbrightCore/platform/files/FileManager.h"

#include <expected>

namespace keelbright {

/// The capacity of the file system that holds the path; else an `errno` value. What the system would clear
/// away for a file of the user's counts as free, as it does in the system's own windows. Internal to the
/// platform folder.
[[nodiscard]] std::expected<FileSystemCapacity, int> volumeCapacity(const FileURL& url);

} // namespace keelbright

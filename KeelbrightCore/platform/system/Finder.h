#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

namespace keelbright {

/// The file browser that comes with the operating system, on the one that has it.
namespace Finder {

/// Asks it to show the item in its folder, selected; returns at once. False where there is no such
/// browser, or where it can't be asked.
[[nodiscard]] bool reveal(const FileURL& url);

} // namespace Finder
} // namespace keelbright

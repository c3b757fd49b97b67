#pragma once

#include "KeelbrightCore/platform/FileURL.h"

#include <functional>
#include <string>

namespace keelbright::testing {

/// Runs `work` in a child process as the user "nobody", whom `passable`, a folder of the test's own,
/// lets in from now on; what `work` fails to expect fails the calling test too. Returns why it
/// could not run, empty otherwise. Needs root.
[[nodiscard]] std::string asOtherUser(const FileURL& passable, const std::function<void()>& work);

} // namespace keelbright::testing

#pragma once

#include <QString>
#include <optional>

namespace keelbright {

/// Facts about the machine and the process.
namespace Host {

/// The name that the user gave the machine (the pretty host name), else its host name; nothing
/// where it has none.
[[nodiscard]] std::optional<QString> localizedName();
/// Name and version of the operating system as a free text, for people.
[[nodiscard]] QString operatingSystemVersionString();
/// The value of an environment variable; nothing where it is unset.
[[nodiscard]] std::optional<QString> environment(const char* name);

} // namespace Host
} // namespace keelbright
